#include "src/plugin/zip_handler.h"

#include <windows.h>

#include <cstdint>
#include <cstring>

#include "base/flow/steps.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/selector_area.h"
#include "src/framework/module_context.h"
#include "src/plugin/handler_table.h"
#include "src/plugin/main_app.h"
#include "src/settings/directory_links.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {
namespace {

constexpr std::int16_t kActionOpen = 1;
constexpr std::int64_t kNeverClaimsByHeader = -5;

constexpr HandlerRow kHandlers[] = {
    {"{693069FB-E6CF-4837-865E-A0B5396B39D0}", ".zip", "ZIP Archive", 32},
    {nullptr, nullptr, nullptr, 0},
};

std::int64_t VerifyHeader() {
  return kNeverClaimsByHeader;
}

void OpenArchive(ExplorerState& state, const char* path) {
  const base::Hold hold(state.explorerWindow.get());
  // What a control refuses on the way does not keep the archive from being shown.
  base::IndependentSteps steps;
  steps.Run([&] {
    if (state.explorerWindow) state.explorerWindow->ResynchronisePanes();
  });
  steps.Run([&] { EnsureSelectorArea(state); });
  if (state.shellUnusable || !state.explorerWindow) return;
  state.explorerWindow->BringForward();
  const unique_pidl archive = ParsePath(path);
  if (state.explorerWindow) SetCurrentFolder(state.explorerWindow->fileView(), archive.get());
}

std::int64_t Execute(std::int16_t action, const char* handlerGuid, const char* path) {
  try {
    const ModuleContext context;
    if (action == kActionOpen && handlerGuid != nullptr && path != nullptr &&
        std::strcmp(handlerGuid, kHandlers[0].guid) == 0) {
      OpenArchive(MainApp()->state(), path);
    }
  } catch (...) {
    // Nothing is reported to the host; the archive is simply not shown.
  }
  return 0;
}

}  // namespace

void RegisterZipHandler() {
  RegisterViewers(kHandlers, &VerifyHeader, &Execute);
}

}  // namespace file_explorer
