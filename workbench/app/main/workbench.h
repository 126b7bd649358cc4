// The workbench as a whole: main window, window manager, utility panel, documents, host services and the
// plug-in. workbench.exe is a thin main around it; the integration tests use it as their host.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "workbench/app/docking/window_manager.h"
#include "workbench/app/main/document_list.h"
#include "workbench/app/main/document_services.h"
#include "workbench/app/main/main_window.h"
#include "workbench/app/main/paths.h"
#include "workbench/app/panel/utility_panel.h"
#include "workbench/app/plugin/plugin_host.h"
#include "workbench/app/services/host_services_table.h"

namespace workbench {

// What the host says of itself through interface 13.
struct HostFacts {
  std::int16_t majorVersion = 4;
  std::int16_t minorVersion = 2;
  std::int16_t release = 0;
  std::uint32_t flags = host::kHostFlagProductA;
  std::uint32_t secondFlags = host::kSecondFlagCloseAllowed;
};

struct WorkbenchOptions {
  std::wstring profilePath;   // empty: workbench.ini in the per-user directory
  std::wstring helpLocation;  // empty: the folder "help" beside the program
  std::wstring folder;        // not empty: the working folder that the explorer begins with
  std::optional<Size> size;   // of the main window; else the remembered one
  bool visible = true;
  bool recordCalls = false;  // of the host services
  // Dispatches messages inside CreateDockedWindow and ShowManagedWindow, as a host may whose windows slide in.
  bool dispatchWhileDocking = false;
  HostFacts facts;
  DocumentServices documents = StandardDocumentServices();
  // Shows a message of the workbench itself; a message box when empty.
  std::function<void(HWND owner, const std::wstring& text)> showMessage;
};

class Workbench : private MainWindowOwner {
 public:
  explicit Workbench(WorkbenchOptions options);
  ~Workbench();
  Workbench(const Workbench&) = delete;
  Workbench& operator=(const Workbench&) = delete;

  // Loads the plug-in and says so in a message when it does not run.
  PluginState LoadPlugin(const std::wstring& path);
  // Dispatches every message that is waiting now.
  void Pump();
  // Dispatches messages until the window is closed.
  int Run();
  // Ends the conversation with the plug-in, remembers all places and destroys the window. Further calls do
  // nothing.
  void Close();
  bool isOpen() const { return main_ != nullptr; }

  HWND window() const { return main_ == nullptr ? nullptr : main_->window(); }
  MainWindow& main() { return *main_; }
  WindowManager& windows() { return *windows_; }
  UtilityPanel& panel() { return *panel_; }
  DocumentList& documents() { return *documents_; }
  PluginHost& plugin() { return *plugin_; }
  HostServicesTable& services() { return services_; }
  HostFacts& facts() { return options_.facts; }
  const Theme& theme() const { return theme_; }
  const std::string& profilePath() const { return profilePath_; }
  void SetProfilePath(const std::string& path) { profilePath_ = path; }  // what GetProfileFileName gives

  // Opens a file in the document area; a failure is said in the status line.
  bool OpenDocument(const std::wstring& path);
  void Execute(UINT command) { OnCommand(command); }

  // Plug-ins that others may call by GUID (CallPlugin): keywords and values as the entry point's.
  using PluginCall = std::function<void(const char* const* keywords, void** values)>;
  void RegisterPlugin(const std::string& guid, PluginCall call) { plugins_[guid] = std::move(call); }

 private:
  // workbench.cpp
  void CreateParts();
  void PrepareFolder();
  void PlaceMainWindow();
  void SaveMainWindowPlace() const;
  void ShowMessage(const std::wstring& text);
  void UpdateStatus();

  // workbench_services.cpp
  void ProvideApplication();
  void ProvidePanel();
  void ProvideWindowManager();
  void ProvideDialogs();
  void ProvideOthers();
  std::int32_t CreateDockedWindow(const DockRequest& request, host::DockedWindowPlacement* placement);
  void ShowPanelPage(const char* guid);
  std::int32_t CallPlugin(const char* guid, const char* const* keywords, void** values);

  // workbench_commands.cpp
  void OnCommand(UINT command) override;
  void OnViewMenuOpens(HMENU menu) override;
  void OnAutoload() override;
  void OnRoomChanged(const Rect& room) override;
  void OnCloseRequested() override;
  void OnFocusArrived() override;
  void OnSessionEnds() override;
  void OnColorsChanged() override { theme_.ReadColors(); }
  void ToggleWindow(size_t index);
  void AskForFile();
  void ShowHelp(const char* topic);
  void ShowPluginAbout();
  void ShowAbout();
  void NextDocument(int step);

  WorkbenchOptions options_;
  Theme theme_;
  std::string profilePath_;
  HostServicesTable services_;
  std::map<std::string, PluginCall> plugins_;
  std::unique_ptr<MainWindow> main_;
  std::unique_ptr<WindowManager> windows_;
  std::unique_ptr<UtilityPanel> panel_;
  std::unique_ptr<DocumentView> welcome_;  // shows while no document is open
  std::unique_ptr<DocumentList> documents_;
  std::unique_ptr<PluginHost> plugin_;
  bool oleReady_ = false;
  bool closeRequested_ = false;
};

inline constexpr char kUtilityPanelWindow[] = "utility-panel";  // its name among the managed windows

}  // namespace workbench
