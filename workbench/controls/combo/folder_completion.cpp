#include "workbench/controls/combo/folder_completion.h"

#include <windows.h>

#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/unique_find.h"

namespace controls {
namespace {

// Of those that begin as typed. Where there are more, a user types on faster than they are looked at.
constexpr int kMostFolders = 5000;

bool IsFixedDrive(const std::wstring& path) {
  const std::wstring root = PathChain(path).front();
  return GetDriveTypeW(root.c_str()) == DRIVE_FIXED;
}

bool IsDotName(const wchar_t* name) {
  return name[0] == L'.' && (name[1] == L'\0' || (name[1] == L'.' && name[2] == L'\0'));
}

}  // namespace

std::wstring FolderCompletion(const std::wstring& typed) {
  if (!IsAbsolutePath(typed) || typed.back() == L'\\' || typed.find_first_of(L"/*?") != std::wstring::npos ||
      IsRootPath(typed) || !IsFixedDrive(typed)) {
    return {};
  }
  const std::wstring begun(NameOfPath(typed));
  const std::wstring pattern = ExtendedPath(typed) + L"*";
  WIN32_FIND_DATAW data;
  const UniqueFind find(FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &data,
                                         FindExSearchLimitToDirectories, nullptr, FIND_FIRST_EX_LARGE_FETCH));
  if (!find) return {};
  std::wstring first;
  int looked = 0;
  do {
    if (++looked > kMostFolders) return {};
    if (!(data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) || IsDotName(data.cFileName)) continue;
    const std::wstring name = data.cFileName;
    // A pattern finds short names too.
    if (!EqualsIgnoringCase(name.substr(0, begun.size()), begun)) continue;
    if (first.empty() || CompareNatural(name, first) < 0) first = name;
  } while (FindNextFileW(find.get(), &data));
  return first.size() > begun.size() ? first.substr(begun.size()) : std::wstring();
}

}  // namespace controls
