// Version strings and the registry. A plug-in calls these two while it is being loaded: they use only
// libraries that are loaded already, make no COM object and take no lock.
#include <windows.h>

#include <vector>

#include "src/host/vc64_imp.h"
#include "workbench/imp/host_text.h"
#include "workbench/imp/text_tools.h"

using namespace workbench::imp;

char* Import_IO_GetVersionStringfromExeOrDLL(const char* path) {
  return Guarded(static_cast<char*>(nullptr), [&]() -> char* {
    if (!path || !*path) return nullptr;
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeA(path, &ignored);
    if (size == 0) return nullptr;
    std::vector<char> resource(size);
    if (!GetFileVersionInfoA(path, 0, size, resource.data())) return nullptr;
    void* block = nullptr;
    UINT length = 0;
    if (!VerQueryValueA(resource.data(), "\\", &block, &length) || !block ||
        length < sizeof(VS_FIXEDFILEINFO)) {
      return nullptr;
    }
    const auto* version = static_cast<const VS_FIXEDFILEINFO*>(block);
    return CopyToHostMemory(VersionText(version->dwFileVersionMS, version->dwFileVersionLS));
  });
}

int Import_IO_Write_Key(const char* key, const char* valueName, const char* text) {
  if (!key || !*key || !valueName || !text) return 0;
  HKEY opened = nullptr;
  if (RegCreateKeyExA(HKEY_CURRENT_USER, key, 0, nullptr, 0, KEY_SET_VALUE, nullptr, &opened, nullptr) !=
      ERROR_SUCCESS) {
    return 0;
  }
  const LSTATUS status = RegSetValueExA(opened, valueName, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                                        static_cast<DWORD>(std::strlen(text) + 1));
  RegCloseKey(opened);
  return status == ERROR_SUCCESS;
}
