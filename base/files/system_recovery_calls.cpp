#include "base/files/system_recovery_calls.h"

#include <algorithm>

#include "base/text/code_page.h"

namespace base {
namespace {

constexpr DWORD kPauseMilliseconds = 10;
constexpr DWORD kLargestPiece = 1u << 24;
// While the last holder's lock file goes, opening it is refused, just as in a folder where nothing may be
// made: only the first one passes.
constexpr int kMostRefusals = 30;
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

bool IsMissing(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

constexpr DWORD kQuotaExceeded = 1295;  // ERROR_DISK_QUOTA_EXCEEDED, which not every header has

bool IsNoRoom(DWORD error) {
  return error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL || error == kQuotaExceeded;
}

bool WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    const DWORD piece = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), kLargestPiece));
    DWORD written = 0;
    if (!::WriteFile(file, bytes.data(), piece, &written, nullptr) || written == 0) return false;
    bytes.remove_prefix(written);
  }
  // A file system that has no such call is no reason not to save.
  return FlushFileBuffers(file) || !IsNoRoom(GetLastError());
}

bool ReadAll(HANDLE file, std::string* bytes) {
  for (std::size_t at = 0; at < bytes->size();) {
    const DWORD piece = static_cast<DWORD>(std::min<std::size_t>(bytes->size() - at, kLargestPiece));
    DWORD read = 0;
    if (!ReadFile(file, bytes->data() + at, piece, &read, nullptr) || read == 0) return false;
    at += read;
  }
  return true;
}

}  // namespace

RecoveryCalls::Reading SystemRecoveryCalls::Read(const std::string& path, std::string* bytes) {
  bytes->clear();
  const unique_file file = OwnFile(CreateFileW(WideFromNarrow(path).c_str(), GENERIC_READ, kShareAll, nullptr,
                                               OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return IsMissing(GetLastError()) ? Reading::kMissing : Reading::kFailed;
  LARGE_INTEGER size = {};
  constexpr auto kLargest = static_cast<LONGLONG>(2 * kLargestRecoveryText);
  if (!GetFileSizeEx(file.get(), &size) || size.QuadPart > kLargest) return Reading::kFailed;
  bytes->resize(static_cast<std::size_t>(size.QuadPart));
  return ReadAll(file.get(), bytes) ? Reading::kRead : Reading::kFailed;
}

RecoveryCalls::Writing SystemRecoveryCalls::Write(const std::string& path, std::string_view bytes) {
  const unique_file file = OwnFile(CreateFileW(WideFromNarrow(path).c_str(), GENERIC_WRITE, 0, nullptr,
                                               CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!file) return IsNoRoom(GetLastError()) ? Writing::kNoRoom : Writing::kRefused;
  return WriteAll(file.get(), bytes) ? Writing::kWritten : Writing::kNoRoom;
}

void SystemRecoveryCalls::Flush(const std::string& path) {
  const unique_file file = OwnFile(CreateFileW(WideFromNarrow(path).c_str(), GENERIC_WRITE, kShareAll,
                                               nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (file) FlushFileBuffers(file.get());
}

bool SystemRecoveryCalls::Replace(const std::string& from, const std::string& to) {
  return MoveFileExW(WideFromNarrow(from).c_str(), WideFromNarrow(to).c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != FALSE;
}

bool SystemRecoveryCalls::Remove(const std::string& path) {
  return DeleteFileW(WideFromNarrow(path).c_str()) || IsMissing(GetLastError());
}

// The lock is the open file, not its presence: it ends with the process, however that ends.
RecoveryCalls::Locking SystemRecoveryCalls::Lock(const std::string& path) {
  lock_ = OwnFile(CreateFileW(WideFromNarrow(path).c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
  const DWORD error = lock_ ? ERROR_SUCCESS : GetLastError();
  const bool isRefused = error == ERROR_ACCESS_DENIED || error == ERROR_DELETE_PENDING;
  refusals_ = isRefused ? refusals_ + 1 : 0;
  if (lock_) return Locking::kLocked;
  const bool isHeld = error == ERROR_SHARING_VIOLATION || (isRefused && refusals_ <= kMostRefusals);
  return isHeld ? Locking::kHeldElsewhere : Locking::kImpossible;
}

void SystemRecoveryCalls::Unlock() {
  lock_.reset();
}

void SystemRecoveryCalls::Pause() {
  Sleep(kPauseMilliseconds);
}

}  // namespace base
