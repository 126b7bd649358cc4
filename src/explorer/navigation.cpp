#include "src/explorer/navigation.h"

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cstring>

#include "src/explorer/command_tables.h"
#include "src/explorer/directory_path.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/goto_directory.h"
#include "src/explorer/masks_command.h"
#include "src/explorer/options_command.h"
#include "src/explorer/selector_area.h"
#include "src/explorer/toolbar_builder.h"
#include "src/settings/directory_links.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/folder_view.h"

namespace file_explorer {
namespace {

// The window manager's notifications after which the explorer's page of the utility panel belongs in front.
bool BringsPanelToFront(WPARAM wParam) {
  switch (LOWORD(wParam)) {
    case host::kNotifyActivated:
    case host::kNotifyDocked:
    case host::kNotifyShown:
    case host::kNotifyTabbed:
    case host::kNotifyFloated:
      return true;
    default:
      return false;
  }
}

void GoUp(ExplorerWindow& window) {
  GoUpOneLevel(window.fileView());
  RefreshUpButtons(window.state());
}

void GoHome(ExplorerWindow& window) {
  const ExplorerSettings& settings = window.state().settings;
  unique_pidl desktop;
  LPCITEMIDLIST target = settings.homeDirectory.get();
  if (target == nullptr && SUCCEEDED(SHGetSpecialFolderLocation(nullptr, CSIDL_DESKTOP, desktop.put()))) {
    target = desktop.get();
  }
  SetCurrentFolder(window.fileView(), target);
  RefreshView(window.fileView());  // also the home directory that is shown already
}

void Refresh(ExplorerWindow& window) { RefreshView(window.fileView()); }

void ShowHistory(ExplorerWindow& window) { ShowSelectorView(window.state(), SelectorView::History); }
void ShowFavorites(ExplorerWindow& window) { ShowSelectorView(window.state(), SelectorView::Favorites); }

// The host's registry of file types is asked afresh at each question, so there are no lists to read again:
// what shows the old answers are the colours of the rows in sight, and they ask anew when they are painted.
void ReloadFileTypes(ExplorerWindow& window) {
  const HWND list = GetListWindow(window.fileView());
  if (list != nullptr) InvalidateRect(list, nullptr, TRUE);
}

struct NavigationRow {
  int command;
  void (*handler)(ExplorerWindow& window);
};

constexpr NavigationRow kNavigation[] = {
    {kCommandGoToMenu, ShowGoToMenu},
    {kCommandUpOneLevel, GoUp},
    {kCommandRefresh, Refresh},
    {kCommandHomeDirectory, GoHome},
    {kCommandHistoryView, ShowHistory},
    {kCommandFavoritesView, ShowFavorites},
    {kCommandOptions, ShowOptionsDialog},
    {kCommandSelectionMasks, ShowMasksDialog},
};

bool RunNavigation(ExplorerWindow& window, int command) {
  for (const NavigationRow& row : kNavigation) {
    if (row.command != command) continue;
    row.handler(window);
    return true;
  }
  return RunGoToCommand(window, command);
}

void SendDropDownCommand(ExplorerWindow& window, LPARAM lParam) {
  const auto* const dropDown = reinterpret_cast<const NMTOOLBARA*>(lParam);
  if (dropDown->hdr.code != static_cast<UINT>(TBN_DROPDOWN)) return;
  SendMessageA(window.window(), WM_COMMAND, static_cast<WPARAM>(dropDown->iItem), 0);
}

}  // namespace

LRESULT GoToDirectoryHandler(ExplorerWindow& window, UINT message, WPARAM wParam, LPARAM lParam, bool* handled) {
  ExplorerState& state = window.state();
  if (message != 0 && message == host::Call<host::op::GetNotificationMessage>(state.services) &&
      BringsPanelToFront(wParam)) {
    state.BringPanelToFront();  // the window's own reaction follows
  }
  switch (message) {
    case WM_NOTIFY:
      SendDropDownCommand(window, lParam);  // not marked as handled
      return 0;
    case kMessageFileTypesChanged:
      ReloadFileTypes(window);
      *handled = true;
      return 0;
    case WM_COMMAND:
      *handled = RunNavigation(window, LOWORD(wParam));
      return *handled ? 1 : 0;
    default:
      return 0;
  }
}

bool MakeAbsolutePath(char* path, size_t size) {
  if (IsAbsolutePath(path)) return true;
  const char* const workingDirectory = Tx_Inquire_Environment(kWorkingDirectoryVariable);
  std::array<char, kTxPathSize> joined = {};
  if (!Tx_ConcatenatePathAndFilename(workingDirectory != nullptr ? workingDirectory : kFallbackWorkingDirectory, path,
                                     joined.data(), joined.size()) ||
      std::strlen(joined.data()) >= size) {
    return false;
  }
  std::strcpy(path, joined.data());
  return true;
}

void GoToPath(ExplorerState& state, const char* path) {
  std::array<char, kTxPathSize> absolute = {};
  if (!state.explorerWindow || path == nullptr || std::strlen(path) >= absolute.size()) return;
  std::strcpy(absolute.data(), path);
  if (!MakeAbsolutePath(absolute.data(), absolute.size())) return;
  const unique_pidl folder = ParsePath(absolute.data());
  if (folder) SetCurrentFolder(state.explorerWindow->fileView(), folder.get());
}

void RefreshUpButtons(ExplorerState& state) {
  if (!state.folderViewHost) return;  // without a tree nobody knows; going up stays possible
  const bool hasParent = SelectedFolderHasParent(state.folderViewHost.get());
  EnableToolbarButton(state.toolbars.folders, kCommandUpOneLevel, hasParent);
  if (state.explorerWindow) EnableToolbarButton(state.explorerWindow->toolbar(), kCommandUpOneLevel, hasParent);
}

}  // namespace file_explorer
