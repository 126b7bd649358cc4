// The history pane: the remembered files in an owner-drawn list box. A click on a row loads its file into the
// host.
//
// Lives on the thread of its parent window. The list is loaded when the view is created and saved when it is
// destroyed; nothing else touches the file.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/handles/held.h"
#include "src/framework/command_ids.h"
#include "src/framework/unique_handle.h"
#include "src/history/history_list.h"
#include "src/preview/picture.h"

namespace file_explorer {

class HistoryListBox;
class ProfileHistoryFile;
class RowPictures;
class ShellHistoryPlatform;

// What the view needs from its surroundings. Functions may be empty except profilePath and mainWindow.
struct HistoryServices {
  HINSTANCE instance = nullptr;  // the module: resources
  std::function<std::string()>
      profilePath;                   // the host's profile file, asked afresh for each access; may be empty
  std::function<HWND()> mainWindow;  // the host's main window
  std::function<void(const char* path)> loadFile;  // hands a file to the host for loading
  // A picture of the file, pixels by pixels at most, or none. Empty for the shell's and the explorer's own.
  std::function<std::optional<preview::Preview>(const HistoryEntry& entry, int pixels)> preview;
  // Milliseconds from any start, by which a painting's time is measured. Empty for the system's.
  std::function<std::uint64_t()> clock;
};

// Functions that call the host or the shell may find the view taken down when the call comes back; see base::Holdable.
class CHistoryView : public base::Holdable {
 public:
  // parent: the panel window; null when the list box cannot be created. Loads the settings and the history.
  // The window is hidden and covers the parent's client area.
  static base::held_ptr<CHistoryView> Create(HWND parent, int controlId, HistoryServices services);
  virtual ~CHistoryView();
  // Saves settings and history, then destroys the window. Once.
  void TakeDown() noexcept;

  // Adds the path, or makes a listed one (letters of any case) the newest. False for a null or empty path.
  bool AddPathToHistory(const char* path);
  void ClearHistory();
  // Asks first; owner is the message box's.
  void AskAndClearHistory(HWND owner);

  // 0 to 3; other numbers are kept but sort nothing. Sorts and refills when the method changed.
  void SetSortingMethod(int method);
  int GetSortingMethod() const { return sortingMethod_; }
  // Tall rows with pictures, or compact ones. Sorts and refills when the choice changed.
  void SetShowIcons(bool show);
  bool GetShowIcons() const { return showIcons_; }
  // Checks or unchecks the toolbar's icons button. toolbar may be null.
  void ShowIconsState(HWND toolbar) const;

  // Opens the sorting menu at a screen position; the choice is sent to commandWindow as a command (3000 to
  // 3003). Returns when the menu is closed.
  void ShowSortingMenu(HWND commandWindow, POINT screen) const;
  // The same below a toolbar's sorting button, which is drawn pressed meanwhile.
  void ShowSortingMenuBelowButton(HWND toolbar, HWND commandWindow) const;
  // Carries out a command of the history toolbar or the sorting menu; false for every other command. toolbar
  // is the history's label toolbar (may be null), commandWindow the window that receives the menu's commands.
  bool HandleCommand(int command, HWND toolbar, HWND commandWindow);

  // The panel window's procedure offers every message: true when it was one of the list box's and is dealt
  // with. The menu key opens the sorting menu, whose choice goes to the panel as a command.
  bool HandleMessage(HWND panel, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window() const;
  const HistoryList& history() const { return *history_; }

 private:
  class NameMeasure;

  CHistoryView(int controlId, HistoryServices services);

  bool CreateListBox(HWND parent);
  void ReadSettings();
  void WriteSettings() const;
  void Load();
  void Save() const;
  void ApplyRowHeight();
  void SortAndRefill();
  void Refill();
  void InsertRow(int index, const HistoryEntry& entry);
  void WidenTo(int extent);
  const HistoryEntry* EntryOfRow(int row) const;
  POINT BelowSelectedRow() const;
  void OnSelectionChanged();
  void OnDrawItem(const DRAWITEMSTRUCT& item) const;

  const int controlId_;
  const HistoryServices services_;
  std::unique_ptr<ShellHistoryPlatform> platform_;
  std::unique_ptr<HistoryList> history_;
  std::unique_ptr<RowPictures> pictures_;
  unique_hfont font_;
  std::unique_ptr<HistoryListBox> listBox_;
  bool showIcons_ = true;
  int sortingMethod_ = 0;
  int widestRow_ = 0;  // pixels; the list box's horizontal extent
};

}  // namespace file_explorer
