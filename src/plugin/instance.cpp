// The explorer instance: how it is created on "new_instance" and taken down on "destroy_instance".
#include <windows.h>

#include <shlobj.h>

#include <utility>

#include "base/flow/steps.h"
#include "src/explorer/autoload.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/file_view_events.h"
#include "src/explorer/command_tables.h"
#include "src/explorer/navigation.h"
#include "src/explorer/selector_area.h"
#include "src/framework/module_context.h"
#include "src/host/plugin_protocol.h"
#include "src/host/vc64_imp.h"
#include "src/plugin/main_app.h"
#include "src/plugin/zip_handler.h"
#include "src/settings/directory_links.h"

namespace file_explorer {
namespace {

constexpr char kTitle[] = "File Explorer";
constexpr COLORREF kBitmapTransparentColor = RGB(0xC0, 0xC0, 0xC0);

}  // namespace

HWND CMainApp::CreateInstance(host::HostServices* services, HINSTANCE moduleInstance) {
  state_->services = services;
  state_->instance = moduleInstance;
  // 1. A host that wants no explorer gets none.
  if (host::Call<host::op::GetHostFlags>(services) & host::kHostFlagNoExplorer) return nullptr;
  // 2. OLE for drag and drop and the clipboard.
  oleInitialised_ = SUCCEEDED(OleInitialize(nullptr));
  // 3. ZIP archives.
  RegisterZipHandler();
  // 4. to 7. The page in the utility panel.
  state_->currentView = SelectorView::Folders;
  CreatePanel();
  // 8., 9. Options and start directory.
  state_->store.Load(&state_->settings);
  state_->startDirectory = ResolveDirectoryLink(UserFilePath(state_->MainWindow(), kCurrentDirectoryLink));
  // 10. to 15. The docked window.
  if (!CreateExplorerWindow()) return state_->panelWindow;
  // 16., 17. The other two views of the page.
  CreateHistoryView();
  CreateFavoritesPane();
  // 18.
  return state_->panelWindow;
}

void CMainApp::CreatePanel() {
  const unique_hbitmap bitmap(LoadBitmapA(state_->instance, "FolderBitmap"));
  state_->panelWindow = host::Call<host::op::CreateUtilityPanel>(
      state_->services, static_cast<const char*>("Utility"), static_cast<const char*>(host::kPanelGuid),
      static_cast<const char*>(kTitle), static_cast<const char*>(kTitle), bitmap.get(), std::intptr_t{0},
      kBitmapTransparentColor, std::intptr_t{0}, std::intptr_t{0}, std::intptr_t{0}, std::intptr_t{0});
  state_->tooltip = Import_IO_ToolTipControl_CreateNew(state_->panelWindow);
  if (state_->panelWindow != nullptr) {
    state_->previousPanelProcedure = reinterpret_cast<WNDPROC>(SetWindowLongPtrA(
        state_->panelWindow, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CMainApp::PanelProcedure)));
  }
}

bool CMainApp::CreateExplorerWindow() {
  state_->explorerWindow = base::make_held<ExplorerWindow>(*state_, state_->startDirectory.get());
  const base::Hold hold(state_->explorerWindow.get());  // the host may end the instance while it docks the window
  ExplorerWindow& window = *state_->explorerWindow;
  window.SetFileViewEventHook(&FileViewEventHook);
  const ExplorerWindow::DockingRequest request = {kTitle,
                                                  kTitle,
                                                  host::kExplorerWindowGuid,
                                                  true,
                                                  "PanelBitmap",
                                                  state_->settings.newWindowCreationMethod,
                                                  state_->settings.newWindowDockingPosition,
                                                  0};
  if (!window.CreateAndDock(request)) {
    MessageBoxA(state_->MainWindow(), kShellViewingErrorText, kShellViewingErrorCaption, MB_OK);
    return false;
  }
  window.SetMessageHook(&GoToDirectoryHandler);
  if (!window.CreateToolbar(kCommandToolbarId, kDefaultCommandBase)) return false;
  window.SetPanelGuid(host::kPanelGuid);
  return true;
}

void CMainApp::CreateHistoryView() {
  HistoryServices services;
  services.instance = state_->instance;
  services.profilePath = [this] { return state_->ProfilePath(); };
  services.mainWindow = [this] { return state_->MainWindow(); };
  services.loadFile = [this](const char* path) { AutoloadFile(state_->MainWindow(), path); };
  state_->historyView = CHistoryView::Create(state_->panelWindow, kHistoryViewId, services);
}

void CMainApp::CreateFavoritesPane() {
  FavoritesServices services;
  services.instance = state_->instance;
  services.mainWindow = [this] { return state_->MainWindow(); };
  services.loadFile = [this](const char* path) { AutoloadFile(state_->MainWindow(), path); };
  services.openFolder = [this](const char* path) { GoToPath(*state_, path); };
  services.hostFlags = [this] { return host::Call<host::op::GetHostFlags>(state_->services); };
  state_->favoritesPane = FavoritesPane::Create(state_->panelWindow, services);
  if (state_->favoritesPane) state_->favoritesPane->Load();
}

void CMainApp::ReleaseHostRegistration() {
  if (state_->hostRegistration == nullptr) return;
  host::Call<host::op::CloseRegistration>(state_->services, state_->hostRegistration);
  host::Call<host::op::ReleaseRegistration>(state_->services, state_->hostRegistration);
  state_->hostRegistration = nullptr;
}

void CMainApp::SaveFavorites() {
  if (state_->favoritesPane) state_->favoritesPane->Save();
}

void CMainApp::GiveBackPanel() {
  if (state_->panelWindow != nullptr && IsWindow(state_->panelWindow)) {
    SetWindowLongPtrA(state_->panelWindow, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(state_->previousPanelProcedure));
  }
  host::Call<host::op::RemoveUtilityPanel>(state_->services, static_cast<const char*>(host::kPanelGuid));
}

void CMainApp::DestroyInstance() {
  // A teardown must not stop half-way: each step runs whatever became of those before.
  base::IndependentSteps steps;
  // 1. The host's registration.
  steps.Run([&] { ReleaseHostRegistration(); });
  // 2. The history saves itself on its way out.
  steps.Run([&] { state_->historyView.reset(); });
  // 3. The favourites, saved while their tree still stands. If they can't be, the file stays as it was.
  steps.Run([&] { SaveFavorites(); });
  steps.Run([&] { state_->favoritesPane.reset(); });
  // 4. Selector toolbars and folder tree.
  steps.Run([&] { DestroySelectorArea(*state_); });
  // 5. The explorer window saves its display mode.
  steps.Run([&] { state_->explorerWindow.reset(); });
  // 6. What the three controls share.
  ReleaseShellControlState();
  // 7. The tooltip control.
  steps.Run([&] { Import_IO_ToolTipControl_Delete(std::exchange(state_->tooltip, nullptr)); });
  // 8., 9. The host gets its window back and removes the page.
  steps.Run([&] { GiveBackPanel(); });
  state_->ClearInstance();
  state_->services = nullptr;
  if (std::exchange(oleInitialised_, false)) OleUninitialize();
  steps.Finish();
}

void CMainApp::ShowSelectorPane(int command) {
  // An area in which a control refused something is shown all the same.
  base::IndependentSteps steps;
  steps.Run([&] { EnsureSelectorArea(*state_); });
  state_->BringPanelToFront();
  const std::optional<SelectorView> view = SelectorViewOf(command);
  if (view) steps.Run([&] { ShowSelectorView(*state_, *view); });
  steps.Finish();
}

LRESULT CALLBACK CMainApp::PanelProcedure(HWND panel, UINT message, WPARAM wParam, LPARAM lParam) {
  CMainApp* const app = MainApp();
  const WNDPROC previous = app->state_->previousPanelProcedure;
  try {
    const ModuleContext context;
    bool handled = false;
    const LRESULT result = HandlePanelMessage(*app->state_, panel, message, wParam, lParam, &handled);
    if (handled) return result;
  } catch (...) {
    // What failed here is the explorer's; the host's own procedure follows all the same.
  }
  return previous != nullptr ? CallWindowProcA(previous, panel, message, wParam, lParam)
                             : DefWindowProcA(panel, message, wParam, lParam);
}

}  // namespace file_explorer
