#include "workbench/controls/shell/file_drop.h"

#include <ole2.h>
#include <shlobj.h>

#include "workbench/controls/shell/file_list.h"

namespace controls {

class FileDropTarget : public IDropTarget {
 public:
  void* Interface(REFIID iid) {
    static constexpr InterfaceRow<FileDropTarget> kRows[] = {
        Row<FileDropTarget, IDropTarget>(IID_IUnknown),
        Row<FileDropTarget, IDropTarget>(IID_IDropTarget),
    };
    return FindInterface(kRows, this, iid);
  }
  void Forget() { view_ = nullptr; }

  STDMETHODIMP DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override {
    return Guarded([&] {
      if (!effect) return E_POINTER;
      paths_ = view_ && view_->TakesDrops() ? FilesOf(data) : std::vector<std::wstring>();
      rightButton_ = (keys & MK_RBUTTON) != 0;
      Hover(keys, point, *effect);
      return S_OK;
    });
  }
  STDMETHODIMP DragOver(DWORD keys, POINTL point, DWORD* effect) override {
    return Guarded([&] {
      if (!effect) return E_POINTER;
      Hover(keys, point, *effect);
      return S_OK;
    });
  }
  STDMETHODIMP DragLeave() override {
    return Guarded([&] {
      paths_.clear();
      if (view_) view_->HideDropTarget();
      return S_OK;
    });
  }
  STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override {
    return Guarded([&] {
      if (!effect) return E_POINTER;
      DroppedFiles files;
      files.action = ActionAt(keys, point, *effect, files.folder);
      files.paths = std::move(paths_);
      files.ask = rightButton_;
      files.point = {point.x, point.y};
      paths_.clear();
      if (view_) view_->HideDropTarget();
      *effect = files.action == DropAction::kCopy ? DROPEFFECT_COPY : DROPEFFECT_NONE;
      if (!view_ || files.action == DropAction::kNone) return S_OK;
      // The files are moved here, not by the source: one that heard of a move would delete them itself.
      if (files.action == DropAction::kMove) TellPerformed(data, DROPEFFECT_NONE);
      view_->OnFilesDropped(std::move(files));
      return S_OK;
    });
  }

 protected:
  explicit FileDropTarget(DropView& view) : view_(&view) {}
  virtual ~FileDropTarget() = default;

 private:
  static void TellPerformed(IDataObject* data, DWORD effect) {
    FORMATETC format = {static_cast<CLIPFORMAT>(PerformedEffectFormat()), nullptr, DVASPECT_CONTENT, -1,
                        TYMED_HGLOBAL};
    STGMEDIUM medium = {};
    medium.tymed = TYMED_HGLOBAL;
    medium.hGlobal = MakeEffectBlock(effect);
    if (medium.hGlobal && (!data || FAILED(data->SetData(&format, &medium, TRUE))))
      GlobalFree(medium.hGlobal);
  }

  DropAction ActionAt(DWORD keys, POINTL point, DWORD allowed, std::wstring& folder) {
    if (!view_ || paths_.empty() || !view_->TakesDrops()) return DropAction::kNone;
    folder = view_->DropFolderAt({point.x, point.y});
    const DropKeys held = {(keys & MK_CONTROL) != 0, (keys & MK_SHIFT) != 0, (keys & MK_ALT) != 0};
    return ChooseDropAction(paths_, folder, held,
                            {(allowed & DROPEFFECT_COPY) != 0, (allowed & DROPEFFECT_MOVE) != 0});
  }

  void Hover(DWORD keys, POINTL point, DWORD& effect) {
    std::wstring folder;
    const DropAction action = ActionAt(keys, point, effect, folder);
    effect = action == DropAction::kCopy   ? DROPEFFECT_COPY
             : action == DropAction::kMove ? DROPEFFECT_MOVE
                                           : DROPEFFECT_NONE;
    if (view_ && !paths_.empty()) view_->ShowDropTarget({point.x, point.y}, action != DropAction::kNone);
  }

  DropView* view_;  // null after the view has gone
  std::vector<std::wstring> paths_;
  bool rightButton_ = false;
};

void DropRegistration::Register(HWND window, DropView& view) {
  Revoke();
  // The host may have initialised COM without OLE, which dropping needs.
  if (FAILED(OleInitialize(nullptr))) return;
  window_ = window;
  const ComRef<ComObject<FileDropTarget>> target = ComObject<FileDropTarget>::Create(view);
  target_ = target.get();
  reference_ = ComRef<IDropTarget>(target_);
  RegisterDragDrop(window, target_);
}

void DropRegistration::Revoke() {
  if (!window_) return;
  target_->Forget();
  target_ = nullptr;
  RevokeDragDrop(window_);
  reference_.reset();
  window_ = nullptr;
  OleUninitialize();
}

DropAction AskDropAction(HWND owner, POINT screen, bool move) {
  constexpr UINT kCopy = 1;
  constexpr UINT kMove = 2;
  const HMENU menu = CreatePopupMenu();
  AppendMenuW(menu, MF_STRING, kCopy, L"&Copy Here");
  AppendMenuW(menu, MF_STRING, kMove, L"&Move Here");
  AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
  AppendMenuW(menu, MF_STRING, 3, L"Cancel");
  SetMenuDefaultItem(menu, move ? kMove : kCopy, FALSE);
  SetForegroundWindow(owner);
  const auto chosen = static_cast<UINT>(
      TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, owner, nullptr));
  DestroyMenu(menu);
  return chosen == kCopy ? DropAction::kCopy : chosen == kMove ? DropAction::kMove : DropAction::kNone;
}

void ScrollNearEdge(HWND view, POINT screen) {
  RECT client;
  GetClientRect(view, &client);
  ScreenToClient(view, &screen);
  const LONG edge = client.bottom / 8 < 18 ? client.bottom / 8 : 18;
  if (screen.y >= 0 && screen.y < edge) SendMessageW(view, WM_VSCROLL, SB_LINEUP, 0);
  if (screen.y < client.bottom && screen.y >= client.bottom - edge)
    SendMessageW(view, WM_VSCROLL, SB_LINEDOWN, 0);
}

}  // namespace controls
