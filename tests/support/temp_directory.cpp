#include "tests/support/temp_directory.h"

#include <windows.h>

#include <stdexcept>

#include "base/text/code_page.h"

namespace test_support {
namespace {

// All paths go through the extended-length form, so that long paths and odd names can be made and removed.
void WriteContent(const std::wstring& path, std::string_view content) {
  const HANDLE file = CreateFileW((L"\\\\?\\" + path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) throw std::runtime_error("cannot create a test file");
  DWORD written = 0;
  ::WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
  CloseHandle(file);
  if (written != content.size()) throw std::runtime_error("cannot write a test file");
}

void MakeFolders(const std::wstring& path) {
  for (size_t at = path.find(L'\\', 3); at != std::wstring::npos; at = path.find(L'\\', at + 1)) {
    CreateDirectoryW((L"\\\\?\\" + path.substr(0, at)).c_str(), nullptr);
  }
  if (!CreateDirectoryW((L"\\\\?\\" + path).c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS) {
    throw std::runtime_error("cannot create a test folder");
  }
}

void RemoveTree(const std::wstring& path) {
  WIN32_FIND_DATAW data;
  const HANDLE find = FindFirstFileW((L"\\\\?\\" + path + L"\\*").c_str(), &data);
  if (find != INVALID_HANDLE_VALUE) {
    do {
      const std::wstring name = data.cFileName;
      if (name == L"." || name == L"..") continue;
      const std::wstring full = path + L"\\" + name;
      if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
        RemoveTree(full);
      } else {
        SetFileAttributesW((L"\\\\?\\" + full).c_str(), FILE_ATTRIBUTE_NORMAL);
        DeleteFileW((L"\\\\?\\" + full).c_str());
      }
    } while (FindNextFileW(find, &data));
    FindClose(find);
  }
  RemoveDirectoryW((L"\\\\?\\" + path).c_str());
}

}  // namespace

TempDirectory::TempDirectory() {
  wchar_t temp[MAX_PATH + 1];
  GetTempPathW(MAX_PATH + 1, temp);
  static LONG counter = 0;
  path_ = std::wstring(temp) + L"explorer_test_" + std::to_wstring(GetCurrentProcessId()) + L"_" +
          std::to_wstring(InterlockedIncrement(&counter));
  MakeFolders(path_);
}

TempDirectory::~TempDirectory() { RemoveTree(path_); }

std::string TempDirectory::narrow() const { return Join(std::string_view()); }

std::wstring TempDirectory::Join(std::wstring_view name) const { return path_ + L"\\" + std::wstring(name); }

std::string TempDirectory::Join(std::string_view name) const {
  auto narrow = base::ExactNarrow(path_);
  if (!narrow) throw std::runtime_error("the temporary folder can't be expressed in the code page");
  std::string result = *std::move(narrow);
  if (!name.empty()) result.append("\\").append(name);
  return result;
}

std::wstring TempDirectory::AddFile(std::wstring_view name, std::string_view content) const {
  const std::wstring full = Join(name);
  MakeFolders(full.substr(0, full.rfind(L'\\')));
  WriteContent(full, content);
  return full;
}

std::wstring TempDirectory::AddFolder(std::wstring_view name) const {
  const std::wstring full = Join(name);
  MakeFolders(full);
  return full;
}

}  // namespace test_support
