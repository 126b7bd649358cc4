#include "src/preview/file_content.h"

#include <algorithm>
#include <string_view>

#include "base/reach/drive_reach.h"

namespace file_explorer::preview {
namespace {

constexpr DWORD kRecallOnOpen = 0x00040000;        // FILE_ATTRIBUTE_RECALL_ON_OPEN
constexpr DWORD kRecallOnDataAccess = 0x00400000;  // FILE_ATTRIBUTE_RECALL_ON_DATA_ACCESS
constexpr DWORD kNotAtHand = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE | FILE_ATTRIBUTE_OFFLINE |
                             kRecallOnOpen | kRecallOnDataAccess;
constexpr DWORD kPartSize = 256 * 1024;
constexpr std::uint64_t kBytesAStep = 64;

class OpenFile {
 public:
  explicit OpenFile(const wchar_t* path)
      : handle_(CreateFileW(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                            nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr)) {}
  ~OpenFile() {
    if (handle_ != INVALID_HANDLE_VALUE) CloseHandle(handle_);
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;

  bool IsOnDisk() const { return handle_ != INVALID_HANDLE_VALUE && GetFileType(handle_) == FILE_TYPE_DISK; }
  HANDLE get() const { return handle_; }

 private:
  HANDLE handle_;
};

// "\\machine\share\file", but also "\\.\device" and "\\?\anything": nothing of it is on a drive of ours. A disc may
// have to be loaded first.
bool IsFarAway(std::wstring_view path) { return path.size() < 3 || path[1] != L':' || base::MayHang(path); }

bool IsDevice(std::wstring_view path) {
  return path.starts_with(L"\\\\.\\") || path.starts_with(L"\\\\?\\");
}

bool IsAtHand(const wchar_t* path, std::uint64_t limit) {
  WIN32_FILE_ATTRIBUTE_DATA facts = {};
  if (!GetFileAttributesExW(path, GetFileExInfoStandard, &facts)) return false;
  const std::uint64_t size = std::uint64_t{facts.nFileSizeHigh} << 32 | facts.nFileSizeLow;
  return (facts.dwFileAttributes & kNotAtHand) == 0 && size != 0 && size <= limit;
}

}  // namespace

bool MayBeOpened(const wchar_t* path, std::uint64_t limit, bool remote) {
  return !IsDevice(path) && (remote || !IsFarAway(path)) && IsAtHand(path, limit);
}

std::optional<std::string> ReadWholeFile(const wchar_t* path, std::uint64_t limit, bool remote,
                                         WorkBudget& budget) {
  if (!MayBeOpened(path, limit, remote)) return std::nullopt;
  const OpenFile file(path);
  if (!file.IsOnDisk()) return std::nullopt;
  // Asked again: it may have grown, or be another one by now.
  LARGE_INTEGER size = {};
  if (!GetFileSizeEx(file.get(), &size) || size.QuadPart <= 0 ||
      static_cast<std::uint64_t>(size.QuadPart) > limit) {
    return std::nullopt;
  }
  std::string content(static_cast<std::size_t>(size.QuadPart), '\0');
  std::size_t at = 0;
  while (at < content.size()) {
    const DWORD wanted = static_cast<DWORD>(std::min<std::size_t>(kPartSize, content.size() - at));
    DWORD got = 0;
    if (!ReadFile(file.get(), content.data() + at, wanted, &got, nullptr)) return std::nullopt;
    if (got == 0) break;  // it became shorter
    at += got;
    if (!budget.Spend(got / kBytesAStep)) return std::nullopt;
  }
  content.resize(at);
  return content;
}

}  // namespace file_explorer::preview
