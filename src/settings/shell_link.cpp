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

// Null when the file is missing or is no whole link.
ComPtr<IShellLinkA> OpenLink(const std::wstring& path) {
  ComPtr<IShellLinkA> link = NewLink();
  ComPtr<IPersistFile> file;
  if (!link || FAILED(link.As(&file)) || FAILED(file->Load(path.c_str(), STGM_READ))) return nullptr;
  return link;
}

}  // namespace

unique_pidl ReadShellLink(const std::string& linkPath, DWORD* attributes) {
  unique_pidl target;
  if (attributes != nullptr) *attributes = 0;
  const ComPtr<IShellLinkA> link = OpenLink(FullPath(linkPath));
  if (!link) return target;
  link->GetIDList(target.put());
  if (attributes != nullptr) {
    char path[MAX_PATH] = "";
    WIN32_FIND_DATAA written = {};
    if (SUCCEEDED(link->GetPath(path, MAX_PATH, &written, SLGP_RAWPATH))) *attributes = written.dwFileAttributes;
  }
  return target;
}

// Saved in place, a cut would leave half a link, and with it no folder at all: it is written beside, read back (a
// full disk can leave it empty), and takes the old one's place in one step. Each change of folder comes here, so it
// does not wait for the disk.
bool WriteShellLink(const std::string& linkPath, LPCITEMIDLIST target) {
  const ComPtr<IShellLinkA> link = NewLink();
  ComPtr<IPersistFile> file;
  if (target == nullptr || !link || FAILED(link.As(&file)) || FAILED(link->SetIDList(target))) return false;
  const std::wstring path = FullPath(linkPath);
  const std::wstring beside = path + L".new";
  if (SUCCEEDED(file->Save(beside.c_str(), FALSE)) && OpenLink(beside) &&
      MoveFileExW(beside.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING)) {
    return true;
  }
  DeleteFileW(beside.c_str());
  return false;
}

}  // namespace file_explorer
