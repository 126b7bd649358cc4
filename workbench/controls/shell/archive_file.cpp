#include "workbench/controls/shell/archive_file.h"

#include <algorithm>

#include "workbench/controls/archive/zip_directory.h"
#include "workbench/controls/model/display_text.h"
#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"

namespace controls {
namespace {

constexpr std::wstring_view kArchiveEnding = L".zip";

uint64_t Join(DWORD high, DWORD low) {
  return (static_cast<uint64_t>(high) << 32) | low;
}

class FileSource final : public ByteSource {
 public:
  explicit FileSource(const std::wstring& path)
      : file_(CreateFileW(ExtendedPath(path).c_str(), GENERIC_READ,
                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                          FILE_FLAG_RANDOM_ACCESS, nullptr)) {
    if (file_ == INVALID_HANDLE_VALUE || !GetFileInformationByHandle(file_, &facts_)) error_ = GetLastError();
  }
  ~FileSource() override {
    if (file_ != INVALID_HANDLE_VALUE) CloseHandle(file_);
  }
  FileSource(const FileSource&) = delete;
  FileSource& operator=(const FileSource&) = delete;

  DWORD error() const { return error_; }
  uint64_t written() const {
    return Join(facts_.ftLastWriteTime.dwHighDateTime, facts_.ftLastWriteTime.dwLowDateTime);
  }
  uint64_t size() const override { return Join(facts_.nFileSizeHigh, facts_.nFileSizeLow); }
  bool Read(uint64_t offset, std::span<uint8_t> to) override {
    while (!to.empty()) {
      OVERLAPPED place = {};
      place.Offset = static_cast<DWORD>(offset);
      place.OffsetHigh = static_cast<DWORD>(offset >> 32);
      DWORD got = 0;
      const auto wanted = static_cast<DWORD>(std::min<size_t>(to.size(), 1u << 30));
      if (!ReadFile(file_, to.data(), wanted, &got, &place) || got == 0) return false;
      offset += got;
      to = to.subspan(got);
    }
    return true;
  }

 private:
  HANDLE file_;
  DWORD error_ = 0;
  BY_HANDLE_FILE_INFORMATION facts_ = {};
};

DWORD CodeOf(ZipError error) {
  switch (error) {
    case ZipError::kNone:
      return 0;
    case ZipError::kUnreadable:
      return ERROR_READ_FAULT;
    case ZipError::kNotZip:
      return kErrorNoArchive;
    case ZipError::kDamaged:
      return kErrorArchiveDamaged;
    case ZipError::kSplit:
      return kErrorArchiveSplit;
    case ZipError::kTooLarge:
      return kErrorArchiveTooLarge;
    case ZipError::kCancelled:
      return ERROR_CANCELLED;
  }
  return kErrorArchiveDamaged;
}

bool IsFile(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(ExtendedPath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Wall clock of this machine's time zone to UTC; 0 stays unknown.
uint64_t UtcOfWallClock(uint64_t ticks) {
  if (ticks == 0) return 0;
  const FILETIME wall = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
  SYSTEMTIME local;
  SYSTEMTIME utc;
  FILETIME result;
  if (!FileTimeToSystemTime(&wall, &local) || !TzSpecificLocalTimeToSystemTime(nullptr, &local, &utc) ||
      !SystemTimeToFileTime(&utc, &result)) {
    return 0;
  }
  return Join(result.dwHighDateTime, result.dwLowDateTime);
}

}  // namespace

size_t ArchiveLengthOnDisk(std::wstring_view path) {
  for (size_t end = 0; end < path.size(); ++end) {
    end = std::min(path.find(L'\\', end), path.size());
    const std::wstring_view part = path.substr(0, end);
    if (part.size() <= kArchiveEnding.size()) continue;
    if (!EqualsIgnoringCase(part.substr(part.size() - kArchiveEnding.size()), kArchiveEnding)) continue;
    if (IsFile(std::wstring(part))) return end;
  }
  return 0;
}

ArchiveReading OpenArchive(const std::wstring& path, const ArchivePointer& known,
                           const std::function<bool()>& cancelled) {
  FileSource source(path);
  if (source.error() != 0) return {source.error(), nullptr};
  if (known && known->fileSize == source.size() && known->written == source.written() &&
      SamePath(known->path, path)) {
    return {0, known};
  }
  ZipListing listing = ReadZipDirectory(source, cancelled);
  if (!listing.tree) return {CodeOf(listing.error), nullptr};
  return {0, std::make_shared<const ArchiveContents>(
                 ArchiveContents{path, source.size(), source.written(), std::move(*listing.tree)})};
}

ItemFacts FactsOfNode(const ArchiveNode& node) {
  ItemFacts facts;
  facts.size = node.facts.size;
  facts.modified = UtcOfWallClock(node.facts.modified);
  if (node.folder) facts.attributes |= kAttributeDirectory;
  if (node.facts.hidden) facts.attributes |= kAttributeHidden;
  if (node.damaged) facts.attributes |= kAttributeDamaged;
  return facts;
}

}  // namespace controls
