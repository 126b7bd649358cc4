// libFuzzer target: the first byte chooses where the input is split into a pattern and a name. Besides the
// sanitizers' findings it stops on an answer that contradicts another one.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "workbench/app/text/wildcard.h"

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
  // Whatever a pattern takes, it takes behind a star too.
  if (exact && !workbench::MatchPattern("*" + std::string(pattern), name, false)) std::abort();
  return 0;
}
