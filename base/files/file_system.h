// The file calls that the transfer engine makes, as an interface: real file systems implement it, tests wrap
// it and let calls fail. Pure: no windows.h.
//
// Paths are absolute Windows paths without a prefix ("C:\folder\name", "\\server\share\name"), of any length,
// and are taken literally: a trailing dot, a blank or a device name is part of the name. A path whose last
// part may contain a backslash is made by PathInFolder (base/files/paths.h). No call follows a link unless it
// says so.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace base {

// An error code of Windows (ERROR_...); 0 says that all went well.
using SystemError = uint32_t;

// The codes that the engine itself acts upon; every other one is only handed on.
inline constexpr SystemError kNoError = 0;
inline constexpr SystemError kFileNotFound = 2;       // ERROR_FILE_NOT_FOUND
inline constexpr SystemError kPathNotFound = 3;       // ERROR_PATH_NOT_FOUND
inline constexpr SystemError kAccessDenied = 5;       // ERROR_ACCESS_DENIED
inline constexpr SystemError kNotSameDevice = 17;     // ERROR_NOT_SAME_DEVICE
inline constexpr SystemError kSharingViolation = 32;  // ERROR_SHARING_VIOLATION
inline constexpr SystemError kNotSupported = 50;      // ERROR_NOT_SUPPORTED
inline constexpr SystemError kFileExists = 80;        // ERROR_FILE_EXISTS
inline constexpr SystemError kDiskFull = 112;         // ERROR_DISK_FULL
inline constexpr SystemError kInvalidName = 123;      // ERROR_INVALID_NAME
inline constexpr SystemError kFolderNotEmpty = 145;   // ERROR_DIR_NOT_EMPTY
inline constexpr SystemError kAlreadyExists = 183;    // ERROR_ALREADY_EXISTS
inline constexpr SystemError kCancelled = 1235;       // ERROR_REQUEST_ABORTED

inline bool IsNotFound(SystemError error) {
  return error == kFileNotFound || error == kPathNotFound;
}

enum class FileKind {
  kNothing,
  kFile,
  kFolder,
  kFileLink,    // a symbolic link, dangling ones included
  kFolderLink,  // a symbolic link or junction to a folder
  kMountPoint,  // another file system or volume shows in this folder
  kOther,       // a pipe, socket or device: never opened
};

// Which file it is, however its path is written.
struct FileIdentity {
  uint64_t volume = 0;
  uint64_t index = 0;
  bool operator==(const FileIdentity&) const = default;
  auto operator<=>(const FileIdentity&) const = default;
};

struct FileStatus {
  FileKind kind = FileKind::kNothing;
  uint64_t size = 0;        // bytes; 0 for everything but files
  int64_t modified = 0;     // in steps of 100 ns since 1601, UTC, as FILETIME counts
  uint32_t attributes = 0;  // FILE_ATTRIBUTE_...
  FileIdentity identity;    // of the link itself for links

  bool operator==(const FileStatus&) const = default;
};

// Whether it is one file, and as far as can be seen without reading it, with the same contents.
inline bool SameContent(const FileStatus& first, const FileStatus& second) {
  return first.kind == second.kind && first.identity == second.identity && first.size == second.size &&
         first.modified == second.modified;
}

struct FileEntry {
  std::wstring name;  // as it goes into PathInFolder's result: base/files/paths.h
  FileStatus status;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // Called as an operation begins: what may be remembered from before is to be looked at again.
  virtual void BeginOperation() {}

  // The path as it is really written: whoever typed or stored one may have used other letter case, and files
  // below Wine may differ in nothing but that. All other calls take the spelling that this one and List give;
  // they may, but need not, take others. Where nothing stands the error is kFileNotFound or kPathNotFound.
  virtual SystemError Spell(const std::wstring& path, std::wstring* exact) {
    *exact = path;
    FileStatus status;
    return Status(path, &status);
  }

  // What stands at path; a link is a link. Nothing there: kFileNotFound or kPathNotFound, and kNothing.
  virtual SystemError Status(const std::wstring& path, FileStatus* status) = 0;
  // The same of what a link leads to, in the end.
  virtual SystemError TargetStatus(const std::wstring& path, FileStatus* status) = 0;
  // The identities of the folder that path leads to and of all folders that contain it, up to the root: of
  // the real ones, whatever links, drive letters or mount points the path goes through.
  virtual SystemError PhysicalChain(const std::wstring& path, std::vector<FileIdentity>* chain) = 0;

  // Everything that lies in a folder (the folder may be reached through a link), without "." and "..", in no
  // particular order.
  virtual SystemError List(const std::wstring& folder, std::vector<FileEntry>* entries) = 0;

  virtual SystemError MakeFolder(const std::wstring& path) = 0;

  // Called with the bytes copied so far; false stops the copy.
  using CopyProgress = std::function<bool(uint64_t bytes)>;
  // Copies bytes, attributes, times and, where there are any, further streams of a file to a path where
  // nothing stands yet. When it fails or is stopped (kCancelled), a part of the copy may lie there: the
  // caller removes it.
  virtual SystemError CopyBytes(const std::wstring& source, const std::wstring& target,
                                const CopyProgress& progress) = 0;
  // Makes a link at target, where nothing stands, that says what the link at source says.
  virtual SystemError CopyLink(const std::wstring& source, const std::wstring& target) = 0;
  // Gives the folder target the times and attributes of the folder source.
  virtual SystemError CopyFolderAttributes(const std::wstring& source, const std::wstring& target) = 0;

  // Gives a file, folder or link another name in the same file system (else kNotSameDevice). Where something
  // stands under the new name it is not replaced (kAlreadyExists).
  virtual SystemError Rename(const std::wstring& from, const std::wstring& to) = 0;
  // Puts a file or file link in the place of the file or file link `to`, at once: a reader sees the one or
  // the other.
  virtual SystemError Replace(const std::wstring& from, const std::wstring& to) = 0;

  // Remove one object of that kind, read-only ones too. A folder has to be empty.
  virtual SystemError RemoveFile(const std::wstring& path) = 0;
  virtual SystemError RemoveFolder(const std::wstring& path) = 0;
  // A link or mount point, never what it leads to.
  virtual SystemError RemoveLink(const std::wstring& path) = 0;

  // Waits until the files, all of them below folder, are on the disk itself.
  virtual SystemError Flush(const std::wstring& folder, const std::vector<std::wstring>& files) = 0;

  // A text that tells this process from every other one of this and other machines, 24 hexadecimal digits,
  // for temporary names; and whether the process of such a text is known to have ended.
  virtual std::wstring ProcessToken() = 0;
  virtual bool ProcessHasEnded(const std::wstring& token) = 0;
};

// The file system of this machine: a process-wide object that any thread may use, one operation at a time
// each. (windows_file_system.cpp; only in Windows builds.)
FileSystem& MachineFileSystem();

}  // namespace base
