// The keyboard's way between a view and its toolbars. Whoever has the focus asks the window around it for the
// next one with WM_NEXTDLGCTL, as a dialog's controls would; that window knows the order.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstddef>
#include <span>

#include "src/explorer/notification_tap.h"

namespace file_explorer {

// The Tab key, with or without Shift; with Ctrl or Alt it means something else.
bool IsTab(WPARAM key);

// Sends WM_NEXTDLGCTL to the window: forwards, or backwards while Shift is down.
void AskForNext(HWND window);

// Gives the focus to the window behind the one that has it, or before it. The order is a ring; windows that
// are null are left out of it. Who has the focus elsewhere counts as the first one.
void FocusNext(std::span<const HWND> order, bool backwards);

// Tab in the list or tree of a shell control. All other keys stay the control's.
class ViewTabKey final : public NotificationTap {
 public:
  // code: LVN_KEYDOWN or TVN_KEYDOWN, whose first fields are the same.
  explicit ViewTabKey(UINT code) : NotificationTap(code) {}

  // container: the window that is asked for the next one; it outlives this object or the next Detach.
  void Attach(HWND view, HWND container);

 private:
  static_assert(offsetof(NMLVKEYDOWN, wVKey) == offsetof(NMTVKEYDOWN, wVKey));
  LRESULT OnNotification(NMHDR& header, const Receiver& receiver) override;

  HWND container_ = nullptr;
};

}  // namespace file_explorer
