#include "src/explorer/item_name.h"

#include <commctrl.h>

#include <string_view>

#include "base/text/code_page.h"

namespace file_explorer {

bool ItemName::Read(HWND list, int row) {
  buffer_[0] = L'\0';
  LVITEMW item = {};
  item.pszText = buffer_.data();
  item.cchTextMax = static_cast<int>(buffer_.size());
  SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  // A list may answer with a text of its own instead of filling ours.
  const std::wstring_view wide = item.pszText != nullptr ? item.pszText : L"";
  base::DisplayNarrow(wide, &text_);
  if (text_.size() > kLongestName) text_.resize(kLongestName);
  return !text_.empty();
}

}  // namespace file_explorer
