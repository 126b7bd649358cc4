// High contrast, switched on for one module alone: the system's own setting stays as it is.
#pragma once

#include "tests/support/import_hook.h"

namespace test_support {

class HighContrast {
 public:
  // module: the one that is to see high contrast; GetModuleHandle(nullptr) for what is linked into the test
  // program.
  explicit HighContrast(HMODULE module) : hook_(module, "SystemParametersInfoW", &Answer) {}

  bool installed() const { return hook_.installed(); }

 private:
  // Not by its name: the hooked module may be the one that this is part of.
  static decltype(&SystemParametersInfoW) Real() {
    return reinterpret_cast<decltype(&SystemParametersInfoW)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), "SystemParametersInfoW")));
  }
  static BOOL WINAPI Answer(UINT action, UINT parameter, void* value, UINT flags) {
    if (action != SPI_GETHIGHCONTRAST) return Real()(action, parameter, value, flags);
    static_cast<HIGHCONTRASTW*>(value)->dwFlags = HCF_HIGHCONTRASTON | HCF_AVAILABLE;
    return TRUE;
  }

  ImportHook hook_;
};

}  // namespace test_support
