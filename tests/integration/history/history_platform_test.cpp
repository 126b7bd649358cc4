// The history file through the profile calls, and the shell's part in it.
#include "src/history/history_platform.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include "base/text/letter_case.h"
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

TEST_F(HistoryPlatformTest, ALongListReadsAsTheProfileCallsReadIt) {
  constexpr int kCount = 2500;
  std::string text =
      "; kept by hand\r\n[Other]\r\nd1700=of another section\r\n[historylist]\r\nNumEntries=2500\r\n";
  for (int i = 0; i < kCount; ++i) {
    const std::string number = std::to_string(i);
    text += "  d" + number + " =  name " + number + "\r\n";
    if (i % 3 != 0) text += "F" + number + "=\"X:\\models\\a file " + number + ".obj\"\r\n";
    if (i % 7 == 0) text += "d" + number + "=a second one\r\n\r\nno key here\r\n";
    if (i == 1800) text += "[Other]\r\nd1801=elsewhere\r\nf1803=elsewhere\r\n[HistoryList]\r\n";
  }
  folder.Put("history.dat", text);
  ProfileHistoryFile file(folder.history());
  for (int i = 0; i < kCount; ++i) {
    for (const char letter : {'d', 'f', 'p', 'm'}) {
      const std::string key = HistoryKey(letter, i);
      ASSERT_EQ(file.ReadText(key.c_str()), Plain(folder.history(), key)) << key;
    }
  }
  EXPECT_EQ(file.ReadText("d1700"), "name 1700") << "backwards too";
  EXPECT_EQ(file.ReadText("d999999"), "");
}

TEST_F(HistoryPlatformTest, ALongListLeavesNothingInTheTemporaryFolder) {
  std::string text = "[HistoryList]\r\nNumEntries=1500\r\n";
  for (int i = 0; i < 1500; ++i) text += "d" + std::to_string(i) + "=name\r\n";
  folder.Put("history.dat", text);
  std::array<char, MAX_PATH> before = {};
  GetEnvironmentVariableA("TMP", before.data(), MAX_PATH);
  const test_support::TempDirectory temporary;
  SetEnvironmentVariableA("TMP", temporary.narrow().c_str());
  const auto files = [&] {
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(temporary.narrow()))
      count += entry.is_regular_file();
    return count;
  };
  {
    ProfileHistoryFile file(folder.history());
    EXPECT_EQ(file.ReadText("d10"), "name");
    EXPECT_EQ(files(), 0) << "a short list needs none";
    EXPECT_EQ(file.ReadText("d1100"), "name");
    EXPECT_EQ(file.ReadText("d1400"), "name");
    EXPECT_EQ(files(), 1) << "one at a time";
  }
  EXPECT_EQ(files(), 0);
  // Where nothing can be written the list is read all the same.
  SetEnvironmentVariableA("TMP", "X:\\no such folder");
  {
    ProfileHistoryFile file(folder.history());
    EXPECT_EQ(file.ReadText("d1400"), "name");
  }
  SetEnvironmentVariableA("TMP", before.data());
}

TEST_F(HistoryPlatformTest, AGoldenFileComesBackByteForByte) {
  const std::string golden = Golden("history.dat");
  folder.Put("history.dat", golden);
  ASSERT_TRUE(Load(list));
  ASSERT_EQ(list.size(), 4u);
  EXPECT_EQ(list.entries()[0]->lastAccess, (HistoryTime{2026, 11, 1, 16, 2, 5, 30, 255}));
  EXPECT_EQ(list.entries()[1]->fullPath, "C:\\windows\\win.ini");
  EXPECT_FALSE(list.entries()[1]->itemId.empty());
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
  EXPECT_TRUE(list.entries()[2]->itemId.empty());
  EXPECT_EQ(list.entries()[3]->lastAccess, (HistoryTime{2020, 2, 6, 29, 1, 2, 3, 4}));
}

TEST_F(HistoryPlatformTest, AnExistingFilesItemIsKeptAsItsParsingName) {
  folder.Put("model.obj", "v 0 0 0");
  list.Add(folder.Path("model.obj"));
  ASSERT_FALSE(list.entries()[0]->itemId.empty());
  Save();
  char value[2048] = "";
  GetPrivateProfileStringA("HistoryList", "p0", "", value, sizeof(value), folder.history().c_str());
  EXPECT_EQ(lstrcmpiA(value, folder.Path("model.obj").c_str()), 0) << value;
  HistoryList reloaded(platform, base::LowerCaseNarrow);
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
  EXPECT_EQ(base::LowerCaseNarrow("C:\\\xC4\xD6\xDC"), base::LowerCaseNarrow("c:\\\xE4\xF6\xFC"));
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
