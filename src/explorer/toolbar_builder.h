// Makes the explorer's toolbars from their tables.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <span>

#include "src/explorer/command_tables.h"
#include "src/framework/unique_handle.h"

namespace file_explorer {

// The pictures of all toolbars: 16 by 15 pixels each, from the bitmap "ToolbarBitmaps1". Empty when it can't be loaded.
unique_himagelist LoadToolbarImages(HINSTANCE instance);

struct ToolbarRequest {
  HINSTANCE instance;
  HWND parent;
  int id;
  bool atBottom;
  std::span<const ToolbarButton> buttons;
  HIMAGELIST images;  // stays the caller's
};

// A flat list-style toolbar with tooltips, a child of parent; null when it can't be made.
HWND CreateToolbarFromTable(const ToolbarRequest& request);

// The label that heads a selector toolbar: a static text over button 128, which is made wide enough for it. A child of
// the toolbar; null when it can't be made.
HWND CreateToolbarLabel(HINSTANCE instance, HWND toolbar, const char* text);

// Sizes the toolbar to its contents and its parent's width. Gives its height; 0 for null.
int SizeToolbar(HWND toolbar);

// Width and height of a text in a window's font.
SIZE MeasureText(HWND window, const char* text);

// Enables or disables a button.
void EnableToolbarButton(HWND toolbar, int command, bool enabled);

}  // namespace file_explorer
