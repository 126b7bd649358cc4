#include "src/explorer/control_options.h"

#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/file_view_events.h"
#include "src/filter/category_colors.h"

namespace file_explorer {

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
  ApplyControlOptions(state.folderViewHost.get(),
                      state.explorerWindow ? state.explorerWindow->fileView() : nullptr, options);
  PushCategoryColorsToHost(settings.colors);
}

void SetFolderViewCallback(ExplorerState& state) {
  state.folderViewHost->owner = state.explorerWindow.get();
  state.folderViewHost->callback = &DispatchFolderViewEvent;
}

}  // namespace file_explorer
