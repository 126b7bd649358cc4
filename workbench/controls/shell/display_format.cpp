#include "workbench/controls/shell/display_format.h"

#include <utility>

#include "base/text/name_insert.h"

namespace controls {

std::wstring LocalDateTime(uint64_t fileTime) {
  if (fileTime == 0) return {};
  const FILETIME time = {static_cast<DWORD>(fileTime), static_cast<DWORD>(fileTime >> 32)};
  SYSTEMTIME utc;
  SYSTEMTIME local;
  if (!FileTimeToSystemTime(&time, &utc) || !SystemTimeToTzSpecificLocalTime(nullptr, &utc, &local))
    return {};
  wchar_t date[64] = L"";
  wchar_t clock[64] = L"";
  GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &local, nullptr, date, 64);
  GetTimeFormatW(LOCALE_USER_DEFAULT, TIME_NOSECONDS, &local, nullptr, clock, 64);
  return std::wstring(date) + L" " + clock;
}

std::wstring SystemErrorText(DWORD error, std::wstring_view name) {
  wchar_t text[512] = L"";
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                      error, 0, text, 512, nullptr);
  std::wstring result(text, length);
  while (!result.empty() && (result.back() == L'\r' || result.back() == L'\n' || result.back() == L' ')) {
    result.pop_back();
  }
  return base::InsertName(std::move(result), name);
}

}  // namespace controls
