#include "tests/support/many_files.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>

#include "tests/support/machine_below.h"

namespace test_support {
namespace {

constexpr int kFewFiles = 2000;
constexpr const char* kKinds[] = {".obj", ".png", ".txt", ".3ds", ".wav", ".xyz", ".csv", ".jpg"};

std::string NameOf(int number, bool severalKinds) {
  char digits[16];
  std::snprintf(digits, sizeof(digits), "%06d", number);
  return std::string("model") + digits + (severalKinds ? kKinds[number % std::size(kKinds)] : ".obj");
}

}  // namespace

int MakeManyFiles(const std::wstring& folder, int count, bool severalKinds) {
  const std::string pathBelow = PathBelow(folder);
  const int made = pathBelow.empty() ? std::min(count, kFewFiles) : count;
  if (pathBelow.empty()) {
    for (int i = 1; i <= made; ++i) {
      const std::string name = NameOf(i, severalKinds);
      const HANDLE file = CreateFileW((folder + L"\\" + std::wstring(name.begin(), name.end())).c_str(),
                                      GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
      if (file == INVALID_HANDLE_VALUE) return 0;
      CloseHandle(file);
    }
    return made;
  }
  // The names come in a file of their own: a command line would be too long.
  const std::wstring listPath = folder + L".names";
  {
    std::string names;
    for (int i = 1; i <= made; ++i) names += NameOf(i, severalKinds) + "\n";
    const HANDLE list = CreateFileW(listPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (list == INVALID_HANDLE_VALUE) return 0;
    DWORD written = 0;
    WriteFile(list, names.data(), static_cast<DWORD>(names.size()), &written, nullptr);
    CloseHandle(list);
  }
  const bool done = RunBelow("cd '" + pathBelow + "' && xargs touch < '" + pathBelow + ".names'");
  DeleteFileW(listPath.c_str());
  return done ? made : 0;
}

void DeleteManyFiles(const std::wstring& folder) {
  const std::string pathBelow = PathBelow(folder);
  if (!pathBelow.empty()) RunBelow("find '" + pathBelow + "' -name 'model*' -delete");
}

}  // namespace test_support
