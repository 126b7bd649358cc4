// Adding to the history.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/history/fake_history.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;

class HistoryListTest : public testing::Test {
 protected:
  FakePlatform platform;
  HistoryList list{platform};
};

TEST_F(HistoryListTest, APathIsAppendedWithItsNameItemAndTime) {
  EXPECT_EQ(list.Add("C:\\A\\Model.3DS"), HistoryList::AddResult::kAppended);
  const HistoryEntry& entry = *list.entries().front();
  EXPECT_EQ(entry.displayName, "Model.3DS");
  EXPECT_EQ(entry.fullPath, "C:\\A\\Model.3DS");
  EXPECT_EQ(entry.itemName, "C:\\A\\Model.3DS");
  EXPECT_EQ(entry.lastAccess.year, 2026);
}

TEST_F(HistoryListTest, APathInOtherCaseReplacesTheOldEntryAndIsNewest) {
  list.Add("c:\\a\\model.3ds");
  list.Add("C:\\b.obj");
  EXPECT_EQ(list.Add("C:\\A\\Model.3DS"), HistoryList::AddResult::kReplaced);
  EXPECT_THAT(Names(list), ElementsAre("b.obj", "Model.3DS"));
  EXPECT_EQ(list.entries().back()->lastAccess.second, 2);
}

TEST_F(HistoryListTest, OnlyTheFirstOfEqualPathsGoes) {
  FakeFile file;
  file.content = {{"NumEntries", "3"}, {"d0", "one"}, {"f0", "C:\\x"}, {"d1", "two"},
                  {"f1", "c:\\X"},     {"d2", "z"},   {"f2", "C:\\z"}};
  list.Load(file);
  list.Add("C:\\X");
  EXPECT_THAT(Names(list), ElementsAre("two", "z", "X"));
}

TEST_F(HistoryListTest, AnEmptyPathIsRefusedAndChangesNothing) {
  FakeFile file;
  file.content = {{"NumEntries", "1"}, {"d0", "without a path"}};
  list.Load(file);
  EXPECT_EQ(list.Add(""), HistoryList::AddResult::kRefused);
  EXPECT_EQ(list.size(), 1u);
}

TEST_F(HistoryListTest, AnItemThatTheShellDoesNotKnowIsListedAndKeptWithoutOne) {
  list.Add("?\\gone.obj");
  EXPECT_THAT(Names(list), ElementsAre("gone.obj"));
  FakeFile file;
  WriteHistory(file, list.Values());
  EXPECT_EQ(file.ReadText("f0"), "?\\gone.obj");
  EXPECT_EQ(file.ReadText("p0"), "");
}

TEST_F(HistoryListTest, AddingAPathAsksTheShellNothing) {
  list.Add("\\\\dead\\share\\a.obj");
  list.Add("C:\\a.obj");
  EXPECT_TRUE(platform.parsed.empty());
}

}  // namespace
}  // namespace file_explorer
