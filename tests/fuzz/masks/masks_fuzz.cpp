// libFuzzer target: the walk over pattern lists and the stored form of the masks. The input is a text of
// lines: a list or a box's text, a name, then the entries of a drop-down list. Besides the sanitizers'
// findings it stops on results that contradict each other.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "src/filter/mask_rules.h"
#include "src/filter/stored_mask.h"
#include "workbench/app/text/wildcard.h"

namespace {

using namespace file_explorer;

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  for (;;) {
    const size_t length = std::min(text.find('\n'), text.size());
    // A line ends at its first NUL: the module's texts do.
    lines.emplace_back(text.substr(0, std::min(length, text.substr(0, length).find('\0'))));
    if (length == text.size()) return lines;
    text.remove_prefix(length + 1);
  }
}

void Require(bool holds) {
  if (!holds) std::abort();
}

void CheckWalk(const std::string& list, const std::string& name) {
  const auto matcher = [&](const char* pattern, const char* text) {
    const std::string_view asked(pattern);
    Require(text == name && !asked.empty() && asked.find_first_of(",|") == std::string_view::npos);
    Require(asked != "*" && asked != "*.*");
    return workbench::MatchPattern(pattern, text, true);
  };
  const bool matches = PatternList(list.c_str()).Matches(name.c_str(), matcher);
  // Whatever stands behind the first bar does not count.
  Require(matches == PatternList(list.substr(0, list.find('|')).c_str()).Matches(name.c_str(), matcher));
  const auto noType = [](const char*) -> std::uint32_t { return 0; };
  Require(MaskRules(FileMasks{list.c_str(), nullptr, 0}).Pass(name.c_str(), matcher, noType) == matches);
  Require(MaskRules(FileMasks{nullptr, list.c_str(), 0}).Pass(name.c_str(), matcher, noType) != matches);
}

void CheckStoredForm(MaskKind kind, const std::string& text, const std::vector<std::string>& entries) {
  const auto isValid = [](const std::string& pattern, std::string* reason) {
    return workbench::ValidatePattern(pattern, reason);
  };
  const StoredMask mask = MakeStoredMask(kind, text, entries, isValid);
  Require(mask.complaint.empty() || !mask.text);
  if (!mask.text) return;
  const MaskBoxContents contents = ContentsOfMaskBox(kind, mask.text->c_str(), false);
  Require(contents.editText.has_value());
  for (const std::string& entry : contents.entries) Require(entry.find('|') == std::string::npos);
  // What is shown is stored as it was.
  const StoredMask again = MakeStoredMask(kind, *contents.editText, contents.entries, isValid);
  if (again.complaint.empty() && contents.entries.size() <= kMaskHistoryLimit)
    Require(again.text.has_value());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::vector<std::string> lines = Lines(std::string_view(reinterpret_cast<const char*>(data), size));
  const std::string first = lines[0];
  const std::string name = lines.size() > 1 ? lines[1] : "";
  lines.erase(lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(std::min<size_t>(2, lines.size())));
  CheckWalk(first, name);
  // Entries come from a stored form: they have no bars.
  for (std::string& entry : lines) std::erase(entry, '|');
  for (const MaskKind kind : {MaskKind::Inclusion, MaskKind::Exclusion}) {
    CheckStoredForm(kind, first, lines);
    for (const bool reset : {false, true}) ContentsOfMaskBox(kind, first.c_str(), reset);
  }
  return 0;
}
