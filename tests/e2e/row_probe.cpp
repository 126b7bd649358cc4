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
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr wchar_t kMainClass[] = L"WorkbenchMainWindow";
constexpr wchar_t kDocumentAreaClass[] = L"WorkbenchDocumentArea";
constexpr UINT kAnswerTime = 5000;  // milliseconds
constexpr int kTextSize = 512;      // characters, with the end

std::string Utf8(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string utf8(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), length, utf8.data(), size, nullptr, nullptr);
  return utf8;
}

// A program that hangs must not take the probe with it.
LRESULT Ask(HWND window, UINT message, WPARAM first, LPARAM second) {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutW(window, message, first, second, SMTO_ABORTIFHUNG, kAnswerTime, &result) == 0)
    return 0;
  return static_cast<LRESULT>(result);
}

std::wstring TextOf(HWND window) {
  wchar_t text[kTextSize] = L"";
  Ask(window, WM_GETTEXT, kTextSize, reinterpret_cast<LPARAM>(text));
  return text;
}

std::wstring ClassOf(HWND window) {
  wchar_t name[128] = L"";
  GetClassNameW(window, name, 128);
  return name;
}

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

// Memory of the program that owns a window: the list's messages take pointers, which hold there only.
class RemoteMemory {
 public:
  RemoteMemory(HWND window, size_t size) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, process);
    if (process_ != nullptr) {
      memory_ = static_cast<char*>(VirtualAllocEx(process_, nullptr, size, MEM_COMMIT, PAGE_READWRITE));
    }
  }
  ~RemoteMemory() {
    if (memory_ != nullptr) VirtualFreeEx(process_, memory_, 0, MEM_RELEASE);
    if (process_ != nullptr) CloseHandle(process_);
  }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;

  char* memory() const { return memory_; }
  bool Write(const void* data, size_t size) const {
    return memory_ != nullptr && WriteProcessMemory(process_, memory_, data, size, nullptr);
  }
  bool Read(size_t offset, void* data, size_t size) const {
    return memory_ != nullptr && ReadProcessMemory(process_, memory_ + offset, data, size, nullptr);
  }

 private:
  HANDLE process_ = nullptr;
  char* memory_ = nullptr;
};

class FileList {
 public:
  explicit FileList(HWND list) : list_(list), remote_(list, sizeof(LVITEMW) + kTextSize * sizeof(wchar_t)) {}

  void PrintRows() const {
    const LRESULT count = Ask(list_, LVM_GETITEMCOUNT, 0, 0);
    for (LRESULT row = 0; row < count; ++row) PrintRow(static_cast<int>(row));
  }

 private:
  void PrintRow(int row) const {
    RECT label = {};
    RECT client = {};
    if (!LabelRect(row, &label) || !GetClientRect(list_, &client)) return;
    RECT seen = {};
    if (!IntersectRect(&seen, &label, &client)) return;
    POINT middle = {(seen.left + seen.right) / 2, (seen.top + seen.bottom) / 2};
    MapWindowPoints(list_, nullptr, &middle, 1);
    const bool selected = Ask(list_, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
    std::printf("row\t%ld\t%ld\t%d\t%s\n", middle.x, middle.y, selected ? 1 : 0, Utf8(Name(row)).c_str());
  }

  bool LabelRect(int row, RECT* rect) const {
    *rect = {};
    rect->left = LVIR_LABEL;
    return remote_.Write(rect, sizeof *rect) &&
           Ask(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row),
               reinterpret_cast<LPARAM>(remote_.memory())) != 0 &&
           remote_.Read(0, rect, sizeof *rect);
  }

  std::wstring Name(int row) const {
    LVITEMW item = {};
    item.cchTextMax = kTextSize;
    item.pszText = reinterpret_cast<wchar_t*>(remote_.memory() + sizeof item);
    wchar_t text[kTextSize] = L"";
    if (!remote_.Write(&item, sizeof item)) return {};
    Ask(list_, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(remote_.memory()));
    // The list may answer with a place of its own instead of filling the one that was given.
    if (!remote_.Read(sizeof item, text, sizeof text)) return {};
    text[kTextSize - 1] = L'\0';
    return text;
  }

  HWND list_;
  RemoteMemory remote_;
};

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
  if (list != nullptr) FileList(list).PrintRows();
  return 0;
}
