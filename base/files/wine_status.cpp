// Only for Wine: see the header.
#include "base/files/wine_status.h"

#include <algorithm>
#include <cstdlib>

#include "base/files/temporary_name.h"
#include "base/files/wine_calls.h"

namespace base::wine {
namespace {

constexpr int64_t kSecondsFrom1601To1970 = 11644473600;

struct ErrorRow {
  int number;
  SystemError error;
};
constexpr ErrorRow kErrors[] = {
    {kEperm, kAccessDenied},
    {kEnoent, kFileNotFound},
    {kEacces, kAccessDenied},
    {kEbusy, 170},  // ERROR_BUSY
    {kEexist, kAlreadyExists},
    {kExdev, kNotSameDevice},
    {kEnotdir, kPathNotFound},
    {kEisdir, kAccessDenied},
    {kEinval, 87},  // ERROR_INVALID_PARAMETER
    {kEnospc, kDiskFull},
    {kEdquot, kDiskFull},
    {kErofs, 19},          // ERROR_WRITE_PROTECT
    {kEnametoolong, 206},  // ERROR_FILENAME_EXCED_RANGE
    {kEnotempty, kFolderNotEmpty},
    {kEloop, 1921},  // ERROR_CANT_RESOLVE_FILENAME
    {kEopnotsupp, kNotSupported},
};

uint32_t Hash(const std::string& text) {
  uint32_t hash = 2166136261u;
  for (const char c : text) hash = (hash ^ static_cast<uint8_t>(c)) * 16777619u;
  return hash;
}

uint32_t ThisMachine() {
  std::string text;
  ReadWholeFile("/etc/machine-id", &text);
  ReadWholeFile("/proc/sys/kernel/hostname", &text);
  return Hash(text);
}

// When a process began, in a unit of the kernel; false when there is no such process.
bool StartOfProcess(uint32_t process, uint32_t* started) {
  std::string text;
  if (ReadWholeFile("/proc/" + std::to_string(process) + "/stat", &text) < 0) return false;
  constexpr int kStartField = 20;  // counted from the one after the name, which may contain blanks
  size_t at = text.rfind(')');
  for (int field = 0; field < kStartField && at != std::string::npos; ++field) at = text.find(' ', at + 1);
  if (at == std::string::npos) return false;
  *started = static_cast<uint32_t>(std::strtoull(text.c_str() + at, nullptr, 10));
  return true;
}

FileKind KindOf(const std::string& path, const Status& status, bool follow) {
  if (status.IsFile()) return FileKind::kFile;
  if (status.IsFolder()) return status.mountRoot && !follow ? FileKind::kMountPoint : FileKind::kFolder;
  if (!status.IsLink()) return FileKind::kOther;
  Status target;
  const bool toFolder = GetStatus(path, true, &target) == 0 && target.IsFolder();
  return toFolder ? FileKind::kFolderLink : FileKind::kFileLink;
}

uint32_t AttributesOf(const Status& status) {
  constexpr uint32_t kReadOnly = 0x1, kDirectory = 0x10, kArchive = 0x20, kReparsePoint = 0x400;
  uint32_t attributes = status.IsFolder() ? kDirectory : kArchive;
  if (!status.IsLink() && (status.mode & 0222) == 0) attributes |= kReadOnly;
  if (status.IsLink() || status.mountRoot) attributes |= kReparsePoint;
  return attributes;
}

}  // namespace

SystemError ErrorOf(int result) {
  if (result >= 0) return kNoError;
  const ErrorRow* found = std::find_if(std::begin(kErrors), std::end(kErrors),
                                       [&](const ErrorRow& row) { return row.number == -result; });
  constexpr SystemError kGeneralFailure = 31;  // ERROR_GEN_FAILURE
  return found == std::end(kErrors) ? kGeneralFailure : found->error;
}

SystemError StatusOfPath(const std::string& path, bool follow, FileStatus* status) {
  Status raw;
  const int result = GetStatus(path, follow, &raw);
  if (result < 0) return ErrorOf(result);
  status->kind = KindOf(path, raw, follow);
  status->size = status->kind == FileKind::kFile ? raw.size : 0;
  status->modified = (raw.seconds + kSecondsFrom1601To1970) * 10'000'000 + raw.nanoseconds / 100;
  status->attributes = AttributesOf(raw);
  status->identity = {raw.device, raw.inode};
  return kNoError;
}

std::wstring TokenOfThisProcess() {
  const uint32_t process = static_cast<uint32_t>(ProcessNumber());
  uint32_t started = 0;
  StartOfProcess(process, &started);
  return MakeProcessToken(ThisMachine(), process, started);
}

bool ProcessOfTokenHasEnded(const std::wstring& token) {
  const std::optional<ProcessTokenParts> parts = PartsOfProcessToken(token);
  if (!parts || parts->machine != ThisMachine()) return false;
  uint32_t started = 0;
  return !StartOfProcess(parts->process, &started) || started != parts->started;
}

}  // namespace base::wine
