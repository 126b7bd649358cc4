#include "src/framework/com/com_text.h"

#include <new>

#include "base/text/code_page.h"

namespace file_explorer {

std::optional<std::wstring_view> TextOfBstr(BSTR text) {
  if (!text) return std::nullopt;
  const UINT length = SysStringLen(text);
  if (length > kLongestNarrowedText) return std::nullopt;
  return std::wstring_view(text, length);
}

std::optional<std::string> DisplayBstr(BSTR text) {
  const auto wide = TextOfBstr(text);
  if (!wide) return std::nullopt;
  return base::DisplayNarrow(*wide);
}

UniqueBstr MakeBstr(std::wstring_view text) {
  UniqueBstr result(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
  if (!result) throw std::bad_alloc();
  return result;
}

UniqueBstr MakeBstr(const char* text) {
  return MakeBstr(std::wstring_view(base::WideFromNarrow(text ? text : "")));
}

}  // namespace file_explorer
