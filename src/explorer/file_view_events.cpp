#include "src/explorer/file_view_events.h"

#include "src/explorer/autoload.h"
#include "src/explorer/context_menu_events.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/navigation.h"
#include "src/explorer/toolbar_states.h"
#include "src/framework/module_context.h"
#include "src/settings/directory_links.h"
#include "src/settings/shell_link.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {
namespace {

bool LoadsOnSingleClick(const ExplorerWindow& window) {
  return window.state().settings.singleClickFileLoading != 0;
}

void LoadFile(ExplorerWindow& window, const char* path) {
  ExplorerState& state = window.state();
  if (state.historyView) state.historyView->AddPathToHistory(path);
  AutoloadFile(state.MainWindow(), path);
}

std::int64_t OnClicked(ExplorerWindow& window, const char* path, bool*) {
  // Not marked as handled: the defaults follow.
  if (path != nullptr && LoadsOnSingleClick(window)) LoadFile(window, path);
  return 0;
}

std::int64_t OnDoubleClicked(ExplorerWindow& window, const char* path, bool* handled) {
  if (path == nullptr || LoadsOnSingleClick(window)) return 0;
  LoadFile(window, path);
  *handled = true;
  return 1;  // the control must not open the file as well
}

std::int64_t OnFolderChanged(ExplorerWindow& window, const char*, bool*) {
  ExplorerState& state = window.state();
  window.ResynchronisePanes();
  RefreshUpButtons(state);
  const PCIDLIST_ABSOLUTE folder = GetCurrentFolder(window.fileView());
  if (folder != nullptr) WriteShellLink(UserFilePath(state.MainWindow(), kCurrentDirectoryLink), folder);
  return 0;
}

struct HookRow {
  ControlEvent code;
  std::int64_t (*handler)(ExplorerWindow& window, const char* path, bool* handled);
};

constexpr HookRow kHooks[] = {
    {ControlEvent::kFileClicked, OnClicked},
    {ControlEvent::kFileDoubleClicked, OnDoubleClicked},
    {ControlEvent::kFolderChanged, OnFolderChanged},
};

void ApplyDefaults(ExplorerWindow& window, ControlEvent code) {
  switch (code) {
    case ControlEvent::kFolderChanged:
      window.patternBox().Clear();
      break;
    case ControlEvent::kSelectionChanged:
    case ControlEvent::kContentChanged:
      RefreshToolbarStates(window);
      break;
    default:
      break;
  }
}

}  // namespace

std::int64_t FileViewEventHook(ExplorerWindow& window, ControlEvent code, ShellControlHost* host, IDispatch* object,
                               std::int64_t a, std::int64_t, std::int64_t, std::int64_t, const char* path,
                               bool* handled) {
  for (const HookRow& row : kHooks) {
    if (row.code == code) return row.handler(window, path, handled);
  }
  return HandleFileViewMenuEvent(window, code, host, object, a, path);
}

std::int64_t DispatchFileViewEvent(std::int16_t code, ShellControlHost* host, IDispatch* object, std::int64_t a,
                                   std::int64_t b, std::int64_t c, std::int64_t d, const char* path) {
  if (host == nullptr || host->owner == nullptr) return 0;
  const ModuleContext context;
  ExplorerWindow& window = *host->owner;
  const ControlEvent event = static_cast<ControlEvent>(code);
  if (window.fileViewEventHook() != nullptr) {
    bool handled = false;
    const std::int64_t result = window.fileViewEventHook()(window, event, host, object, a, b, c, d, path, &handled);
    if (handled) return result;
  }
  ApplyDefaults(window, event);
  return 0;
}

std::int64_t DispatchFolderViewEvent(std::int16_t code, ShellControlHost* host, IDispatch* object, std::int64_t a,
                                     std::int64_t, std::int64_t, std::int64_t, const char* path) {
  if (host == nullptr || host->owner == nullptr) return 0;
  const ModuleContext context;
  return HandleFolderViewMenuEvent(*host->owner, static_cast<ControlEvent>(code), host, object, a, path);
}

}  // namespace file_explorer
