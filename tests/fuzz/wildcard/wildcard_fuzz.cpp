// libFuzzer target: the first byte chooses where the input is split into a pattern and a name. Besides the
// sanitizers' findings it stops on an answer that contradicts another one, and on one that differs from the
// plain reference's.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "tests/unit/wildcard/pattern_reference.h"
#include "workbench/app/text/wildcard.h"

namespace {

// The reference knows ASCII only and takes more time.
bool SuitsReference(std::string_view text) {
  constexpr std::size_t kLongest = 300;
  return text.size() <= kLongest && std::all_of(text.begin(), text.end(), [](char c) { return c >= 0; });
}

void CompareWithReference(const std::string& pattern, const std::string& name, bool ignoreCase, bool answer) {
  if (pattern_reference::Matches(pattern_reference::Parse(pattern, ignoreCase), name) != answer) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 2) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  const std::size_t split = data[0] % (text.size() + 1);
  const std::string_view pattern = text.substr(0, split);
  const std::string_view name = text.substr(split);
  std::string reason;
  const bool valid = workbench::ValidatePattern(pattern, &reason);
  const bool exact = workbench::MatchPattern(pattern, name, false);
  const bool relaxed = workbench::MatchPattern(pattern, name, true);
  if (valid != reason.empty()) std::abort();
  if (!valid && (exact || relaxed)) std::abort();
  // Without negated sets, ignoring case can only take more names.
  if (exact && !relaxed && pattern.find("[!") == std::string_view::npos) std::abort();
  if (SuitsReference(text)) {
    CompareWithReference(std::string(pattern), std::string(name), false, exact);
    CompareWithReference(std::string(pattern), std::string(name), true, relaxed);
  }
  // Whatever a pattern takes, it takes behind a star too.
  if (exact && !workbench::MatchPattern("*" + std::string(pattern), name, false)) std::abort();
  return 0;
}
