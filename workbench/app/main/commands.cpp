#include "workbench/app/main/commands.h"

#include <iterator>
#include <span>

namespace workbench {
namespace {

struct Entry {
  UINT command;  // 0: a separator
  const wchar_t* text;
};

constexpr Entry kFileMenu[] = {
    {kCommandOpen, L"&Open...\tCtrl+O"},
    {kCommandCloseDocument, L"&Close document\tCtrl+W"},
    {0, nullptr},
    {kCommandExit, L"E&xit\tAlt+F4"},
};

// The windows stand in front of these.
constexpr Entry kViewMenu[] = {
    {0, nullptr},
    {kCommandShowFolders, L"&Folders"},
    {kCommandShowHistory, L"&History"},
    {kCommandShowFavorites, L"F&avorites"},
    {0, nullptr},
    {kCommandNextPane, L"&Next pane\tF6"},
    {kCommandNextDocument, L"Next &document\tCtrl+Tab"},
    {0, nullptr},
    {kCommandResetLayout, L"&Reset layout"},
};

constexpr Entry kHelpMenu[] = {
    {kCommandHelpTopics, L"Explorer help &topics\tF1"},
    {kCommandHelpOptions, L"Folder &options"},
    {kCommandHelpMasks, L"File selection &masks"},
    {0, nullptr},
    {kCommandPluginAbout, L"About the &plug-in..."},
    {0, nullptr},
    {kCommandAbout, L"&About Workbench..."},
};

HMENU CreatePopup(std::span<const Entry> entries) {
  const HMENU popup = CreatePopupMenu();
  for (const Entry& entry : entries) {
    AppendMenuW(popup, entry.command == 0 ? MF_SEPARATOR : MF_STRING, entry.command, entry.text);
  }
  return popup;
}

}  // namespace

UniqueMenu CreateMainMenu() {
  UniqueMenu menu(CreateMenu());
  const auto append = [&](std::span<const Entry> entries, const wchar_t* text) {
    AppendMenuW(menu.get(), MF_POPUP, reinterpret_cast<UINT_PTR>(CreatePopup(entries)), text);
  };
  append(kFileMenu, L"&File");
  append(kViewMenu, L"&View");
  append(kHelpMenu, L"&Help");
  return menu;
}

UniqueAccelerators CreateMainKeys() {
  ACCEL keys[] = {
      {FCONTROL | FVIRTKEY, 'O', kCommandOpen},
      {FCONTROL | FVIRTKEY, 'W', kCommandCloseDocument},
      {FCONTROL | FVIRTKEY, VK_F4, kCommandCloseDocument},
      {FCONTROL | FVIRTKEY, VK_TAB, kCommandNextDocument},
      {FCONTROL | FSHIFT | FVIRTKEY, VK_TAB, kCommandPreviousDocument},
      {FVIRTKEY, VK_F6, kCommandNextPane},
      {FSHIFT | FVIRTKEY, VK_F6, kCommandPreviousPane},
      {FVIRTKEY, VK_F1, kCommandHelpTopics},
  };
  return UniqueAccelerators(CreateAcceleratorTableW(keys, static_cast<int>(std::size(keys))));
}

}  // namespace workbench
