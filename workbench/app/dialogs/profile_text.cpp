#include "workbench/app/dialogs/profile_text.h"

#include <windows.h>

#include <utility>

#include "base/text/code_page.h"

namespace workbench {
namespace {

constexpr DWORD kValueSize = 2048;  // what the readers of the profile take

}  // namespace

ProfileSection::ProfileSection(const std::string& path, std::wstring section)
    : path_(base::WideFromNarrow(path)), section_(std::move(section)) {}

std::wstring ProfileSection::Text(const wchar_t* key, const wchar_t* fallback) const {
  wchar_t value[kValueSize] = L"";
  GetPrivateProfileStringW(section_.c_str(), key, fallback, value, kValueSize, path_.c_str());
  return value;
}

int ProfileSection::Number(const wchar_t* key, int fallback) const {
  return static_cast<int>(GetPrivateProfileIntW(section_.c_str(), key, fallback, path_.c_str()));
}

bool ProfileSection::SetText(const wchar_t* key, const std::wstring& value) const {
  return WritePrivateProfileStringW(section_.c_str(), key, value.c_str(), path_.c_str()) != FALSE;
}

bool ProfileSection::SetNumber(const wchar_t* key, int value) const {
  return SetText(key, std::to_wstring(value));
}

}  // namespace workbench
