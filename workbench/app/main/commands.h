// Commands of the main window: identifiers, menu and keys.
#pragma once

#include <windows.h>

#include "workbench/app/ui/gdi_owners.h"

namespace workbench {

enum Command : UINT {
  kCommandOpen = 40001,
  kCommandCloseDocument,
  kCommandExit,
  kCommandShowFolders,
  kCommandShowHistory,
  kCommandShowFavorites,
  kCommandNextPane,
  kCommandPreviousPane,
  kCommandNextDocument,
  kCommandPreviousDocument,
  kCommandResetLayout,
  kCommandHelpTopics,
  kCommandHelpOptions,
  kCommandHelpMasks,
  kCommandPluginAbout,
  kCommandAbout,
  kCommandFirstWindow = 41000,  // one for each managed window, in the order of WindowManager::Windows
  kCommandLastWindow = 41099,
};

inline constexpr int kViewMenuPosition = 1;  // its window entries are made anew each time it opens

UniqueMenu CreateMainMenu();
UniqueAccelerators CreateMainKeys();

}  // namespace workbench
