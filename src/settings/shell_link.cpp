#include "src/settings/shell_link.h"

#include <wrl/client.h>

#include "base/text/code_page.h"

namespace file_explorer {
namespace {

using Microsoft::WRL::ComPtr;

// Link files are opened by full path: a bare name counts from the current directory.
std::wstring FullPath(const std::string& path) {
  const std::wstring wide = base::WideFromNarrow(path);
  wchar_t full[2048];
  const DWORD length = GetFullPathNameW(wide.c_str(), 2048, full, nullptr);
  return length > 0 && length < 2048 ? std::wstring(full, length) : wide;
}

ComPtr<IShellLinkA> NewLink() {
  ComPtr<IShellLinkA> link;
  CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                   reinterpret_cast<void**>(link.GetAddressOf()));
  return link;
}

}  // namespace

unique_pidl ReadShellLink(const std::string& linkPath) {
  unique_pidl target;
  const ComPtr<IShellLinkA> link = NewLink();
  ComPtr<IPersistFile> file;
  if (!link || FAILED(link.As(&file))) return target;
  if (FAILED(file->Load(FullPath(linkPath).c_str(), STGM_READ))) return target;
  link->GetIDList(target.put());
  return target;
}

bool WriteShellLink(const std::string& linkPath, LPCITEMIDLIST target) {
  const ComPtr<IShellLinkA> link = NewLink();
  ComPtr<IPersistFile> file;
  if (target == nullptr || !link || FAILED(link.As(&file))) return false;
  return SUCCEEDED(link->SetIDList(target)) && SUCCEEDED(file->Save(FullPath(linkPath).c_str(), TRUE));
}

}  // namespace file_explorer
