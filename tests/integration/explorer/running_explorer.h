// A running explorer for tests that send it commands as its toolbars do.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/explorer/explorer_fixture.h"

namespace explorer_tests {

// The toolbars' control ids.
inline constexpr int kCommandToolbar = 32000;
inline constexpr int kFoldersToolbar = 32001;
inline constexpr int kHistoryToolbar = 32002;
inline constexpr int kFavoritesToolbar = 32003;
inline constexpr int kSelectorToolbar = 32004;

class RunningExplorer : public testing::Test {
 protected:
  // The workbench with the explorer on the folder "files"; what shall be in it is there before. `files` rows
  // are waited for.
  void Begin(size_t files);

  HWND Toolbar(int id) const;
  // A click with the left mouse button on a toolbar's button, which must be enabled.
  void Press(int toolbar, int command);
  bool IsEnabled(int toolbar, int command) const;
  bool IsChecked(int toolbar, int command) const;
  bool IsPressed(int toolbar, int command) const;
  // A key for the window that has the focus, with VK_SHIFT, VK_CONTROL or VK_MENU held down.
  static void Type(WPARAM key);
  static void TypeWith(int modifier, WPARAM key);
  // The command of the button that the keyboard is on; -1 when it is on none.
  int HotCommand(int toolbar) const;
  // Right until the button is hot.
  void GoTo(int toolbar, int command) const;
  LRESULT SendToExplorer(int command) const;
  LRESULT SendToPanel(int command) const;

  // Selects rows of the file view by name, all others not, as the keyboard would.
  void Select(const std::vector<std::string>& names) const;
  // What the path box over the file view shows.
  std::string ShownPath() const;
  bool WaitForPath(const std::string& path) const;
  // The file that the host was handed last.
  static std::string HandOver();
  std::string FilePath(const std::string& name) const { return fixture_.FilesFolder() + "\\" + name; }

  test_support::ExplorerFixture fixture_;
};

// Looks at a menu or a dialog while it is open: visit gets the first one of the thread that comes up, once,
// from a timer in its own message loop. What the visit leaves open is closed.
class ModalVisitor {
 public:
  explicit ModalVisitor(std::function<void(HWND window)> visit);
  ~ModalVisitor();
  ModalVisitor(const ModalVisitor&) = delete;
  ModalVisitor& operator=(const ModalVisitor&) = delete;

  bool visited() const { return visited_; }

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
  void Poll();

  std::function<void(HWND)> visit_;
  UINT_PTR timer_;
  bool visited_ = false;
};

// The menu of a menu window; null for other windows.
HMENU MenuOf(HWND menuWindow);
// Texts of a menu's entries, "-" for a separator.
std::vector<std::string> MenuTexts(HMENU menu);

}  // namespace explorer_tests
