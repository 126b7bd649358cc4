#include "workbench/app/documents/content_kind.h"

#include <gtest/gtest.h>

#include <string>

namespace workbench {
namespace {

using namespace std::string_literals;

TEST(ContentKind, KnowsPicturesByNameAndByContent) {
  EXPECT_TRUE(IsPictureName("a.PNG"));
  EXPECT_TRUE(IsPictureName("photo.jpeg"));
  EXPECT_FALSE(IsPictureName("a.obj"));
  EXPECT_FALSE(IsPictureName("png"));
  EXPECT_TRUE(IsPictureContent("\x89PNG\r\n\x1A\nrest"s));
  EXPECT_TRUE(IsPictureContent("\xFF\xD8\xFF\xE0"s));
  EXPECT_TRUE(IsPictureContent("GIF89a"s));
  EXPECT_TRUE(IsPictureContent("II*\0"s));
  EXPECT_FALSE(IsPictureContent("II*"s)) << "the fourth byte belongs to the sign";
  EXPECT_FALSE(IsPictureContent(""));
}

TEST(ContentKind, ShowsAsTextWhatReadsAsText) {
  EXPECT_TRUE(IsTextFile("cube.obj", "v 0 0 0\nf 1 2 3\n"));
  EXPECT_TRUE(IsTextFile("README", "Hello\n"));
  EXPECT_FALSE(IsTextFile("cube.3ds", "MM\0\0\x01"s));
  EXPECT_TRUE(IsTextFile("utf16.txt", "\xFF\xFEh\0i\0"s));
}

TEST(ContentKind, TakesAnEmptyFileAsTextByItsNameOnly) {
  EXPECT_TRUE(IsTextFile("empty.txt", ""));
  EXPECT_FALSE(IsTextFile("empty.xyz", ""));
  EXPECT_FALSE(IsTextFile("empty.docx", ""));
}

TEST(ContentKind, TrustsTheNameOfAPlainTextWithAFewControlCharacters) {
  const std::string odd = "\x01\x02\x03 text";
  EXPECT_TRUE(IsTextFile("a.log", odd));
  EXPECT_FALSE(IsTextFile("a.dat", odd));
  EXPECT_FALSE(IsTextFile("a.log", "a\0b\xFF"s));
}

}  // namespace
}  // namespace workbench
