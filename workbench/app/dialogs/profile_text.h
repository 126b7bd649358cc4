// Values of the profile file.
#pragma once

#include <string>

namespace workbench {

// One section of a profile file.
class ProfileSection {
 public:
  ProfileSection(const std::string& path, std::wstring section);

  std::wstring Text(const wchar_t* key, const wchar_t* fallback) const;
  int Number(const wchar_t* key, int fallback) const;
  // False, with the last error set, when the file can't be written.
  bool SetText(const wchar_t* key, const std::wstring& value) const;
  bool SetNumber(const wchar_t* key, int value) const;

 private:
  std::wstring path_;
  std::wstring section_;
};

}  // namespace workbench
