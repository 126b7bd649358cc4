#include "src/explorer/directory_path.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

TEST(DirectoryPath, SeparatorsAndDrivesStandForThemselves) {
  for (const char* const path : {"\\\\server\\share", "\\textures", "/textures", "c:\\textures", "c:", "c:textures"}) {
    EXPECT_TRUE(IsAbsolutePath(path)) << path;
  }
}

TEST(DirectoryPath, EverythingElseIsRelative) {
  for (const char* const path : {"textures", "..\\textures", "", "t", ".", "textures:c"}) {
    EXPECT_FALSE(IsAbsolutePath(path)) << path;
  }
}

TEST(NameOfPath, IsWhatStandsBehindTheLastSeparator) {
  EXPECT_STREQ(NameOfPath("c:\\objects\\tree.obj"), "tree.obj");
  EXPECT_STREQ(NameOfPath("c:/objects\\a/tree.obj"), "tree.obj");
  EXPECT_STREQ(NameOfPath("c:tree.obj"), "tree.obj");
  EXPECT_STREQ(NameOfPath("tree.obj"), "tree.obj");
  EXPECT_STREQ(NameOfPath("c:\\objects\\"), "");
  EXPECT_STREQ(NameOfPath(""), "");
}

// As in a Japanese code page, where the second byte of some letters is that of a backslash.
TEST(NameOfPath, TheSecondByteOfALetterIsNoSeparator) {
  const auto isLeadByte = [](unsigned char byte) { return byte >= 0x81 && byte <= 0x9F; };
  EXPECT_STREQ(NameOfPath("c:\\objects\\\x95\x5C.obj", isLeadByte), "\x95\x5C.obj");
  EXPECT_STREQ(NameOfPath("c:\\\x83\x5C\\\x95\x5C", isLeadByte), "\x95\x5C");
  EXPECT_STREQ(NameOfPath("c:\\\x83\x5C\\a.obj", isLeadByte), "a.obj");
  EXPECT_STREQ(NameOfPath("c:\\a\x95", isLeadByte), "a\x95") << "half a letter at the end";
}

}  // namespace
}  // namespace file_explorer
