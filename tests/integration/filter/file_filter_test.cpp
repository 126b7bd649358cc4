// The filter with the services of the real workbench.
#include "src/filter/file_filter.h"

#include <gtest/gtest.h>

#include <memory>

#include "src/host/vc64_tx.h"
#include "tests/integration/filter/registered_formats.h"
#include "tests/support/explorer/explorer_fixture.h"

namespace file_explorer {
namespace {

class FileFilterTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    fixture_ = std::make_unique<test_support::ExplorerFixture>();
    fixture_->Start();
  }
  static void TearDownTestSuite() { fixture_.reset(); }

  static bool Shows(const FileMasks& masks, const char* name) {
    return FileFilter().ShouldShowFile(fixture_->services().services(), masks, name);
  }

  static std::unique_ptr<test_support::ExplorerFixture> fixture_;
};

std::unique_ptr<test_support::ExplorerFixture> FileFilterTest::fixture_;

TEST_F(FileFilterTest, InclusionAndExclusionActTogether) {
  const FileMasks masks = {"*.3ds|*.obj", "test*", 0};
  EXPECT_FALSE(Shows(masks, "test1.3ds"));
  EXPECT_TRUE(Shows(masks, "a.3ds"));
  EXPECT_TRUE(Shows(masks, "A.3DS"));
  EXPECT_FALSE(Shows(masks, "a.obj"));
}

TEST_F(FileFilterTest, PositionsAskTheHostsFormats) {
  const TestFormat model("{11111111-0000-4000-8000-0000000000F2}", "importer", ".zq1", kTxTypeObject3D);
  const TestFormat odd("{22222222-0000-4000-8000-0000000000F2}", "viewer", ".zq2", kTxTypeUnknown);
  EXPECT_TRUE(Shows({nullptr, nullptr, 0}, "a.zq3"));
  EXPECT_FALSE(Shows({nullptr, nullptr, 1}, "a.zq3"));
  EXPECT_TRUE(Shows({nullptr, nullptr, 1}, "a.zq2"));
  EXPECT_TRUE(Shows({nullptr, nullptr, 2}, "a.zq1"));
  EXPECT_FALSE(Shows({nullptr, nullptr, 2}, "a.zq2"));
  EXPECT_FALSE(Shows({nullptr, nullptr, 3}, "a.zq1"));
  EXPECT_TRUE(Shows({nullptr, nullptr, 12}, "a.zq3"));
}

TEST_F(FileFilterTest, TheHostIsAskedOncePerPatternWithTheFlag) {
  workbench::HostServicesTable& services = fixture_->services();
  services.ClearCalls();
  EXPECT_FALSE(Shows({"A*,b*,c|d", "e", 0}, "Name"));
  EXPECT_EQ(services.CountCalls("MatchPattern"), 3);
  EXPECT_EQ(services.LastArguments("MatchPattern"), "\"c\", \"Name\", 1");
  services.ClearCalls();
  EXPECT_TRUE(Shows({"*.*", nullptr, 0}, "name"));
  EXPECT_FALSE(Shows({"*", "*", 0}, "name"));
  EXPECT_EQ(services.CountCalls("MatchPattern"), 0);
}

TEST_F(FileFilterTest, AHostWithoutAMatcherMatchesNothing) {
  EXPECT_FALSE(FileFilter().ShouldShowFile(nullptr, {"a*", nullptr, 0}, "abc"));
  EXPECT_TRUE(FileFilter().ShouldShowFile(nullptr, {"*.*", "a*", 0}, "abc"));
}

TEST_F(FileFilterTest, ANameThatIsMissingIsShown) {
  EXPECT_TRUE(Shows({"a", "*", 1}, nullptr));
}

TEST_F(FileFilterTest, TakesNamesOf1024Characters) {
  const std::string name = std::string(1020, 'x') + ".3ds";
  EXPECT_TRUE(Shows({"*.3ds", nullptr, 0}, name.c_str()));
  EXPECT_FALSE(Shows({"*.obj", nullptr, 0}, name.c_str()));
}

}  // namespace
}  // namespace file_explorer
