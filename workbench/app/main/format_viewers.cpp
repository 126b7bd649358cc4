#include "workbench/app/main/format_viewers.h"

#include <windows.h>

#include <utility>
#include <vector>

#include "base/text/narrow_path.h"
#include "src/host/vc64_tx.h"
#include "workbench/app/ui/text_conversion.h"

namespace workbench {
namespace {

constexpr int kMostHandlers = 10000;
constexpr std::int16_t kActionOpen = 1;

// keyword: "viewer", "import_and_viewer" or "export".
std::vector<std::string> HandlerGuids(const char* keyword) {
  char** list = nullptr;
  const int count = Tx_FileFormatHandler_Query_GUID_List(Tx_Inquire_Token(keyword), kMostHandlers, &list);
  std::vector<std::string> guids;
  for (int i = 0; i < count; ++i) {
    guids.emplace_back(list[i]);
    Tx_Free_Memory(list[i]);
  }
  Tx_Free_Memory(list);
  return guids;
}

// The module that a callback lies in; null for none, also when that module has been unloaded.
template <typename Callback>
HMODULE ModuleOf(Callback callback) {
  HMODULE module = nullptr;
  if (callback != nullptr) {
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(callback), &module);
  }
  return module;
}

}  // namespace

void RemoveHandlersOf(HMODULE module) {
  if (module == nullptr) return;
  std::vector<std::string> guids = HandlerGuids("import_and_viewer");
  for (std::string& guid : HandlerGuids("export")) guids.push_back(std::move(guid));
  for (const std::string& guid : guids) {
    TxVerifyHeaderCallback verify = nullptr;
    TxExecuteCallback execute = nullptr;
    Tx_Inquire_FileFormatHandler(guid.c_str(), Tx_Inquire_Token("verifyheadercallback"), &verify,
                                 Tx_Inquire_Token("executecallback"), &execute, 0);
    if (ModuleOf(verify) == module || ModuleOf(execute) == module) Tx_Remove_FileFormatHandler(guid.c_str());
  }
}

bool OpenWithViewer(const std::wstring& path) {
  const auto narrowPath = base::NarrowPath(path);
  if (!narrowPath) return false;  // no viewer could open it; the caller shows what it can
  const std::string& narrow = *narrowPath;
  for (const std::string& guid : HandlerGuids("viewer")) {
    const char* types = nullptr;
    TxToken enabled = 0;
    TxExecuteCallback execute = nullptr;
    if (!Tx_Inquire_FileFormatHandler(guid.c_str(), Tx_Inquire_Token("filetypes"), &types,
                                      Tx_Inquire_Token("enabled"), &enabled,
                                      Tx_Inquire_Token("executecallback"), &execute, 0)) {
      continue;
    }
    if (types == nullptr || enabled != Tx_Inquire_Token("on") || ModuleOf(execute) == nullptr) continue;
    if (!Tx_Compare_Multiple_File_Extensions(narrow.c_str(), types)) continue;
    execute(kActionOpen, guid.c_str(), narrow.c_str());
    return true;
  }
  return false;
}

}  // namespace workbench
