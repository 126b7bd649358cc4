// The main window's menus and keys.
#include <windows.h>

#include <commdlg.h>

#include <algorithm>

#include "base/text/display_name.h"
#include "base/text/narrow_path.h"
#include "src/host/plugin_protocol.h"
#include "workbench/app/main/host_libraries.h"
#include "workbench/app/main/workbench.h"
#include "workbench/app/ui/text_conversion.h"

namespace workbench {
namespace {

constexpr char kHelpFile[] = "ui_file_explorer.hlp";

}  // namespace

void Workbench::OnCommand(UINT command) {
  struct Handler {
    UINT command;
    void (*run)(Workbench&);
  };
  static constexpr Handler kHandlers[] = {
      {kCommandOpen, [](Workbench& self) { self.AskForFile(); }},
      {kCommandCloseDocument,
       [](Workbench& self) { self.windows_->documents().RequestClose(self.windows_->documents().front()); }},
      {kCommandExit, [](Workbench& self) { self.OnCloseRequested(); }},
      {kCommandShowFolders, [](Workbench& self) { self.plugin_->Say("showfolderviewpanel"); }},
      {kCommandShowHistory, [](Workbench& self) { self.plugin_->Say("showhistorypanel"); }},
      {kCommandShowFavorites, [](Workbench& self) { self.plugin_->Say("showfavoritespanel"); }},
      {kCommandNextPane, [](Workbench& self) { self.windows_->FocusNext(1); }},
      {kCommandPreviousPane, [](Workbench& self) { self.windows_->FocusNext(-1); }},
      {kCommandNextDocument, [](Workbench& self) { self.NextDocument(1); }},
      {kCommandPreviousDocument, [](Workbench& self) { self.NextDocument(-1); }},
      {kCommandResetLayout, [](Workbench& self) { self.windows_->ResetLayout(); }},
      {kCommandHelpTopics, [](Workbench& self) { self.ShowHelp("main"); }},
      {kCommandHelpOptions, [](Workbench& self) { self.ShowHelp("folder options"); }},
      {kCommandHelpMasks, [](Workbench& self) { self.ShowHelp("file selection masks dialog box"); }},
      {kCommandPluginAbout, [](Workbench& self) { self.ShowPluginAbout(); }},
      {kCommandAbout, [](Workbench& self) { self.ShowAbout(); }},
  };
  for (const Handler& handler : kHandlers) {
    if (handler.command == command) {
      handler.run(*this);
      return;
    }
  }
  if (command >= kCommandFirstWindow && command <= kCommandLastWindow)
    ToggleWindow(command - kCommandFirstWindow);
}

// The windows come and go: their entries are made anew, in front of the fixed ones.
void Workbench::OnViewMenuOpens(HMENU menu) {
  while (true) {
    const UINT id = GetMenuItemID(menu, 0);
    if (id < kCommandFirstWindow || id > kCommandLastWindow) break;
    DeleteMenu(menu, 0, MF_BYPOSITION);
  }
  const std::vector<WindowManager::WindowFacts> windows = windows_->Windows();
  UINT position = 0;
  for (const WindowManager::WindowFacts& facts : windows) {
    const UINT id = kCommandFirstWindow + position;
    if (id > kCommandLastWindow) break;
    InsertMenuW(menu, position,
                static_cast<UINT>(MF_BYPOSITION | MF_STRING | (facts.shown ? MF_CHECKED : MF_UNCHECKED)), id,
                facts.title.c_str());
    ++position;
  }
  const UINT state = MF_BYCOMMAND | (plugin_->isRunning() ? MF_ENABLED : MF_GRAYED);
  for (const UINT id : {kCommandShowFolders, kCommandShowHistory, kCommandShowFavorites})
    EnableMenuItem(menu, id, state);
}

void Workbench::ToggleWindow(size_t index) {
  const std::vector<WindowManager::WindowFacts> windows = windows_->Windows();
  if (index >= windows.size()) return;
  const WindowManager::WindowFacts& facts = windows[index];
  if (facts.shown) {
    windows_->RequestClose(facts.window);
  } else {
    windows_->Show(facts.window, true);
  }
}

void Workbench::OnAutoload() {
  if (!options_.documents.readAutoloadFile) return;
  std::wstring error;
  const std::optional<std::wstring> path = options_.documents.readAutoloadFile(&error);
  if (path) {
    OpenDocument(*path);
  } else {
    main_->SetMessage(L"No file was handed over: " + error);
  }
}

void Workbench::OnRoomChanged(const Rect& room) {
  if (windows_ == nullptr) return;
  SetWindowPos(windows_->site().window(), nullptr, room.left, room.top, room.width(), room.height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void Workbench::OnCloseRequested() {
  closeRequested_ = true;
  PostMessageW(window(), WM_NULL, 0, 0);  // wakes the loop, which then closes
}

// The system may end the process as soon as this returns: what the user could lose is saved now.
void Workbench::OnSessionEnds() {
  SaveMainWindowPlace();
  plugin_->Unload();
  windows_->SaveAll();
}

// The main window itself has nothing to type into: the explorer, or any other window, takes the keyboard.
void Workbench::OnFocusArrived() {
  if (windows_ != nullptr) windows_->RestoreFocus();
}

void Workbench::AskForFile() {
  wchar_t path[32768] = L"";
  OPENFILENAMEW request = {};
  request.lStructSize = sizeof request;
  request.hwndOwner = window();
  request.lpstrFilter = L"All files\0*.*\0";
  request.lpstrFile = path;
  request.nMaxFile = static_cast<DWORD>(std::size(path));
  // The process's current directory stays what it is.
  request.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;
  if (!GetOpenFileNameW(&request)) return;
  if (!OpenDocument(path)) return;
  if (const auto narrow = base::NarrowPath(path)) {
    plugin_->Say("addpathtohistorylist", narrow->c_str());
  } else {
    main_->SetMessage(L"The plug-in can't be told the name of " + base::HarmlessText(path));
  }
}

void Workbench::ShowHelp(const char* topic) {
  if (!ShowHelpTopic(options_.helpLocation, kHelpFile, topic)) {
    main_->SetMessage(L"The help pages are not installed: " + options_.helpLocation);
  }
}

void Workbench::ShowPluginAbout() {
  if (plugin_->isRunning()) {
    plugin_->Say("show_about_dialog");
  } else {
    main_->SetMessage(L"No plug-in is running");
  }
}

void Workbench::ShowAbout() {
  AboutInformation information;
  information.workbenchVersion = base::WideFromNarrow(WORKBENCH_VERSION);
  information.modulePath = plugin_->path();
  information.moduleVersion = plugin_->isRunning() ? FileVersion(plugin_->path()) : std::wstring();
  if (options_.documents.showAbout) options_.documents.showAbout(window(), information);
}

void Workbench::NextDocument(int step) {
  DocumentArea& area = windows_->documents();
  area.Activate(area.Neighbour(step));
}

}  // namespace workbench
