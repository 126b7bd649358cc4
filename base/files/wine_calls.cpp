#include "base/files/wine_calls.h"

#include <array>
#include <cstring>

#ifdef _WIN32
#include <windows.h>
#undef RemoveDirectory
#else
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace base::wine {
namespace {

#ifdef _WIN32

// The kernel's numbers for 64-bit Intel.
enum Number : long {
  kRead = 0,
  kWrite = 1,
  kClose = 3,
  kGetPid = 39,
  kFchmod = 91,
  kFsetxattr = 190,
  kFgetxattr = 193,
  kFlistxattr = 196,
  kGetdents = 217,
  kOpenat = 257,
  kMkdirat = 258,
  kUnlinkat = 263,
  kLinkat = 265,
  kSymlinkat = 266,
  kReadlinkat = 267,
  kFchmodat = 268,
  kUtimensat = 280,
  kSyncfs = 306,
  kRenameat2 = 316,
  kStatx = 332,
};

long long KernelCall(long long number, long long a, long long b, long long c, long long d, long long e) {
  long long result;
  register long long fourth asm("r10") = d;
  register long long fifth asm("r8") = e;
  asm volatile("syscall"
               : "=a"(result)
               : "a"(number), "D"(a), "S"(b), "d"(c), "r"(fourth), "r"(fifth)
               : "rcx", "r11", "memory");
  return result;
}

#else

enum Number : long {
  kRead = SYS_read,
  kWrite = SYS_write,
  kClose = SYS_close,
  kGetPid = SYS_getpid,
  kFchmod = SYS_fchmod,
  kFsetxattr = SYS_fsetxattr,
  kFgetxattr = SYS_fgetxattr,
  kFlistxattr = SYS_flistxattr,
  kGetdents = SYS_getdents64,
  kOpenat = SYS_openat,
  kMkdirat = SYS_mkdirat,
  kUnlinkat = SYS_unlinkat,
  kLinkat = SYS_linkat,
  kSymlinkat = SYS_symlinkat,
  kReadlinkat = SYS_readlinkat,
  kFchmodat = SYS_fchmodat,
  kUtimensat = SYS_utimensat,
  kSyncfs = SYS_syncfs,
  kRenameat2 = SYS_renameat2,
  kStatx = SYS_statx,
};

long long KernelCall(long long number, long long a, long long b, long long c, long long d, long long e) {
  const long long result = ::syscall(static_cast<long>(number), a, b, c, d, e);
  return result < 0 ? -errno : result;
}

#endif

constexpr int kCurrentFolder = -100;  // AT_FDCWD: all paths are absolute
constexpr int kNoFollow = 0x100;      // AT_SYMLINK_NOFOLLOW
constexpr int kEmptyPath = 0x1000;    // AT_EMPTY_PATH
constexpr int kRemoveFolder = 0x200;  // AT_REMOVEDIR
constexpr int kNoReplace = 1;         // RENAME_NOREPLACE
constexpr int kReadOnly = 0, kWriteOnly = 1, kCreate = 0100, kExclusive = 0200, kNonBlock = 04000,
              kCloseOnExec = 02000000;
#if defined(_WIN32) || defined(__x86_64__)
constexpr int kFolderOnly = 0200000, kNoLink = 0400000;
#else
constexpr int kFolderOnly = 040000, kNoLink = 0100000;
#endif

template <typename Value>
long long Argument(Value value) {
  if constexpr (std::is_pointer_v<Value>) {
    return static_cast<long long>(reinterpret_cast<uintptr_t>(value));
  } else {
    return static_cast<long long>(value);
  }
}

// A call that a signal interrupted is made again.
template <typename... Arguments>
long long Call(Number number, Arguments... arguments) {
  const std::array<long long, 5> all = {Argument(arguments)...};
  long long result = 0;
  do {
    result = KernelCall(number, all[0], all[1], all[2], all[3], all[4]);
  } while (result == -kEintr);
  return result;
}

template <typename... Arguments>
int IntCall(Number number, Arguments... arguments) {
  return static_cast<int>(Call(number, arguments...));
}

struct TimeSpec {
  int64_t seconds;
  int64_t nanoseconds;
};

// struct statx, which is the same on all machines.
struct Statx {
  uint32_t mask, blockSize;
  uint64_t attributes;
  uint32_t links, user, group;
  uint16_t mode, spare0;
  uint64_t inode, size, blocks, attributesMask;
  struct Time {
    int64_t seconds;
    uint32_t nanoseconds;
    int32_t reserved;
  } accessed, born, changed, modified;
  uint32_t rawMajor, rawMinor, deviceMajor, deviceMinor;
  uint64_t spare[14];
};
static_assert(sizeof(Statx) == 256);

int StatxCall(int folder, const char* path, int flags, Status* status) {
  constexpr uint32_t kBasicStats = 0x7FF;
  constexpr uint64_t kMountRoot = 0x2000;  // STATX_ATTR_MOUNT_ROOT
  Statx raw = {};
  const int result = IntCall(kStatx, folder, path, flags, kBasicStats, &raw);
  if (result < 0) return result;
  status->mode = raw.mode;
  status->size = raw.size;
  status->seconds = raw.modified.seconds;
  status->nanoseconds = raw.modified.nanoseconds;
  status->device = (static_cast<uint64_t>(raw.deviceMajor) << 32) | raw.deviceMinor;
  status->inode = raw.inode;
  status->mountRoot = (raw.attributes & kMountRoot) != 0;
  return 0;
}

#ifdef _WIN32
bool WineLetsCallsThrough() {
  const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
  using GetVersion = const char*(CDECL*)();
  using GetHostVersion = void(CDECL*)(const char**, const char**);
  const auto version =
      reinterpret_cast<GetVersion>(reinterpret_cast<void*>(GetProcAddress(ntdll, "wine_get_version")));
  const auto host = reinterpret_cast<GetHostVersion>(
      reinterpret_cast<void*>(GetProcAddress(ntdll, "wine_get_host_version")));
  if (!version || !host) return false;
  const char* system = nullptr;
  const char* release = nullptr;
  host(&system, &release);
  // Later versions may take the instruction for a call of Windows.
  constexpr int kLastMajor = 9;
  const int major = atoi(version());
  return system && std::strcmp(system, "Linux") == 0 && major >= 5 && major <= kLastMajor;
}
#endif

}  // namespace

bool CanCallKernel() {
#ifdef _WIN32
  static const bool can = WineLetsCallsThrough();
  return can;
#else
  return true;
#endif
}

int GetStatus(const std::string& path, bool follow, Status* status) {
  return StatxCall(kCurrentFolder, path.c_str(), follow ? 0 : kNoFollow, status);
}
int GetStatusOfFile(int file, Status* status) {
  return StatxCall(file, "", kEmptyPath, status);
}

int ListFolder(const std::string& path, std::vector<std::string>* names) {
  const int folder =
      IntCall(kOpenat, kCurrentFolder, path.c_str(), kReadOnly | kFolderOnly | kCloseOnExec, 0);
  if (folder < 0) return folder;
  constexpr size_t kNameAt = 19;  // in struct linux_dirent64
  std::vector<char> buffer(1 << 16);
  long long size = 0;
  while ((size = Call(kGetdents, folder, buffer.data(), buffer.size())) > 0) {
    for (long long at = 0; at < size;) {
      uint16_t length = 0;
      std::memcpy(&length, buffer.data() + at + 16, sizeof length);
      const std::string_view name(buffer.data() + at + kNameAt);
      if (name != "." && name != "..") names->emplace_back(name);
      at += length;
    }
  }
  Call(kClose, folder);
  return static_cast<int>(size);
}

int ReadLinkText(const std::string& path, std::string* text) {
  std::array<char, 4096> buffer;
  const long long size = Call(kReadlinkat, kCurrentFolder, path.c_str(), buffer.data(), buffer.size());
  if (size < 0) return static_cast<int>(size);
  text->assign(buffer.data(), static_cast<size_t>(size));
  return 0;
}

int MakeLink(const std::string& text, const std::string& path) {
  return IntCall(kSymlinkat, text.c_str(), kCurrentFolder, path.c_str());
}
int MakeDirectory(const std::string& path, uint32_t mode) {
  return IntCall(kMkdirat, kCurrentFolder, path.c_str(), mode);
}
int RemoveDirectory(const std::string& path) {
  return IntCall(kUnlinkat, kCurrentFolder, path.c_str(), kRemoveFolder);
}
int Unlink(const std::string& path) {
  return IntCall(kUnlinkat, kCurrentFolder, path.c_str(), 0);
}

int Rename(const std::string& from, const std::string& to) {
  return IntCall(kRenameat2, kCurrentFolder, from.c_str(), kCurrentFolder, to.c_str());
}

int RenameWithoutReplacing(const std::string& from, const std::string& to) {
  const int result =
      IntCall(kRenameat2, kCurrentFolder, from.c_str(), kCurrentFolder, to.c_str(), kNoReplace);
  if (result != -kEinval && result != -kEnosys) return result;
  // The file system does not know that call. A second name for a file never replaces anything; folders can
  // only take the place of empty ones.
  Status status;
  const int there = GetStatus(from, false, &status);
  if (there < 0) return there;
  if (!status.IsFolder()) {
    const int linked = IntCall(kLinkat, kCurrentFolder, from.c_str(), kCurrentFolder, to.c_str(), 0);
    return linked < 0 ? linked : Unlink(from);
  }
  if (GetStatus(to, false, &status) != -kEnoent) return -kEexist;
  return Rename(from, to);
}

int SetMode(const std::string& path, uint32_t mode) {
  return IntCall(kFchmodat, kCurrentFolder, path.c_str(), mode & 07777u);
}

int SetTime(const std::string& path, int64_t seconds, uint32_t nanoseconds) {
  const TimeSpec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
  return IntCall(kUtimensat, kCurrentFolder, path.c_str(), &times[0], kNoFollow);
}

int ReadWholeFile(const std::string& path, std::string* content) {
  File file;
  const int opened = file.OpenToRead(path);
  if (opened < 0) return opened;
  std::array<char, 4096> buffer;
  long size = 0;
  while ((size = file.Read(buffer.data(), buffer.size())) > 0)
    content->append(buffer.data(), static_cast<size_t>(size));
  return static_cast<int>(size);
}

int ProcessNumber() {
  return IntCall(kGetPid);
}

int File::OpenToRead(const std::string& path) {
  Close();
  const int file =
      IntCall(kOpenat, kCurrentFolder, path.c_str(), kReadOnly | kNoLink | kNonBlock | kCloseOnExec, 0);
  if (file < 0) return file;
  file_ = file;
  return 0;
}

int File::Create(const std::string& path, uint32_t mode) {
  Close();
  const int file = IntCall(kOpenat, kCurrentFolder, path.c_str(),
                           kWriteOnly | kCreate | kExclusive | kNoLink | kCloseOnExec, mode);
  if (file < 0) return file;
  file_ = file;
  return 0;
}

int File::OpenFolder(const std::string& path) {
  Close();
  const int file = IntCall(kOpenat, kCurrentFolder, path.c_str(), kReadOnly | kFolderOnly | kCloseOnExec, 0);
  if (file < 0) return file;
  file_ = file;
  return 0;
}

long File::Read(char* buffer, size_t size) {
  return static_cast<long>(Call(kRead, file_, buffer, size));
}
long File::Write(const char* buffer, size_t size) {
  return static_cast<long>(Call(kWrite, file_, buffer, size));
}
int File::SetMode(uint32_t mode) {
  return IntCall(kFchmod, file_, mode & 07777u);
}

int File::SetTime(int64_t seconds, uint32_t nanoseconds) {
  const TimeSpec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
  return IntCall(kUtimensat, file_, static_cast<const char*>(nullptr), &times[0], 0);
}

int File::CopyExtendedAttributesTo(File& other) {
  const long long size = Call(kFlistxattr, file_, static_cast<char*>(nullptr), 0);
  if (size <= 0) return static_cast<int>(size);
  std::vector<char> names(static_cast<size_t>(size));
  const long long listed = Call(kFlistxattr, file_, names.data(), names.size());
  int result = listed < 0 ? static_cast<int>(listed) : 0;
  for (long long at = 0; at < listed;) {
    const char* name = names.data() + at;
    at += static_cast<long long>(std::strlen(name)) + 1;
    std::vector<char> value(1 << 16);
    const long long length = Call(kFgetxattr, file_, name, value.data(), value.size());
    if (length < 0) continue;
    const int set = IntCall(kFsetxattr, other.file_, name, value.data(), length, 0);
    if (set < 0) result = set;
  }
  return result;
}

int File::SyncFileSystem() {
  return IntCall(kSyncfs, file_);
}

int File::Close() {
  if (file_ < 0) return 0;
  const int result = static_cast<int>(KernelCall(kClose, std::exchange(file_, -1), 0, 0, 0, 0));
  return result == -kEintr ? 0 : result;
}

}  // namespace base::wine
