#include <windows.h>

#include <string>

#include "base/text/code_page.h"
#include "base/text/narrow_path.h"
#include "src/host/vc64_imp.h"
#include "tests/integration/hostlibs/host_memory.h"
#include "tests/support/temp_directory.h"

namespace {

constexpr char kOverride[] = "HALVO_APPLICATION_DIRECTORY";

std::string ApplicationDirectory() {
  const unique_host_text directory(Import_IO_GetHalvoApplicationDirectoryForCurrentUser(nullptr));
  return directory ? directory.get() : "";
}

bool IsFolder(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

class UserDirectory : public HostMemoryTest {
 protected:
  void TearDown() override {
    Override(nullptr);
    HostMemoryTest::TearDown();
  }
  static void Override(const char* place) { SetEnvironmentVariableA(kOverride, place); }
  test_support::TempDirectory temp;
};

TEST_F(UserDirectory, LiesBelowTheUsersApplicationDataAndIsThere) {
  char applicationData[MAX_PATH];
  ASSERT_GT(GetEnvironmentVariableA("APPDATA", applicationData, MAX_PATH), 0u);
  const std::string path = ApplicationDirectory();
  EXPECT_EQ(path.find(std::string(applicationData) + "\\Halvo\\"), 0u) << path;
  EXPECT_NE(path.back(), '\\');
  EXPECT_TRUE(IsFolder(path));
}

TEST_F(UserDirectory, TheOverrideIsMadeWithAllItsLevels) {
  const std::string place = temp.Join("a\\b\\c");
  Override((place + "\\").c_str());
  EXPECT_EQ(ApplicationDirectory(), place) << "without a separator at its end";
  EXPECT_TRUE(IsFolder(place));
  EXPECT_EQ(ApplicationDirectory(), place) << "and is taken as it is when it is there";
}

// It is not there yet, so it has no short name by which 8-bit text could carry it.
TEST_F(UserDirectory, AnOverrideThatCantBeExpressedIsMadeAllTheSame) {
  const std::wstring place = temp.Join(L"\u00DCN\u00CF \u0414\u0418\u0420\\us\u0113r");
  SetEnvironmentVariableW(L"HALVO_APPLICATION_DIRECTORY", place.c_str());
  const std::string path = ApplicationDirectory();
  ASSERT_TRUE(IsFolder(path)) << path;
  EXPECT_TRUE(base::IsSameObject(base::WideFromNarrow(path), place)) << path;
  EXPECT_EQ(ApplicationDirectory(), path);
}

TEST_F(UserDirectory, SlashesInTheOverrideAreUnderstood) {
  std::string place = temp.Join("x\\y");
  std::string slashed = place;
  for (char& c : slashed) c = c == '\\' ? '/' : c;
  Override(slashed.c_str());
  EXPECT_EQ(ApplicationDirectory(), place);
  EXPECT_TRUE(IsFolder(place));
}

TEST_F(UserDirectory, IsNoneWhenItCannotBeMade) {
  temp.AddFile(L"file");
  Override(temp.Join("file\\below").c_str());
  EXPECT_EQ(Import_IO_GetHalvoApplicationDirectoryForCurrentUser(nullptr), nullptr);
  Override(temp.Join("file").c_str());
  EXPECT_EQ(Import_IO_GetHalvoApplicationDirectoryForCurrentUser(nullptr), nullptr)
      << "a file is no directory";
  Override("?:\\nowhere");
  EXPECT_EQ(Import_IO_GetHalvoApplicationDirectoryForCurrentUser(nullptr), nullptr);
}

TEST_F(UserDirectory, AnOverrideLongerThanTheOldLimitWorks) {
  const std::string place =
      temp.Join(std::string(100, 'd') + "\\" + std::string(100, 'e') + "\\" + std::string(100, 'f'));
  Override(place.c_str());
  EXPECT_EQ(ApplicationDirectory(), place);
  EXPECT_TRUE(Tx_File_Exists(place.c_str()));
}

// The last one: a variable that the host has set once no longer falls back to the process's environment.
TEST_F(UserDirectory, TheHostsOwnEnvironmentComesBeforeTheProcesses) {
  Override(temp.Join("process").c_str());
  Tx_Set_Environment(kOverride, temp.Join("host").c_str());
  EXPECT_EQ(ApplicationDirectory(), temp.Join("host"));
  EXPECT_FALSE(IsFolder(temp.Join("process")));
}

}  // namespace
