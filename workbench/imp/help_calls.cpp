#include <windows.h>
// shellapi.h needs windows.h before it.
#include <shellapi.h>

#include <atomic>

#include "src/host/vc64_imp.h"
#include "workbench/imp/host_text.h"
#include "workbench/imp/text_tools.h"

using namespace workbench::imp;

namespace {

std::atomic<ImportHelpOpener> helpOpener{nullptr};

bool OpenWithSystem(const char* page) {
  const HINSTANCE result = ShellExecuteA(nullptr, "open", page, nullptr, nullptr, SW_SHOWNORMAL);
  return reinterpret_cast<INT_PTR>(result) > 32;
}

}  // namespace

int Import_IO_DisplayHelpTopic(const char* helpLocation, const char* helpFile, const char* topic) {
  return Guarded(0, [&]() -> int {
    if (!helpLocation || !helpFile || !topic) return 0;
    const std::string page = HelpPagePath(helpLocation, helpFile, topic);
    if (page.empty() || !Tx_File_Exists(page.c_str())) return 0;
    const ImportHelpOpener opener = helpOpener;
    return opener ? opener(page.c_str()) != 0 : OpenWithSystem(page.c_str());
  });
}

ImportHelpOpener Import_IO_SetHelpOpener(ImportHelpOpener opener) {
  return helpOpener.exchange(opener);
}
