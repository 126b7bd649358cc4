// Only for Wine: the bytes of a file, by the calls of the machine below.
#include <algorithm>
#include <vector>

#include "base/files/wine_file_system.h"
#include "base/files/wine_status.h"

namespace base::wine {
namespace {

constexpr size_t kPortion = 1 << 20;

int WriteAll(File& target, const char* data, size_t size) {
  while (size > 0) {
    const long written = target.Write(data, size);
    if (written < 0) return static_cast<int>(written);
    if (written == 0) return -kEnospc;
    data += written;
    size -= static_cast<size_t>(written);
  }
  return 0;
}

// Until the end of the source, whatever its size was.
int CopyContents(File& source, File& target, uint64_t expected, const FileSystem::CopyProgress& progress,
                 bool* stopped) {
  // One more than there is, so that the end shows in the first read of a small file.
  std::vector<char> buffer(static_cast<size_t>(std::min<uint64_t>(expected + 1, kPortion)));
  uint64_t copied = 0;
  while (true) {
    const long size = source.Read(buffer.data(), buffer.size());
    if (size < 0) return static_cast<int>(size);
    const int written = WriteAll(target, buffer.data(), static_cast<size_t>(size));
    if (written < 0) return written;
    copied += static_cast<uint64_t>(size);
    if (static_cast<size_t>(size) < buffer.size()) return 0;
    if (!progress(copied)) {
      *stopped = true;
      return 0;
    }
  }
}

}  // namespace

SystemError WineFileSystem::CopyBytes(const std::wstring& source, const std::wstring& target,
                                      const CopyProgress& progress) {
  std::string from;
  std::string to;
  SystemError error = Locate(source, &from);
  if (error == kNoError) error = Locate(target, &to);
  if (error != kNoError) return error;
  File input;
  File output;
  wine::Status status;
  int result = input.OpenToRead(from);
  if (result == 0) result = input.GetStatus(&status);
  if (result == 0 && !status.IsFile()) result = -kEopnotsupp;
  if (result == 0) error = InUse(source, status, false);
  if (error != kNoError) return error;
  if (result == 0) result = output.Create(to, 0600);
  if (result < 0) return ErrorOf(result);
  bool stopped = false;
  result = CopyContents(input, output, status.size, progress, &stopped);
  if (result < 0 || stopped) return stopped ? kCancelled : ErrorOf(result);
  // What the other file system cannot keep of these is no reason to refuse the contents.
  input.CopyExtendedAttributesTo(output);
  output.SetMode(status.mode);
  output.SetTime(status.seconds, status.nanoseconds);
  return ErrorOf(output.Close());
}

}  // namespace base::wine
