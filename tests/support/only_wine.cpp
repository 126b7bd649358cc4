#include "tests/support/only_wine.h"

#include <windows.h>

#include <cstdio>

namespace test_support {

bool RunsUnderWine() { return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr; }

bool HoldsUnderWine(const char* reason) {
  if (RunsUnderWine()) return true;
  std::printf("Not expected here: %s\n", reason);
  return false;
}

}  // namespace test_support
