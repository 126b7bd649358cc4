// The explorer window's contents: toolbar, combo box and file view.
#include <windows.h>

#include <commctrl.h>

#include <array>

#include "src/explorer/command_tables.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/file_view_events.h"
#include "src/explorer/layout.h"
#include "src/explorer/start_directory.h"
#include "src/explorer/toolbar_builder.h"
#include "src/explorer/toolbar_keys.h"
#include "src/framework/com/com_error_text.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/folder_view.h"

namespace file_explorer {
namespace {

RECT ToRect(const PaneRect& pane) { return {pane.left, pane.top, pane.right, pane.bottom}; }

int WindowHeight(HWND window) {
  RECT bounds = {};
  if (window == nullptr || !GetWindowRect(window, &bounds)) return 0;
  return bounds.bottom - bounds.top;
}

}  // namespace

bool ExplorerWindow::CreateToolbar(int toolbarId, int commandBase) {
  commandBase_ = commandBase;
  images_ = LoadToolbarImages(state_.instance);
  toolbar_ = CreateToolbarFromTable(
      {state_.instance, window_.get(), toolbarId, false, CommandToolbarButtons(), images_.get()});
  if (toolbar_ == nullptr) return false;
  // Before the box, which replaces the toolbar's procedure too and gives it back first.
  AddToolbarKeys(toolbar_);
  if (!patternBox_.Create(state_.instance, *this, toolbar_)) return false;
  AddClipboardFormatListener(window_.get());
  const bool built = BuildFilePane();
  ApplyDisplayMode();
  if (built) ResynchronisePanes();
  return built;
}

bool ExplorerWindow::BuildFilePane() {
  if (fileView_ || comboView_) return true;
  if (filePaneTried_) return false;  // what could not be made once is not tried, and complained of, at every notification
  filePaneTried_ = true;
  try {
    RegisterFilePaneControls();
    comboView_ = CreateComboViewHost(window_.get());
    if (!comboView_) return false;
    fileView_ = CreateFileViewHost(window_.get(), PropertyList(), this, &DispatchFileViewEvent);
    if (isTakenDown_) {  // by the host, while a control was being made
      DestroyFilePane();
      return false;
    }
    itemColors_.Attach(ListWindow());
    listTab_.Attach(ListWindow(), window_.get());
    if (folderView_ != nullptr) SetFolderViewHost(folderView_);
    return true;
  } catch (const _com_error& error) {
    // A control that refuses what every file view needs is no file view; the rest of the host goes on.
    DestroyFilePane();
    ReportComError("Error while building the file pane.", error);
    return false;
  }
}

// The file view goes before the combo box that follows it, and what holds on to its windows and items before that.
void ExplorerWindow::DestroyFilePane() {
  itemColors_.Detach();
  listTab_.Detach();
  groupSort_.Forget();
  fileView_.reset();
  comboView_.reset();
}

void ExplorerWindow::SetFolderViewHost(ShellControlHost* folderView) {
  folderView_ = folderView;
  if (folderView == nullptr || !fileView_ || !comboView_) return;
  LinkShellControls(comboView_.get(), folderView, fileView_.get());
  const HWND list = ListWindow();
  if (list != nullptr) SetFocus(list);
}

// Asked each time: the control may have made its list anew, or destroyed it.
HWND ExplorerWindow::ListWindow() const {
  const HWND list = fileView_ ? GetListWindow(fileView_.get()) : nullptr;
  return IsWindow(list) ? list : nullptr;
}

// The window itself has nothing to type into.
LRESULT ExplorerWindow::OnSetFocus(HWND, WPARAM, LPARAM) {
  const HWND list = ListWindow();
  if (list != nullptr) SetFocus(list);
  return 0;
}

// Tab in the list, in the toolbar or in the "Select:" box.
LRESULT ExplorerWindow::OnNextControl(HWND, WPARAM wParam, LPARAM) {
  FocusNext(std::array{ListWindow(), toolbar_, patternBox_.edit()}, wParam != FALSE);
  return 0;
}

int ExplorerWindow::ToolbarHeight() { return SizeToolbar(toolbar_); }

void ExplorerWindow::Relayout(int width, int height) {
  const int comboHeight = comboView_ ? WindowHeight(GetComboWindow(comboView_.get())) : 0;
  const ExplorerPanes panes = LayOutExplorer(width, height, ToolbarHeight(), comboHeight);
  state_.RedrawBracket();
  if (comboView_) {
    ResizeShellControl(comboView_.get(), ToRect(panes.combo));
    state_.RedrawBracket();
  }
  if (fileView_) {
    ResizeShellControl(fileView_.get(), ToRect(panes.fileView));
    state_.RedrawBracket();
  }
}

void ExplorerWindow::ResynchronisePanes() {
  if (!window_ || toolbar_ == nullptr) return;
  BuildFilePane();
  RECT client = {};
  GetClientRect(window_.get(), &client);
  Relayout(client.right, client.bottom);
  JoinSelectorArea(state_);
}

void ExplorerWindow::BringForward() {
  host::Call<host::op::ShowManagedWindow>(state_.services, window_.get(), 1);
  BringWindowToTop(window_.get());
}

void ExplorerWindow::SetDisplayMode(int mode) {
  if (mode == displayMode_) return;
  displayMode_ = mode;
  ApplyDisplayMode();
}

void ExplorerWindow::ApplyDisplayMode() {
  for (const DisplayMode& mode : DisplayModes()) {
    SendMessageA(toolbar_, TB_CHECKBUTTON, static_cast<WPARAM>(mode.command), FALSE);
  }
  // A mode that the profile got wrong has no button, and the file view keeps the view it has.
  const DisplayMode* const current = FindDisplayMode(displayMode_);
  if (current == nullptr) return;
  SendMessageA(toolbar_, TB_CHECKBUTTON, static_cast<WPARAM>(current->command), TRUE);
  if (fileView_) file_explorer::SetDisplayMode(fileView_.get(), current->name);
}

}  // namespace file_explorer
