// The history file through the profile calls, and the shell's part in it.
#include "src/history/history_platform.h"

#include <gtest/gtest.h>

#include "tests/integration/history/history_test_folder.h"

namespace file_explorer {
namespace {

class HistoryPlatformTest : public testing::Test {
 protected:
  void Save() {
    ProfileHistoryFile file(folder.history());
    list.Save(file);
  }
  bool Load(HistoryList& into) {
    ProfileHistoryFile file(folder.history());
    return into.Load(file);
  }

  HistoryTestFolder folder;
  ShellHistoryPlatform platform;
  HistoryList list{platform, FoldCodePageCase};
};

TEST_F(HistoryPlatformTest, TheFileIsInTheUsersDirectoryOfTheHost) {
  EXPECT_EQ(HistoryFilePath(nullptr), folder.history());
}

TEST_F(HistoryPlatformTest, AGoldenFileComesBackByteForByte) {
  const std::string golden =
      "[HistoryList]\r\n"
      "NumEntries=2\r\n"
      "m0=EA070B0001001000020005001E00FF0031\r\n"
      "d0=Model.3DS\r\n"
      "f0=X:\\nowhere\\Model.3DS\r\n"
      "m1=D1070100010001000000000000000000DB\r\n"
      "d1=b.obj\r\n"
      "f1=X:\\nowhere\\b.obj\r\n";
  folder.Put("history.dat", golden);
  ASSERT_TRUE(Load(list));
  ASSERT_EQ(list.size(), 2u);
  EXPECT_EQ(list.entries()[0]->lastAccess, (HistoryTime{2026, 11, 1, 16, 2, 5, 30, 255}));
  EXPECT_EQ(list.entries()[1]->lastAccess, (HistoryTime{2001, 1, 1, 1, 0, 0, 0, 0}));
  Save();
  EXPECT_EQ(folder.Get("history.dat"), golden);
  EXPECT_EQ(folder.Get("history.bak"), golden);
}

TEST_F(HistoryPlatformTest, AnExistingFilesItemIsKeptAsItsParsingName) {
  folder.Put("model.obj", "v 0 0 0");
  list.Add(folder.Path("model.obj"));
  ASSERT_FALSE(list.entries()[0]->itemId.empty());
  Save();
  char value[2048] = "";
  GetPrivateProfileStringA("HistoryList", "p0", "", value, sizeof(value), folder.history().c_str());
  EXPECT_EQ(lstrcmpiA(value, folder.Path("model.obj").c_str()), 0) << value;
  HistoryList reloaded(platform, FoldCodePageCase);
  ASSERT_TRUE(Load(reloaded));
  EXPECT_EQ(reloaded.entries()[0]->itemId, list.entries()[0]->itemId);
}

TEST_F(HistoryPlatformTest, AMissingFileHasNoItem) {
  EXPECT_TRUE(platform.ParseItem(folder.Path("missing.obj")).empty());
  EXPECT_TRUE(platform.ParseItem("").empty());
  EXPECT_EQ(platform.ParsingName(ItemId()), "");
}

TEST_F(HistoryPlatformTest, AnEmptyListLeavesTheBackupBesideTheNewFile) {
  list.Add("X:\\a.obj");
  Save();
  list.Clear();
  Save();
  EXPECT_EQ(folder.Get("history.dat"), "[HistoryList]\r\nNumEntries=0\r\n");
  EXPECT_NE(folder.Get("history.bak").find("d0=a.obj"), std::string::npos);
}

TEST_F(HistoryPlatformTest, AShorterListLeavesNothingOfALongerOne) {
  for (int i = 0; i < 9; ++i) list.Add("X:\\m" + std::to_string(i) + ".obj");
  Save();
  list.Clear();
  list.Add("X:\\one.obj");
  Save();
  EXPECT_EQ(folder.Get("history.dat").find("m8.obj"), std::string::npos);
}

TEST_F(HistoryPlatformTest, IdentityKnowsTheCodePagesLetters) {
  EXPECT_EQ(FoldCodePageCase("C:\\\xC4\xD6\xDC"), FoldCodePageCase("c:\\\xE4\xF6\xFC"));
  EXPECT_NE(FoldCodePageCase("a"), FoldCodePageCase("b"));
}

TEST_F(HistoryPlatformTest, LocalTimeOfADateThatDoesNotExistIsRefused) {
  HistoryTime local;
  EXPECT_FALSE(ToLocalTime(HistoryTime(), &local));
  EXPECT_TRUE(ToLocalTime({2026, 11, 1, 16, 2, 5, 0, 0}, &local));
  EXPECT_EQ(local.year, 2026);
}

}  // namespace
}  // namespace file_explorer
