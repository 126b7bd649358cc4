#include "src/explorer/start_directory.h"

#include "base/flow/steps.h"
#include "src/explorer/control_options.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {
namespace {

bool BothExist(const ExplorerState& state) {
  return state.folderViewHost && state.explorerWindow && state.explorerWindow->fileView() != nullptr;
}

}  // namespace

void ApplyStartDirectory(ExplorerState& state) {
  if (state.startDirectoryApplied || !BothExist(state)) return;
  state.startDirectoryApplied = true;  // before the control is asked, which may come back here
  SetCurrentFolder(state.explorerWindow->fileView(), state.startDirectory.get());
}

void JoinSelectorArea(ExplorerState& state) {
  if (state.isMakingSelectorArea || state.startDirectoryApplied || !BothExist(state)) return;
  base::IndependentSteps steps;
  steps.Run([&] { ApplyViewOptions(state); });
  steps.Run([&] { ApplyStartDirectory(state); });
  steps.Finish();
}

}  // namespace file_explorer
