#include "workbench/controls/shell/item_menu.h"

namespace controls {

bool ItemMenu::AddShellEntries(HWND owner, IShellFolder& folder, UINT count, LPCITEMIDLIST* children,
                               bool rename) {
  if (FAILED(folder.GetUIObjectOf(owner, count, children, IID_IContextMenu, nullptr, shell_.put_void())))
    return false;
  const UINT flags = CMF_NORMAL | (rename ? CMF_CANRENAME : 0u);
  const HRESULT filled = shell_->QueryContextMenu(menu_, 0, kFirstShell, kLastShell, flags);
  if (SUCCEEDED(filled) && GetMenuItemCount(menu_) > 0) {
    TidyShellEntries();
    return true;
  }
  shell_.reset();
  return false;
}

std::string ItemMenu::ShellVerb(UINT command) const {
  char verb[64] = "";
  if (!shell_ ||
      FAILED(shell_->GetCommandString(command - kFirstShell, GCS_VERBA, nullptr, verb, sizeof(verb)))) {
    return {};
  }
  return verb;
}

// Opening is the default; it may stand there twice under different names, and a second entry that opens another window
// of the shell's own has no place here.
void ItemMenu::TidyShellEntries() {
  UINT open = 0;
  for (int i = GetMenuItemCount(menu_) - 1; i >= 0; --i) {
    const UINT command = GetMenuItemID(menu_, i);
    if (command < kFirstShell || command > kLastShell) continue;
    const std::string verb = ShellVerb(command);
    if (verb == "explore" || (verb == "open" && open != 0)) {
      DeleteMenu(menu_, static_cast<UINT>(i), MF_BYPOSITION);
    } else if (verb == "open") {
      open = command;
    }
  }
  if (open != 0) SetMenuDefaultItem(menu_, open, FALSE);
}

void ItemMenu::AddOwn(const wchar_t* caption, const char* verb, bool enabled, bool isDefault) {
  const UINT command = kFirstOwn + static_cast<UINT>(ownVerbs_.size());
  ownVerbs_.emplace_back(verb);
  AppendMenuW(menu_, MF_STRING | (enabled ? 0u : MF_GRAYED), command, caption);
  if (isDefault) SetMenuDefaultItem(menu_, command, FALSE);
}

void ItemMenu::AddUndo(const std::wstring& name) {
  const std::wstring caption = name.empty() ? L"&Undo" : L"&Undo " + name;
  AddOwn(caption.c_str(), "undo", !name.empty());
}

void ItemMenu::AddSeparator() {
  AppendMenuW(menu_, MF_SEPARATOR, 0, nullptr);
}

long ItemMenu::Add(const std::wstring& caption, const std::wstring& verb) {
  if (verb == L"Separator") {
    AddSeparator();
    return 0;
  }
  const UINT command = kFirstAdded + added_;
  if (command > kLastAdded) return 0;
  ++added_;
  AppendMenuW(menu_, MF_STRING, command, caption.c_str());
  return static_cast<long>(command);
}

ItemMenu::Choice ItemMenu::Track(HWND owner, POINT screen) {
  Choice choice;
  choice.command = static_cast<UINT>(
      TrackPopupMenu(menu_, TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, owner, nullptr));
  choice.added = choice.command >= kFirstAdded;
  if (choice.added || choice.command == 0) return choice;
  if (choice.command >= kFirstOwn) {
    choice.verb = ownVerbs_[choice.command - kFirstOwn];
  } else {
    choice.verb = ShellVerb(choice.command);
  }
  return choice;
}

HRESULT ItemMenu::InvokeShell(HWND owner, UINT command) {
  if (!shell_) return E_UNEXPECTED;
  CMINVOKECOMMANDINFO info = {};
  info.cbSize = sizeof(info);
  info.hwnd = owner;
  info.lpVerb = MAKEINTRESOURCEA(command - kFirstShell);
  info.nShow = SW_SHOWNORMAL;
  return shell_->InvokeCommand(&info);
}

bool ItemMenu::HandleMenuMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const ComRef<IContextMenu2> menu = shell_.As<IContextMenu2>(IID_IContextMenu2);
  return menu && SUCCEEDED(menu->HandleMenuMsg(message, wParam, lParam));
}

}  // namespace controls
