#include "base/text/letter_case.h"

#include <windows.h>

#include "base/text/code_page.h"

namespace base {

std::wstring LowerCase(std::wstring text) {
  if (!text.empty()) CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
  return text;
}

std::string LowerCaseNarrow(std::string_view text) {
  const auto wide = ExactWide(text);
  if (!wide) return std::string(text);
  std::wstring lower = LowerCase(*wide);
  if (auto narrow = ExactNarrow(lower)) return *std::move(narrow);
  for (size_t at = 0; at < lower.size(); ++at) {
    if (lower[at] != (*wide)[at] && !ExactNarrow({&lower[at], 1})) lower[at] = (*wide)[at];
  }
  return ExactNarrow(lower).value_or(std::string(text));
}

}  // namespace base
