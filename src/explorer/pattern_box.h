// The "Select:" box of the command toolbar: selects the items of the file view that match what is typed into it.
#pragma once

#include <windows.h>

namespace file_explorer {

class ExplorerWindow;

class PatternBox {
 public:
  PatternBox() = default;
  ~PatternBox();
  PatternBox(const PatternBox&) = delete;
  PatternBox& operator=(const PatternBox&) = delete;

  // Makes label and edit box behind the last button of the toolbar, and the balloon with the pattern help. owner answers
  // the balloon's request for text and lives longer. False when the edit box can't be made.
  bool Create(HINSTANCE instance, ExplorerWindow& owner, HWND toolbar);
  // Destroys the balloon and gives edit box and toolbar their procedures back; label and edit box go with the toolbar.
  void Destroy();
  // Empties the box; the selection stays.
  void Clear();

  HWND edit() const { return edit_; }
  HWND label() const { return label_; }
  HWND balloon() const { return balloon_; }

 private:
  static bool LeadsOut(const PatternBox& box, UINT message, WPARAM key);
  static LRESULT CALLBACK EditProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK ToolbarProcedure(HWND toolbar, UINT message, WPARAM wParam, LPARAM lParam);
  void CreateBalloon(HINSTANCE instance, HWND ownerWindow);

  ExplorerWindow* owner_ = nullptr;
  HWND label_ = nullptr;
  HWND edit_ = nullptr;
  HWND balloon_ = nullptr;
  HWND toolbar_ = nullptr;
  WNDPROC previousProcedure_ = nullptr;         // of the edit box
  WNDPROC previousToolbarProcedure_ = nullptr;
};

}  // namespace file_explorer
