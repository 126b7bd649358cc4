// The stored form of a mask: the current pattern list, then the lists that were used before, each behind a
// "|". The masks dialog shows it in an editable drop-down box and makes it again from what stands there.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace file_explorer {

enum class MaskKind { Inclusion, Exclusion };

// How many entries of a drop-down list are looked at for the history.
inline constexpr int kMaskHistoryLimit = 20;

// What the box of a mask shows.
struct MaskBoxContents {
  std::vector<std::string> entries;     // of the drop-down list
  std::optional<std::string> editText;  // none: the text that stands there stays
};

// stored may be null: no list. With reset the text starts afresh while the history stays.
MaskBoxContents ContentsOfMaskBox(MaskKind kind, const char* stored, bool reset);

// True when the pattern is well formed; else *reason says why not.
using PatternValidator = std::function<bool(const std::string& pattern, std::string* reason)>;

struct StoredMask {
  std::optional<std::string> text;  // none: refused, see complaint
  std::string complaint;            // not empty: nothing may be stored, and this is why
};

// The stored form for a box with this text and these entries.
StoredMask MakeStoredMask(MaskKind kind, std::string_view editText, const std::vector<std::string>& entries,
                          const PatternValidator& isValid);

}  // namespace file_explorer
