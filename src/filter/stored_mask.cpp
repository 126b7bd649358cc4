#include "src/filter/stored_mask.h"

#include <algorithm>

#include "src/filter/pattern_list.h"

namespace file_explorer {
namespace {

constexpr char kEverything[] = "*.*";
// An empty list of exclusions in front of the history.
constexpr char kEmptyExclusion[] = "|";

std::string BarComplaint(MaskKind kind) {
  const std::string name = kind == MaskKind::Inclusion ? "inclusion" : "exclusion";
  return "The '" + name +
         "' pattern matching string is not allowed to have a '|' character. Please remove '|' from the "
         "type-in box or "
         "press the Reset button.";
}

std::string PatternComplaint(MaskKind kind, const std::string& reason) {
  const std::string name = kind == MaskKind::Inclusion ? "inclusion" : "exclusion";
  return "The '" + name + "' pattern matching string is invalid: " + reason +
         ".\n\nPlease correct or press the 'Reset' button.";
}

// Joins the patterns of a text with single commas. False, with *complaint saying why, at the first one that
// is refused.
bool JoinPatterns(MaskKind kind, std::string_view text, const PatternValidator& isValid, std::string* current,
                  std::string* complaint) {
  while (!text.empty()) {
    const size_t length = std::min(text.find(','), text.size());
    const std::string piece(StripBlanks(text.substr(0, length)));
    text.remove_prefix(std::min(length + 1, text.size()));
    if (piece.empty()) continue;
    std::string reason;
    if (piece.find('|') != std::string::npos) {
      *complaint = BarComplaint(kind);
    } else if (!isValid(piece, &reason)) {
      *complaint = PatternComplaint(kind, reason);
    }
    if (!complaint->empty()) return false;
    if (!current->empty()) *current += ',';
    *current += piece;
  }
  return true;
}

// Appends the history behind the current part. The walk makes one step an entry and looks at the entry that
// its place is at; an empty one keeps the place, so that all further steps meet it again: it ends the walk.
void AppendHistory(const std::string& current, const std::vector<std::string>& entries, std::string* text) {
  size_t place = 0;
  for (size_t step = 0; step < entries.size() && place < kMaskHistoryLimit; ++step) {
    const std::string_view entry = StripBlanks(entries[place]);
    if (entry.empty()) continue;
    ++place;
    if (entry == current) continue;
    if (!text->empty()) *text += '|';
    *text += entry;
  }
}

}  // namespace

MaskBoxContents ContentsOfMaskBox(MaskKind kind, const char* stored, bool reset) {
  const bool isExclusion = kind == MaskKind::Exclusion;
  MaskBoxContents contents;
  std::string_view rest = stored != nullptr ? stored : "";
  if (isExclusion && rest.starts_with('|')) contents.editText = "";
  while (!rest.empty()) {
    const size_t length = std::min(rest.find('|'), rest.size());
    if (length > 0) {
      contents.entries.emplace_back(rest.substr(0, length));
      if (!contents.editText) contents.editText = contents.entries.front();
    }
    rest.remove_prefix(std::min(length + 1, rest.size()));
  }
  if (contents.entries.empty() && isExclusion) contents.entries.emplace_back();
  if (stored == nullptr || reset) contents.editText = isExclusion ? "" : kEverything;
  return contents;
}

StoredMask MakeStoredMask(MaskKind kind, std::string_view editText, const std::vector<std::string>& entries,
                          const PatternValidator& isValid) {
  StoredMask mask;
  std::string current;
  if (!JoinPatterns(kind, editText, isValid, &current, &mask.complaint)) return mask;
  // A text without a pattern, also one of commas alone: were the current part left out, the newest entry of the
  // history would take its place.
  if (current.empty()) current = kind == MaskKind::Inclusion ? kEverything : kEmptyExclusion;
  std::string built = current;
  AppendHistory(current, entries, &built);
  mask.text = std::move(built);
  return mask;
}

}  // namespace file_explorer
