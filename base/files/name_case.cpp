#include "base/files/name_case.h"

#include <algorithm>
#include <cwctype>

namespace base {

wchar_t FoldCase(wchar_t character) {
  if (character < 0x80) return character >= L'a' && character <= L'z' ? character - 0x20 : character;
  if (character >= 0xE0 && character <= 0xFE && character != 0xF7) return character - 0x20;
  return static_cast<wchar_t>(std::towupper(static_cast<std::wint_t>(character)));
}

std::wstring FoldedName(std::wstring_view name) {
  std::wstring folded(name);
  std::transform(folded.begin(), folded.end(), folded.begin(), FoldCase);
  return folded;
}

bool EqualsIgnoringCase(std::wstring_view first, std::wstring_view second) {
  return first.size() == second.size() &&
         std::equal(first.begin(), first.end(), second.begin(),
                    [](wchar_t a, wchar_t b) { return a == b || FoldCase(a) == FoldCase(b); });
}

}  // namespace base
