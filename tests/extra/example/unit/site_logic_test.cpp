// An example of a site's own logic tests.
#include <gtest/gtest.h>

#include <stdexcept>

#include "src/explorer/command_tables.h"
#include "src/filter/pattern_list.h"
#include "workbench/app/text/wildcard.h"

namespace {

TEST(SiteLogic, AskedForTheMatcherOfTheWorkbench) {
  const auto matches = [](const char* pattern, const char* name) { return workbench::MatchPattern(pattern, name, true); };
  EXPECT_TRUE(file_explorer::PatternList("*.3ds,*.obj").Matches("tree.OBJ", matches));
  EXPECT_FALSE(file_explorer::CommandToolbarButtons().empty());
}

}  // namespace
