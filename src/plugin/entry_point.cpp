// The module's one export: walks keyword/value pairs and does what each asks for.
#include "src/plugin/entry_point.h"

#include <array>
#include <cstdio>
#include <cstring>

#include "base/text/code_page.h"
#include "base/text/display_name.h"
#include "src/framework/command_ids.h"
#include "src/framework/module_context.h"
#include "src/host/plugin_protocol.h"
#include "src/plugin/host_version.h"
#include "src/plugin/main_app.h"

namespace file_explorer {
namespace {


// What a walk remembers from one pair to the next, and nothing beyond the call.
struct Walk {
  CMainApp& app;
  HWND parentWindow = nullptr;
  host::HostServices* services = nullptr;
  std::uint32_t status = host::kStatusDone;
  bool stop = false;
};

INT_PTR CALLBACK AboutProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
  if (message == WM_INITDIALOG) return TRUE;
  if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
    EndDialog(dialog, 1);
    return TRUE;
  }
  return FALSE;
}

void ShowAboutDialog(Walk& walk, void**) {
  DialogBoxParamA(ModuleInstance(), "AboutBox", walk.parentWindow, AboutProcedure, 0);
}

void SetParentWindow(Walk& walk, void** value) { walk.parentWindow = static_cast<HWND>(*value); }

void SetServices(Walk& walk, void** value) { walk.services = static_cast<host::HostServices*>(*value); }

void RefuseHost(Walk& walk) {
  const std::string path = base::DisplayNarrow(base::HarmlessText(ModulePath()));
  std::array<char, 2048> text = {};
  std::snprintf(text.data(), text.size(),
                "The system-level plug-in named '%s' requires a newer version of software (v4.1.6 or newer).\n\n"
                "Please visit the support page at www.halvo.example/support or write to support@halvo.example to "
                "obtain an upgrade.",
                path.c_str());
  MessageBoxA(walk.parentWindow, text.data(), "Wrong Version of Software", MB_OK);
  walk.status = host::kStatusHostTooOld;
}

void Initialize(Walk& walk, void** value) {
  const char* const helpLocation = static_cast<const char*>(*value);
  walk.app.state().helpLocation = helpLocation != nullptr ? helpLocation : "";
  HostVersion version;
  std::int64_t unused = 0;
  host::Call<host::op::GetHostVersion>(walk.services, &version.major, &version.minor, &version.release, &unused);
  if (!IsAcceptedHostVersion(version)) RefuseHost(walk);
}

void NewInstance(Walk& walk, void** value) {
  *value = &walk.app;  // also when the instance stops half-way
  walk.app.CreateInstance(walk.services, ModuleInstance());
}

void DestroyInstance(Walk& walk, void**) { walk.app.DestroyInstance(); }

void Shutdown(Walk&, void**) {}  // deliberately nothing: the walk goes on

void MenuItemClicked(Walk& walk, void**) {
  walk.status = host::kStatusMenuItemClicked;
  walk.stop = true;
}

void AddPathToHistoryList(Walk& walk, void** value) {
  const auto& history = walk.app.state().historyView;
  if (history) history->AddPathToHistory(static_cast<const char*>(*value));
}

void ShowFolders(Walk& walk, void**) { walk.app.ShowSelectorPane(kCommandFoldersView); }
void ShowHistory(Walk& walk, void**) { walk.app.ShowSelectorPane(kCommandHistoryView); }
void ShowFavorites(Walk& walk, void**) { walk.app.ShowSelectorPane(kCommandFavoritesView); }

struct KeywordRow {
  const char* keyword;
  void (*action)(Walk& walk, void** value);
};

constexpr KeywordRow kKeywords[] = {
    {"show_about_dialog", ShowAboutDialog},
    {"parent_hWnd", SetParentWindow},
    {"parent_hInstance", SetServices},
    {"initialize", Initialize},
    {"new_instance", NewInstance},
    {"destroy_instance", DestroyInstance},
    {"shutdown", Shutdown},
    {"menu_item_clicked", MenuItemClicked},
    {"addpathtohistorylist", AddPathToHistoryList},
    {"showfolderviewpanel", ShowFolders},
    {"showhistorypanel", ShowHistory},
    {"showfavoritespanel", ShowFavorites},
};

void DispatchKeyword(Walk& walk, const char* keyword, void** value) {
  for (const KeywordRow& row : kKeywords) {
    if (std::strcmp(row.keyword, keyword) == 0) {
      row.action(walk, value);
      return;
    }
  }
}

}  // namespace

void WalkKeywords(CMainApp& app, const char* const* keywords, void** values, std::uint32_t* status) {
  Walk walk = {app};
  *status = walk.status;
  if (keywords == nullptr) return;
  for (std::int16_t i = 0; keywords[i] != nullptr && keywords[i][0] != '\0' && !walk.stop; ++i) {
    DispatchKeyword(walk, keywords[i], &values[i]);
    *status = walk.status;
  }
}

}  // namespace file_explorer

extern "C" __declspec(dllexport) void Teskar_Plugin_EntryPoint(const char* const* keywords, void** values,
                                                               std::uint32_t* status) {
  try {
    const file_explorer::ModuleContext context;
    file_explorer::WalkKeywords(*file_explorer::MainApp(), keywords, values, status);
  } catch (...) {
    // Nothing is thrown into the host; what was done up to here stands.
  }
}
