#include "src/explorer/pattern_help.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace file_explorer {
namespace {

TEST(PatternHelp, EndsInTheMiddleOfItsLastExampleDeliberately) {
  const std::string text = kPatternHelpText;
  const std::string lastLine = text.substr(text.rfind('\n') + 1);
  EXPECT_EQ(lastLine, R"([a-z\] = Matches a, b, c, \)");
}

TEST(PatternHelp, HasOneLineForEachExample) {
  const std::string text = kPatternHelpText;
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 18);
  EXPECT_EQ(text.find("Select items based on a search pattern:\n\nabc = "), 0U);
  EXPECT_NE(text.find("\ni\\** = Matches 'i*guess'\n[\\[-\\]] = Matches '[' and ']'\n"), std::string::npos);
  EXPECT_LT(text.size(), static_cast<size_t>(kTooltipTextSize));
}

}  // namespace
}  // namespace file_explorer
