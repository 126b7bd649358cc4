#include "src/explorer/options_command.h"

#include <windows.h>

#include "base/flow/steps.h"
#include "src/explorer/control_options.h"
#include "src/explorer/dialog_turn.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/settings/options_dialog.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {
namespace {

unique_pidl CurrentFolder(const ExplorerState& state) {
  if (!state.explorerWindow) return {};
  return CopyItemPidl(state.explorerWindow->fileView());
}

}  // namespace

void ShowOptionsDialog(ExplorerWindow& window) {
  const DialogTurn turn;
  if (!turn) return;
  ExplorerState& state = window.state();
  OptionsDialogContext context;
  context.settings = &state.settings;
  context.services = state.services;
  context.helpLocation = state.helpLocation;
  context.save = [&state] { state.store.Save(state.settings); };
  context.currentFolder = [&state] { return CurrentFolder(state); };
  RunOptionsDialog(state.MainWindow(), state.instance, context);
  state.RedrawBracket();
  // The host may have taken the explorer down while the dialog was open.
  if (state.explorerWindow.get() != &window) return;
  SendMessageA(window.window(), kMessageFileTypesChanged, 0, 0);
  base::IndependentSteps steps;
  steps.Run([&] { ApplyViewOptions(state); });
  steps.Run([&] { RefreshView(window.fileView()); });
  steps.Finish();
}

}  // namespace file_explorer
