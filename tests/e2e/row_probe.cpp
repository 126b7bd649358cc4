// row_probe.exe: prints what a running workbench shows, one fact a line, the values separated by tabs:
//   title   TEXT                        of the main window
//   status  TEXT                        the left part of the status line
//   close   X Y                         a point on the main window's close box
//   view    CLASS X Y WIDTH HEIGHT      the document in front
//   row     X Y SELECTED NAME           for each row of the file list that is in sight
// All places are in pixels of the screen, the texts in UTF-8. The result is 1 when no workbench is open.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/pictures/remote_window.h"

namespace {

using namespace remote_window;

constexpr wchar_t kMainClass[] = L"WorkbenchMainWindow";
constexpr wchar_t kDocumentAreaClass[] = L"WorkbenchDocumentArea";

BOOL CALLBACK CollectWindow(HWND window, LPARAM windows) {
  reinterpret_cast<std::vector<HWND>*>(windows)->push_back(window);
  return TRUE;
}

// The windows below root that are in sight.
std::vector<HWND> VisibleBelow(HWND root) {
  std::vector<HWND> windows;
  EnumChildWindows(root, CollectWindow, reinterpret_cast<LPARAM>(&windows));
  std::erase_if(windows, [](HWND window) { return !IsWindowVisible(window); });
  return windows;
}

HWND FirstOfClass(const std::vector<HWND>& windows, std::wstring_view name) {
  const auto found =
      std::find_if(windows.begin(), windows.end(), [&](HWND window) { return ClassOf(window) == name; });
  return found == windows.end() ? nullptr : *found;
}

void PrintRow(HWND list, int row) {
  RECT part = {};
  part.left = LVIR_LABEL;
  const std::optional<RECT> label = AskRect(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), part);
  RECT client = {};
  if (!label || !GetClientRect(list, &client)) return;
  MapWindowPoints(list, nullptr, reinterpret_cast<POINT*>(&client), 2);
  RECT seen = {};
  if (!IntersectRect(&seen, &*label, &client)) return;
  const bool selected = Ask(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
  std::printf("row\t%ld\t%ld\t%d\t%s\n", (seen.left + seen.right) / 2, (seen.top + seen.bottom) / 2,
              selected ? 1 : 0, Utf8(RowName(list, row)).c_str());
}

void PrintRows(HWND list) {
  const LRESULT count = Ask(list, LVM_GETITEMCOUNT, 0, 0);
  for (LRESULT row = 0; row < count; ++row) PrintRow(list, static_cast<int>(row));
}

// Asked of the window itself, from the corner inwards: the size of a caption is the system's affair.
void PrintCloseBox(HWND window) {
  RECT rect = {};
  GetWindowRect(window, &rect);
  const auto isCloseBox = [&](LONG x, LONG y) {
    return Ask(window, WM_NCHITTEST, 0, MAKELPARAM(x, y)) == HTCLOSE;
  };
  const LONG y = rect.top + GetSystemMetrics(SM_CYSIZEFRAME) + GetSystemMetrics(SM_CYCAPTION) / 2;
  LONG right = rect.right;
  while (right > rect.left && !isCloseBox(right, y)) --right;
  LONG left = right;
  while (left > rect.left && isCloseBox(left - 1, y)) --left;
  if (right > rect.left) std::printf("close\t%ld\t%ld\n", (left + right) / 2, y);
}

void PrintFrontDocument(HWND area) {
  for (const HWND window : VisibleBelow(area)) {
    const std::wstring name = ClassOf(window);
    if (!name.ends_with(L"View") || GetParent(window) != area) continue;
    RECT rect = {};
    GetWindowRect(window, &rect);
    std::printf("view\t%s\t%ld\t%ld\t%ld\t%ld\n", Utf8(name).c_str(), rect.left, rect.top,
                rect.right - rect.left, rect.bottom - rect.top);
  }
}

}  // namespace

int wmain() {
  const HWND window = FindWindowW(kMainClass, nullptr);
  if (window == nullptr) return 1;
  const std::vector<HWND> windows = VisibleBelow(window);
  const HWND status = FirstOfClass(windows, STATUSCLASSNAMEW);
  const HWND area = FirstOfClass(windows, kDocumentAreaClass);
  const HWND list = FirstOfClass(windows, WC_LISTVIEWW);
  std::printf("title\t%s\n", Utf8(TextOf(window)).c_str());
  if (status != nullptr) std::printf("status\t%s\n", Utf8(TextOf(status)).c_str());
  PrintCloseBox(window);
  if (area != nullptr) PrintFrontDocument(area);
  if (list != nullptr) PrintRows(list);
  return 0;
}
