#include "src/explorer/selector_area.h"

#include <windows.h>

#include <commctrl.h>
#include <windowsx.h>

#include <array>

#include "base/flow/steps.h"
#include "src/explorer/command_tables.h"
#include "src/explorer/control_options.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/file_view_events.h"
#include "src/explorer/layout.h"
#include "src/explorer/start_directory.h"
#include "src/explorer/tab_order.h"
#include "src/explorer/toolbar_builder.h"
#include "src/explorer/toolbar_keys.h"
#include "src/framework/com/com_dispatch.h"
#include "src/shellhost/folder_view.h"

namespace file_explorer {
namespace {

RECT ToRect(const PaneRect& pane) {
  return {pane.left, pane.top, pane.right, pane.bottom};
}

struct LabelToolbarRow {
  int id;
  const char* label;
  std::span<const ToolbarButton> (*buttons)();
  HWND SelectorToolbars::*toolbar;
  HWND SelectorToolbars::*labelWindow;
};

constexpr LabelToolbarRow kLabelToolbars[] = {
    {kFoldersToolbarId, "Folders: ", FoldersToolbarButtons, &SelectorToolbars::folders,
     &SelectorToolbars::foldersLabel},
    {kHistoryToolbarId, "History:", HistoryToolbarButtons, &SelectorToolbars::history,
     &SelectorToolbars::historyLabel},
    {kFavoritesToolbarId, "Favorites:", FavoritesToolbarButtons, &SelectorToolbars::favorites,
     &SelectorToolbars::favoritesLabel},
};

void CreateToolbars(ExplorerState& state) {
  if (!state.selectorImages) state.selectorImages = LoadToolbarImages(state.instance);
  SelectorToolbars& toolbars = state.toolbars;
  for (const LabelToolbarRow& row : kLabelToolbars) {
    const HWND toolbar = CreateToolbarFromTable(
        {state.instance, state.panelWindow, row.id, false, row.buttons(), state.selectorImages.get()});
    toolbars.*row.toolbar = toolbar;
    if (toolbar == nullptr) continue;
    toolbars.*row.labelWindow = CreateToolbarLabel(state.instance, toolbar, row.label);
    AddToolbarKeys(toolbar);
  }
  toolbars.commands = CreateToolbarFromTable({state.instance, state.panelWindow, kSelectorToolbarId, true,
                                              SelectorToolbarButtons(), state.selectorImages.get()});
  if (toolbars.commands != nullptr) AddToolbarKeys(toolbars.commands);
  if (state.historyView) state.historyView->ShowIconsState(toolbars.history);
}

// Null when the control can't be made, also when it refuses what every folder tree needs.
ShellControlPtr MakeFolderTree(HWND panel) {
  try {
    RegisterFolderViewControl();
    return CreateFolderViewHost(panel);
  } catch (const _com_error&) {
    return nullptr;
  }
}

// The user is told at each try: the next one may come after something was mended.
bool CreateFolderTree(ExplorerState& state) {
  const HWND panel = state.panelWindow;
  state.folderViewHost = MakeFolderTree(panel);
  if (state.panelWindow != panel) state.folderViewHost.reset();  // the host ended the instance meanwhile
  if (state.folderViewHost) return true;
  if (state.panelWindow == nullptr) return false;
  state.shellUnusable = true;
  MessageBoxA(state.MainWindow(), kShellViewingErrorText, kShellViewingErrorCaption, MB_OK);
  return false;
}

HWND HistoryWindow(const ExplorerState& state) {
  return state.historyView ? state.historyView->window() : nullptr;
}
HWND FavoritesWindow(const ExplorerState& state) {
  return state.favoritesPane ? state.favoritesPane->window() : nullptr;
}

HWND CurrentViewWindow(const ExplorerState& state) {
  switch (state.currentView) {
    case SelectorView::History:
      return HistoryWindow(state);
    case SelectorView::Favorites:
      return FavoritesWindow(state);
    case SelectorView::Folders:
      break;
  }
  const HWND tree = state.folderViewHost ? GetTreeWindow(state.folderViewHost.get()) : nullptr;
  return IsWindow(tree) ? tree : nullptr;  // its control may have destroyed it
}

HWND CurrentLabelToolbar(const ExplorerState& state) {
  switch (state.currentView) {
    case SelectorView::History:
      return state.toolbars.history;
    case SelectorView::Favorites:
      return state.toolbars.favorites;
    case SelectorView::Folders:
      break;
  }
  return state.toolbars.folders;
}

void Show(HWND window, bool visible) {
  if (window != nullptr) ShowWindow(window, visible ? SW_SHOW : SW_HIDE);
}

void Move(HWND window, const PaneRect& pane) {
  if (window != nullptr) {
    MoveWindow(window, pane.left, pane.top, pane.right - pane.left, pane.bottom - pane.top, TRUE);
  }
}

int SizeWithBracket(const ExplorerState& state, HWND toolbar) {
  const int height = SizeToolbar(toolbar);
  if (toolbar != nullptr) state.RedrawBracket();
  return height;
}

void LinkFolderTree(ExplorerState& state) {
  if (state.explorerWindow) state.explorerWindow->SetFolderViewHost(state.folderViewHost.get());
}

void AttachTabKey(ExplorerState& state) {
  state.folderTreeTab.Attach(GetTreeWindow(state.folderViewHost.get()), state.panelWindow);
}

void LayOutPanel(ExplorerState& state) {
  RECT client = {};
  GetClientRect(state.panelWindow, &client);
  LayOutSelectorArea(state, client.right, client.bottom);
}

void ResynchroniseExplorer(ExplorerState& state) {
  if (!state.explorerWindow) return;
  const base::Hold hold(state.explorerWindow.get());
  state.explorerWindow->ResynchronisePanes();
}

struct FurnishingStep {
  void (*run)(ExplorerState& state);
  // Whether an area without it is no area. What a control refuses otherwise costs nothing but itself.
  bool isEssential;
};

constexpr FurnishingStep kFurnishing[] = {
    {LinkFolderTree, false}, {SetFolderViewCallback, true}, {ApplyViewOptions, false},
    {CreateToolbars, true},  {AttachTabKey, false},         {LayOutPanel, true},
    {ShowCurrentSelectorView, true}, {ResynchroniseExplorer, false}, {ApplyStartDirectory, false},
};

// What failed among the other steps is left in `failures`.
void FurnishSelectorArea(ExplorerState& state, base::IndependentSteps& failures) {
  state.shellUnusable = false;
  for (const FurnishingStep& step : kFurnishing) {
    if (!state.folderViewHost) return;  // the step before let the host end the instance
    if (step.isEssential) {
      step.run(state);
    } else {
      failures.Run([&] { step.run(state); });
    }
  }
}

// Says for as long as it lives that the area is being made.
class MakingSelectorArea {
 public:
  explicit MakingSelectorArea(ExplorerState& state) : state_(state) { state_.isMakingSelectorArea = true; }
  ~MakingSelectorArea() { state_.isMakingSelectorArea = false; }
  MakingSelectorArea(const MakingSelectorArea&) = delete;
  MakingSelectorArea& operator=(const MakingSelectorArea&) = delete;

 private:
  ExplorerState& state_;
};

}  // namespace

bool EnsureSelectorArea(ExplorerState& state) {
  if (state.isMakingSelectorArea) return false;
  if (state.folderViewHost) return true;
  if (state.panelWindow == nullptr) return false;
  const MakingSelectorArea making(state);
  if (!CreateFolderTree(state)) return false;
  base::IndependentSteps failures;
  try {
    FurnishSelectorArea(state, failures);
  } catch (...) {
    // Half an area would look like a whole one to the next call: it goes, and the next call begins again.
    DestroySelectorArea(state);
    throw;
  }
  failures.Finish();
  return static_cast<bool>(state.folderViewHost);
}

void DestroySelectorArea(ExplorerState& state) {
  if (!state.folderViewHost) return;
  for (const LabelToolbarRow& row : kLabelToolbars) {
    if (state.toolbars.*row.toolbar != nullptr) DestroyWindow(state.toolbars.*row.toolbar);
  }
  if (state.toolbars.commands != nullptr) DestroyWindow(state.toolbars.commands);
  state.toolbars = SelectorToolbars();
  if (state.explorerWindow) state.explorerWindow->SetFolderViewHost(nullptr);
  state.folderTreeTab.Detach();
  state.folderViewHost.reset();
}

void LayOutSelectorArea(ExplorerState& state, int width, int height) {
  if (!state.folderViewHost) return;
  const int labelHeight = SizeWithBracket(state, state.toolbars.folders);
  SizeWithBracket(state, state.toolbars.history);
  SizeWithBracket(state, state.toolbars.favorites);
  const int commandHeight = SizeWithBracket(state, state.toolbars.commands);
  const SelectorPanes panes = LayOutSelector(width, height, labelHeight, commandHeight);
  Move(HistoryWindow(state), panes.history);
  Move(FavoritesWindow(state), panes.favorites);
  ResizeShellControl(state.folderViewHost.get(), ToRect(panes.folders));
}

void ShowCurrentSelectorView(ExplorerState& state) {
  if (state.toolbars.folders == nullptr || !state.folderViewHost) return;
  const SelectorView view = state.currentView;
  for (const LabelToolbarRow& row : kLabelToolbars) {
    for (int command = kCommandFoldersView; command <= kCommandFavoritesView; ++command) {
      SendMessageA(state.toolbars.*row.toolbar, TB_CHECKBUTTON, static_cast<WPARAM>(command),
                   SelectorViewOf(command) == view);
    }
  }
  Show(state.toolbars.folders, view == SelectorView::Folders);
  Show(state.toolbars.commands, view == SelectorView::Folders);
  ShowShellControl(state.folderViewHost.get(), view == SelectorView::Folders);
  Show(state.toolbars.history, view == SelectorView::History);
  Show(HistoryWindow(state), view == SelectorView::History);
  Show(state.toolbars.favorites, view == SelectorView::Favorites);
  Show(FavoritesWindow(state), view == SelectorView::Favorites);
  if (view != SelectorView::Folders)
    RedrawWindow(state.panelWindow, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE);
}

void FocusCurrentView(const ExplorerState& state) {
  const HWND view = CurrentViewWindow(state);
  if (view != nullptr) SetFocus(view);
}

void FocusNextInSelector(const ExplorerState& state, bool backwards) {
  const HWND lowerToolbar = state.currentView == SelectorView::Folders ? state.toolbars.commands : nullptr;
  FocusNext(std::array{CurrentViewWindow(state), CurrentLabelToolbar(state), lowerToolbar}, backwards);
}

void ShowSelectorView(ExplorerState& state, SelectorView view) {
  state.currentView = view;
  if (state.panelWindow == nullptr) return;
  RECT client = {};
  GetClientRect(state.panelWindow, &client);
  LayOutSelectorArea(state, client.right, client.bottom);
  ShowCurrentSelectorView(state);
}

}  // namespace file_explorer
