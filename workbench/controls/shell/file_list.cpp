#include "workbench/controls/shell/file_list.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <cstring>

namespace controls {
namespace {

HGLOBAL GlobalCopy(const void* bytes, size_t size) {
  const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
  if (!block) return nullptr;
  std::memcpy(GlobalLock(block), bytes, size);
  GlobalUnlock(block);
  return block;
}

}  // namespace

UINT PreferredEffectFormat() {
  return RegisterClipboardFormatW(L"Preferred DropEffect");
}
UINT PerformedEffectFormat() {
  return RegisterClipboardFormatW(L"Performed DropEffect");
}

HGLOBAL MakeFileListBlock(const std::vector<std::wstring>& paths) {
  std::wstring list;
  for (const std::wstring& path : paths) {
    list += path;
    list += L'\0';
  }
  list += L'\0';
  std::vector<BYTE> block(sizeof(DROPFILES) + list.size() * sizeof(wchar_t));
  auto* header = reinterpret_cast<DROPFILES*>(block.data());
  header->pFiles = sizeof(DROPFILES);
  header->fWide = TRUE;
  std::memcpy(block.data() + sizeof(DROPFILES), list.data(), list.size() * sizeof(wchar_t));
  return GlobalCopy(block.data(), block.size());
}

HGLOBAL MakeEffectBlock(DWORD effect) {
  return GlobalCopy(&effect, sizeof(effect));
}

std::vector<std::wstring> PathsOf(HGLOBAL fileList) {
  std::vector<std::wstring> paths;
  const auto drop = static_cast<HDROP>(fileList);
  const UINT count = drop ? DragQueryFileW(drop, 0xFFFFFFFFu, nullptr, 0) : 0;
  for (UINT i = 0; i < count; ++i) {
    std::wstring path(DragQueryFileW(drop, i, nullptr, 0), L'\0');
    DragQueryFileW(drop, i, path.data(), static_cast<UINT>(path.size() + 1));
    paths.push_back(std::move(path));
  }
  return paths;
}

std::vector<std::wstring> FilesOf(IDataObject* data) {
  FORMATETC format = {CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
  STGMEDIUM medium = {};
  if (!data || FAILED(data->GetData(&format, &medium))) return {};
  std::vector<std::wstring> paths;
  if (medium.tymed == TYMED_HGLOBAL) paths = PathsOf(medium.hGlobal);
  ReleaseStgMedium(&medium);
  return paths;
}

}  // namespace controls
