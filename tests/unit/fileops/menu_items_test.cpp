#include "src/fileops/menu_items.h"

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::Pair;

class MenuItemsTest : public testing::Test {
 protected:
  using Added = std::vector<std::pair<std::string, std::string>>;

  // Builds a menu whose commands count from `first`; gives what was added.
  Added Build(const char* path, std::int64_t first = 100) {
    Added added;
    std::int64_t next = first;
    const auto add = [&](const char* caption, const char* verb) -> std::int64_t {
      added.emplace_back(caption, verb);
      return std::string(verb) == "Separator" ? 0 : next++;
    };
    items_.Build(path, add,
                 {[this](const char* asked) {
                    asked_.emplace_back(asked);
                    return importTypes_;
                  },
                  [this](const char*, std::string* handler) {
                    *handler = handler_;
                    return !handler_.empty();
                  }});
    return added;
  }

  MenuItems items_;
  std::uint32_t importTypes_ = 4;
  std::string handler_ = "{handler}";
  std::vector<std::string> asked_;
};

TEST_F(MenuItemsTest, AnImportableFileGetsSixItemsInOrder) {
  EXPECT_THAT(Build("c:\\model.obj"), ElementsAre(Pair("", "Separator"), Pair("Move Files To...", "Default"),
                                                  Pair("Copy Files To...", "Default"), Pair("", "Separator"),
                                                  Pair("Add to Halvo Favorites List...", "Default"),
                                                  Pair("File Import Options...", "Default")));
  EXPECT_THAT(asked_, ElementsAre("c:\\model.obj"));
  EXPECT_EQ(items_.importHandler(), "{handler}");
}

TEST_F(MenuItemsTest, EmptySpaceGetsTheFiveFixedItemsAndNeverTheImportItem) {
  for (const char* const path : {static_cast<const char*>(nullptr), ""}) {
    EXPECT_THAT(Build(path), ElementsAre(Pair("", "Separator"), Pair("Move Files To...", "Default"),
                                         Pair("Copy Files To...", "Default"), Pair("", "Separator"),
                                         Pair("Add to Halvo Favorites List...", "Default")));
  }
  EXPECT_TRUE(asked_.empty()) << "the host is not asked about nothing";
}

TEST_F(MenuItemsTest, TheImportItemNeedsATypeAndAHandler) {
  importTypes_ = 0;
  EXPECT_EQ(Build("c:\\a.obj").size(), 5U);
  importTypes_ = 1;
  handler_.clear();
  EXPECT_EQ(Build("c:\\a.obj").size(), 5U);
  handler_ = "{handler}";
  EXPECT_EQ(Build("c:\\a.obj").size(), 6U) << "any type bit will do";
}

TEST_F(MenuItemsTest, IdentifiersMeanTheirCommands) {
  Build("c:\\a.obj");
  EXPECT_EQ(items_.Find(100), MenuCommand::kMove);
  EXPECT_EQ(items_.Find(101), MenuCommand::kCopy);
  EXPECT_EQ(items_.Find(102), MenuCommand::kAddFavorite);
  EXPECT_EQ(items_.Find(103), MenuCommand::kImportOptions);
}

TEST_F(MenuItemsTest, OtherIdentifiersAreIgnored) {
  EXPECT_EQ(items_.Find(0), MenuCommand::kNone) << "before the first menu";
  Build("c:\\a.obj");
  for (const std::int64_t other : {0, -1, 99, 104, 65636})
    EXPECT_EQ(items_.Find(other), MenuCommand::kNone) << other;
}

TEST_F(MenuItemsTest, ALaterMenuReplacesTheIdentifiersOfTheFixedItems) {
  Build("c:\\a.obj", 100);
  Build(nullptr, 200);
  EXPECT_EQ(items_.Find(100), MenuCommand::kNone);
  EXPECT_EQ(items_.Find(200), MenuCommand::kMove);
  EXPECT_EQ(items_.Find(202), MenuCommand::kAddFavorite);
}

// Deliberate: the identifier outlives the menu that had the item.
TEST_F(MenuItemsTest, TheImportIdentifierIsDeliberatelyNotClearedByALaterMenuWithoutTheItem) {
  Build("c:\\a.obj", 100);
  importTypes_ = 0;
  Build("c:\\plain", 200);
  EXPECT_EQ(items_.Find(103), MenuCommand::kImportOptions);
  EXPECT_EQ(items_.importHandler(), "{handler}") << "of the handler found last";
  importTypes_ = 4;
  handler_.clear();
  Build("c:\\b.obj", 300);
  EXPECT_EQ(items_.Find(103), MenuCommand::kImportOptions);
  EXPECT_EQ(items_.importHandler(), "{handler}") << "a look-up that finds nothing is no find";
}

TEST_F(MenuItemsTest, AnOldImportIdentifierGivesWayToAnItemOfTheNewMenu) {
  Build("c:\\a.obj", 100);
  Build(nullptr, 103);
  EXPECT_EQ(items_.Find(103), MenuCommand::kMove);
}

}  // namespace
}  // namespace file_explorer
