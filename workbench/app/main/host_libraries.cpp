#include "workbench/app/main/host_libraries.h"

#include "src/host/vc64_imp.h"
#include "src/host/vc64_tx.h"
#include "workbench/app/ui/gdi_owners.h"
#include "workbench/app/ui/text_conversion.h"

namespace workbench {
namespace {

using UniqueHostText = UniqueHandle<char*, &Tx_Free_Memory>;

}  // namespace

std::wstring ApplicationDirectory(HWND mainWindow) {
  const UniqueHostText directory(Import_IO_GetHalvoApplicationDirectoryForCurrentUser(mainWindow));
  return WidenOrEmpty(directory.get());
}

bool SetWorkingDirectoryVariable(const std::wstring& folder) {
  return Tx_Set_Environment("TS_WORKING_DIR", Narrow(folder).c_str()) != 0;
}

std::wstring FileVersion(const std::wstring& path) {
  const UniqueHostText version(Import_IO_GetVersionStringfromExeOrDLL(Narrow(path).c_str()));
  return WidenOrEmpty(version.get());
}

bool ShowHelpTopic(const std::wstring& helpLocation, const char* helpFile, const char* topic) {
  return Import_IO_DisplayHelpTopic(Narrow(helpLocation).c_str(), helpFile, topic) != 0;
}

}  // namespace workbench
