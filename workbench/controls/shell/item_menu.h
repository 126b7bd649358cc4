// A context menu that the shell, the control and the container fill together.
#pragma once

#include <windows.h>

#include <shlobj.h>

#include <string>
#include <vector>

#include "workbench/controls/com/com_object.h"

namespace controls {

class ItemMenu {
 public:
  // Commands of the shell and of the control count from 1; those of the container from kFirstAdded. All fit
  // into 15 bits, because containers may keep no more of them.
  static constexpr UINT kFirstShell = 1;
  static constexpr UINT kLastShell = 0x5FFF;
  static constexpr UINT kFirstOwn = 0x6000;
  static constexpr UINT kFirstAdded = 0x7000;
  static constexpr UINT kLastAdded = 0x7FFF;

  ItemMenu() : menu_(CreatePopupMenu()) {}
  ~ItemMenu() { DestroyMenu(menu_); }
  ItemMenu(const ItemMenu&) = delete;
  ItemMenu& operator=(const ItemMenu&) = delete;

  // The shell's entries for children of a folder. False when the shell has none to offer.
  bool AddShellEntries(HWND owner, IShellFolder& folder, UINT count, LPCITEMIDLIST* children, bool rename);
  // An entry of the control itself; the verb is what Run gives back.
  void AddOwn(const wchar_t* caption, const char* verb, bool enabled = true, bool isDefault = false);
  // "Undo Copy", verb "undo"; not to be chosen when there is nothing to undo (an empty name).
  void AddUndo(const std::wstring& name);
  void AddSeparator();
  // An entry of the container: its command; 0 for a separator (verb "Separator").
  long Add(const std::wstring& caption, const std::wstring& verb);

  struct Choice {
    UINT command = 0;  // 0: nothing was chosen
    std::string verb;  // of an entry of the shell or the control; may be empty
    bool added = false;
  };
  // While the menu is open, entries of the shell with submenus, pictures and keys of their own get the messages about them
  // that the owner is sent.
  Choice Track(HWND owner, POINT screen);
  // Runs an entry of the shell. folder: where the items are, the working folder of what is started; may be empty.
  HRESULT InvokeShell(HWND owner, UINT command, const std::wstring& folder);

 private:
  static LRESULT CALLBACK OwnerProcedure(HWND owner, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR self);
  bool HandleMenuMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  void TidyShellEntries();
  std::string ShellVerb(UINT command) const;

  HMENU menu_;
  ComRef<IContextMenu> shell_;
  std::vector<std::string> ownVerbs_;
  UINT added_ = 0;
};

}  // namespace controls
