// Texts of the system that speak of a file leave a place for its name: "Bad EXE format for %1.".
#pragma once

#include <string>
#include <string_view>

namespace base {

// text with name in each place that is left for it ("%1"). Without a name the text names "the file".
template <typename Char>
std::basic_string<Char> InsertName(std::basic_string<Char> text, std::basic_string_view<Char> name) {
  static constexpr Char kPlace[] = {'%', '1', 0};
  static constexpr Char kNobody[] = {'t', 'h', 'e', ' ', 'f', 'i', 'l', 'e', 0};
  const std::basic_string_view<Char> inserted = name.empty() ? std::basic_string_view<Char>(kNobody) : name;
  for (size_t at = text.find(kPlace); at != text.npos; at = text.find(kPlace, at + inserted.size())) {
    text.replace(at, 2, inserted);
  }
  return text;
}

}  // namespace base
