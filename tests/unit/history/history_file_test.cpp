// What is written to the history's file, and what is made of what stands in it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/history/fake_history.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class HistoryFileTest : public testing::Test {
 protected:
  void Fill(int count) {
    for (int i = 0; i < count; ++i) list.Add("C:\\models\\m" + std::to_string(100 + i) + ".obj");
  }

  FakePlatform platform;
  HistoryList list{platform};
  FakeFile file;
};

TEST_F(HistoryFileTest, WritesTheFieldsOfEachEntryInOrder) {
  list.Add("C:\\A\\Model.3DS");
  list.Add("?D:\\gone\\b.obj");
  WriteHistory(file, list.Values());
  EXPECT_EQ(file.Text(),
            "NumEntries=2\n"
            "m0=EA070B00010010000200050000000000"
            "14"
            "\n"
            "d0=Model.3DS\n"
            "f0=C:\\A\\Model.3DS\n"
            "p0=C:\\A\\Model.3DS\n"
            "m1=EA070B00010010000200050001000000"
            "15"
            "\n"
            "d1=b.obj\n"
            "f1=?D:\\gone\\b.obj\n");
}

TEST_F(HistoryFileTest, ComesBackAsItWasSaved) {
  Fill(7);
  WriteHistory(file, list.Values());
  HistoryList reloaded(platform);
  ASSERT_TRUE(reloaded.Load(file));
  ASSERT_EQ(reloaded.size(), 7u);
  for (size_t i = 0; i < 7; ++i) {
    EXPECT_EQ(reloaded.entries()[i]->displayName, list.entries()[i]->displayName);
    EXPECT_EQ(reloaded.entries()[i]->fullPath, list.entries()[i]->fullPath);
    EXPECT_EQ(reloaded.entries()[i]->itemName, list.entries()[i]->itemName);
    EXPECT_EQ(reloaded.entries()[i]->lastAccess, list.entries()[i]->lastAccess);
  }
}

TEST_F(HistoryFileTest, AnEmptyListSavesItsCountAndLeavesTheBackup) {
  Fill(1);
  WriteHistory(file, list.Values());
  list.Clear();
  WriteHistory(file, list.Values());
  EXPECT_EQ(file.Text(), "NumEntries=0\n");
  ASSERT_TRUE(file.backup);
  EXPECT_EQ(file.backup->front().second, "1");
}

TEST_F(HistoryFileTest, SavesTheFirstFiftyOfTheCurrentOrder) {
  Fill(60);
  list.Sort(kSortByName);
  WriteHistory(file, list.Values());
  EXPECT_EQ(file.ReadText("NumEntries"), "50");
  EXPECT_EQ(file.ReadText("d0"), "m100.obj");
  EXPECT_EQ(file.ReadText("d49"), "m149.obj");
  EXPECT_EQ(file.ReadText("d50"), "");
}

TEST_F(HistoryFileTest, Deliberate_ANewPathBehindFiftyOthersIsNotSavedUntilTheListIsSortedAgain) {
  Fill(50);
  list.Sort(kSortNewestFirst);
  list.Add("C:\\models\\new.obj");
  WriteHistory(file, list.Values());
  EXPECT_EQ(file.Text().find("new.obj"), std::string::npos);
  platform.ticks = 59;
  list.Add("C:\\models\\new.obj");
  list.Sort(kSortNewestFirst);
  WriteHistory(file, list.Values());
  EXPECT_EQ(file.ReadText("d0"), "new.obj");
}

TEST_F(HistoryFileTest, AGapInTheNamesEndsTheList) {
  file.content = {{"NumEntries", "3"}, {"d0", "a"}, {"d1", "b"}, {"d3", "d"}};
  EXPECT_TRUE(list.Load(file));
  EXPECT_THAT(Names(list), ElementsAre("a", "b"));
}

TEST_F(HistoryFileTest, KeysBehindTheCountAreIgnored) {
  file.content = {{"NumEntries", "1"}, {"d0", "a"}, {"d1", "b"}};
  EXPECT_TRUE(list.Load(file));
  EXPECT_THAT(Names(list), ElementsAre("a"));
}

TEST_F(HistoryFileTest, AnyNumberIsRead) {
  FakeFile::Content content = {{"NumEntries", "120"}};
  for (int i = 0; i < 120; ++i) content.emplace_back(HistoryKey('d', i), "n" + std::to_string(i));
  file.content = content;
  EXPECT_TRUE(list.Load(file));
  EXPECT_EQ(list.size(), 120u);
}

TEST_F(HistoryFileTest, AMissingFileOrCountIsAnEmptyHistory) {
  list.Add("C:\\old.obj");
  EXPECT_FALSE(list.Load(file));
  EXPECT_THAT(Names(list), IsEmpty());
  file.content = {{"NumEntries", "many"}, {"d0", "a"}};
  EXPECT_FALSE(list.Load(file));
  EXPECT_THAT(Names(list), IsEmpty());
}

TEST_F(HistoryFileTest, ADamagedTimeBecomesNow) {
  file.content = {{"NumEntries", "4"},
                  {"d0", "wrong sum"},
                  {"m0", "EA070B0001001000020005000000000099"},
                  {"d1", "short"},
                  {"m1", "EA07"},
                  {"d2", "missing"},
                  {"d3", "good"},
                  {"m3", "EA070B0001001000020005000000000014"}};
  platform.ticks = 30;
  EXPECT_TRUE(list.Load(file));
  EXPECT_EQ(list.entries()[0]->lastAccess.second, 30);
  EXPECT_EQ(list.entries()[1]->lastAccess.second, 31);
  EXPECT_EQ(list.entries()[2]->lastAccess.second, 32);
  EXPECT_EQ(list.entries()[3]->lastAccess.second, 0);
}

TEST_F(HistoryFileTest, AnUnknownItemIsLeftOutAndThePathStays) {
  file.content = {{"NumEntries", "1"}, {"d0", "a.obj"}, {"f0", "C:\\a.obj"}, {"p0", "?nonsense"}};
  EXPECT_TRUE(list.Load(file));
  EXPECT_EQ(list.entries()[0]->fullPath, "C:\\a.obj");
  WriteHistory(file, list.Values());
  EXPECT_EQ(file.ReadText("p0"), "");
  EXPECT_EQ(file.ReadText("f0"), "C:\\a.obj");
}

// The files may lie on disks that sleep, in drives without a disk and on machines that are gone.
TEST_F(HistoryFileTest, LoadingAsksTheShellNothing) {
  Fill(3);
  WriteHistory(file, list.Values());
  platform.parsed.clear();
  EXPECT_TRUE(list.Load(file));
  EXPECT_TRUE(platform.parsed.empty());
}

TEST_F(HistoryFileTest, SavingAsksTheShellNothingAboutWhatMayHang) {
  file.content = {{"NumEntries", "2"}, {"d0", "a.obj"},           {"f0", "\\\\dead\\share\\a.obj"}, {"p0", "\\\\dead\\share\\a.obj"},
                  {"d1", "b.obj"},     {"f1", "C:\\b.obj"}, {"p1", "C:\\b.obj"}};
  EXPECT_TRUE(list.Load(file));
  WriteHistory(file, list.Values());
  EXPECT_EQ(platform.parsed, std::vector<std::string>{"C:\\b.obj"});
  EXPECT_EQ(file.ReadText("p0"), "\\\\dead\\share\\a.obj") << "what could not be asked about stays as it was";
  EXPECT_EQ(file.ReadText("p1"), "C:\\b.obj");
}

// Every write of a save fails once: the previous file is always there again.
TEST_F(HistoryFileTest, AFailedWritePutsThePreviousFileBack) {
  Fill(3);
  WriteHistory(file, list.Values());
  const std::string before = file.Text();
  Fill(5);
  constexpr int kWrites = 1 + 5 * 4;
  for (int failing = 0; failing < kWrites; ++failing) {
    file.writesLeft = failing;
    WriteHistory(file, list.Values());
    EXPECT_EQ(file.Text(), before) << "write " << failing;
    EXPECT_FALSE(file.backup);
  }
  file.writesLeft = kWrites;
  WriteHistory(file, list.Values());
  EXPECT_EQ(file.ReadText("NumEntries"), "5");
}

TEST_F(HistoryFileTest, AFailedFirstSaveLeavesNoFile) {
  Fill(1);
  file.writesLeft = 2;
  WriteHistory(file, list.Values());
  EXPECT_FALSE(file.content);
}

}  // namespace
}  // namespace file_explorer
