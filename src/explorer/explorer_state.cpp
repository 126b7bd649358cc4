#include "src/explorer/explorer_state.h"

#include "src/explorer/explorer_window.h"
#include "src/host/plugin_protocol.h"

namespace file_explorer {

ExplorerState::ExplorerState() : store([this] { return ProfilePath(); }, [this] { return MainWindow(); }) {}

ExplorerState::~ExplorerState() = default;

HWND ExplorerState::MainWindow() const { return host::Call<host::op::GetMainWindow>(services); }

std::string ExplorerState::ProfilePath() const {
  const char* const path = host::Call<host::op::GetProfileFileName>(services);
  return path == nullptr ? std::string() : std::string(path);
}

void ExplorerState::RedrawBracket() const { host::Call<host::op::RedrawBracket>(services); }

void ExplorerState::BringPanelToFront() const {
  host::Call<host::op::ShowUtilityPanel>(services, host::kPanelGuid);
}

void ExplorerState::ClearInstance() {
  selectorImages.reset();
  startDirectory.reset();
  settings = ExplorerSettings();
  toolbars = SelectorToolbars();
  currentView = SelectorView::Folders;
  fileViewMenu = MenuItems();
  folderViewMenu = MenuItems();
  startDirectoryApplied = false;
  shellUnusable = false;
  panelWindow = nullptr;
  previousPanelProcedure = nullptr;
}

}  // namespace file_explorer
