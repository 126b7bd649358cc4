#include "src/settings/shell_link.h"

#include <wrl/client.h>

namespace file_explorer {
namespace {

using Microsoft::WRL::ComPtr;

std::wstring Widen(const std::string& text) {
  const int size = MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, nullptr, 0);
  if (size <= 1) return {};
  std::wstring result(static_cast<size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.c_str(), -1, result.data(), size);
  result.pop_back();
  return result;
}

// Link files are opened by full path: a bare name counts from the current directory.
std::wstring FullPath(const std::string& path) {
  const std::wstring wide = Widen(path);
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

unique_pidl ReadShellLink(const std::string& linkPath, DWORD* attributes) {
  unique_pidl target;
  if (attributes != nullptr) *attributes = 0;
  const ComPtr<IShellLinkA> link = NewLink();
  ComPtr<IPersistFile> file;
  if (!link || FAILED(link.As(&file))) return target;
  if (FAILED(file->Load(FullPath(linkPath).c_str(), STGM_READ))) return target;
  link->GetIDList(target.put());
  if (attributes != nullptr) {
    char path[MAX_PATH] = "";
    WIN32_FIND_DATAA written = {};
    if (SUCCEEDED(link->GetPath(path, MAX_PATH, &written, SLGP_RAWPATH))) *attributes = written.dwFileAttributes;
  }
  return target;
}

bool WriteShellLink(const std::string& linkPath, LPCITEMIDLIST target) {
  const ComPtr<IShellLinkA> link = NewLink();
  ComPtr<IPersistFile> file;
  if (target == nullptr || !link || FAILED(link.As(&file))) return false;
  return SUCCEEDED(link->SetIDList(target)) && SUCCEEDED(file->Save(FullPath(linkPath).c_str(), TRUE));
}

}  // namespace file_explorer
