// A library that counts its registrations, for the tests of registering a control's file.
#include <windows.h>

#include <cstring>

static int registrations = 0;

extern "C" __declspec(dllexport) int RegistrationCount() {
  return registrations;
}

#ifdef PROBE_REGISTERS
extern "C" __declspec(dllexport) HRESULT DllRegisterServer() {
  ++registrations;
  char mode[16] = "";
  GetEnvironmentVariableA("REGISTRATION_PROBE", mode, sizeof mode);
  if (std::strcmp(mode, "raise") == 0) RaiseException(0xE0004321, 0, 0, nullptr);
  return std::strcmp(mode, "fail") == 0 ? E_FAIL : S_OK;
}
#endif
