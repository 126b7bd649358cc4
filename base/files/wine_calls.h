// Only for Wine: calls of the machine below it. Wine follows every symbolic link before its file calls see
// it, deletes the target instead of the link, does not list dangling links, and cannot open names with
// wildcards or backslashes. The kernel's own calls do all of that exactly.
//
// Functions give 0 or more when all went well and the negated errno otherwise. Paths are bytes as the kernel
// takes them. Pure: compiles for Linux itself too, where the tests drive it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace base::wine {

// Whether the calls reach a kernel: on Linux always; below Windows only in a Wine for 64-bit Intel on Linux
// whose version is known to let them through.
bool CanCallKernel();

// The errno values that somebody here acts upon.
inline constexpr int kEperm = 1, kEnoent = 2, kEintr = 4, kEacces = 13, kEbusy = 16, kEexist = 17,
                     kExdev = 18, kEnotdir = 20, kEisdir = 21, kEinval = 22, kEnospc = 28, kErofs = 30,
                     kEnametoolong = 36, kEnosys = 38, kEnotempty = 39, kEloop = 40, kEopnotsupp = 95,
                     kEdquot = 122;

struct Status {
  uint32_t mode = 0;
  uint64_t size = 0;
  int64_t seconds = 0;  // of the last change, since 1970
  uint32_t nanoseconds = 0;
  uint64_t device = 0;
  uint64_t inode = 0;
  bool mountRoot = false;  // another file system begins here

  bool IsFile() const { return (mode & 0170000) == 0100000; }
  bool IsFolder() const { return (mode & 0170000) == 0040000; }
  bool IsLink() const { return (mode & 0170000) == 0120000; }
};

int GetStatus(const std::string& path, bool follow, Status* status);
int GetStatusOfFile(int file, Status* status);
int ListFolder(const std::string& path, std::vector<std::string>* names);
int ReadLinkText(const std::string& path, std::string* text);
int MakeLink(const std::string& text, const std::string& path);
int MakeDirectory(const std::string& path, uint32_t mode);
int RemoveDirectory(const std::string& path);
int Unlink(const std::string& path);
int Rename(const std::string& from, const std::string& to);
// Fails with EEXIST where something stands.
int RenameWithoutReplacing(const std::string& from, const std::string& to);
int SetMode(const std::string& path, uint32_t mode);
// Of a file or, with null for the file's own, of a path (a link itself).
int SetTime(const std::string& path, int64_t seconds, uint32_t nanoseconds);
int ReadWholeFile(const std::string& path, std::string* content);
int ProcessNumber();

// An open file, closed when it goes out of scope.
class File {
 public:
  File() = default;
  ~File() { Close(); }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  int OpenToRead(const std::string& path);             // no links, and no waiting for pipes
  int Create(const std::string& path, uint32_t mode);  // where nothing stands
  int OpenFolder(const std::string& path);
  long Read(char* buffer, size_t size);
  long Write(const char* buffer, size_t size);
  int GetStatus(Status* status) const { return GetStatusOfFile(file_, status); }
  int SetMode(uint32_t mode);
  int SetTime(int64_t seconds, uint32_t nanoseconds);
  int CopyExtendedAttributesTo(File& other);
  int SyncFileSystem();  // everything that is written is on the disk then
  int Close();

 private:
  int file_ = -1;
};

}  // namespace base::wine
