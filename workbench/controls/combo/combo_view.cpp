#include "workbench/controls/combo/combo_view.h"

#include "workbench/controls/com/event_arguments.h"
#include "workbench/controls/model/display_text.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/archive_file.h"
#include "workbench/controls/shell/display_format.h"

namespace controls {
namespace {

constexpr DISPID kFolderChanged = 1;
constexpr DISPID kPathRefused = 2;

std::wstring Expanded(const std::wstring& text) {
  const DWORD size = ExpandEnvironmentStringsW(text.c_str(), nullptr, 0);
  if (size == 0) return text;
  std::wstring result(size, L'\0');
  const DWORD length = ExpandEnvironmentStringsW(text.c_str(), result.data(), size);
  if (length == 0 || length > size) return text;
  result.resize(length - 1);
  return result;
}

}  // namespace

ComboView::ComboView()
    : pane_(*this), folderView_([this](const Location& location) { OnPeerMoved(location); }) {}

ComboView::~ComboView() {
  CloseOnce();
}

DispatchTable ComboView::Members() {
  using T = ComboView;
  using O = ComboPane::Options;
  constexpr Access kGet = Access::kGet;
  constexpr Access kPut = Access::kPut;
  static constexpr DispatchRow kRows[] = {
      {DISPID_FONT, L"Font", kGet, 0, CallMember<T, &T::GetFont>},
      {DISPID_FONT, L"Font", kPut, 1, CallMember<T, &T::PutFont>},
      {1, L"DropDownRows", kGet, 0, CallMember<T, &T::GetRows>},
      {1, L"DropDownRows", kPut, 1, CallMember<T, &T::PutRows>},
      {2, L"FullPath", kGet, 0, CallMember<T, &T::GetOption<&O::fullPath>>},
      {2, L"FullPath", kPut, 1, CallMember<T, &T::PutOption<&O::fullPath>>},
      {4, L"ShowVirtualFolders", kGet, 0, CallMember<T, &T::GetOption<&O::virtualFolders>>},
      {4, L"ShowVirtualFolders", kPut, 1, CallMember<T, &T::PutOption<&O::virtualFolders>>},
      {7, L"History", kGet, 0, CallMember<T, &T::GetOption<&O::history>>},
      {7, L"History", kPut, 1, CallMember<T, &T::PutOption<&O::history>>},
      {8, L"FolderView", kGet, 0, CallMember<T, &T::GetFolderView>},
      {8, L"FolderView", kPut, 1, CallMember<T, &T::PutFolderView>},
      {12, L"Icons", kGet, 0, CallMember<T, &T::GetOption<&O::icons>>},
      {12, L"Icons", kPut, 1, CallMember<T, &T::PutOption<&O::icons>>},
      {13, L"ComboWindow", kGet, 0, CallMember<T, &T::GetComboHandle>},
      {14, L"Completion", kGet, 0, CallMember<T, &T::GetOption<&O::completion>>},
      {14, L"Completion", kPut, 1, CallMember<T, &T::PutOption<&O::completion>>},
      {15, L"EnterNavigates", kGet, 0, CallMember<T, &T::GetOption<&O::enterNavigates>>},
      {15, L"EnterNavigates", kPut, 1, CallMember<T, &T::PutOption<&O::enterNavigates>>},
      {16, L"BorderStyle", kGet, 0, CallMember<T, &T::GetBorder>},
      {16, L"BorderStyle", kPut, 1, CallMember<T, &T::PutBorder>},
  };
  return {kRows, std::size(kRows)};
}

HWND ComboView::CreateControlWindow(HWND parent, const RECT& rect) {
  if (!pane_.CreatePane(parent, rect)) return nullptr;
  pane_.SetFont(font_.handle());
  pane_.SetOptions(options_);
  pane_.ShowLocation(current_);
  ApplyBorder();
  return pane_.hwnd();
}

void ComboView::OnClose() {
  folderView_.Disconnect();
  folderViewObject_.reset();
  events().RemoveAll();
}

HRESULT ComboView::PutRows(Call& call) {
  long rows = 0;
  const HRESULT result = call.Long(0, rows);
  if (FAILED(result)) return result;
  if (rows < 1 || rows > 200) return E_INVALIDARG;
  options_.rows = static_cast<int>(rows);
  pane_.SetOptions(options_);
  return S_OK;
}

HRESULT ComboView::GetFolderView(Call& call) {
  return call.ReturnObject(folderViewObject_.As<IDispatch>(IID_IDispatch).get());
}

HRESULT ComboView::PutFolderView(Call& call) {
  IUnknown* object = nullptr;
  const HRESULT result = call.Object(0, object);
  if (FAILED(result)) return result;
  if (closed()) return E_UNEXPECTED;
  if (!folderView_.Connect(object))
    throw CallError{E_NOINTERFACE, L"The object is not a folder view of this kind."};
  folderViewObject_.reset();
  if (object) folderViewObject_ = ComRef<IUnknown>(object);
  return S_OK;
}

HRESULT ComboView::GetComboHandle(Call& call) {
  return call.ReturnLong(static_cast<long>(reinterpret_cast<LONG_PTR>(pane_.combo())));
}

HRESULT ComboView::PutBorder(Call& call) {
  long border = 0;
  const HRESULT result = call.Long(0, border);
  if (FAILED(result)) return result;
  if (border < 0 || border > 3) return E_INVALIDARG;
  border_ = border;
  ApplyBorder();
  return S_OK;
}

// 3 is the combo box's own border; 1 and 2 add one around it.
void ComboView::ApplyBorder() {
  if (!pane_.combo()) return;
  const auto style = GetWindowLongPtrW(pane_.combo(), GWL_STYLE);
  const auto extended = GetWindowLongPtrW(pane_.combo(), GWL_EXSTYLE);
  SetWindowLongPtrW(pane_.combo(), GWL_STYLE, border_ == 1 ? style | WS_BORDER : style & ~WS_BORDER);
  SetWindowLongPtrW(pane_.combo(), GWL_EXSTYLE,
                    border_ == 2 ? extended | WS_EX_CLIENTEDGE : extended & ~WS_EX_CLIENTEDGE);
  SetWindowPos(pane_.combo(), nullptr, 0, 0, 0, 0,
               SWP_FRAMECHANGED | SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

HRESULT ComboView::GetFont(Call& call) {
  return call.ReturnObject(font_.object().get());
}

HRESULT ComboView::PutFont(Call& call) {
  IUnknown* object = nullptr;
  HRESULT result = call.Object(0, object);
  if (SUCCEEDED(result)) result = font_.Set(object);
  if (SUCCEEDED(result)) pane_.SetFont(font_.handle());
  return result;
}

void ComboView::OnPeerMoved(const Location& location) {
  if (closed()) return;
  const bool moved = !(location == current_);
  current_ = location;
  pane_.ShowLocation(location);
  if (!moved || eventsFrozen()) return;
  EventArguments<1> arguments;
  arguments.Text(location.Text());
  events().Fire(kFolderChanged, arguments.values(), arguments.count());
}

void ComboView::OnPlaceChosen(const Location& location) {
  const ComRef<IOleObject> self(this);
  // Without anybody to follow the box keeps the place by itself.
  if (!folderView_.GoTo(location)) OnPeerMoved(location);
}

void ComboView::OnTextEntered(const std::wstring& typed) {
  const ComRef<IOleObject> self(this);
  const std::wstring path = TidyTypedPath(Expanded(typed));
  if (path.empty()) return pane_.ShowLocation(current_);
  for (const Location& place : {Location::Desktop(), Location::Computer()}) {
    if (SamePath(path, place.Text())) return OnPlaceChosen(place);
  }
  if (!IsAbsolutePath(path)) {
    return Refuse(typed,
                  L"Type a whole path, beginning with a drive (C:\\) or a server (\\\\server\\share).");
  }
  // Whether archives are folders, and what stands in them, the list knows.
  if (const size_t archive = ArchiveLengthOnDisk(path))
    return OnPlaceChosen(Location::FromPath(path, archive));
  const DWORD attributes = GetFileAttributesW(ExtendedPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    const DWORD error = GetLastError();
    return Refuse(typed, FolderErrorText(error, path, SystemErrorText(error, NameOfPath(path))));
  }
  if (!(attributes & FILE_ATTRIBUTE_DIRECTORY))
    return Refuse(typed, FolderErrorText(ERROR_DIRECTORY, path, L""));
  // A folder that may not be opened is reported by the list, and the old path comes back.
  OnPlaceChosen(Location::FromPath(path));
}

void ComboView::Refuse(const std::wstring& text, const std::wstring& reason) {
  pane_.ShowLocation(current_);
  EventArguments<1> arguments;
  arguments.Text(text);
  events().Fire(kPathRefused, arguments.values(), arguments.count());
  if (closed()) return;
  MessageBoxW(GetAncestor(pane_.hwnd(), GA_ROOT), reason.c_str(), L"Path", MB_OK | MB_ICONEXCLAMATION);
  if (!closed()) pane_.FocusEdit();
}

}  // namespace controls
