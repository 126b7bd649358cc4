#include "src/settings/directory_links.h"

#include <shlwapi.h>
#include <wrl/client.h>

#include <cwchar>
#include <memory>
#include <string>

#include "base/reach/drive_reach.h"
#include "base/text/code_page.h"
#include "src/host/vc64_imp.h"
#include "src/settings/remembered_folder.h"
#include "src/settings/shell_link.h"

namespace file_explorer {
namespace {

using Microsoft::WRL::ComPtr;

ComPtr<IShellFolder> Desktop() {
  ComPtr<IShellFolder> desktop;
  SHGetDesktopFolder(desktop.GetAddressOf());
  return desktop;
}

constexpr DWORD kPathSize = 32768;  // characters, with the terminator

// Empty for a folder that is on no file system.
std::wstring FileSystemPath(LPCITEMIDLIST folder) {
  std::wstring path(kPathSize, L'\0');
  if (!SHGetPathFromIDListEx(folder, path.data(), kPathSize, GPFIDL_DEFAULT)) return {};
  path.resize(std::wcslen(path.c_str()));
  return path;
}

bool IsArchiveName(const std::wstring& path) {
  return Tx_Check_For_File_Extension(base::DisplayNarrow(path).c_str(), ".zip") != 0;
}

PathKind KindOf(DWORD attributes, const std::wstring& path) {
  if (attributes & FILE_ATTRIBUTE_DIRECTORY) return PathKind::kFolder;
  return IsArchiveName(path) ? PathKind::kArchive : PathKind::kFile;
}

VolumeKind VolumeOfRoot(const std::wstring& root) {
  if (base::MayHang(std::wstring_view(root))) return VolumeKind::kRemote;
  return GetDriveTypeW(root.c_str()) == DRIVE_NO_ROOT_DIR ? VolumeKind::kMissing : VolumeKind::kLocal;
}

PathKind LookAt(const std::wstring& path) {
  // An empty drive must not ask for a disk. The thread's mode, not the process's.
  DWORD before = 0;
  SetThreadErrorMode(SEM_FAILCRITICALERRORS, &before);
  const DWORD attributes = GetFileAttributesW(path.c_str());
  SetThreadErrorMode(before, nullptr);
  return attributes == INVALID_FILE_ATTRIBUTES ? PathKind::kMissing : KindOf(attributes, path);
}

// attributes: what the folder was when it was remembered; 0 when nobody knows. Places that are on no file system stay.
bool IsThere(LPCITEMIDLIST folder, DWORD attributes) {
  const std::wstring path = FileSystemPath(folder);
  if (path.empty()) return true;
  const PathKind remembered = attributes == 0 ? PathKind::kFolder : KindOf(attributes, path);
  return CanShowFolder(path, remembered, {VolumeOfRoot, LookAt});
}

unique_pidl LinkedFolder(const std::string& linkPath) {
  DWORD attributes = 0;
  unique_pidl folder = ReadShellLink(linkPath, &attributes);
  if (folder && !IsThere(folder.get(), attributes)) folder.reset();
  return folder;
}

unique_pidl WorkingFolder() {
  const char* const text = Tx_Inquire_Environment(kWorkingDirectoryVariable);
  if (text == nullptr) return {};
  const std::wstring path = base::WideFromNarrow(text);
  // Parsing looks at what it parses; a share's list is made of its path alone.
  if (base::MayHang(std::wstring_view(path))) return unique_pidl(SHSimpleIDListFromPath(path.c_str()));
  unique_pidl folder = ParsePath(text);
  if (folder && !IsThere(folder.get(), 0)) folder.reset();
  return folder;
}

}  // namespace

std::string UserFilePath(HWND hostWindow, const char* name) {
  const unique_host_text directory(Import_IO_GetHalvoApplicationDirectoryForCurrentUser(hostWindow));
  if (!directory) return name;
  return std::string(directory.get()) + "/" + name;
}

unique_pidl ParsePath(const std::string& path) {
  unique_pidl list;
  const ComPtr<IShellFolder> desktop = Desktop();
  if (!desktop || path.empty()) return list;
  auto wide = base::ExactWide(path);
  if (!wide) return list;
  for (wchar_t& character : *wide) {
    if (character == L'/') character = L'\\';  // the desktop folder takes backslashes only
  }
  if (FAILED(desktop->ParseDisplayName(nullptr, nullptr, wide->data(), nullptr, list.put(), nullptr)))
    list.reset();
  return list;
}

unique_pidl ResolveDirectoryLink(const std::string& linkPath) {
  unique_pidl list = LinkedFolder(linkPath);
  if (!list) list = WorkingFolder();
  if (!list && FAILED(SHGetSpecialFolderLocation(nullptr, CSIDL_DESKTOP, list.put()))) list.reset();
  return list;
}

unique_pidl ClonePidl(LPCITEMIDLIST list) {
  return unique_pidl(list == nullptr ? nullptr : ILClone(list));
}

std::string ParsingName(LPCITEMIDLIST list) {
  const ComPtr<IShellFolder> desktop = Desktop();
  STRRET value = {};
  wchar_t* text = nullptr;
  if (!desktop || list == nullptr || FAILED(desktop->GetDisplayNameOf(list, SHGDN_FORPARSING, &value)) ||
      FAILED(StrRetToStrW(&value, list, &text))) {
    return {};
  }
  const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> owner(text, &CoTaskMemFree);
  return base::DisplayNarrow(text);
}

}  // namespace file_explorer
