#include "workbench/app/main/ready_report.h"

#include <windows.h>

#include <commctrl.h>

#include <string_view>

namespace workbench {
namespace {

constexpr UINT kInterval = 100;  // milliseconds
constexpr int kQuietTicks = 5;

struct Watch {
  HWND window = nullptr;
  std::wstring file;
  LRESULT items = -1;
  int quietTicks = 0;
};

Watch watch;

BOOL CALLBACK MatchList(HWND window, LPARAM found) {
  wchar_t name[64] = L"";
  GetClassNameW(window, name, 64);
  if (std::wstring_view(name) != WC_LISTVIEWW || !IsWindowVisible(window)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

void WriteReport() {
  const HANDLE file = CreateFileW(watch.file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return;
  const std::string line = "ready " + std::to_string(watch.items) + "\n";
  DWORD written = 0;
  WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
  CloseHandle(file);
}

void CALLBACK OnTick(HWND, UINT, UINT_PTR timer, DWORD) {
  HWND list = nullptr;
  EnumChildWindows(watch.window, MatchList, reinterpret_cast<LPARAM>(&list));
  const LRESULT items = list == nullptr ? -1 : SendMessageW(list, LVM_GETITEMCOUNT, 0, 0);
  watch.quietTicks = items >= 0 && items == watch.items ? watch.quietTicks + 1 : 0;
  watch.items = items;
  if (watch.quietTicks < kQuietTicks) return;
  KillTimer(nullptr, timer);
  WriteReport();
}

}  // namespace

void ReportWhenReady(HWND window, const std::wstring& file) {
  watch = {window, file, -1, 0};
  SetTimer(nullptr, 0, kInterval, &OnTick);
}

}  // namespace workbench
