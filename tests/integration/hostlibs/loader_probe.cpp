// A library that calls the import library while it is being loaded, as a plug-in does to leave its version
// behind.
#include <windows.h>

#include <cstring>

#include "src/host/vc64_imp.h"
#include "src/host/vc64_tx.h"

namespace {

char versionSeen[64];
int keyWritten = 0;

void LeaveVersion(HINSTANCE library) {
  char path[300] = "";
  GetModuleFileNameA(library, path, sizeof(path));
  char* version = Import_IO_GetVersionStringfromExeOrDLL(path);
  if (!version) return;
  std::strncpy(versionSeen, version, sizeof(versionSeen) - 1);
  keyWritten = Import_IO_Write_Key("SOFTWARE\\Halvo Software, Inc.\\Hostlibs-Probe", "Version", version);
  Tx_Free_Memory(version);
}

}  // namespace

extern "C" __declspec(dllexport) const char* ProbedVersion() {
  return versionSeen;
}
extern "C" __declspec(dllexport) int ProbeWroteKey() {
  return keyWritten;
}

BOOL WINAPI DllMain(HINSTANCE library, DWORD reason, void*) {
  if (reason == DLL_PROCESS_ATTACH) LeaveVersion(library);
  return TRUE;
}
