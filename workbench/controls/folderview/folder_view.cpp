#include "workbench/controls/folderview/folder_view.h"

#include <windows.h>

#include <shellapi.h>

#include "workbench/controls/com/event_arguments.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/display_format.h"
#include "workbench/controls/shell/file_commands.h"
#include "workbench/controls/shell/item_object.h"

namespace controls {
namespace {

constexpr DISPID kFolderSelected = 1;
constexpr DISPID kMenuBuilding = 13;
constexpr DISPID kMenuCommand = 14;

}  // namespace

FolderView::FolderView()
    : pane_(*this), fileView_([this](const Location& location) { OnFileViewMoved(location); }) {}

FolderView::~FolderView() {
  CloseOnce();
}

void* FolderView::Interface(REFIID iid) {
  if (IsEqualIID(iid, kIidLocationPeer)) return static_cast<ILocationPeer*>(this);
  return OleControl::Interface(iid);
}

DispatchTable FolderView::Members() {
  using T = FolderView;
  using O = TreePane::Options;
  constexpr Access kGet = Access::kGet;
  constexpr Access kPut = Access::kPut;
  constexpr Access kMethod = Access::kMethod;
  static constexpr DispatchRow kRows[] = {
      {4, L"ShowFiles", kGet, 0, CallMember<T, &T::GetOption<&O::files>>},
      {4, L"ShowFiles", kPut, 1, CallMember<T, &T::PutOption<&O::files>>},
      {5, L"ShowVirtualFolders", kGet, 0, CallMember<T, &T::GetOption<&O::virtualFolders>>},
      {5, L"ShowVirtualFolders", kPut, 1, CallMember<T, &T::PutOption<&O::virtualFolders>>},
      {7, L"SelectedFolder", kGet, 0, CallMember<T, &T::GetSelectedFolder>},
      {13, L"Lines", kGet, 0, CallMember<T, &T::GetOption<&O::lines>>},
      {13, L"Lines", kPut, 1, CallMember<T, &T::PutOption<&O::lines>>},
      {14, L"Buttons", kGet, 0, CallMember<T, &T::GetOption<&O::buttons>>},
      {14, L"Buttons", kPut, 1, CallMember<T, &T::PutOption<&O::buttons>>},
      {18, L"ShowSelectionAlways", kGet, 0, CallMember<T, &T::GetOption<&O::showSelectionAlways>>},
      {18, L"ShowSelectionAlways", kPut, 1, CallMember<T, &T::PutOption<&O::showSelectionAlways>>},
      {19, L"InPlaceRename", kGet, 0, CallMember<T, &T::GetOption<&O::inPlaceRename>>},
      {19, L"InPlaceRename", kPut, 1, CallMember<T, &T::PutOption<&O::inPlaceRename>>},
      {21, L"ContextMenu", kGet, 0, CallMember<T, &T::GetContextMenu>},
      {21, L"ContextMenu", kPut, 1, CallMember<T, &T::PutContextMenu>},
      {22, L"DragAndDrop", kGet, 0, CallMember<T, &T::GetDragAndDrop>},
      {22, L"DragAndDrop", kPut, 1, CallMember<T, &T::PutDragAndDrop>},
      {23, L"TreeWindow", kGet, 0, CallMember<T, &T::GetTreeHandle>},
      {24, L"FileView", kGet, 0, CallMember<T, &T::GetFileView>},
      {24, L"FileView", kPut, 1, CallMember<T, &T::PutFileView>},
      {25, L"AddMenuItem", kMethod, 2, CallMember<T, &T::CallAddMenuItem>},
      {26, L"NewFolder", kMethod, 0, CallMember<T, &T::CallNewFolder>},
      {31, L"Font", kGet, 0, CallMember<T, &T::GetFont>},
      {31, L"Font", kPut, 1, CallMember<T, &T::PutFont>},
      {32, L"ShowHiddenItems", kGet, 0, CallMember<T, &T::GetOption<&O::hiddenItems>>},
      {32, L"ShowHiddenItems", kPut, 1, CallMember<T, &T::PutOption<&O::hiddenItems>>},
  };
  return {kRows, std::size(kRows)};
}

HWND FolderView::CreateControlWindow(HWND parent, const RECT& rect) {
  if (!pane_.CreatePane(parent, rect)) return nullptr;
  pane_.SetOptions(options_);
  pane_.SetDragging(dragAndDrop_);
  drops_.Register(pane_.tree(), *this);
  pane_.SetFont(font_.handle());
  if (!current_.empty()) pane_.SelectLocation(current_.Holder());
  return pane_.hwnd();
}

void FolderView::DestroyControlWindow() {
  drops_.Revoke();
  pane_.Destroy();
}

void FolderView::OnTreeDestroyed() {
  drops_.Revoke();
  ForgetWindow();
}

void FolderView::OnClose() {
  drops_.Revoke();
  dropped_.clear();
  operations_.Close();
  fileView_.Disconnect();
  fileViewObject_.reset();
  followers_.AnnounceClosing();
  events().RemoveAll();
}

// ILocationPeer

STDMETHODIMP FolderView::GetKind(PeerKind* kind) {
  if (!kind) return E_POINTER;
  *kind = PeerKind::kFolderView;
  return S_OK;
}

STDMETHODIMP FolderView::TellLocation(ILocationSink* sink) {
  return Guarded([&] {
    if (!sink) return E_POINTER;
    controls::TellLocation(*sink, current_);
    return S_OK;
  });
}

STDMETHODIMP FolderView::GoTo(const wchar_t* path, const ITEMIDLIST* pidl, UINT archiveLength) {
  return Guarded([&] {
    if (closed()) return E_UNEXPECTED;
    const ComRef<IOleObject> self(this);
    const Location location = LocationFromCall(path, pidl, archiveLength);
    if (location.empty()) return E_INVALIDARG;
    if (!fileView_.GoTo(location)) Arrive(location);
    return S_OK;
  });
}

STDMETHODIMP FolderView::AdviseLocation(ILocationSink* sink) {
  return Guarded([&] {
    followers_.Add(sink);
    return S_OK;
  });
}

STDMETHODIMP FolderView::UnadviseLocation(ILocationSink* sink) {
  followers_.Remove(sink);
  return S_OK;
}

void FolderView::OnFileViewMoved(const Location& location) {
  if (!closed()) Arrive(location);
}

// The tree is at a place now, whoever moved it. Followers hear it even when it is the old one: somebody may
// have tried to go elsewhere and must come back.
void FolderView::Arrive(const Location& location) {
  const ComRef<IOleObject> self(this);
  const bool moved = !(location == current_);
  current_ = location;
  // The tree shows folders on disk: inside an archive it stays on the folder that holds it.
  pane_.SelectLocation(location.Holder());
  followers_.Announce(location);
  if (!moved || eventsFrozen()) return;
  const ComRef<IDispatch> item = ItemOf(location);
  EventArguments<1> arguments;
  arguments.Object(item.get());
  events().Fire(kFolderSelected, arguments.values(), arguments.count());
}

void FolderView::OnNodeSelected(const Location& location) {
  const ComRef<IOleObject> self(this);
  if (location == current_) return;
  // The file view answers by telling its place: the new one, or the old one when the folder cannot be opened.
  if (!fileView_.GoTo(location)) Arrive(location);
}

// The selected node says nothing new, but the list may be in an archive of its folder: then it comes back.
void FolderView::OnNodeClicked(const Location& location) {
  const ComRef<IOleObject> self(this);
  if (current_.InArchive() && location == current_.Holder()) OnNodeSelected(location);
}

ComRef<IDispatch> FolderView::ItemOf(const Location& location) {
  return ComRef<IDispatch>::Attach(ComObject<LocationItem>::Create(location).detach());
}

// Members

HRESULT FolderView::GetSelectedFolder(Call& call) {
  Location location = pane_.selected();
  if (location.empty()) location = current_;
  return call.ReturnObject(location.empty() ? nullptr : ItemOf(location).get());
}

HRESULT FolderView::PutDragAndDrop(Call& call) {
  const HRESULT result = call.Bool(0, dragAndDrop_);
  if (SUCCEEDED(result)) pane_.SetDragging(dragAndDrop_);
  return result;
}

HRESULT FolderView::GetTreeHandle(Call& call) {
  return call.ReturnLong(static_cast<long>(reinterpret_cast<LONG_PTR>(pane_.tree())));
}

HRESULT FolderView::GetFileView(Call& call) {
  return call.ReturnObject(fileViewObject_.As<IDispatch>(IID_IDispatch).get());
}

HRESULT FolderView::PutFileView(Call& call) {
  IUnknown* object = nullptr;
  const HRESULT result = call.Object(0, object);
  if (FAILED(result)) return result;
  if (closed()) return E_UNEXPECTED;
  const Location before = current_;
  if (!fileView_.Connect(object, PeerKind::kFileView))
    throw CallError{E_NOINTERFACE, L"The object is not a file view of this kind."};
  fileViewObject_.reset();
  if (object) fileViewObject_ = ComRef<IUnknown>(object);
  // A tree that was somewhere before its file view was takes the file view along.
  if (object && !before.empty() && current_ == before) fileView_.GoTo(before);
  return S_OK;
}

HRESULT FolderView::GetFont(Call& call) {
  return call.ReturnObject(font_.object().get());
}

HRESULT FolderView::PutFont(Call& call) {
  IUnknown* object = nullptr;
  HRESULT result = call.Object(0, object);
  if (SUCCEEDED(result)) result = font_.Set(object);
  if (SUCCEEDED(result)) pane_.SetFont(font_.handle());
  return result;
}

HRESULT FolderView::CallAddMenuItem(Call& call) {
  std::wstring caption;
  std::wstring verb;
  HRESULT result = call.Text(0, caption);
  if (SUCCEEDED(result)) result = call.Text(1, verb);
  if (FAILED(result)) return result;
  if (!menu_)
    throw CallError{E_UNEXPECTED, L"Items can be added only while the context menu is being built."};
  return call.ReturnLong(menu_->Add(caption, verb));
}

HRESULT FolderView::CallNewFolder(Call&) {
  NewFolderUnder(pane_.selectedFolder());
  return S_OK;
}

// What the user does

bool FolderView::OnTreeKey(UINT key) {
  const ComRef<IOleObject> self(this);
  if (key == 'Z' && GetKeyState(VK_CONTROL) < 0) {
    Undo();
    return true;
  }
  switch (key) {
    case VK_RETURN:
      OnNodeClicked(pane_.selected());
      return true;
    case VK_F2:
      pane_.EditSelected();
      return true;
    case VK_F5:
      pane_.RefreshSelected();
      return true;
    case VK_DELETE:
      if (MayRenameNode(pane_.selected())) Delete(pane_.selected(), GetKeyState(VK_SHIFT) < 0);
      return true;
    default:
      return false;
  }
}

void FolderView::AddMenuEntries(ItemMenu& menu, const Location& location, bool isFile) {
  menu.AddOwn(L"&Open", isFile ? "openfile" : "open", true, true);
  if (!isFile) menu.AddOwn(L"R&efresh", "refresh");
  if (!location.IsFileSystem()) return;
  const bool changeable = MayRenameNode(location);
  menu.AddSeparator();
  menu.AddOwn(L"Cu&t", "cut", changeable);
  menu.AddOwn(L"&Copy", "copy", changeable);
  if (!isFile) menu.AddOwn(L"&Paste", "paste", ClipboardHasFiles());
  menu.AddUndo(operations_.UndoName());
  menu.AddSeparator();
  menu.AddOwn(L"&Delete", "delete", changeable);
  menu.AddOwn(L"Rena&me", "rename", changeable);
  if (!isFile) menu.AddOwn(L"Ne&w Folder", "newfolder");
}

void FolderView::OnTreeContextMenu(const Location& location, bool isFile, POINT screen) {
  const ComRef<IOleObject> self(this);
  if (!contextMenu_) return;
  ItemMenu menu;
  AddMenuEntries(menu, location, isFile);
  const ComRef<IDispatch> item = ItemOf(location);
  menu_ = &menu;
  EventArguments<1> building;
  building.Object(item.get());
  events().Fire(kMenuBuilding, building.values(), building.count());
  menu_ = nullptr;
  if (closed()) return;
  const ItemMenu::Choice choice = menu.Track(pane_.hwnd(), screen);
  if (choice.command == 0 || closed()) return;
  if (!choice.added) return RunVerb(choice.verb, location);
  EventArguments<2> chosen;
  chosen.Object(item.get()).Long(static_cast<long>(choice.command));
  events().Fire(kMenuCommand, chosen.values(), chosen.count());
}

// The shell's default verb.
void FolderView::OnFileOpened(const Location& location) {
  const ComRef<IOleObject> self(this);
  const std::wstring folder = ParentOfPath(location.path());
  SHELLEXECUTEINFOW request = {};
  request.cbSize = sizeof(request);
  request.fMask = SEE_MASK_FLAG_NO_UI;
  request.hwnd = pane_.hwnd();
  request.lpFile = location.path().c_str();
  request.lpDirectory = folder.empty() ? nullptr : folder.c_str();  // a program looks for its files beside this one
  request.nShow = SW_SHOWNORMAL;
  if (ShellExecuteExW(&request)) return;
  const DWORD error = GetLastError();
  Report(L"\u201C" + location.Name() + L"\u201D cannot be opened: " + SystemErrorText(error, location.Name()));
}

// Whoever was in a folder that has gone, or below it, goes to the one above.
void FolderView::OnNodeGone(const Location& location) {
  if (!current_.IsFileSystem() || !IsWithin(current_.path(), location.path())) return;
  const ComRef<IOleObject> self(this);
  const Location parent = location.Parent();
  if (!fileView_.GoTo(parent)) Arrive(parent);
}

}  // namespace controls
