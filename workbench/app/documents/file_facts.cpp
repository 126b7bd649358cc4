#include "workbench/app/documents/file_facts.h"

#include <algorithm>

#include "workbench/app/documents/path_form.h"

#include "base/text/name_insert.h"

namespace workbench {
namespace {

DateTime LocalDateTime(const FILETIME& time) {
  SYSTEMTIME universal = {};
  SYSTEMTIME local = {};
  // Through the time zone's own rules of that day, not today's.
  if (!FileTimeToSystemTime(&time, &universal) ||
      !SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local)) {
    return {};
  }
  return {local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute};
}

// An absolute path stays as it is written.
std::wstring FullPath(const std::wstring& path) {
  const bool drive = path.size() > 2 && path[1] == L':' && (path[2] == L'\\' || path[2] == L'/');
  if (drive || path.starts_with(L"\\\\")) return path;
  const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  if (size == 0) return path;
  std::wstring full(size, L'\0');
  full.resize(GetFullPathNameW(path.c_str(), size, full.data(), nullptr));
  return full.empty() ? path : full;
}

std::wstring LastPart(const std::wstring& path) {
  const std::size_t end = path.find_last_not_of(L"\\/");
  if (end == std::wstring::npos) return path;
  const std::size_t separator = path.find_last_of(L"\\/", end);
  const std::wstring name =
      separator == std::wstring::npos ? path.substr(0, end + 1) : path.substr(separator + 1, end - separator);
  return name.empty() || name.back() == L':' ? path : name;
}

}  // namespace

DWORD ReadFileFacts(const std::wstring& path, FileFacts* facts) {
  if (path.empty()) return ERROR_PATH_NOT_FOUND;
  WIN32_FILE_ATTRIBUTE_DATA data = {};
  const std::wstring full = FullPath(path);
  if (!GetFileAttributesExW(ExtendedPath(full).c_str(), GetFileExInfoStandard, &data)) return GetLastError();
  facts->path = full;
  facts->name = LastPart(full);
  facts->folder = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  facts->readOnly = (data.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0;
  facts->hidden = (data.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
  const std::uint64_t size = (static_cast<std::uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
  facts->size = facts->folder ? 0 : size;
  facts->created = LocalDateTime(data.ftCreationTime);
  facts->modified = LocalDateTime(data.ftLastWriteTime);
  return ERROR_SUCCESS;
}

DWORD ReadFileBeginning(const std::wstring& path, std::size_t limit, std::string* content) {
  content->clear();
  // Other programs may go on writing, renaming and deleting the file while it is shown.
  const HANDLE file = CreateFileW(ExtendedPath(path).c_str(), GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
  if (file == INVALID_HANDLE_VALUE) return GetLastError();
  // Reading from a pipe or a device could wait for ever.
  DWORD error = GetFileType(file) == FILE_TYPE_DISK ? ERROR_SUCCESS : ERROR_NOT_SUPPORTED;
  constexpr std::size_t kPiece = 1024 * 1024;
  while (error == ERROR_SUCCESS && content->size() < limit) {
    const std::size_t before = content->size();
    content->resize(before + std::min(kPiece, limit - before));
    DWORD read = 0;
    const auto wanted = static_cast<DWORD>(content->size() - before);
    if (!ReadFile(file, content->data() + before, wanted, &read, nullptr)) error = GetLastError();
    content->resize(before + read);
    if (read == 0) break;
  }
  CloseHandle(file);
  return error;
}

std::wstring ErrorText(DWORD error, std::wstring_view name) {
  wchar_t* text = nullptr;
  const DWORD length = FormatMessageW(
      FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
      error, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::wstring result(text != nullptr ? text : L"", length);
  LocalFree(text);
  while (!result.empty() && (result.back() == L'\n' || result.back() == L'\r' || result.back() == L' ')) {
    result.pop_back();
  }
  result = base::InsertName(std::move(result), name);
  return result.empty() ? L"Error " + std::to_wstring(error) + L"." : result;
}

}  // namespace workbench
