#include "src/explorer/item_name.h"

#include <commctrl.h>

namespace file_explorer {

bool ItemName::Read(HWND list, int row) {
  buffer_[0] = '\0';
  LVITEMA item = {};
  item.pszText = buffer_.data();
  item.cchTextMax = static_cast<int>(buffer_.size());
  SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  // A list may answer with a text of its own instead of filling ours.
  text_ = item.pszText != nullptr ? item.pszText : "";
  return *text_ != '\0';
}

}  // namespace file_explorer
