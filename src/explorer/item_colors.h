// The colours of the file view's items: files are shown on a background in the colour of their category.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "src/explorer/notification_tap.h"

namespace file_explorer {

// Answers the file view's list how to draw its items. What the list's control answers itself stands. In high contrast
// the system's colours stand.
class ItemColors final : public NotificationTap {
 public:
  ItemColors() : NotificationTap(static_cast<UINT>(NM_CUSTOMDRAW)) {}

 private:
  LRESULT OnNotification(NMHDR& header, const Receiver& receiver) override;
  static bool IsSelected(const NMLVCUSTOMDRAW& draw);
  static void ColorItem(NMLVCUSTOMDRAW& draw);

  bool isHighContrast_ = false;  // in the painting that is going on
};

}  // namespace file_explorer
