#include "tests/support/import_hook.h"

#include <cstring>

namespace test_support {
namespace {

// The place in a module's import table that holds a function's address; null when there is none.
void** FindSlot(HMODULE module, const char* function) {
  auto* const base = reinterpret_cast<BYTE*>(module);
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
  const IMAGE_DATA_DIRECTORY& imports = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
  if (imports.VirtualAddress == 0) return nullptr;
  const auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + imports.VirtualAddress);
  for (; library->Name != 0; ++library) {
    const auto* name = reinterpret_cast<const IMAGE_THUNK_DATA64*>(base + library->OriginalFirstThunk);
    auto* slot = reinterpret_cast<IMAGE_THUNK_DATA64*>(base + library->FirstThunk);
    for (; name->u1.AddressOfData != 0; ++name, ++slot) {
      if ((name->u1.Ordinal & IMAGE_ORDINAL_FLAG64) != 0) continue;
      const auto* const import = reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(base + name->u1.AddressOfData);
      if (std::strcmp(reinterpret_cast<const char*>(import->Name), function) == 0) {
        return reinterpret_cast<void**>(&slot->u1.Function);
      }
    }
  }
  return nullptr;
}

void Write(void** slot, void* function) {
  DWORD protection = 0;
  VirtualProtect(slot, sizeof(*slot), PAGE_READWRITE, &protection);
  *slot = function;
  VirtualProtect(slot, sizeof(*slot), protection, &protection);
}

}  // namespace

ImportHook::ImportHook(HMODULE importer, const char* function, void* replacement) {
  slot_ = importer != nullptr ? FindSlot(importer, function) : nullptr;
  if (slot_ == nullptr) return;
  original_ = *slot_;
  Write(slot_, replacement);
}

ImportHook::~ImportHook() {
  if (slot_ != nullptr) Write(slot_, original_);
}

}  // namespace test_support
