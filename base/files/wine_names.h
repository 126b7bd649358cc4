// Only for Wine: names of the machine below it, which are bytes, as wide text and back, without loss.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace base::wine {

// UTF-8 becomes text, a backslash kBackslashInName (base/files/paths.h). Bytes that are no UTF-8, and the
// bytes of that character itself, become lone surrogates U+DC80 to U+DCFF, one each.
std::wstring WideFromName(std::string_view name);

// The bytes that such a text stands for; nothing when it stands for none.
std::optional<std::string> NameFromWide(std::wstring_view text);

}  // namespace base::wine
