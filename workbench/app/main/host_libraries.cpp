#include "workbench/app/main/host_libraries.h"

#include "base/text/narrow_path.h"
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
  const auto narrow = base::NarrowPath(folder);
  return narrow && Tx_Set_Environment("TS_WORKING_DIR", narrow->c_str()) != 0;
}

std::wstring FileVersion(const std::wstring& path) {
  const auto narrow = base::NarrowPath(path);
  const UniqueHostText version(narrow ? Import_IO_GetVersionStringfromExeOrDLL(narrow->c_str()) : nullptr);
  return WidenOrEmpty(version.get());
}

bool ShowHelpTopic(const std::wstring& helpLocation, const char* helpFile, const char* topic) {
  const auto narrow = base::NarrowPath(helpLocation);
  return narrow && Import_IO_DisplayHelpTopic(narrow->c_str(), helpFile, topic) != 0;
}

}  // namespace workbench
