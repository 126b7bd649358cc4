// The names of the file view's items as its list shows them.
#pragma once

#include <windows.h>

#include <array>

namespace file_explorer {

// Room for one name, used again for each item.
class ItemName {
 public:
  // Reads the text of column 0 of a row, cut to the buffer's size. False when there is none.
  bool Read(HWND list, int row);
  const char* text() const { return text_; }

 private:
  std::array<char, 2048> buffer_ = {};
  const char* text_ = "";
};

}  // namespace file_explorer
