#include <windows.h>

#include "src/host/vc64_imp.h"
#include "tests/integration/hostlibs/host_memory.h"
#include "tests/support/temp_directory.h"

namespace {

constexpr char kTestKey[] = "SOFTWARE\\Halvo Software, Inc.\\Hostlibs-Test";

std::string ModulePath(const char* name) {
  char path[MAX_PATH];
  GetModuleFileNameA(GetModuleHandleA(name), path, MAX_PATH);
  return path;
}

using Version = HostMemoryTest;

TEST_F(Version, OfBothLibrariesIsTheProjects) {
  for (const char* library : {"vc64_tx.dll", "vc64_imp.dll"}) {
    const unique_host_text version(Import_IO_GetVersionStringfromExeOrDLL(ModulePath(library).c_str()));
    ASSERT_NE(version, nullptr) << library;
    EXPECT_STREQ(version.get(), "1.0.0.0") << library;
  }
}

TEST_F(Version, IsNoneForWhatHasNone) {
  const test_support::TempDirectory directory;
  directory.AddFile(L"plain.txt", "no version");
  EXPECT_EQ(Import_IO_GetVersionStringfromExeOrDLL(directory.Join("plain.txt").c_str()), nullptr);
  EXPECT_EQ(Import_IO_GetVersionStringfromExeOrDLL(directory.Join("missing.dll").c_str()), nullptr);
  EXPECT_EQ(Import_IO_GetVersionStringfromExeOrDLL(ModulePath(nullptr).c_str()), nullptr)
      << "this test has none";
  EXPECT_EQ(Import_IO_GetVersionStringfromExeOrDLL(""), nullptr);
  EXPECT_EQ(Import_IO_GetVersionStringfromExeOrDLL(nullptr), nullptr);
}

class WriteKey : public testing::Test {
 protected:
  void TearDown() override { RegDeleteKeyA(HKEY_CURRENT_USER, kTestKey); }

  std::string Value() {
    char value[64] = "";
    DWORD size = sizeof(value);
    DWORD type = 0;
    RegGetValueA(HKEY_CURRENT_USER, kTestKey, "Version", RRF_RT_REG_SZ, &type, value, &size);
    return value;
  }
};

TEST_F(WriteKey, CreatesTheKeyAndOverwritesTheValue) {
  ASSERT_TRUE(Import_IO_Write_Key(kTestKey, "Version", "1.2.3.4"));
  EXPECT_EQ(Value(), "1.2.3.4");
  ASSERT_TRUE(Import_IO_Write_Key(kTestKey, "Version", "5"));
  EXPECT_EQ(Value(), "5");
}

TEST_F(WriteKey, RefusesNull) {
  EXPECT_FALSE(Import_IO_Write_Key(nullptr, "Version", "1"));
  EXPECT_FALSE(Import_IO_Write_Key("", "Version", "1"));
  EXPECT_FALSE(Import_IO_Write_Key(kTestKey, nullptr, "1"));
  EXPECT_FALSE(Import_IO_Write_Key(kTestKey, "Version", nullptr));
  EXPECT_EQ(Value(), "");
}

TEST_F(WriteKey, SaysWhenTheWriteFails) {
  const std::string tooLong =
      "SOFTWARE\\" + std::string(300, 'k');  // a key's name has at most 255 characters
  EXPECT_FALSE(Import_IO_Write_Key(tooLong.c_str(), "Version", "1"));
}

}  // namespace
