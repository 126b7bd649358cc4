#include "workbench/app/dialogs/host_dialogs.h"

#include "src/host/plugin_protocol.h"
#include "workbench/app/dialogs/directory_paths_dialog.h"
#include "workbench/app/dialogs/drag_drop_dialog.h"
#include "workbench/app/dialogs/import_options_dialog.h"

namespace workbench {
namespace {

struct DialogEntry {
  std::string_view keyword;
  bool (*show)(HWND owner, const char* argument, const std::string& profilePath);
};

constexpr DialogEntry kDialogs[] = {
    {host::kDirectoryPathsDialog,
     [](HWND owner, const char*, const std::string& profile) {
       return ShowDirectoryPathsDialog(owner, profile);
     }},
    {host::kImportOptionsDialog, [](HWND owner, const char* argument,
                                    const std::string&) { return ShowImportOptionsDialog(owner, argument); }},
    {host::kDragDropDialog,
     [](HWND owner, const char*, const std::string& profile) { return ShowDragDropDialog(owner, profile); }},
};

}  // namespace

bool ShowHostDialog(std::string_view keyword, HWND owner, const char* argument,
                    const std::string& profilePath) {
  for (const DialogEntry& dialog : kDialogs) {
    if (dialog.keyword == keyword) return dialog.show(owner, argument, profilePath);
  }
  return false;
}

}  // namespace workbench
