#include "workbench/tx/path_text.h"

#include <gtest/gtest.h>

#include "workbench/tx/text.h"

namespace workbench::tx {
namespace {

// As in the Japanese code page, where the second byte of a character can be a backslash.
bool IsJapaneseLeadByte(unsigned char byte) {
  return (byte >= 0x81 && byte <= 0x9F) || byte >= 0xE0;
}
constexpr char kSo[] = "\x83\x5C";  // one character of two bytes

TEST(JoinPath, PutsOneSeparatorBetween) {
  EXPECT_EQ(JoinPath("c:", "textures"), "c:\\textures");
  EXPECT_EQ(JoinPath("c:\\a", "b.txt"), "c:\\a\\b.txt");
  EXPECT_EQ(JoinPath("c:\\a\\", "b.txt"), "c:\\a\\b.txt");
  EXPECT_EQ(JoinPath("c:/a/", "b.txt"), "c:/a/b.txt");
  EXPECT_EQ(JoinPath("c:\\a\\", "\\b.txt"), "c:\\a\\b.txt");
  EXPECT_EQ(JoinPath("c:\\a", "/b.txt"), "c:\\a/b.txt");
}

TEST(JoinPath, AnEmptyNameLeavesTheFolderWithASeparator) {
  EXPECT_EQ(JoinPath("c:\\a", ""), "c:\\a\\");
  EXPECT_EQ(JoinPath("c:\\a\\", ""), "c:\\a\\");
}

TEST(JoinPath, AnEmptyFolderLeavesTheNameAlone) {
  EXPECT_EQ(JoinPath("", "b.txt"), "b.txt");
  EXPECT_EQ(JoinPath("", ""), "");
}

TEST(JoinPath, TheSecondHalfOfACharacterIsNoSeparator) {
  EXPECT_EQ(JoinPath(kSo, "b", IsJapaneseLeadByte), std::string(kSo) + "\\b");
  EXPECT_EQ(JoinPath(kSo, "b"), std::string(kSo) + "b") << "in other code pages it is one";
}

TEST(EndsInPathSeparator, LooksAtTheLastCharacter) {
  EXPECT_TRUE(EndsInPathSeparator("a\\"));
  EXPECT_TRUE(EndsInPathSeparator("a/"));
  EXPECT_FALSE(EndsInPathSeparator("a\\b"));
  EXPECT_FALSE(EndsInPathSeparator("c:"));
  EXPECT_FALSE(EndsInPathSeparator(""));
  EXPECT_FALSE(EndsInPathSeparator(kSo, IsJapaneseLeadByte));
}

TEST(BaseNameAndPath, SplitBehindTheLastSeparatorOrDriveColon) {
  struct Row {
    const char *path, *folder, *name;
  };
  for (const Row& row : {
           Row{"c:\\a\\b.txt", "c:\\a\\", "b.txt"},
           Row{"c:/a\\b/c", "c:/a\\b/", "c"},
           Row{"c:b.txt", "c:", "b.txt"},
           Row{"b.txt", "", "b.txt"},
           Row{"c:\\a\\", "c:\\a\\", ""},
           Row{"\\\\server\\share\\x", "\\\\server\\share\\", "x"},
           Row{"c:\\a\\file.txt:stream", "c:\\a\\", "file.txt:stream"},
           Row{"c:", "c:", ""},
           Row{"", "", ""},
       }) {
    EXPECT_EQ(BaseName(row.path), row.name) << row.path;
    EXPECT_EQ(BasePath(row.path), row.folder) << row.path;
  }
  const std::string japanese = std::string("c:\\") + kSo + ".txt";
  EXPECT_EQ(BaseName(japanese, IsJapaneseLeadByte), std::string(kSo) + ".txt");
}

TEST(Extension, BelongsToTheNameAlone) {
  EXPECT_EQ(Extension("c:\\a.b\\name"), "");
  EXPECT_EQ(Extension("c:\\a\\name.tar.gz"), ".gz");
  EXPECT_EQ(Extension(".profile"), "");
  EXPECT_EQ(Extension("c:\\a\\.profile"), "");
  EXPECT_EQ(Extension(".profile.bak"), ".bak");
  EXPECT_EQ(Extension(".."), "");
  EXPECT_EQ(Extension("..a"), "");
  EXPECT_EQ(Extension("name."), ".");
}

TEST(WithExtension, ReplacesThePathsOwnOrIsPutBehind) {
  EXPECT_EQ(WithExtension("c:\\a\\favorites.dat", ".bak"), "c:\\a\\favorites.bak");
  EXPECT_EQ(WithExtension("favorites.dat", "bak"), "favorites.bak");
  EXPECT_EQ(WithExtension("c:\\a.b\\name", ".bak"), "c:\\a.b\\name.bak");
  EXPECT_EQ(WithExtension(".profile", ".bak"), ".profile.bak");
  EXPECT_EQ(WithExtension("name.tar.gz", ".bak"), "name.tar.bak");
  EXPECT_EQ(WithExtension("name.", ".bak"), "name.bak");
  EXPECT_EQ(WithExtension("", ".bak"), ".bak");
}

TEST(WithExtension, AnEmptyOneTakesThePathsOwnAway) {
  EXPECT_EQ(WithExtension("name.dat", ""), "name");
  EXPECT_EQ(WithExtension("name.dat", "."), "name");
}

TEST(CopyToBuffer, NeedsRoomForTheTerminator) {
  char buffer[4] = "xyz";
  EXPECT_TRUE(CopyToBuffer("abc", buffer, 4));
  EXPECT_STREQ(buffer, "abc");
  EXPECT_FALSE(CopyToBuffer("abcd", buffer, 4));
  EXPECT_STREQ(buffer, "");
  EXPECT_TRUE(CopyToBuffer("", buffer, 1));
  EXPECT_FALSE(CopyToBuffer("", buffer, 0));
  EXPECT_FALSE(CopyToBuffer("", nullptr, 4));
}

}  // namespace
}  // namespace workbench::tx
