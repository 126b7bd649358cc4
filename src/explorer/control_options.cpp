#include "src/explorer/control_options.h"

#include "base/flow/steps.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/file_view_events.h"
#include "src/filter/category_colors.h"
#include "src/shellhost/offered_options.h"

namespace file_explorer {
namespace {

// The options that not every control knows.
void OfferViewOptions(ExplorerState& state) {
  const ExplorerSettings& settings = state.settings;
  OfferedOptions options;
  options.treeShowHiddenItems = settings.treeViewShowsHiddenFiles;
  options.fileViewShowHiddenItems = settings.fileViewShowsHiddenItems;
  options.comboViewShowFullPath = settings.comboViewShowsFullPath;
  options.comboViewShowVirtualFolders = settings.comboViewShowsVirtualFolders;
  options.comboViewCompletion = settings.comboViewFilenameCompletion;
  const ExplorerWindow* const window = state.explorerWindow.get();
  OfferControlOptions(state.folderViewHost.get(), window ? window->fileView() : nullptr,
                      window ? window->comboView() : nullptr, options);
}

}  // namespace

void ApplyViewOptions(ExplorerState& state) {
  const ExplorerSettings& settings = state.settings;
  ControlOptions options;
  options.treeShowFiles = settings.treeViewShowsFiles;
  options.treeShowVirtualFolders = settings.treeViewShowsVirtualFolders;
  options.treeAllowDragAndDrop = settings.treeViewAllowsDragAndDrop;
  options.fileViewShowVirtualFolders = settings.fileViewShowsVirtualFolders;
  options.fileViewShowFolders = settings.fileViewShowsFolders;
  options.fileViewAllowDragAndDrop = settings.fileViewAllowsDragAndDrop;
  options.fileViewShowGridLines = settings.fileViewShowsGridLines;
  base::IndependentSteps steps;
  steps.Run([&] {
    ApplyControlOptions(state.folderViewHost.get(),
                        state.explorerWindow ? state.explorerWindow->fileView() : nullptr, options);
  });
  steps.Run([&] { OfferViewOptions(state); });
  PushCategoryColorsToHost(settings.colors);
  steps.Finish();
}

void SetFolderViewCallback(ExplorerState& state) {
  state.folderViewHost->owner = state.explorerWindow.get();
  state.folderViewHost->callback = &DispatchFolderViewEvent;
}

}  // namespace file_explorer
