// For programs that look at the windows of other programs: texts, classes, and messages whose answers come
// through memory. All places are pixels of the screen.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>

#include "base/text/utf8.h"

namespace remote_window {

inline constexpr UINT kAnswerTime = 5000;  // milliseconds
inline constexpr int kTextSize = 512;      // characters, with the end

// In one line: tabs and line ends become blanks.
inline std::string Utf8(const std::wstring& text) {
  std::string utf8 = base::Utf8FromWide(text);
  for (char& byte : utf8) {
    if (byte == '\t' || byte == '\n' || byte == '\r') byte = ' ';
  }
  return utf8;
}

// A program that hangs must not take the probe with it.
inline LRESULT Ask(HWND window, UINT message, WPARAM first, LPARAM second) {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutW(window, message, first, second, SMTO_ABORTIFHUNG, kAnswerTime, &result) == 0)
    return 0;
  return static_cast<LRESULT>(result);
}

inline std::wstring TextOf(HWND window) {
  wchar_t text[kTextSize] = L"";
  Ask(window, WM_GETTEXT, kTextSize, reinterpret_cast<LPARAM>(text));
  return text;
}

inline std::wstring ClassOf(HWND window) {
  wchar_t name[128] = L"";
  GetClassNameW(window, name, 128);
  return name;
}

// Memory of the program that owns a window: messages of its controls take pointers, which hold there only.
class RemoteMemory {
 public:
  explicit RemoteMemory(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    process_ = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, process);
    if (process_ == nullptr) return;
    memory_ = static_cast<char*>(VirtualAllocEx(process_, nullptr, kSize, MEM_COMMIT, PAGE_READWRITE));
  }
  ~RemoteMemory() {
    if (memory_ != nullptr) VirtualFreeEx(process_, memory_, 0, MEM_RELEASE);
    if (process_ != nullptr) CloseHandle(process_);
  }
  RemoteMemory(const RemoteMemory&) = delete;
  RemoteMemory& operator=(const RemoteMemory&) = delete;

  char* address() const { return memory_; }
  LPARAM parameter() const { return reinterpret_cast<LPARAM>(memory_); }
  bool Write(const void* data, size_t size) const {
    return memory_ != nullptr && WriteProcessMemory(process_, memory_, data, size, nullptr);
  }
  bool Read(size_t offset, void* data, size_t size) const {
    return memory_ != nullptr && ReadProcessMemory(process_, memory_ + offset, data, size, nullptr);
  }

 private:
  static constexpr size_t kSize = 4096;
  HANDLE process_ = nullptr;
  char* memory_ = nullptr;
};

// The rectangle that a control writes for a message, on the screen. What is in it before is part of the
// question.
inline std::optional<RECT> AskRect(HWND control, UINT message, WPARAM first, RECT rect) {
  const RemoteMemory remote(control);
  if (!remote.Write(&rect, sizeof rect) || Ask(control, message, first, remote.parameter()) == 0 ||
      !remote.Read(0, &rect, sizeof rect)) {
    return std::nullopt;
  }
  MapWindowPoints(control, nullptr, reinterpret_cast<POINT*>(&rect), 2);
  return rect;
}

// The name that a list view shows in a row.
inline std::wstring RowName(HWND list, int row) {
  const RemoteMemory remote(list);
  LVITEMW item = {};
  item.cchTextMax = kTextSize;
  item.pszText = reinterpret_cast<wchar_t*>(remote.address() + sizeof item);
  wchar_t text[kTextSize] = L"";
  if (!remote.Write(&item, sizeof item)) return {};
  Ask(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), remote.parameter());
  remote.Read(sizeof item, text, sizeof text);
  text[kTextSize - 1] = L'\0';
  return text;
}

}  // namespace remote_window
