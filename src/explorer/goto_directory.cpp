#include "src/explorer/goto_directory.h"

#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>

#include <array>

#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/goto_targets.h"
#include "src/explorer/navigation.h"
#include "src/framework/unique_handle.h"
#include "src/host/plugin_protocol.h"
#include "src/host/vc64_imp.h"
#include "src/host/vc64_tx.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {
namespace {

constexpr char kDownloadsFolder[] = "downloaded_files";
constexpr char kLastResortDirectory[] = "c:\\";

void GoToProfileDirectory(ExplorerWindow& window, int command) {
  const ProfileDirectory& row = *FindProfileDirectory(command);
  const std::string profile = window.state().ProfilePath();
  // Without a profile every directory is its default one; an empty path would mean a file of the system's.
  std::string directory = row.defaultFolder;
  if (!profile.empty()) {
    std::array<char, kSearchPathSize> text = {};
    GetPrivateProfileStringA(kSearchPathsSection, row.key, row.defaultFolder, text.data(), kSearchPathSize,
                             profile.c_str());
    directory = text.data();
  }
  if (!directory.empty()) GoToPath(window.state(), directory.c_str());
}

void GoToDownloads(ExplorerWindow& window, int) {
  const std::string directory = DownloadedFilesDirectory(window.state().MainWindow());
  if (!directory.empty()) GoToPath(window.state(), directory.c_str());
}

void GoToHostApplicationData(ExplorerWindow& window, int) {
  const unique_host_text directory(
      Import_IO_GetHalvoApplicationDirectoryForCurrentUser(window.state().MainWindow()));
  if (directory) GoToPath(window.state(), directory.get());
}

struct SpecialFolderRow {
  int command;
  int folder;  // CSIDL_...
};

constexpr SpecialFolderRow kSpecialFolders[] = {
    {kCommandGoToDesktop, CSIDL_DESKTOP},
    {kCommandGoToMyDocuments, CSIDL_PERSONAL},
    {kCommandGoToApplicationData, CSIDL_APPDATA},
};

void GoToSpecialFolder(ExplorerWindow& window, int command) {
  for (const SpecialFolderRow& row : kSpecialFolders) {
    if (row.command != command) continue;
    unique_pidl folder;
    if (SUCCEEDED(SHGetSpecialFolderLocation(nullptr, row.folder, folder.put()))) {
      SetCurrentFolder(window.fileView(), folder.get());
    }
  }
}

template <int Command>
void SendCommand(ExplorerWindow& window, int) {
  SendMessageA(window.window(), WM_COMMAND, Command, 0);
}

void ModifyDirectoryPaths(ExplorerWindow& window, int) {
  host::Call<host::op::ShowHostDialog>(window.state().services, host::kDirectoryPathsDialog, window.window(),
                                       static_cast<const char*>(nullptr), std::intptr_t{0}, std::intptr_t{0},
                                       std::intptr_t{0});
}

struct GoToRow {
  int command;
  void (*handler)(ExplorerWindow& window, int command);
};

constexpr GoToRow kTargets[] = {
    {kCommandGoToHome, SendCommand<kCommandHomeDirectory>},
    {kCommandGoToTextures, GoToProfileDirectory},
    {kCommandGoToScenes, GoToProfileDirectory},
    {kCommandGoToImport, GoToProfileDirectory},
    {kCommandGoToExport, GoToProfileDirectory},
    {kCommandGoToDocuments, GoToProfileDirectory},
    {kCommandGoToRenderedImages, GoToProfileDirectory},
    {kCommandGoToDownloads, GoToDownloads},
    {kCommandGoToDesktop, GoToSpecialFolder},
    {kCommandGoToMyDocuments, GoToSpecialFolder},
    {kCommandGoToApplicationData, GoToSpecialFolder},
    {kCommandGoToHostApplicationData, GoToHostApplicationData},
    {kCommandModifyHomeDirectory, SendCommand<kCommandOptions>},
    {kCommandModifyDirectoryPaths, ModifyDirectoryPaths},
};

}  // namespace

void ShowGoToMenu(ExplorerWindow& window) {
  // The menu runs a message loop of its own, in which the explorer may end: only what outlives it is used
  // afterwards.
  ExplorerState& state = window.state();
  const HWND toolbar = window.toolbar();
  const unique_hmenu menu(LoadMenuA(state.instance, "GOTO_DIRECTORY_POPUP_MENU"));
  const HMENU popup = GetSubMenu(menu.get(), 0);
  if (popup == nullptr || toolbar == nullptr) return;
  RECT button = {};
  SendMessageA(toolbar, TB_GETRECT, kCommandGoToMenu, reinterpret_cast<LPARAM>(&button));
  POINT corner = {button.left, button.bottom + 1};
  ClientToScreen(toolbar, &corner);
  // Opened by a press of the left button the choice is made with that button, otherwise with either.
  const bool isLeftDown = GetAsyncKeyState(VK_LBUTTON) < 0;
  SendMessageA(toolbar, TB_PRESSBUTTON, kCommandGoToMenu, MAKELPARAM(TRUE, 0));
  TrackPopupMenu(popup, TPM_LEFTALIGN | (isLeftDown ? TPM_LEFTBUTTON : TPM_RIGHTBUTTON), corner.x, corner.y,
                 0, window.window(), nullptr);
  SendMessageA(toolbar, TB_PRESSBUTTON, kCommandGoToMenu, MAKELPARAM(FALSE, 0));
  state.RedrawBracket();
}

bool RunGoToCommand(ExplorerWindow& window, int command) {
  for (const GoToRow& row : kTargets) {
    if (row.command != command) continue;
    row.handler(window, command);
    return true;
  }
  return false;
}

std::string DownloadedFilesDirectory(HWND hostWindow) {
  const unique_host_text userDirectory(Import_IO_GetHalvoApplicationDirectoryForCurrentUser(hostWindow));
  if (!userDirectory) return {};
  std::array<char, kTxPathSize> folder = {};
  std::array<char, kTxPathSize> path = {};
  Tx_ConcatenatePathAndFilename(userDirectory.get(), kDownloadsFolder, folder.data(), folder.size());
  // One more part, an empty one, puts a separator at the end.
  Tx_ConcatenatePathAndFilename(folder.data(), "", path.data(), path.size());
  const std::string directory = path[0] == '\0' ? kLastResortDirectory : path.data();
  if (!Tx_File_Exists(directory.c_str())) CreateDirectoryA(directory.c_str(), nullptr);
  return directory;
}

}  // namespace file_explorer
