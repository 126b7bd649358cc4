#include "src/settings/directory_links.h"

#include <shlwapi.h>
#include <wrl/client.h>

#include <memory>

#include "base/text/code_page.h"
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
  unique_pidl list = ReadShellLink(linkPath);
  if (!list) {
    const char* const workingDirectory = Tx_Inquire_Environment(kWorkingDirectoryVariable);
    if (workingDirectory != nullptr) list = ParsePath(workingDirectory);
  }
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
