// The names of the file view's items as its list shows them.
#pragma once

#include <windows.h>

#include <array>
#include <string>

namespace file_explorer {

// Room for one name, used again for each item.
class ItemName {
 public:
  // Reads the text of column 0 of a row, cut to 2047 bytes. False when there is none.
  bool Read(HWND list, int row);
  // In the ANSI code page, with "?" for what that lacks: a letter that was bent would give the name another
  // type.
  const char* text() const { return text_.c_str(); }

 private:
  static constexpr size_t kLongestName = 2047;

  std::array<wchar_t, kLongestName + 1> buffer_ = {};
  std::string text_;
};

}  // namespace file_explorer
