// What the explorer's objects share: one instance, owned by the application object and handed to everything below it.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

#include "src/explorer/tab_order.h"
#include "src/framework/command_ids.h"
#include "src/favorites/favorites_pane.h"
#include "src/fileops/menu_items.h"
#include "src/fileops/shell_operations.h"
#include "src/filter/file_filter.h"
#include "src/framework/unique_handle.h"
#include "src/history/history_view.h"
#include "src/host/host_services.h"
#include "src/host/vc64_imp.h"
#include "src/settings/explorer_settings.h"
#include "src/settings/settings_store.h"
#include "src/shellhost/shell_controls.h"

namespace file_explorer {

class ExplorerWindow;

// The toolbars that head and foot the selector area; all share one image list.
struct SelectorToolbars {
  HWND folders = nullptr;
  HWND history = nullptr;
  HWND favorites = nullptr;
  HWND commands = nullptr;
  HWND foldersLabel = nullptr;  // the labels are children of their toolbars
  HWND historyLabel = nullptr;
  HWND favoritesLabel = nullptr;
};

struct ExplorerState {
  ExplorerState();
  ~ExplorerState();
  ExplorerState(const ExplorerState&) = delete;
  ExplorerState& operator=(const ExplorerState&) = delete;

  host::HostServices* services = nullptr;  // the host's; valid between "new_instance" and "destroy_instance"
  HINSTANCE instance = nullptr;            // the module
  std::string helpLocation;                // passed to every request for help

  HWND panelWindow = nullptr;  // the host's: the explorer's page of the utility panel
  WNDPROC previousPanelProcedure = nullptr;
  ImportToolTipControl* tooltip = nullptr;
  void* hostRegistration = nullptr;  // released at teardown when set

  SettingsStore store;
  ExplorerSettings settings;
  FileFilter fileFilter;  // of the file view; follows the masks of the settings
  unique_pidl startDirectory;

  base::held_ptr<ExplorerWindow> explorerWindow;
  base::held_ptr<CHistoryView> historyView;
  std::unique_ptr<FavoritesPane> favoritesPane;
  SelectorToolbars toolbars;
  unique_himagelist selectorImages;
  ShellControlPtr folderViewHost;
  ViewTabKey folderTreeTab{static_cast<UINT>(TVN_KEYDOWN)};
  SelectorView currentView = SelectorView::Folders;
  MenuItems fileViewMenu;  // the explorer's items in the context menus, each control's for itself
  MenuItems folderViewMenu;
  ShellOperations shellOperations;  // with the destination chosen last, whatever instance it was chosen in
  bool startDirectoryApplied = false;
  bool shellUnusable = false;  // the folder tree could not be made
  bool isMakingSelectorArea = false;  // while controls are made, and dispatch messages, it is not made a second time

  // The host's main window and profile, asked afresh each time.
  HWND MainWindow() const;
  std::string ProfilePath() const;
  void RedrawBracket() const;
  void BringPanelToFront() const;

  // Puts everything of an instance back to the state before its creation; window code has destroyed its windows before.
  void ClearInstance();
};

// Shown when the explorer window or the folder tree can't be made.
inline constexpr char kShellViewingErrorCaption[] = "Shell Viewing Error";
inline constexpr char kShellViewingErrorText[] =
    "An error was encountered when the File Explorer plug-in browser was being initialized (the shell controls could "
    "not be initialized).\n\nBrowsing using the Windows shell will not be possible on your computer.";

}  // namespace file_explorer
