#include <windows.h>

#include "tests/integration/hostlibs/host_memory.h"

namespace {

template <typename F>
F Function(HMODULE library, const char* name) {
  return reinterpret_cast<F>(reinterpret_cast<void*>(GetProcAddress(library, name)));
}

using Loader = HostMemoryTest;

TEST_F(Loader, ALibraryCanReadItsVersionAndWriteAKeyWhileItIsBeingLoaded) {
  const HMODULE probe = LoadLibraryA("hostlibs_loader_probe.dll");
  ASSERT_NE(probe, nullptr) << GetLastError();
  EXPECT_STREQ(Function<const char* (*)()>(probe, "ProbedVersion")(), "4.3.2.1");
  EXPECT_TRUE(Function<int (*)()>(probe, "ProbeWroteKey")());
  char value[64] = "";
  DWORD size = sizeof(value);
  constexpr char kKey[] = "SOFTWARE\\Halvo Software, Inc.\\Hostlibs-Probe";
  RegGetValueA(HKEY_CURRENT_USER, kKey, "Version", RRF_RT_REG_SZ, nullptr, value, &size);
  EXPECT_STREQ(value, "4.3.2.1");
  RegDeleteKeyA(HKEY_CURRENT_USER, kKey);
  FreeLibrary(probe);
}

}  // namespace
