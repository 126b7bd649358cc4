// The About box of the workbench.
#pragma once

#include <windows.h>

#include <string>

namespace workbench {

struct AboutInformation {
  std::wstring workbenchVersion;  // "1.0.0.0"
  std::wstring modulePath;        // full path of the loaded plug-in; empty when none is loaded
  std::wstring moduleVersion;     // empty when unknown
};

// Modal to owner.
void ShowAboutDialog(HWND owner, const AboutInformation& information);

}  // namespace workbench
