#include "base/files/windows_status.h"

#include <winioctl.h>

#include <cstddef>
#include <cstring>

#include "base/files/paths.h"

namespace base {
namespace {

// The head of reparse data, which no header of the user mode declares.
struct ReparseHead {
  DWORD tag;
  WORD size;
  WORD reserved;
  WORD nameOffset;  // of the name that the system follows, in bytes, within the names
  WORD nameSize;
};
constexpr size_t kMountNamesAt = 16;

bool IsVolumeMount(const std::vector<char>& data) {
  ReparseHead head = {};
  if (data.size() < sizeof head) return false;
  std::memcpy(&head, data.data(), sizeof head);
  if (head.tag != IO_REPARSE_TAG_MOUNT_POINT ||
      kMountNamesAt + head.nameOffset + head.nameSize > data.size()) {
    return false;
  }
  std::wstring name(head.nameSize / sizeof(wchar_t), L'\0');
  std::memcpy(name.data(), data.data() + kMountNamesAt + head.nameOffset, name.size() * sizeof(wchar_t));
  return name.starts_with(L"\\??\\Volume{");
}

}  // namespace

unique_file OpenToLook(const std::wstring& path, bool follow) {
  return OwnFile(CreateFileW(ExtendedPath(path).c_str(), FILE_READ_ATTRIBUTES,
                             FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                             FILE_FLAG_BACKUP_SEMANTICS | (follow ? 0 : FILE_FLAG_OPEN_REPARSE_POINT),
                             nullptr));
}

SystemError ReadReparseData(HANDLE link, std::vector<char>* data) {
  data->resize(MAXIMUM_REPARSE_DATA_BUFFER_SIZE);
  DWORD size = 0;
  if (!DeviceIoControl(link, FSCTL_GET_REPARSE_POINT, nullptr, 0, data->data(),
                       static_cast<DWORD>(data->size()), &size, nullptr)) {
    data->clear();
    return GetLastError();
  }
  data->resize(size);
  return kNoError;
}

FileKind KindOfReparsePoint(DWORD attributes, DWORD tag, const std::vector<char>& data) {
  const bool folder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  // Other tags than those of links stand for ordinary files that lie in a cloud, are compressed, and so on.
  // Wine gives links to folders no tag.
  if (tag != 0 && !IsReparseTagNameSurrogate(tag)) return folder ? FileKind::kFolder : FileKind::kFile;
  if (IsVolumeMount(data)) return FileKind::kMountPoint;
  return folder ? FileKind::kFolderLink : FileKind::kFileLink;
}

SystemError StatusOfHandle(HANDLE file, FileStatus* status) {
  BY_HANDLE_FILE_INFORMATION information = {};
  if (!GetFileInformationByHandle(file, &information)) return GetLastError();
  const DWORD attributes = information.dwFileAttributes;
  status->attributes = attributes;
  status->modified = static_cast<int64_t>((uint64_t{information.ftLastWriteTime.dwHighDateTime} << 32) |
                                          information.ftLastWriteTime.dwLowDateTime);
  status->identity = {information.dwVolumeSerialNumber,
                      (uint64_t{information.nFileIndexHigh} << 32) | information.nFileIndexLow};
  status->kind = (attributes & FILE_ATTRIBUTE_DIRECTORY) ? FileKind::kFolder : FileKind::kFile;
  if (attributes & FILE_ATTRIBUTE_REPARSE_POINT) {
    FILE_ATTRIBUTE_TAG_INFO tag = {};
    GetFileInformationByHandleEx(file, FileAttributeTagInfo, &tag, sizeof tag);
    std::vector<char> data;
    if (tag.ReparseTag == IO_REPARSE_TAG_MOUNT_POINT) ReadReparseData(file, &data);
    status->kind = KindOfReparsePoint(attributes, tag.ReparseTag, data);
  }
  if (status->kind == FileKind::kFile) {
    status->size = (uint64_t{information.nFileSizeHigh} << 32) | information.nFileSizeLow;
  }
  return kNoError;
}

}  // namespace base
