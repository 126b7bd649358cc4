// The module's application object: what the module holds between the host's calls.
#pragma once

#include <windows.h>

#include "src/explorer/explorer_state.h"
#include "src/framework/win_app.h"
#include "src/host/host_services.h"

namespace file_explorer {

class CMainApp : public CWinApp {
 public:
  CMainApp();
  ~CMainApp() override;
  const MessageMap* GetMessageMap() const override;

  // Initialises COM and writes the module's version to the registry; FALSE, and the module is not loaded, without COM.
  BOOL InitInstance() override;
  int ExitInstance() override;

  // Creates the one explorer instance: panel page, docked window, history and favourites. Gives the panel window; null
  // when the host wants no explorer. A second call without a teardown between is not guarded against.
  HWND CreateInstance(host::HostServices* services, HINSTANCE moduleInstance);
  // Takes the instance down, as far as it was created.
  void DestroyInstance();

  // Brings the explorer's page to the front and shows the view of command 106, 107 or 108.
  void ShowSelectorPane(int command);

  ExplorerState& state() { return *state_; }

 private:
  static LRESULT CALLBACK PanelProcedure(HWND panel, UINT message, WPARAM wParam, LPARAM lParam);
  void CreatePanel();
  bool CreateExplorerWindow();
  void CreateHistoryView();
  void CreateFavoritesPane();
  void ReleaseHostRegistration();
  void SaveFavorites();
  void GiveBackPanel();

  // Made by InitInstance, deleted by ExitInstance. When the process ends with an instance still standing it is left as it
  // is: the windows and libraries that it would let go of are gone already.
  ExplorerState* state_ = nullptr;
  bool oleInitialised_ = false;
};

// The module's application object, set by InitInstance; only exported functions and C callbacks use it.
CMainApp* MainApp();

// The module's own full path; of one that is longer than 300 characters the first 300.
std::wstring ModulePath();

}  // namespace file_explorer
