#include <gtest/gtest.h>

#include "tests/unit/favorites/sample_favorites.h"

namespace file_explorer {
namespace {

class FavoritesReaderTest : public testing::Test {
 protected:
  std::string Read(std::string_view text) {
    list.Clear();
    ReadText(list, text);
    return Outline(list.topLevel());
  }
  const FavoriteRecord& First() const { return *list.records().front(); }

  FavoriteList list;
};

TEST_F(FavoritesReaderTest, ReadsAllFields) {
  EXPECT_EQ(Read("K={1}\ns=49\ni=0\nd=Favorites\nE\nK={2}\ns=4\ni=1\nd=a.obj\nn=C:\\a.obj\np={1}\n"),
            "Favorites(a.obj)");
  const FavoriteRecord& reference = *list.records()[1];
  EXPECT_EQ(reference.key, "{2}");
  EXPECT_EQ(reference.path, "C:\\a.obj");
  EXPECT_EQ(reference.flags, 4);
  EXPECT_EQ(reference.imageIndex, 1);
}

TEST_F(FavoritesReaderTest, LineEndsOfBothKindsAreTheSame) {
  EXPECT_EQ(Read("K={1}\r\ns=49\r\nd=Favorites\r\nE\r\nK={2}\r\nd=x\r\np={1}\r\n"), "Favorites(x)");
  EXPECT_EQ(First().key, "{1}");
}

TEST_F(FavoritesReaderTest, ParentsAreFoundWithoutRegardToCase) {
  EXPECT_EQ(Read("K={abc}\ns=1\nd=f\nE\nK={2}\nd=x\np={ABC}\n"), "f(x)");
}

TEST_F(FavoritesReaderTest, AnUnknownParentMeansTheTopLevel) {
  EXPECT_EQ(Read("K={2}\nd=x\np={nobody}\n"), "x");
}

TEST_F(FavoritesReaderTest, ChildrenFindTheFirstOfTwoEqualKeys) {
  EXPECT_EQ(Read("K={1}\ns=1\nd=one\nE\nK={1}\ns=1\nd=two\nE\nK={3}\nd=x\np={1}\n"), "one(x) two");
}

TEST_F(FavoritesReaderTest, ARecordThatIsNeverClosedIsNotTaken) {
  EXPECT_EQ(Read("K={1}\nd=lost\nK={2}\nd=kept\nE\nK={3}\nd=lost too\n"), "kept");
  EXPECT_EQ(list.records().size(), 1u);
}

TEST_F(FavoritesReaderTest, FieldsWithoutARecordAreIgnored) {
  EXPECT_EQ(Read("s=1\nd=nobody\nE\np={1}\nK={2}\nd=x\nE\nd=y\nE\n"), "x");
}

TEST_F(FavoritesReaderTest, UnknownAndEmptyLinesAreIgnored) {
  EXPECT_EQ(Read("\n# comment\nversion=2\nK={1}\n\nx=5\nd=a\nE\n"), "a");
}

TEST_F(FavoritesReaderTest, NumbersStopAtTheFirstOtherCharacter) {
  Read("K={1}\ns=  21abc\ni=-3\nd=a\nE\n");
  EXPECT_EQ(First().flags, 21);
  EXPECT_EQ(First().imageIndex, -3);
  Read("K={1}\ns=x\ni=\nd=a\nE\n");
  EXPECT_EQ(First().flags, 0);
  EXPECT_EQ(First().imageIndex, 0);
  Read("K={1}\ns=99999999999999999999\ni=-99999999999999999999\nE\n");
  EXPECT_EQ(First().flags, 2147483647);
  EXPECT_EQ(First().imageIndex, -2147483647 - 1);
}

TEST_F(FavoritesReaderTest, UnknownFlagsAreKept) {
  Read("K={1}\ns=1029\nd=a\nE\n");
  EXPECT_NE(FavoriteLines(First(), nullptr).find("s=1029\n"), std::string::npos);
}

TEST_F(FavoritesReaderTest, AMissingNameIsAnEmptyLabel) {
  EXPECT_EQ(Read("K={1}\ns=1\nE\n"), "");
  EXPECT_EQ(list.topLevel().size(), 1u);
}

TEST_F(FavoritesReaderTest, ALineOfOneLetterHasAnEmptyValue) {
  Read("K={1}\nd=name\nd\ns\nE\n");
  EXPECT_EQ(First().displayName, "");
}

TEST_F(FavoritesReaderTest, ATopLevelLineWithAValueIsStillOne) {
  EXPECT_EQ(Read("K={1}\nd=x\nE=whatever\n"), "x");
}

}  // namespace
}  // namespace file_explorer
