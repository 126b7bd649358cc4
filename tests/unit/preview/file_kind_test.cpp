#include "src/preview/file_kind.h"

#include <gtest/gtest.h>

#include "src/preview/model_readers.h"

namespace file_explorer::preview {
namespace {

TEST(FileKind, GoesByTheExtensionInLettersOfAnyCase) {
  for (const char* const name : {"a.obj", "C:\\b\\A.OBJ", "x.Stl", "y.ply", "z.3DS"}) {
    EXPECT_EQ(KindOfFile(name), FileKind::kModel) << name;
  }
  for (const char* const name :
       {"a.png", "a.JPG", "a.b.jpeg", "a.bmp", "a.gif", "a.tif", "a.tiff", "a.ico", "a.tga"}) {
    EXPECT_EQ(KindOfFile(name), FileKind::kPicture) << name;
  }
}

TEST(FileKind, EveryOtherFileHasNone) {
  for (const char* const name :
       {"", "obj", "a", "a.", "a.objx", "a.ob", "folder.obj\\file", "a.txt", "a.zip", "a.png/b"}) {
    EXPECT_EQ(KindOfFile(name), FileKind::kNone) << name;
  }
}

TEST(FileKind, EachModelHasItsReader) {
  EXPECT_EQ(ReaderForExtension("OBJ"), &ReadObj);
  EXPECT_EQ(ReaderForExtension("stl"), &ReadStl);
  EXPECT_EQ(ReaderForExtension("ply"), &ReadPly);
  EXPECT_EQ(ReaderForExtension("3ds"), &Read3ds);
  EXPECT_EQ(ReaderForExtension(""), nullptr);
}

}  // namespace
}  // namespace file_explorer::preview
