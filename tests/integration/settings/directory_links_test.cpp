#include "src/settings/directory_links.h"

#include <gtest/gtest.h>

#include <array>

#include "src/host/vc64_tx.h"
#include "src/settings/shell_link.h"
#include "tests/support/temp_directory.h"

namespace file_explorer {
namespace {

class DirectoryLinksTest : public testing::Test {
 protected:
  void SetUp() override { CoInitialize(nullptr); }
  void TearDown() override { CoUninitialize(); }

  test_support::TempDirectory directory_;
};

TEST_F(DirectoryLinksTest, ALinkKeepsAFolder) {
  directory_.AddFolder(L"models and scenes");
  const std::string folder = directory_.Join(std::string_view("models and scenes"));
  const std::string link = directory_.Join(std::string_view("a.lnk"));
  ASSERT_TRUE(WriteShellLink(link, ParsePath(folder).get()));
  EXPECT_EQ(ParsingName(ReadShellLink(link).get()), folder);
}

TEST_F(DirectoryLinksTest, ALinkKeepsAVirtualFolder) {
  unique_pidl drives;
  ASSERT_TRUE(SUCCEEDED(SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, drives.put())));
  const std::string link = directory_.Join(std::string_view("drives.lnk"));
  ASSERT_TRUE(WriteShellLink(link, drives.get()));
  const unique_pidl read = ReadShellLink(link);
  ASSERT_TRUE(read);
  EXPECT_TRUE(ILIsEqual(read.get(), drives.get()));
}

TEST_F(DirectoryLinksTest, ALinkKeepsTheDesktopInPlaceOfAFolder) {
  unique_pidl desktop;
  ASSERT_TRUE(SUCCEEDED(SHGetSpecialFolderLocation(nullptr, CSIDL_DESKTOP, desktop.put())));
  const std::string link = directory_.Join(std::string_view("desktop.lnk"));
  directory_.AddFolder(L"before");
  ASSERT_TRUE(WriteShellLink(link, ParsePath(directory_.Join(std::string_view("before"))).get()));
  EXPECT_TRUE(WriteShellLink(link, desktop.get()));
  EXPECT_EQ(ParsingName(ResolveDirectoryLink(link).get()), ParsingName(desktop.get()));
}

// A kill before, at or after the step in which it takes the old one's place finds one of the two.
TEST_F(DirectoryLinksTest, ALinkThatCannotBeReplacedStaysWhatItWas) {
  for (const char* const folder : {"old", "new"}) directory_.AddFolder(std::wstring(folder, folder + 3));
  const std::string link = directory_.Join(std::string_view("a.lnk"));
  const unique_pidl next = ParsePath(directory_.Join(std::string_view("new")));
  ASSERT_TRUE(WriteShellLink(link, ParsePath(directory_.Join(std::string_view("old"))).get()));
  {
    const unique_file held = base::OwnFile(CreateFileA(link.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    ASSERT_TRUE(held);
    EXPECT_FALSE(WriteShellLink(link, next.get()));
  }
  EXPECT_EQ(ParsingName(ReadShellLink(link).get()), directory_.Join(std::string_view("old")));
  EXPECT_EQ(GetFileAttributesA((link + ".new").c_str()), INVALID_FILE_ATTRIBUTES);
  directory_.AddFile(L"a.lnk.new", "cut while it was written");
  EXPECT_TRUE(WriteShellLink(link, next.get()));
  EXPECT_EQ(ParsingName(ReadShellLink(link).get()), directory_.Join(std::string_view("new")));
  EXPECT_EQ(GetFileAttributesA((link + ".new").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(DirectoryLinksTest, MissingAndDamagedLinksGiveNothing) {
  EXPECT_FALSE(ReadShellLink(directory_.Join(std::string_view("missing.lnk"))));
  directory_.AddFile(L"damaged.lnk", "this is no link");
  EXPECT_FALSE(ReadShellLink(directory_.Join(std::string_view("damaged.lnk"))));
}

TEST_F(DirectoryLinksTest, NothingIsWrittenWithoutAFolderOrAPlace) {
  const std::string link = directory_.Join(std::string_view("none.lnk"));
  EXPECT_FALSE(WriteShellLink(link, nullptr));
  EXPECT_EQ(GetFileAttributesA(link.c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_FALSE(WriteShellLink(directory_.Join(std::string_view("missing\\none.lnk")), ParsePath("c:\\").get()));
}

TEST_F(DirectoryLinksTest, PathsWithEitherSeparatorAreParsed) {
  directory_.AddFolder(L"a\\b");
  std::string path = directory_.Join(std::string_view("a\\b"));
  for (char& character : path) {
    if (character == '\\') character = '/';
  }
  EXPECT_EQ(ParsingName(ParsePath(path).get()), directory_.Join(std::string_view("a\\b")));
  EXPECT_FALSE(ParsePath("q:\\missing\\folder"));
  EXPECT_FALSE(ParsePath(""));
}

// The chain: link, working directory, desktop.
class ResolveDirectoryLinkTest : public DirectoryLinksTest {
 protected:
  void SetUp() override {
    DirectoryLinksTest::SetUp();
    directory_.AddFolder(L"linked");
    directory_.AddFolder(L"working");
    link_ = Path("a.lnk");
    Tx_Set_Environment("TS_WORKING_DIR", Path("working").c_str());
  }
  void TearDown() override {
    Tx_Set_Environment("TS_WORKING_DIR", nullptr);
    DirectoryLinksTest::TearDown();
  }
  std::string Path(std::string_view name) const { return directory_.Join(name); }
  void LinkTo(std::string_view name) { ASSERT_TRUE(WriteShellLink(link_, ParsePath(Path(name)).get())) << name; }
  std::string Resolved() const { return ParsingName(ResolveDirectoryLink(link_).get()); }
  static bool IsDesktop(LPCITEMIDLIST list) { return list != nullptr && list->mkid.cb == 0; }

  std::string link_;
};

TEST_F(ResolveDirectoryLinkTest, AFolderThatIsThere) {
  LinkTo("linked");
  EXPECT_EQ(Resolved(), Path("linked"));
}

TEST_F(ResolveDirectoryLinkTest, AFolderThatIsGoneGivesTheWorkingDirectory) {
  LinkTo("linked");
  ASSERT_TRUE(RemoveDirectoryA(Path("linked").c_str()));
  EXPECT_EQ(Resolved(), Path("working"));
}

TEST_F(ResolveDirectoryLinkTest, AFileGivesTheWorkingDirectory) {
  directory_.AddFile(L"model.obj");
  LinkTo("model.obj");
  EXPECT_EQ(Resolved(), Path("working"));
}

TEST_F(ResolveDirectoryLinkTest, AFolderThatIsAFileByNowGivesTheWorkingDirectory) {
  LinkTo("linked");
  ASSERT_TRUE(RemoveDirectoryA(Path("linked").c_str()));
  directory_.AddFile(L"linked");
  EXPECT_EQ(Resolved(), Path("working"));
}

TEST_F(ResolveDirectoryLinkTest, AnArchiveIsBrowsedLikeAFolder) {
  directory_.AddFile(L"pack.ZIP");
  LinkTo("pack.ZIP");
  EXPECT_EQ(Resolved(), Path("pack.ZIP"));
}

TEST_F(ResolveDirectoryLinkTest, AVirtualFolderStays) {
  unique_pidl drives;
  ASSERT_TRUE(SUCCEEDED(SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, drives.put())));
  ASSERT_TRUE(WriteShellLink(link_, drives.get()));
  EXPECT_TRUE(ILIsEqual(ResolveDirectoryLink(link_).get(), drives.get()));
}

TEST_F(ResolveDirectoryLinkTest, AWorkingDirectoryThatIsGoneOrAFileGivesTheDesktop) {
  directory_.AddFile(L"model.obj");
  for (const char* const name : {"gone", "model.obj"}) {
    Tx_Set_Environment("TS_WORKING_DIR", Path(name).c_str());
    EXPECT_TRUE(IsDesktop(ResolveDirectoryLink(link_).get())) << name;
  }
  Tx_Set_Environment("TS_WORKING_DIR", nullptr);
  EXPECT_TRUE(IsDesktop(ResolveDirectoryLink(link_).get()));
}

TEST_F(DirectoryLinksTest, FilesOfTheUserAreJoinedBySlashOrBare) {
  SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", directory_.narrow().c_str());
  EXPECT_EQ(UserFilePath(nullptr, "x.lnk"), directory_.narrow() + "/x.lnk");
  directory_.AddFile(L"file", "no directory");
  SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", directory_.Join(std::string_view("file\\below")).c_str());
  EXPECT_EQ(UserFilePath(nullptr, "x.lnk"), "x.lnk");
  SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", nullptr);
}

}  // namespace
}  // namespace file_explorer
