#include "workbench/controls/combo/combo_pane.h"

#include <algorithm>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/combo/folder_completion.h"
#include "workbench/controls/model/path_logic.h"

namespace controls {
namespace {

constexpr wchar_t kClassName[] = L"SswareShellCombo";
constexpr size_t kMostVisited = 10;
constexpr UINT kChosenMessage = WM_APP + 1;

std::vector<Location> ChildrenOfComputer() {
  std::vector<Location> children;
  ComRef<IShellFolder> desktop;
  ComRef<IShellFolder> computer;
  ComRef<IEnumIDList> list;
  const Location place = Location::Computer();
  if (!place.pidl() || FAILED(SHGetDesktopFolder(desktop.put())) ||
      FAILED(desktop->BindToObject(place.pidl(), nullptr, IID_IShellFolder, computer.put_void())) ||
      FAILED(computer->EnumObjects(nullptr, SHCONTF_FOLDERS, list.put())) || !list) {
    return children;
  }
  LPITEMIDLIST next = nullptr;
  while (list->Next(1, &next, nullptr) == S_OK) {
    const UniquePidl child(next);
    const UniquePidl whole(ILCombine(place.pidl(), child.get()));
    Location location = Location::FromPidl(whole.get());
    if (location.IsFileSystem() && IsRootPath(location.path())) children.push_back(std::move(location));
  }
  return children;
}

}  // namespace

ComboPane::~ComboPane() {
  editPart_.Detach();
  Destroy();
}

bool ComboPane::CreatePane(HWND parent, const RECT& rect) {
  return Create(kClassName, parent, rect) && CreateCombo();
}

bool ComboPane::CreateCombo() {
  combo_ = CreateWindowExW(0, WC_COMBOBOXEXW, L"",
                           WS_CHILD | WS_VISIBLE | WS_TABSTOP | CBS_DROPDOWN | CBS_AUTOHSCROLL, 0, 0, 100,
                           400, hwnd(), reinterpret_cast<HMENU>(1), nullptr, nullptr);
  if (!combo_) return false;
  SendMessageW(combo_, CBEM_SETUNICODEFORMAT, TRUE, 0);
  edit_ = reinterpret_cast<HWND>(SendMessageW(combo_, CBEM_GETEDITCONTROL, 0, 0));
  if (edit_) editPart_.Attach(edit_);
  SendMessageW(combo_, CBEM_SETIMAGELIST, 0,
               reinterpret_cast<LPARAM>(options_.icons ? SystemImages(false) : nullptr));
  if (font_) SetFont(font_);
  ApplyRows();
  Layout();
  ShowLocation(current_);
  return true;
}

void ComboPane::SetFont(HFONT font) {
  font_ = font;
  if (!combo_) return;
  SendMessageW(combo_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  Layout();
}

void ComboPane::SetOptions(const Options& options) {
  const bool iconsDiffer = options.icons != options_.icons;
  options_ = options;
  if (!combo_) return;
  if (iconsDiffer) {
    SendMessageW(combo_, CBEM_SETIMAGELIST, 0,
                 reinterpret_cast<LPARAM>(options_.icons ? SystemImages(false) : nullptr));
  }
  ApplyRows();
  ShowLocation(current_);
}

// The list drops down as far as the wanted number of rows.
void ComboPane::ApplyRows() {
  const auto box = reinterpret_cast<HWND>(SendMessageW(combo_, CBEM_GETCOMBOCONTROL, 0, 0));
  if (box) SendMessageW(box, CB_SETMINVISIBLE, static_cast<WPARAM>(options_.rows), 0);
}

void ComboPane::Layout() {
  RECT client;
  GetClientRect(hwnd(), &client);
  if (!combo_) return;
  const auto rowHeight = static_cast<int>(SendMessageW(combo_, CB_GETITEMHEIGHT, 0, 0));
  // A combo box's height is that of its open list; closed it keeps the height of its text.
  const int height = 40 + (rowHeight > 0 ? rowHeight : 18) * options_.rows;
  SetWindowPos(combo_, nullptr, 0, 0, client.right, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

// While it is edited the text is the whole path whatever the option says: a name alone leads nowhere.
std::wstring ComboPane::TextOf(const Location& location) const {
  return options_.fullPath || GetFocus() == edit_ ? location.Text() : location.Name();
}

void ComboPane::EditWholePath() {
  if (options_.fullPath || current_.empty()) return;
  SetWindowTextW(edit_, TextOf(current_).c_str());
  SendMessageW(edit_, EM_SETSEL, 0, -1);
}

int ComboPane::IconOf(const Location& location) {
  if (location.InArchive() && !location.IsInsideArchive())
    return types_.IconOf(types_.TypeOf(location.Name(), false));
  if (location.IsFileSystem() && !IsRootPath(location.path())) return types_.IconOf(TypeCache::kFolder);
  return IconOfPidl(location.pidl());
}

void ComboPane::ShowLocation(const Location& location) {
  if (!(location == current_) && location.IsFileSystem()) {
    std::erase(visited_, location);
    visited_.push_front(location);
    if (visited_.size() > kMostVisited) visited_.pop_back();
  }
  current_ = location;
  if (!combo_ || location.empty()) return;
  filling_ = true;
  COMBOBOXEXITEMW item = {};
  item.iItem = -1;
  std::wstring text = TextOf(location);
  item.mask = CBEIF_TEXT | CBEIF_IMAGE | CBEIF_SELECTEDIMAGE;
  item.pszText = text.data();
  item.iImage = IconOf(location);
  item.iSelectedImage = item.iImage;
  SendMessageW(combo_, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
  SendMessageW(combo_, CBEM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
  if (edit_) SetWindowTextW(edit_, text.c_str());
  filling_ = false;
  InvalidateRect(combo_, nullptr, TRUE);
}

void ComboPane::FocusEdit() {
  if (edit_) SetFocus(edit_);
}

// Desktop, the computer, its drives, and below the current drive the folders on the way to the current one.
std::vector<ComboPane::Place> ComboPane::Places() const {
  std::vector<Place> places;
  if (options_.virtualFolders) {
    places.push_back({Location::Desktop(), 0});
    places.push_back({Location::Computer(), 1});
  }
  const int driveIndent = options_.virtualFolders ? 2 : 0;
  const std::vector<std::wstring> chain = PathChain(current_.path());
  bool chainListed = false;
  const auto listChain = [&] {
    for (size_t i = 1; i < chain.size(); ++i) {
      places.push_back(
          {Location::FromPath(chain[i], current_.archiveLength()), driveIndent + static_cast<int>(i)});
    }
    chainListed = true;
  };
  for (const Location& drive : ChildrenOfComputer()) {
    places.push_back({drive, driveIndent});
    if (!chain.empty() && SamePath(drive.path(), chain.front())) listChain();
  }
  if (!chainListed && !chain.empty()) {
    places.push_back({Location::FromPath(chain.front()), driveIndent});
    listChain();
  }
  if (!options_.history) return places;
  for (const Location& visited : visited_) {
    const bool listed = std::any_of(places.begin(), places.end(),
                                    [&](const Place& place) { return place.location == visited; });
    if (!listed) places.push_back({visited, 0});
  }
  return places;
}

void ComboPane::InsertPlace(int index, const Place& place) {
  // A folder of the chain shows its name, as its parents stand above it; one from the history its path.
  const bool whole = place.indent == 0 && place.location.IsFileSystem();
  std::wstring text = whole ? place.location.path() : place.location.Name();
  if (place.location.IsFileSystem() && IsRootPath(place.location.path()) && place.location.pidl()) {
    const std::wstring drive = DisplayNameOf(place.location.pidl());
    if (!drive.empty()) text = drive;
  }
  text += L' ';  // the row is measured a little too narrow: without it the last letter is cut
  COMBOBOXEXITEMW item = {};
  item.mask = CBEIF_TEXT | CBEIF_IMAGE | CBEIF_SELECTEDIMAGE | CBEIF_INDENT;
  item.iItem = index;
  item.pszText = text.data();
  item.iImage = IconOf(place.location);
  item.iSelectedImage = item.iImage;
  item.iIndent = place.indent;
  SendMessageW(combo_, CBEM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void ComboPane::FillList() {
  filling_ = true;
  SendMessageW(combo_, CB_RESETCONTENT, 0, 0);
  listed_ = Places();
  int selected = -1;
  for (size_t i = 0; i < listed_.size(); ++i) {
    InsertPlace(static_cast<int>(i), listed_[i]);
    if (selected < 0 && listed_[i].location == current_) selected = static_cast<int>(i);
  }
  if (selected >= 0) SendMessageW(combo_, CB_SETCURSEL, static_cast<WPARAM>(selected), 0);
  if (edit_) SetWindowTextW(edit_, TextOf(current_).c_str());
  filling_ = false;
}

LRESULT ComboPane::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      Layout();
      return 0;
    case WM_ERASEBKGND: {
      RECT client;
      GetClientRect(hwnd(), &client);
      FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_BTNFACE));
      return 1;
    }
    case WM_NOTIFYFORMAT:
      return NFR_UNICODE;
    case WM_SETFOCUS:
      FocusEdit();
      return 0;
    case WM_COMMAND:
      if (reinterpret_cast<HWND>(lParam) != combo_ || filling_) return 0;
      if (HIWORD(wParam) == CBN_DROPDOWN) FillList();
      // The box is still closing: the choice is carried out after it.
      if (HIWORD(wParam) == CBN_SELENDOK) PostMessageW(hwnd(), kChosenMessage, 0, 0);
      if (HIWORD(wParam) == CBN_SELENDCANCEL || HIWORD(wParam) == CBN_CLOSEUP)
        PostMessageW(hwnd(), kChosenMessage, 1, 0);
      if (HIWORD(wParam) == CBN_SETFOCUS) owner_.OnComboFocus();
      return 0;
    case kChosenMessage: {
      const auto index = static_cast<size_t>(SendMessageW(combo_, CB_GETCURSEL, 0, 0));
      if (wParam != 0 || index >= listed_.size()) {
        if (wParam != 0 && GetFocus() != edit_) Restore();
        return 0;
      }
      const Location chosen = listed_[index].location;
      Restore();
      owner_.OnPlaceChosen(chosen);
      return 0;
    }
    case WM_DESTROY:
      editPart_.Detach();
      combo_ = nullptr;
      edit_ = nullptr;
      owner_.OnComboDestroyed();
      return 0;
    default:
      return Default(message, wParam, lParam);
  }
}

void ComboPane::Restore() {
  ShowLocation(current_);
}

void ComboPane::EnterText() {
  const int length = GetWindowTextLengthW(edit_);
  std::wstring text(static_cast<size_t>(length), L'\0');
  GetWindowTextW(edit_, text.data(), length + 1);
  if (SendMessageW(combo_, CB_GETDROPPEDSTATE, 0, 0)) SendMessageW(combo_, CB_SHOWDROPDOWN, FALSE, 0);
  owner_.OnTextEntered(text);
}

// Completes what was typed from the places that the box knows, else from the disk; the added part is
// selected, so that typing goes on over it.
void ComboPane::Complete() {
  const int length = GetWindowTextLengthW(edit_);
  std::wstring typed(static_cast<size_t>(length), L'\0');
  GetWindowTextW(edit_, typed.data(), length + 1);
  DWORD caret = 0;
  SendMessageW(edit_, EM_GETSEL, 0, reinterpret_cast<LPARAM>(&caret));
  if (typed.size() < 3 || caret != typed.size()) return;
  const std::wstring added = CompletionOf(typed);
  if (added.empty()) return;
  SetWindowTextW(edit_, (typed + added).c_str());
  SendMessageW(edit_, EM_SETSEL, typed.size(), static_cast<LPARAM>(typed.size() + added.size()));
}

std::wstring ComboPane::CompletionOf(const std::wstring& typed) const {
  for (const Location& visited : visited_) {
    const std::wstring& path = visited.path();
    if (path.size() > typed.size() && SamePath(path.substr(0, typed.size()), typed))
      return path.substr(typed.size());
  }
  return FolderCompletion(typed);
}

LRESULT ComboPane::EditPart::HandleSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_KEYDOWN:
      if (wParam == VK_RETURN && pane_.options_.enterNavigates) {
        pane_.EnterText();
        return 0;
      }
      if (wParam == VK_ESCAPE && !SendMessageW(pane_.combo_, CB_GETDROPPEDSTATE, 0, 0)) {
        pane_.Restore();
        SendMessageW(window, EM_SETSEL, 0, -1);
        return 0;
      }
      break;
    case WM_CHAR: {
      if (wParam == VK_RETURN || wParam == VK_ESCAPE) return 0;  // no beep
      const LRESULT result = Original(window, message, wParam, lParam);
      if (pane_.options_.completion && wParam >= L' ') pane_.Complete();
      return result;
    }
    case WM_GETDLGCODE:
      return Original(window, message, wParam, lParam) | DLGC_WANTALLKEYS;
    case WM_SETFOCUS: {
      const LRESULT result = Original(window, message, wParam, lParam);
      pane_.EditWholePath();
      return result;
    }
    case WM_KILLFOCUS: {
      const LRESULT result = Original(window, message, wParam, lParam);
      // What was typed and not entered is no place.
      if (pane_.combo_ && !SendMessageW(pane_.combo_, CB_GETDROPPEDSTATE, 0, 0)) pane_.Restore();
      return result;
    }
    default:
      break;
  }
  return Original(window, message, wParam, lParam);
}

}  // namespace controls
