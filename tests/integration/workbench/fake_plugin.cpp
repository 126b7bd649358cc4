#include "tests/integration/workbench/fake_plugin.h"

#include <windows.h>

#include <objbase.h>

#include <cstring>
#include <string>

#include "src/host/host_services.h"
#include "src/host/plugin_protocol.h"
#include "src/host/vc64_tx.h"

namespace {

std::string log;
std::uint32_t initializeStatus = host::kStatusDone;
int instance = 0;
bool wasInApartment = false;

bool IsInApartment() {
  APTTYPE type = APTTYPE_CURRENT;
  APTTYPEQUALIFIER qualifier = APTTYPEQUALIFIER_NONE;
  return SUCCEEDED(CoGetApartmentType(&type, &qualifier)) && (type == APTTYPE_STA || type == APTTYPE_MAINSTA);
}

std::int64_t Execute(std::int16_t, const char*, const char*) { return 0; }

bool Is(const char* keyword, const char* name) {
  return std::strcmp(keyword, name) == 0;
}

std::string Describe(const char* keyword, void*& value) {
  const std::string name = keyword;
  if (Is(keyword, "parent_hWnd")) return name + (IsWindow(static_cast<HWND>(value)) ? "=window" : "=nothing");
  if (Is(keyword, "parent_hInstance")) {
    auto* services = static_cast<host::HostServices*>(value);
    return name + (host::Call<host::op::GetMainWindow>(services) != nullptr ? "=services" : "=nothing");
  }
  if (Is(keyword, "initialize")) wasInApartment = IsInApartment();
  if (Is(keyword, "initialize") || Is(keyword, "addpathtohistorylist")) {
    return name + "=" + (value == nullptr ? "null" : static_cast<const char*>(value));
  }
  if (Is(keyword, "new_instance")) value = &instance;
  return name;
}

}  // namespace

extern "C" __declspec(dllexport) void Teskar_Plugin_EntryPoint(const char* const* keywords, void** values,
                                                               std::uint32_t* status) {
  *status = host::kStatusDone;
  for (int i = 0; keywords[i] != nullptr && keywords[i][0] != '\0'; ++i) {
    log += Describe(keywords[i], values[i]) + "\n";
    if (Is(keywords[i], "initialize")) *status = initializeStatus;
  }
  log += "--\n";
}

extern "C" __declspec(dllexport) const char* FakePlugin_Log() {
  return log.c_str();
}
extern "C" __declspec(dllexport) void FakePlugin_Clear() {
  log.clear();
}
extern "C" __declspec(dllexport) void FakePlugin_SetInitializeStatus(std::uint32_t status) {
  initializeStatus = status;
}
extern "C" __declspec(dllexport) void FakePlugin_RegisterHandler() {
  Tx_FileFormatHandler(fake_plugin::kHandlerGuid, Tx_Inquire_Token("function"), Tx_Inquire_Token("viewer"), 1,
                       Tx_Inquire_Token("viewer"), Tx_Inquire_Token("verifyheadercallback"),
                       TxVerifyHeaderCallback(nullptr), Tx_Inquire_Token("executecallback"), &Execute, 1, 0);
}
extern "C" __declspec(dllexport) int FakePlugin_WasInApartment() {
  return wasInApartment ? 1 : 0;
}
