#include "workbench/tx/library.h"

#include <memory>
#include <string>

#include "workbench/tx/format_file.h"

namespace workbench::tx {
namespace {

constexpr wchar_t kFormatFileName[] = L"vc64_file_formats.txt";

SRWLOCK stateLock = SRWLOCK_INIT;
std::unique_ptr<LibraryState> state;  // guarded by stateLock

struct FileCloser {
  using pointer = HANDLE;
  void operator()(HANDLE file) const { CloseHandle(file); }
};
using unique_file = std::unique_ptr<HANDLE, FileCloser>;

// Empty when the library's own path can't be told.
std::wstring FormatFilePath() {
  HMODULE library = nullptr;
  constexpr DWORD kFlags =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (!GetModuleHandleExW(kFlags, reinterpret_cast<LPCWSTR>(&stateLock), &library)) return {};
  std::wstring path(32768, L'\0');
  const DWORD length = GetModuleFileNameW(library, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0 || length >= path.size()) return {};
  path.resize(length);
  return path.substr(0, path.find_last_of(L"\\/") + 1) + kFormatFileName;
}

std::string ReadFormatFile() {
  const std::wstring path = FormatFilePath();
  if (path.empty()) return {};
  const HANDLE handle =
      CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return {};
  const unique_file file(handle);
  std::string content(kFormatFileSize, '\0');
  DWORD read = 0;
  if (!ReadFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &read, nullptr)) return {};
  content.resize(read);
  return content;
}

std::unique_ptr<LibraryState> MakeState() {
  auto made = std::make_unique<LibraryState>();
  LoadFormats(made->registry);
  return made;
}

}  // namespace

LockedState::LockedState() {
  AcquireSRWLockExclusive(&stateLock);
  try {
    if (!state) state = MakeState();
  } catch (...) {
    ReleaseSRWLockExclusive(&stateLock);
    throw;
  }
  state_ = state.get();
}

LockedState::~LockedState() {
  ReleaseSRWLockExclusive(&stateLock);
}

void LoadFormats(HandlerRegistry& registry) {
  for (Handler& format : ParseFormatFile(ReadFormatFile())) registry.Register(std::move(format));
}

bool IsLeadByte(unsigned char byte) {
  return IsDBCSLeadByte(byte) != FALSE;
}

}  // namespace workbench::tx
