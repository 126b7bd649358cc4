#include "base/files/windows_file_system.h"

#include <windows.h>

#include <winioctl.h>

#include <array>

#include "base/files/paths.h"
#include "base/files/temporary_name.h"
#include "base/files/windows_status.h"

namespace base {
namespace {

SystemError ResultOf(BOOL succeeded) {
  return succeeded ? kNoError : GetLastError();
}

// Runs a deed on a file that may be read-only: the attribute goes first and comes back when the deed fails.
template <typename Deed>
SystemError DespiteReadOnly(const std::wstring& path, Deed&& deed) {
  SystemError error = deed();
  if (error != ERROR_ACCESS_DENIED) return error;
  const std::wstring extended = ExtendedPath(path);
  const DWORD attributes = GetFileAttributesW(extended.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_READONLY)) return error;
  if (!SetFileAttributesW(extended.c_str(), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY})) return error;
  error = deed();
  if (error != kNoError) SetFileAttributesW(extended.c_str(), attributes);
  return error;
}

struct CopyState {
  const FileSystem::CopyProgress* progress = nullptr;
  std::exception_ptr thrown;
};

DWORD CALLBACK OnCopyProgress(LARGE_INTEGER, LARGE_INTEGER copied, LARGE_INTEGER, LARGE_INTEGER, DWORD, DWORD,
                              HANDLE, HANDLE, LPVOID context) {
  CopyState& state = *static_cast<CopyState*>(context);
  try {
    return (*state.progress)(static_cast<uint64_t>(copied.QuadPart)) ? PROGRESS_CONTINUE : PROGRESS_CANCEL;
  } catch (...) {
    state.thrown = std::current_exception();
    return PROGRESS_STOP;  // leaves what there is, as an ended process would
  }
}

uint32_t MachineNumber() {
  std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name = {};
  DWORD size = static_cast<DWORD>(name.size());
  GetComputerNameW(name.data(), &size);
  uint32_t hash = 2166136261u;
  for (DWORD i = 0; i < size; ++i) hash = (hash ^ static_cast<uint32_t>(name[i])) * 16777619u;
  return hash;
}

// 0 when it can't be asked.
uint32_t StartOfProcess(HANDLE process) {
  FILETIME created = {};
  FILETIME ignored = {};
  return GetProcessTimes(process, &created, &ignored, &ignored, &ignored) ? created.dwLowDateTime : 0;
}

}  // namespace

SystemError WindowsFileSystem::Status(const std::wstring& path, FileStatus* status) {
  *status = {};
  const unique_file file = OpenToLook(path, IsRootPath(path));
  return file ? StatusOfHandle(file.get(), status) : GetLastError();
}

SystemError WindowsFileSystem::TargetStatus(const std::wstring& path, FileStatus* status) {
  *status = {};
  const unique_file file = OpenToLook(path, true);
  return file ? StatusOfHandle(file.get(), status) : GetLastError();
}

SystemError WindowsFileSystem::PhysicalChain(const std::wstring& path, std::vector<FileIdentity>* chain) {
  chain->clear();
  const unique_file folder = OpenToLook(path, true);
  if (!folder) return GetLastError();
  std::wstring real(32768, L'\0');
  const DWORD size = GetFinalPathNameByHandleW(folder.get(), real.data(), static_cast<DWORD>(real.size()), 0);
  if (size == 0 || size >= real.size()) return size == 0 ? GetLastError() : ERROR_FILENAME_EXCED_RANGE;
  real.resize(size);
  real = TidyTypedPath(real);
  for (std::wstring at = real; !at.empty(); at = ParentOfPath(at)) {
    FileStatus status;
    const SystemError error = TargetStatus(at, &status);
    if (error != kNoError) return error;
    chain->push_back(status.identity);
  }
  return kNoError;
}

SystemError WindowsFileSystem::List(const std::wstring& folder, std::vector<FileEntry>* entries) {
  entries->clear();
  WIN32_FIND_DATAW found = {};
  const unique_find find =
      OwnFind(FindFirstFileExW(ExtendedPath(JoinPath(folder, L"*")).c_str(), FindExInfoBasic, &found,
                               FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
  if (!find) return GetLastError() == ERROR_FILE_NOT_FOUND ? kNoError : GetLastError();
  do {
    const std::wstring_view name = found.cFileName;
    if (name == L"." || name == L"..") continue;
    FileEntry entry;
    entry.name = name;
    // What the listing says of size and time may be old, and it has no identity.
    const SystemError error = Status(PathInFolder(folder, name), &entry.status);
    if (IsNotFound(error)) continue;
    if (error != kNoError) {
      entry.status.kind =
          (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) ? FileKind::kFolder : FileKind::kFile;
      if (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) {
        entry.status.kind = KindOfReparsePoint(found.dwFileAttributes, found.dwReserved0, {});
      }
      entry.status.attributes = found.dwFileAttributes;
      entry.status.size = (uint64_t{found.nFileSizeHigh} << 32) | found.nFileSizeLow;
    }
    entries->push_back(std::move(entry));
  } while (FindNextFileW(find.get(), &found));
  return GetLastError() == ERROR_NO_MORE_FILES ? kNoError : GetLastError();
}

SystemError WindowsFileSystem::MakeFolder(const std::wstring& path) {
  return ResultOf(CreateDirectoryW(ExtendedPath(path).c_str(), nullptr));
}

SystemError WindowsFileSystem::CopyBytes(const std::wstring& source, const std::wstring& target,
                                         const CopyProgress& progress) {
  CopyState state{&progress, nullptr};
  const SystemError error = ResultOf(CopyFileExW(ExtendedPath(source).c_str(), ExtendedPath(target).c_str(),
                                                 &OnCopyProgress, &state, nullptr, COPY_FILE_FAIL_IF_EXISTS));
  if (state.thrown) std::rethrow_exception(state.thrown);
  return error;
}

SystemError WindowsFileSystem::CopyLink(const std::wstring& source, const std::wstring& target) {
  const unique_file link = OpenToLook(source, false);
  if (!link) return GetLastError();
  FileStatus status;
  std::vector<char> data;
  SystemError error = StatusOfHandle(link.get(), &status);
  if (error == kNoError) error = ReadReparseData(link.get(), &data);
  if (error != kNoError) return error;
  const std::wstring extended = ExtendedPath(target);
  const bool folder = (status.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  if (folder && !CreateDirectoryW(extended.c_str(), nullptr)) return GetLastError();
  {
    const unique_file made =
        OwnFile(CreateFileW(extended.c_str(), GENERIC_WRITE, 0, nullptr, folder ? OPEN_EXISTING : CREATE_NEW,
                            FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
    if (!made) return GetLastError();
    DWORD size = 0;
    error = ResultOf(DeviceIoControl(made.get(), FSCTL_SET_REPARSE_POINT, data.data(),
                                     static_cast<DWORD>(data.size()), nullptr, 0, &size, nullptr));
  }
  if (error != kNoError) folder ? RemoveDirectoryW(extended.c_str()) : DeleteFileW(extended.c_str());
  return error;
}

SystemError WindowsFileSystem::CopyFolderAttributes(const std::wstring& source, const std::wstring& target) {
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  if (!GetFileAttributesExW(ExtendedPath(source).c_str(), GetFileExInfoStandard, &data))
    return GetLastError();
  const std::wstring extended = ExtendedPath(target);
  SystemError error = kNoError;
  {
    const unique_file folder =
        OwnFile(CreateFileW(extended.c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    error = folder ? ResultOf(SetFileTime(folder.get(), &data.ftCreationTime, nullptr, &data.ftLastWriteTime))
                   : GetLastError();
  }
  constexpr DWORD kKept = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                          FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
  if ((data.dwFileAttributes & kKept) == 0) return error;
  const SystemError set = ResultOf(SetFileAttributesW(extended.c_str(), data.dwFileAttributes & kKept));
  return error == kNoError ? set : error;
}

SystemError WindowsFileSystem::Rename(const std::wstring& from, const std::wstring& to) {
  return ResultOf(MoveFileExW(ExtendedPath(from).c_str(), ExtendedPath(to).c_str(), 0));
}

SystemError WindowsFileSystem::Replace(const std::wstring& from, const std::wstring& to) {
  return DespiteReadOnly(to, [&] {
    return ResultOf(
        MoveFileExW(ExtendedPath(from).c_str(), ExtendedPath(to).c_str(), MOVEFILE_REPLACE_EXISTING));
  });
}

SystemError WindowsFileSystem::RemoveFile(const std::wstring& path) {
  return DespiteReadOnly(path, [&] { return ResultOf(DeleteFileW(ExtendedPath(path).c_str())); });
}

SystemError WindowsFileSystem::RemoveFolder(const std::wstring& path) {
  FileStatus status;
  const SystemError error = Status(path, &status);
  if (error != kNoError) return error;
  // RemoveDirectory would take a link away, too.
  if (status.kind != FileKind::kFolder) return kPathNotFound;
  return DespiteReadOnly(path, [&] { return ResultOf(RemoveDirectoryW(ExtendedPath(path).c_str())); });
}

SystemError WindowsFileSystem::RemoveLink(const std::wstring& path) {
  FileStatus status;
  const SystemError error = Status(path, &status);
  if (error != kNoError) return error;
  return DespiteReadOnly(path, [&] {
    const std::wstring extended = ExtendedPath(path);
    return ResultOf((status.attributes & FILE_ATTRIBUTE_DIRECTORY) ? RemoveDirectoryW(extended.c_str())
                                                                   : DeleteFileW(extended.c_str()));
  });
}

SystemError WindowsFileSystem::Flush(const std::wstring&, const std::vector<std::wstring>& files) {
  for (const std::wstring& path : files) {
    const std::wstring extended = ExtendedPath(path);
    unique_file file =
        OwnFile(CreateFileW(extended.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    // A read-only file cannot be opened to flush it; the system writes it in its own time.
    if (file && !FlushFileBuffers(file.get())) return GetLastError();
  }
  return kNoError;
}

std::wstring WindowsFileSystem::ProcessToken() {
  return MakeProcessToken(MachineNumber(), GetCurrentProcessId(), StartOfProcess(GetCurrentProcess()));
}

bool WindowsFileSystem::ProcessHasEnded(const std::wstring& token) {
  const std::optional<ProcessTokenParts> parts = PartsOfProcessToken(token);
  if (!parts || parts->machine != MachineNumber()) return false;
  const unique_file process = OwnFile(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, parts->process));
  if (!process) return GetLastError() == ERROR_INVALID_PARAMETER;  // there is no process of that number
  return StartOfProcess(process.get()) != parts->started;
}

}  // namespace base
