#include "tests/support/temp_directory.h"

#include <windows.h>

#include <shlwapi.h>

#include <stdexcept>

#include "base/files/transfer.h"
#include "base/text/code_page.h"

namespace test_support {
namespace {

// All paths go through the extended-length form, so that long paths and odd names can be made and removed.
void WriteContent(const std::wstring& path, std::string_view content) {
  const HANDLE file =
      CreateFileW((L"\\\\?\\" + path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
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

class Nobody final : public base::TransferObserver {
  base::ConflictReply OnConflict(const base::Conflict&) override { return {}; }
  bool OnProgress(const base::TransferProgress&) override { return true; }
};

// Links go as links, and names go exactly: a test may have made both, and what they lead to is not its own.
void RemoveTree(const std::wstring& path) {
  base::TransferRequest request;
  request.kind = base::TransferKind::kDelete;
  request.sources = {path};
  Nobody nobody;
  base::RunTransfer(request, base::MachineFileSystem(), nobody);
}

}  // namespace

TempDirectory::TempDirectory(Place place) {
  wchar_t temp[MAX_PATH + 1];
  GetTempPathW(MAX_PATH + 1, temp);
  if (place == Place::kDriveRoot) PathStripToRootW(temp);
  static LONG counter = 0;
  path_ = std::wstring(temp) + L"explorer_test_" + std::to_wstring(GetCurrentProcessId()) + L"_" +
          std::to_wstring(InterlockedIncrement(&counter));
  // A test that was ended leaves its folder, and process numbers come again.
  RemoveTree(path_);
  MakeFolders(path_);
  if (!PathIsDirectoryEmptyW(path_.c_str())) {
    throw std::runtime_error("the folder of an earlier test cannot be removed");
  }
}

TempDirectory::~TempDirectory() {
  RemoveTree(path_);
}

std::string TempDirectory::narrow() const {
  return Join(std::string_view());
}

std::wstring TempDirectory::Join(std::wstring_view name) const {
  return path_ + L"\\" + std::wstring(name);
}

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
