// The history file through the profile calls, and the shell's part in it.
#include "src/history/history_platform.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "base/text/code_page.h"
#include "base/text/letter_case.h"
#include "tests/integration/history/history_test_folder.h"

namespace file_explorer {
namespace {

class HistoryPlatformTest : public testing::Test {
 protected:
  void Save() {
    ProfileHistoryFile file(folder.history());
    WriteHistory(file, list.Values());
  }
  bool Load(HistoryList& into) {
    ProfileHistoryFile file(folder.history());
    return into.Load(file);
  }

  static std::string Golden(const char* name) {
    std::ifstream file(std::string(TEST_DATA_DIR "/history/") + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }

  HistoryTestFolder folder;
  ShellHistoryPlatform platform;
  HistoryList list{platform, base::LowerCaseNarrow};
};

TEST_F(HistoryPlatformTest, TheFileIsInTheUsersDirectoryOfTheHost) {
  EXPECT_EQ(HistoryFilePath(nullptr), folder.history());
}

// The profile call alone, on the whole file.
std::string Plain(const std::string& file, const std::string& key) {
  char value[8192];
  return std::string(
      value, GetPrivateProfileStringA("HistoryList", key.c_str(), "", value, sizeof(value), file.c_str()));
}

TEST_F(HistoryPlatformTest, AListThatIsLongerThanWhatIsSavedIsReadWhole) {
  constexpr int kCount = 300;
  std::string text =
      "; kept by hand\r\n[Other]\r\nd170=of another section\r\n[historylist]\r\nNumEntries=300\r\n";
  for (int i = 0; i < kCount; ++i) {
    const std::string number = std::to_string(i);
    text += "  d" + number + " =  name " + number + "\r\n";
    if (i % 7 == 0) text += "d" + number + "=a second one\r\n\r\nno key here\r\n";
  }
  folder.Put("history.dat", text);
  ASSERT_TRUE(Load(list));
  ASSERT_EQ(list.size(), static_cast<size_t>(kCount));
  for (int i = 0; i < kCount; ++i) {
    EXPECT_EQ(list.entries()[static_cast<size_t>(i)]->displayName, "name " + std::to_string(i));
  }
}

// What stands in a text of values reads as the profile calls read a file of it.
TEST_F(HistoryPlatformTest, ATextOfValuesReadsAsTheProfileCallsReadIt) {
  const char* const values[] = {
      "plain",         "  blanks around  ", "\" quoted \"", "'single'", "\"\"\"\"", "\"open",
      "a=b",           "; no comment",      "[brackets]",   "\"",       "'\"",      "",
      "\"  blanks \"", "tab\tinside",       "\ttab before"};
  std::string text = "[HistoryList]\r\n";
  for (size_t i = 0; i < std::size(values); ++i)
    text += HistoryKey('d', static_cast<int>(i)) + "=" + values[i] + "\r\n";
  folder.Put("history.dat", text);
  HistoryText source(text);
  for (size_t i = 0; i < std::size(values); ++i) {
    const std::string key = HistoryKey('d', static_cast<int>(i));
    EXPECT_EQ(source.ReadText(key.c_str()), Plain(folder.history(), key)) << values[i];
  }
}

TEST_F(HistoryPlatformTest, OddPathsComeBackAndNoneEndsTheList) {
  const std::vector<std::string> paths = {
      "C:\\folder\\", "\\\\server\\share\\", "C:\\",         "   ",  " X:\\blank before", "X:\\blank after ",
      "X:\\a.obj",    "\"X:\\quoted.obj\"",  "X:\\'single'", "\r\n", "X:\\line\nend.obj", "X:\\a=b;c.obj",
      "X:\\last.obj"};
  for (const std::string& path : paths) EXPECT_EQ(list.Add(path), HistoryList::AddResult::kAppended) << path;
  EXPECT_EQ(list.Add(""), HistoryList::AddResult::kRefused);
  EXPECT_EQ(list.entries()[0]->displayName, "C:\\folder\\");
  EXPECT_EQ(list.entries()[1]->displayName, "\\\\server\\share\\");
  EXPECT_EQ(list.entries()[2]->displayName, "C:\\");
  Save();
  HistoryList loaded(platform, base::LowerCaseNarrow);
  ASSERT_TRUE(Load(loaded));
  ASSERT_EQ(loaded.size(), paths.size());
  for (size_t i = 0; i < paths.size(); ++i) {
    const bool hasLineEnd = paths[i].find('\n') != std::string::npos;
    EXPECT_EQ(loaded.entries()[i]->fullPath, hasLineEnd ? "" : paths[i]);
    EXPECT_FALSE(loaded.entries()[i]->displayName.empty()) << paths[i];
    EXPECT_TRUE(hasLineEnd || loaded.entries()[i]->displayName == list.entries()[i]->displayName) << paths[i];
  }
}

TEST_F(HistoryPlatformTest, AGoldenFileComesBackByteForByte) {
  const std::string golden = Golden("history.dat");
  folder.Put("history.dat", golden);
  ASSERT_TRUE(Load(list));
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list.entries()[0]->lastAccess, (HistoryTime{2026, 11, 1, 16, 2, 5, 30, 255}));
  EXPECT_EQ(list.entries()[1]->fullPath, "C:\\windows\\win.ini");
  EXPECT_FALSE(list.entries()[1]->itemName.empty());
  EXPECT_EQ(list.entries()[2]->displayName, "scene.3ds.001");
  EXPECT_EQ(list.entries()[3]->displayName, "a name = with [signs]; and spaces.obj");
  Save();
  EXPECT_EQ(folder.Get("history.dat"), golden);
  EXPECT_EQ(folder.Get("history.bak"), golden);
}

TEST_F(HistoryPlatformTest, LineEndsOfBothKindsAreTheSameAndWrittenAsThePlatformsOwn) {
  folder.Put("history.dat", Golden("history_lf.dat"));
  ASSERT_TRUE(Load(list));
  Save();
  EXPECT_EQ(folder.Get("history.dat"), Golden("history.dat"));
}

// Two upper-case digits a byte, and at the end the low byte of their sum.
TEST_F(HistoryPlatformTest, TimesAreWrittenAsDigitsWithTheirSum) {
  folder.Put("history.dat", Golden("history.dat"));
  ASSERT_TRUE(Load(list));
  Save();
  const std::string text = folder.Get("history.dat");
  for (int i = 0; i < 4; ++i) {
    const std::string key = "\nm" + std::to_string(i) + "=";
    const size_t at = text.find(key);
    ASSERT_NE(at, std::string::npos);
    const std::string digits = text.substr(at + key.size(), 34);
    EXPECT_EQ(digits.find_first_not_of("0123456789ABCDEF"), std::string::npos) << digits;
    EXPECT_EQ(text[at + key.size() + 34], '\r');
    unsigned sum = 0;
    for (size_t byte = 0; byte < 16; ++byte) sum += std::stoul(digits.substr(2 * byte, 2), nullptr, 16);
    EXPECT_EQ(std::stoul(digits.substr(32), nullptr, 16), sum & 0xFF) << digits;
  }
}

TEST_F(HistoryPlatformTest, AFileMadeByHandGivesWhatCanBeRead) {
  folder.Put("history.dat", Golden("odd.dat"));
  const HistoryTime before = platform.Now();
  ASSERT_TRUE(Load(list));
  ASSERT_EQ(list.size(), 4u);  // the gap at 4 ends the list
  EXPECT_EQ(list.entries()[0]->displayName, "wrong sum");
  EXPECT_EQ(list.entries()[0]->fullPath, "X:\\sum.obj");
  for (size_t i = 0; i < 3; ++i) {
    EXPECT_GE(ToFileTime(list.entries()[i]->lastAccess), ToFileTime(before)) << i;
  }
  EXPECT_EQ(list.entries()[3]->lastAccess, (HistoryTime{2020, 2, 6, 29, 1, 2, 3, 4}));
  Save();
  EXPECT_EQ(folder.Get("history.dat").find("p2="), std::string::npos) << "the shell does not know that item";
  EXPECT_NE(folder.Get("history.dat").find("f2=X:\\time.obj"), std::string::npos);
}

TEST_F(HistoryPlatformTest, AnExistingFilesItemIsKeptAsItsParsingName) {
  folder.Put("model.obj", "v 0 0 0");
  list.Add(folder.Path("model.obj"));
  Save();
  char value[2048] = "";
  GetPrivateProfileStringA("HistoryList", "p0", "", value, sizeof(value), folder.history().c_str());
  EXPECT_EQ(lstrcmpiA(value, folder.Path("model.obj").c_str()), 0) << value;
  HistoryList reloaded(platform, base::LowerCaseNarrow);
  ASSERT_TRUE(Load(reloaded));
  EXPECT_EQ(lstrcmpiA(reloaded.entries()[0]->itemName.c_str(), folder.Path("model.obj").c_str()), 0);
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
  EXPECT_EQ(base::LowerCaseNarrow(base::ExactNarrow(L"C:\\\u00C4\u00D6\u00DC").value()),
            base::LowerCaseNarrow(base::ExactNarrow(L"c:\\\u00E4\u00F6\u00FC").value()));
  EXPECT_NE(base::LowerCaseNarrow("a"), base::LowerCaseNarrow("b"));
}

TEST_F(HistoryPlatformTest, LocalTimeOfADateThatDoesNotExistIsRefused) {
  HistoryTime local;
  EXPECT_FALSE(ToLocalTime(HistoryTime(), &local));
  EXPECT_TRUE(ToLocalTime({2026, 11, 1, 16, 2, 5, 0, 0}, &local));
  EXPECT_EQ(local.year, 2026);
}

}  // namespace
}  // namespace file_explorer
