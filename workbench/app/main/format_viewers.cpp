#include "workbench/app/main/format_viewers.h"

#include <windows.h>

#include <vector>

#include "base/text/narrow_path.h"
#include "src/host/vc64_tx.h"
#include "workbench/app/ui/text_conversion.h"

namespace workbench {
namespace {

constexpr int kMostViewers = 10000;
constexpr std::int16_t kActionOpen = 1;

std::vector<std::string> ViewerGuids() {
  char** list = nullptr;
  const int count = Tx_FileFormatHandler_Query_GUID_List(Tx_Inquire_Token("viewer"), kMostViewers, &list);
  std::vector<std::string> guids;
  for (int i = 0; i < count; ++i) {
    guids.emplace_back(list[i]);
    Tx_Free_Memory(list[i]);
  }
  Tx_Free_Memory(list);
  return guids;
}

// A handler stays registered when the plug-in that brought it has been unloaded.
bool IsLoaded(TxExecuteCallback callback) {
  HMODULE module = nullptr;
  return GetModuleHandleExW(
             GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
             reinterpret_cast<LPCWSTR>(callback), &module) != FALSE;
}

}  // namespace

bool OpenWithViewer(const std::wstring& path) {
  const auto narrowPath = base::NarrowPath(path);
  if (!narrowPath) return false;  // no viewer could open it; the caller shows what it can
  const std::string& narrow = *narrowPath;
  for (const std::string& guid : ViewerGuids()) {
    const char* types = nullptr;
    TxToken enabled = 0;
    TxExecuteCallback execute = nullptr;
    if (!Tx_Inquire_FileFormatHandler(guid.c_str(), Tx_Inquire_Token("filetypes"), &types,
                                      Tx_Inquire_Token("enabled"), &enabled,
                                      Tx_Inquire_Token("executecallback"), &execute, 0)) {
      continue;
    }
    if (types == nullptr || execute == nullptr || enabled != Tx_Inquire_Token("on") || !IsLoaded(execute))
      continue;
    if (!Tx_Compare_Multiple_File_Extensions(narrow.c_str(), types)) continue;
    execute(kActionOpen, guid.c_str(), narrow.c_str());
    return true;
  }
  return false;
}

}  // namespace workbench
