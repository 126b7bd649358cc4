#include "src/explorer/file_view_events.h"

#include <optional>

#include "base/flow/steps.h"
#include "src/explorer/autoload.h"
#include "src/explorer/context_menu_events.h"
#include "src/explorer/directory_path.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/navigation.h"
#include "src/explorer/toolbar_states.h"
#include "src/filter/file_filter.h"
#include "src/framework/module_context.h"
#include "src/settings/directory_links.h"
#include "src/settings/shell_link.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/refused_path.h"
#include "src/shellhost/shell_item.h"

namespace file_explorer {
namespace {

// One event, as a ControlEventCallback gets it.
struct Event {
  ExplorerWindow& window;
  ShellControlHost* host;
  IDispatch* object;
  std::int64_t a;
  std::int64_t b;
  const char* path;
};

bool LoadsOnSingleClick(const ExplorerWindow& window) {
  return window.state().settings.singleClickFileLoading != 0;
}

bool GroupsRelatedFiles(const ExplorerWindow& window) {
  return window.state().settings.groupRelatedFilesTogether != 0;
}

// The masks speak of names: a pattern like "test*" means no folder.
bool MasksHide(const ExplorerWindow& window, const char* path) {
  ExplorerState& state = window.state();
  const ExplorerSettings& settings = state.settings;
  const FileMasks masks = {settings.fileInclusionList.get(), settings.fileExclusionList.get(),
                           settings.fileExtensionFilteringMethod};
  constexpr auto isLeadByte = [](unsigned char byte) { return IsDBCSLeadByte(byte) != FALSE; };
  return path != nullptr && !state.fileFilter.ShouldShowFile(state.services, masks, NameOfPath(path, isLeadByte));
}

// The default action of an item that is about to be shown leaves it out of the view.
void LeaveOut(IDispatch* item) { ShellItem(item).InvokeDefault(); }

// False when the item has no path at all.
bool LoadOrRefuse(const Event& event) {
  ExplorerState& state = event.window.state();
  if (event.path == nullptr) return RefuseInexpressible(state.MainWindow(), ShellItem(event.object));
  LoadFile(state, event.path);
  return true;
}

std::int64_t OnClicked(const Event& event, bool*) {
  // Not marked as handled: the defaults follow.
  if (LoadsOnSingleClick(event.window)) LoadOrRefuse(event);
  return 0;
}

std::int64_t OnDoubleClicked(const Event& event, bool* handled) {
  if (LoadsOnSingleClick(event.window) || !LoadOrRefuse(event)) return 0;
  *handled = true;
  return 1;  // the control must not open the file as well
}

// The next run starts in this folder.
void SaveCurrentFolder(const ExplorerWindow& window) {
  const unique_pidl folder = ClonePidl(GetCurrentFolder(window.fileView()));
  if (folder) WriteShellLink(UserFilePath(window.state().MainWindow(), kCurrentDirectoryLink), folder.get());
}

std::int64_t OnFolderChanged(const Event& event, bool*) {
  ExplorerWindow& window = event.window;
  ExplorerState& state = window.state();
  // A control that fails in one of them loses none of the others.
  base::IndependentSteps steps;
  steps.Run([&] { window.ResynchronisePanes(); });
  steps.Run([&] { RefreshUpButtons(state); });
  steps.Run([&] { SaveCurrentFolder(window); });
  steps.Finish();
  return 0;
}

std::int64_t OnItemAboutToShow(const Event& event, bool* handled) {
  if (!MasksHide(event.window, event.path)) return 0;
  LeaveOut(event.object);
  *handled = true;
  return 0;
}

std::int64_t OnSorting(const Event& event, bool* handled) {
  *handled = true;
  constexpr std::int64_t kNameColumn = 0;
  if (event.a != kNameColumn || !GroupsRelatedFiles(event.window)) return 0;
  event.window.groupSort().AssignKeys(event.host);
  return 1;  // the control asks for each comparison
}

std::int64_t OnCompareItems(const Event& event, bool*) {
  if (!GroupsRelatedFiles(event.window)) return 0;
  event.window.groupSort().Compare(event.object, reinterpret_cast<IDispatch*>(event.a),
                                   reinterpret_cast<LONG*>(event.b));
  return 0;
}

struct HookRow {
  ControlEvent code;
  std::int64_t (*handler)(const Event& event, bool* handled);
};

// The most frequent ones first.
constexpr HookRow kHooks[] = {
    {ControlEvent::kCompareItems, OnCompareItems},
    {ControlEvent::kAskDefaultAction, OnItemAboutToShow},
    {ControlEvent::kFileClicked, OnClicked},
    {ControlEvent::kFileDoubleClicked, OnDoubleClicked},
    {ControlEvent::kFolderChanged, OnFolderChanged},
    {ControlEvent::kSorting, OnSorting},
};

void ClearPatternBox(const Event& event) { event.window.patternBox().Clear(); }

void RefreshCommands(const Event& event) { RefreshToolbarStates(event.window); }

void FilterItem(const Event& event) {
  if (MasksHide(event.window, event.path)) LeaveOut(event.object);
}

struct DefaultRow {
  ControlEvent code;
  void (*apply)(const Event& event);
};

constexpr DefaultRow kDefaults[] = {
    {ControlEvent::kAskDefaultAction, FilterItem},
    {ControlEvent::kFolderChanged, ClearPatternBox},
    {ControlEvent::kSelectionChanged, RefreshCommands},
    {ControlEvent::kContentChanged, RefreshCommands},
};

void ApplyDefaults(ControlEvent code, const Event& event) {
  for (const DefaultRow& row : kDefaults) {
    if (row.code == code) return row.apply(event);
  }
}

// The explorer's own hook has asked the filter already; for the same name it gives the same answer.
bool IsAnswered(const ExplorerWindow& window, ControlEvent code) {
  return code == ControlEvent::kAskDefaultAction && window.fileViewEventHook() == &FileViewEventHook;
}

}  // namespace

std::int64_t FileViewEventHook(ExplorerWindow& window, ControlEvent code, ShellControlHost* host, IDispatch* object,
                               std::int64_t a, std::int64_t b, std::int64_t, std::int64_t, const char* path,
                               bool* handled) {
  for (const HookRow& row : kHooks) {
    if (row.code == code) return row.handler({window, host, object, a, b, path}, handled);
  }
  return HandleFileViewMenuEvent(window, code, host, object, a, path);
}

std::int64_t DispatchFileViewEvent(std::int16_t code, ShellControlHost* host, IDispatch* object, std::int64_t a,
                                   std::int64_t b, std::int64_t c, std::int64_t d, const char* path) {
  if (host == nullptr || host->owner == nullptr) return 0;
  ExplorerWindow& window = *host->owner;
  const base::Hold hold(&window);
  const ControlEvent event = static_cast<ControlEvent>(code);
  // Comparing is done millions of times, and needs nothing of the module's own but the code.
  std::optional<ModuleContext> context;
  if (event != ControlEvent::kCompareItems) context.emplace();
  // What was read for a sort holds no longer than the sort.
  if (event != ControlEvent::kCompareItems) window.groupSort().Forget();
  bool handled = false;
  std::int64_t result = 0;
  base::IndependentSteps steps;
  const bool isAnswered = IsAnswered(window, event);
  if (const auto hook = window.fileViewEventHook()) {
    steps.Run([&] { result = hook(window, event, host, object, a, b, c, d, path, &handled); });
  }
  if (!handled && !isAnswered) steps.Run([&] { ApplyDefaults(event, {window, host, object, a, b, path}); });
  steps.Finish();
  return handled ? result : 0;
}

std::int64_t DispatchFolderViewEvent(std::int16_t code, ShellControlHost* host, IDispatch* object, std::int64_t a,
                                     std::int64_t, std::int64_t, std::int64_t, const char* path) {
  if (host == nullptr || host->owner == nullptr) return 0;
  const base::Hold hold(host->owner);
  const ModuleContext context;
  return HandleFolderViewMenuEvent(*host->owner, static_cast<ControlEvent>(code), host, object, a, path);
}

}  // namespace file_explorer
