// window_probe.exe: says where the windows of running programs are. One line an answer, values separated by
// tabs; all places are pixels of the screen, texts are UTF-8. The result is 1 when there is no answer.
//   windows                   every visible window: X Y WIDTH HEIGHT CLASS ID TEXT, parents before their
//   children find CLASS ID TEXT        the first visible window that agrees: X Y WIDTH HEIGHT; * agrees with
//   everything button TOOLBAR COMMAND    a button of the visible toolbar with that id: X Y WIDTH HEIGHT STATE
//   (TBSTATE_ bits) row NAME                  the label of a row of the file list: X Y WIDTH HEIGHT SELECTED
//   item NAME                 the label of an item of a visible tree: X Y WIDTH HEIGHT
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cstring>
#include <cwchar>
#include <functional>
#include <string>
#include <vector>

#include "tools/pictures/remote_window.h"

namespace {

using namespace remote_window;

BOOL CALLBACK Collect(HWND window, LPARAM windows) {
  if (IsWindowVisible(window)) reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  return TRUE;
}

std::vector<HWND> VisibleWindows() {
  std::vector<HWND> tops;
  EnumWindows(Collect, reinterpret_cast<LPARAM>(&tops));
  std::vector<HWND> all;
  for (const HWND top : tops) {
    all.push_back(top);
    EnumChildWindows(top, Collect, reinterpret_cast<LPARAM>(&all));
  }
  return all;
}

HWND FirstWindow(const std::function<bool(HWND)>& agrees) {
  for (const HWND window : VisibleWindows()) {
    if (agrees(window)) return window;
  }
  return nullptr;
}

RECT ScreenRect(HWND window) {
  RECT rect = {};
  GetWindowRect(window, &rect);
  return rect;
}

void PrintRect(const RECT& rect) {
  std::printf("%ld\t%ld\t%ld\t%ld", rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
}

std::wstring ItemName(HWND tree, HTREEITEM handle) {
  const RemoteMemory remote(tree);
  TVITEMW item = {};
  item.mask = TVIF_TEXT;
  item.hItem = handle;
  item.cchTextMax = kTextSize;
  item.pszText = reinterpret_cast<wchar_t*>(remote.address() + sizeof item);
  wchar_t text[kTextSize] = L"";
  if (!remote.Write(&item, sizeof item)) return {};
  Ask(tree, TVM_GETITEMW, 0, remote.parameter());
  remote.Read(sizeof item, text, sizeof text);
  text[kTextSize - 1] = L'\0';
  return text;
}

int PrintWindows() {
  for (const HWND window : VisibleWindows()) {
    PrintRect(ScreenRect(window));
    std::printf("\t%s\t%d\t%s\n", Utf8(ClassOf(window)).c_str(), GetDlgCtrlID(window),
                Utf8(TextOf(window)).c_str());
  }
  return 0;
}

int Find(const std::wstring& name, const std::wstring& id, const std::wstring& text) {
  const HWND window = FirstWindow([&](HWND candidate) {
    return (name == L"*" || ClassOf(candidate) == name) &&
           (id == L"*" || std::to_wstring(GetDlgCtrlID(candidate)) == id) &&
           (text == L"*" || TextOf(candidate) == text);
  });
  if (window == nullptr) return 1;
  PrintRect(ScreenRect(window));
  std::printf("\n");
  return 0;
}

int PrintButton(int toolbarId, int command) {
  const HWND toolbar = FirstWindow([&](HWND candidate) {
    return GetDlgCtrlID(candidate) == toolbarId && ClassOf(candidate) == TOOLBARCLASSNAMEW;
  });
  if (toolbar == nullptr) return 1;
  const auto rect = AskRect(toolbar, TB_GETRECT, static_cast<WPARAM>(command), {});
  if (!rect) return 1;
  PrintRect(*rect);
  std::printf("\t%ld\n", static_cast<long>(Ask(toolbar, TB_GETSTATE, static_cast<WPARAM>(command), 0)));
  return 0;
}

int PrintRow(const std::wstring& name) {
  const HWND list = FirstWindow([](HWND candidate) { return ClassOf(candidate) == WC_LISTVIEWW; });
  const int count = list == nullptr ? 0 : static_cast<int>(Ask(list, LVM_GETITEMCOUNT, 0, 0));
  for (int row = 0; row < count; ++row) {
    if (RowName(list, row) != name) continue;
    RECT part = {};
    part.left = LVIR_LABEL;
    const auto rect = AskRect(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), part);
    if (!rect) return 1;
    PrintRect(*rect);
    std::printf("\t%d\n", Ask(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0 ? 1 : 0);
    return 0;
  }
  return 1;
}

int PrintItem(const std::wstring& name) {
  const HWND tree = FirstWindow([](HWND candidate) { return ClassOf(candidate) == WC_TREEVIEWW; });
  if (tree == nullptr) return 1;
  auto item = reinterpret_cast<HTREEITEM>(Ask(tree, TVM_GETNEXTITEM, TVGN_FIRSTVISIBLE, 0));
  for (; item != nullptr; item = reinterpret_cast<HTREEITEM>(
                              Ask(tree, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, reinterpret_cast<LPARAM>(item)))) {
    if (ItemName(tree, item) != name) continue;
    RECT handle = {};
    std::memcpy(&handle, &item, sizeof item);
    const auto rect = AskRect(tree, TVM_GETITEMRECT, TRUE, handle);
    if (!rect) return 1;
    PrintRect(*rect);
    std::printf("\n");
    return 0;
  }
  return 1;
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
  const std::wstring question = count > 1 ? arguments[1] : L"";
  if (question == L"windows" && count == 2) return PrintWindows();
  if (question == L"find" && count == 5) return Find(arguments[2], arguments[3], arguments[4]);
  if (question == L"button" && count == 4) return PrintButton(_wtoi(arguments[2]), _wtoi(arguments[3]));
  if (question == L"row" && count == 3) return PrintRow(arguments[2]);
  if (question == L"item" && count == 3) return PrintItem(arguments[2]);
  std::fprintf(stderr,
               "window_probe windows | find CLASS ID TEXT | button TOOLBAR COMMAND | row NAME | item NAME\n");
  return 2;
}
