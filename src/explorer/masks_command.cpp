#include "src/explorer/masks_command.h"

#include "base/flow/steps.h"
#include "src/explorer/control_options.h"
#include "src/explorer/dialog_turn.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/filter/masks_dialog.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {
namespace {

void ShowFolderAgain(ShellControlHost* fileView) {
  const base::Hold hold(fileView);
  const unique_pidl folder = CopyItemPidl(fileView);
  SetCurrentFolder(fileView, folder.get());
  RefreshView(fileView);
}

}  // namespace

void ShowMasksDialog(ExplorerWindow& window) {
  const DialogTurn turn;
  if (!turn) return;
  ExplorerState& state = window.state();
  MasksDialog dialog;
  dialog.instance = state.instance;
  dialog.services = state.services;
  dialog.helpLocation = state.helpLocation;
  dialog.inclusionList = &state.settings.fileInclusionList;
  dialog.exclusionList = &state.settings.fileExclusionList;
  dialog.filteringMethod = &state.settings.fileExtensionFilteringMethod;
  dialog.showFolders = &state.settings.fileViewShowsFolders;
  dialog.showVirtualFolders = &state.settings.fileViewShowsVirtualFolders;
  dialog.save = [&state] { state.store.Save(state.settings); };
  const bool foldersChanged = RunFileSelectionMasksDialog(state.MainWindow(), dialog);
  // The instance can have been taken down while the dialog was open.
  if (state.explorerWindow.get() != &window) return;
  // An option that a control refuses does not keep the list from being filtered anew.
  base::IndependentSteps steps;
  if (foldersChanged) steps.Run([&] { ApplyViewOptions(state); });  // the category colours go to the host with them
  steps.Run([&] { ShowFolderAgain(window.fileView()); });
  steps.Finish();
}

}  // namespace file_explorer
