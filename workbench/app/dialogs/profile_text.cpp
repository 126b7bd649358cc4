#include "workbench/app/dialogs/profile_text.h"

#include <windows.h>

#include <utility>

namespace workbench {
namespace {

constexpr DWORD kValueSize = 2048;  // what the readers of the profile take

}  // namespace

std::wstring WideFromSystem(const std::string& text) {
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), size);
  return wide;
}

std::string SystemFromWide(const std::wstring& text) {
  const int length = static_cast<int>(text.size());
  const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
  return narrow;
}

ProfileSection::ProfileSection(const std::string& path, std::wstring section)
    : path_(WideFromSystem(path)), section_(std::move(section)) {}

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
