#include "workbench/controls/shell/item_menu.h"

#include <commctrl.h>
#include <shellapi.h>

#include "base/text/code_page.h"

namespace controls {
namespace {

constexpr UINT_PTR kOwnerSubclass = 1;

bool IsMenuMessage(UINT message, WPARAM wParam) {
  switch (message) {
    case WM_INITMENUPOPUP:
    case WM_MENUCHAR:
      return true;
    case WM_DRAWITEM:
    case WM_MEASUREITEM:
      return wParam == 0;  // else it is about a control
    default:
      return false;
  }
}

}  // namespace

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
  SetWindowSubclass(owner, OwnerProcedure, kOwnerSubclass, reinterpret_cast<DWORD_PTR>(this));
  choice.command = static_cast<UINT>(
      TrackPopupMenu(menu_, TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, owner, nullptr));
  RemoveWindowSubclass(owner, OwnerProcedure, kOwnerSubclass);
  choice.added = choice.command >= kFirstAdded;
  if (choice.added || choice.command == 0) return choice;
  if (choice.command >= kFirstOwn) {
    choice.verb = ownVerbs_[choice.command - kFirstOwn];
  } else {
    choice.verb = ShellVerb(choice.command);
  }
  return choice;
}

HRESULT ItemMenu::InvokeShell(HWND owner, UINT command, const std::wstring& folder) {
  if (!shell_) return E_UNEXPECTED;
  const std::string narrowFolder = base::ExactNarrow(folder).value_or("");
  CMINVOKECOMMANDINFOEX info = {};
  info.cbSize = sizeof(info);
  info.fMask = CMIC_MASK_UNICODE;
  info.hwnd = owner;
  info.lpVerb = MAKEINTRESOURCEA(command - kFirstShell);
  info.lpVerbW = MAKEINTRESOURCEW(command - kFirstShell);
  info.lpDirectory = narrowFolder.empty() ? nullptr : narrowFolder.c_str();
  info.lpDirectoryW = folder.empty() ? nullptr : folder.c_str();
  info.nShow = SW_SHOWNORMAL;
  return shell_->InvokeCommand(reinterpret_cast<CMINVOKECOMMANDINFO*>(&info));
}

LRESULT CALLBACK ItemMenu::OwnerProcedure(HWND owner, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                          DWORD_PTR self) {
  LRESULT result = 0;
  if (IsMenuMessage(message, wParam) &&
      reinterpret_cast<ItemMenu*>(self)->HandleMenuMessage(message, wParam, lParam, &result)) {
    return result;
  }
  return DefSubclassProc(owner, message, wParam, lParam);
}

// The newest of the interfaces that the shell's menu has: only it answers keys, and says what the answer is.
bool ItemMenu::HandleMenuMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  *result = message == WM_DRAWITEM || message == WM_MEASUREITEM ? TRUE : 0;
  if (const auto newest = shell_.As<IContextMenu3>(IID_IContextMenu3)) {
    return SUCCEEDED(newest->HandleMenuMsg2(message, wParam, lParam, result));
  }
  const auto menu = shell_.As<IContextMenu2>(IID_IContextMenu2);
  return menu && message != WM_MENUCHAR && SUCCEEDED(menu->HandleMenuMsg(message, wParam, lParam));
}

}  // namespace controls
