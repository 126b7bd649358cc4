#include "src/settings/directory_links.h"

#include <shlwapi.h>
#include <wrl/client.h>

#include <vector>

#include "src/host/vc64_imp.h"
#include "src/settings/shell_link.h"

namespace file_explorer {
namespace {

using Microsoft::WRL::ComPtr;

ComPtr<IShellFolder> Desktop() {
  ComPtr<IShellFolder> desktop;
  SHGetDesktopFolder(desktop.GetAddressOf());
  return desktop;
}

// Text of a STRRET, whatever form the folder chose; the folder's own memory is released.
std::string TakeText(STRRET* value, LPCITEMIDLIST list) {
  if (value->uType == STRRET_WSTR) {
    std::string text;
    const int size = WideCharToMultiByte(CP_ACP, 0, value->pOleStr, -1, nullptr, 0, nullptr, nullptr);
    if (size > 1) {
      text.resize(static_cast<size_t>(size));
      WideCharToMultiByte(CP_ACP, 0, value->pOleStr, -1, text.data(), size, nullptr, nullptr);
      text.pop_back();
    }
    CoTaskMemFree(value->pOleStr);
    return text;
  }
  if (value->uType == STRRET_CSTR) return value->cStr;
  if (value->uType == STRRET_OFFSET) return reinterpret_cast<const char*>(list) + value->uOffset;
  return {};
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
  const int size = MultiByteToWideChar(CP_ACP, 0, path.c_str(), -1, nullptr, 0);
  if (size <= 1) return list;
  std::vector<wchar_t> wide(static_cast<size_t>(size));
  MultiByteToWideChar(CP_ACP, 0, path.c_str(), -1, wide.data(), size);
  for (wchar_t& character : wide) {
    if (character == L'/') character = L'\\';  // the desktop folder takes backslashes only
  }
  if (FAILED(desktop->ParseDisplayName(nullptr, nullptr, wide.data(), nullptr, list.put(), nullptr))) list.reset();
  return list;
}

unique_pidl ResolveDirectoryLink(const std::string& linkPath) {
  unique_pidl list = ReadShellLink(linkPath);
  if (!list) {
    const char* const workingDirectory = Tx_Inquire_Environment(kWorkingDirectoryVariable);
    if (workingDirectory != nullptr) list = ParsePath(workingDirectory);
  }
  if (!list && FAILED(SHGetSpecialFolderLocation(nullptr, CSIDL_DESKTOP, list.put()))) list.reset();
  return list;
}

unique_pidl ClonePidl(LPCITEMIDLIST list) { return unique_pidl(list == nullptr ? nullptr : ILClone(list)); }

std::string ParsingName(LPCITEMIDLIST list) {
  const ComPtr<IShellFolder> desktop = Desktop();
  STRRET value = {};
  if (!desktop || list == nullptr || FAILED(desktop->GetDisplayNameOf(list, SHGDN_FORPARSING, &value))) return {};
  return TakeText(&value, list);
}

}  // namespace file_explorer
