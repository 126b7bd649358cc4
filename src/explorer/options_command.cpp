#include "src/explorer/options_command.h"

#include <windows.h>

#include "src/explorer/control_options.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/settings/options_dialog.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {
namespace {

// A modal dialog disables its owner alone. A toolbar in a window that the host floats stays alive beside it
// and could ask for the dialog a second time.
class DialogTurn {
 public:
  DialogTurn() : mine_(!taken_) { taken_ = true; }
  ~DialogTurn() {
    if (mine_) taken_ = false;
  }
  DialogTurn(const DialogTurn&) = delete;
  DialogTurn& operator=(const DialogTurn&) = delete;
  explicit operator bool() const { return mine_; }

 private:
  static inline bool taken_ = false;
  const bool mine_;
};

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
  ApplyViewOptions(state);
  RefreshView(window.fileView());
}

}  // namespace file_explorer
