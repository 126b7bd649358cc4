// What is asked when files are dragged.
#pragma once

#include <windows.h>

#include <string>

namespace workbench {

inline constexpr int kConfirmMoveBox = 100;
inline constexpr int kConfirmCopyBox = 101;
inline constexpr int kConfirmOpenBox = 102;
inline constexpr int kRightButtonMenuBox = 103;

// The options as they are stored in the profile's section "Drag-and-Drop", 1 or 0 each.
struct DragDropOptions {
  bool confirmMove = true;   // "Confirm_Move": before dragged files are moved
  bool confirmCopy = false;  // "Confirm_Copy": before dragged files are copied
  bool confirmOpen = false;  // "Confirm_Open": before files dropped on the document area are opened
  bool rightButtonMenu =
      true;  // "Right_Button_Menu": a menu asks what to do after dragging with the right button

  bool operator==(const DragDropOptions&) const = default;
};
DragDropOptions LoadDragDropOptions(const std::string& profilePath);
// False, with the last error set, when the profile can't be written.
bool SaveDragDropOptions(const std::string& profilePath, const DragDropOptions& options);

// OK writes the options. False when the dialog could not be shown.
bool ShowDragDropDialog(HWND owner, const std::string& profilePath);

}  // namespace workbench
