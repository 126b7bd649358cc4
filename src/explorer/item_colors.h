// The colours of the file view's items: files are shown on a background in the colour of their category.
#pragma once

#include <windows.h>

#include <commctrl.h>

namespace file_explorer {

// Takes part in the messages of the window that gets the list's notifications, and answers the list's
// questions about how to draw its items. What that window answers itself stands.
class ItemColors {
 public:
  ItemColors() = default;
  ~ItemColors() { Detach(); }
  ItemColors(const ItemColors&) = delete;
  ItemColors& operator=(const ItemColors&) = delete;

  // list: the file view's list window; null attaches to nothing. Of several objects on one window the first
  // one has it.
  void Attach(HWND list);
  // Gives the window back, unless it has gone.
  void Detach();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT OnCustomDraw(WNDPROC original, HWND window, WPARAM wParam, NMLVCUSTOMDRAW& draw);
  static void ColorItem(NMLVCUSTOMDRAW& draw);

  HWND list_ = nullptr;
  HWND window_ = nullptr;  // the receiver of the list's notifications
};

}  // namespace file_explorer
