#include "src/history/row_thumbnails.h"

#include <gtest/gtest.h>

#include <map>

namespace file_explorer {
namespace {

class RowThumbnailsTest : public testing::Test {
 protected:
  static HistoryEntry Entry(const std::string& path) {
    HistoryEntry entry;
    entry.fullPath = path;
    return entry;
  }
  RowThumbnails::Source Source() {
    return {[this](const HistoryEntry& entry) -> std::optional<preview::Preview> {
              ++made[entry.fullPath];
              now += cost;
              if (!hasPreviews) return std::nullopt;
              return preview::Preview{{1, 1, {0xFFFFFFFF}}, false};
            },
            [this](const std::string&) {
              ++looks;
              return stamp;
            },
            [this] { return now; }};
  }

  std::map<std::string, int> made;
  std::uint64_t now = 5000;
  std::uint64_t stamp = 1;
  std::uint64_t cost = 1;
  int looks = 0;
  bool hasPreviews = true;
  RowThumbnails thumbnails{Source(), FoldAsciiCase};
};

TEST_F(RowThumbnailsTest, AreMadeOnceForAPathInLettersOfAnyCase) {
  EXPECT_NE(thumbnails.Of(Entry("C:\\a.obj")).preview, nullptr);
  EXPECT_NE(thumbnails.Of(Entry("c:\\A.OBJ")).preview, nullptr);
  EXPECT_EQ(made["C:\\a.obj"], 1);
  EXPECT_EQ(made.size(), 1U);
}

TEST_F(RowThumbnailsTest, ThatThereIsNoneIsKeptToo) {
  hasPreviews = false;
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(thumbnails.Of(Entry("a")).preview, nullptr);
    EXPECT_FALSE(thumbnails.Of(Entry("a")).isLater);
  }
  EXPECT_EQ(made["a"], 1);
}

TEST_F(RowThumbnailsTest, AnEntryWithoutAFileHasNone) {
  EXPECT_EQ(thumbnails.Of(HistoryEntry()).preview, nullptr);
  EXPECT_TRUE(made.empty());
}

TEST_F(RowThumbnailsTest, AreMadeAnewWhenTheFileHasChanged) {
  thumbnails.Of(Entry("a"));
  stamp = 2;
  thumbnails.Of(Entry("a"));
  EXPECT_EQ(made["a"], 1);  // not looked at so soon
  now += RowThumbnails::kLookEveryMs;
  thumbnails.Of(Entry("a"));
  EXPECT_EQ(made["a"], 2);
  now += RowThumbnails::kLookEveryMs;
  thumbnails.Of(Entry("a"));
  EXPECT_EQ(made["a"], 2);
}

TEST_F(RowThumbnailsTest, AFileIsNotLookedAtInEveryPainting) {
  for (int i = 0; i < 100; ++i) thumbnails.Of(Entry("a"));
  EXPECT_EQ(looks, 1);
}

TEST_F(RowThumbnailsTest, APaintingThatHasTakenItsTimeLeavesTheRestForLater) {
  cost = RowThumbnails::kPaintingMs;
  EXPECT_NE(thumbnails.Of(Entry("a")).preview, nullptr);
  EXPECT_TRUE(thumbnails.Of(Entry("b")).isLater);
  EXPECT_EQ(made.count("b"), 0U);
  EXPECT_NE(thumbnails.Of(Entry("a")).preview, nullptr);  // what is there costs nothing
  thumbnails.BeginPainting();
  EXPECT_NE(thumbnails.Of(Entry("b")).preview, nullptr);
}

TEST_F(RowThumbnailsTest, TheirNumberIsBoundedAndTheOldestGoes) {
  cost = 0;
  for (std::size_t i = 0; i <= RowThumbnails::kMostKept; ++i) {
    thumbnails.Of(Entry(std::to_string(i)));
    thumbnails.Of(Entry("0"));
  }
  thumbnails.Of(Entry("0"));
  EXPECT_EQ(made["0"], 1);
  thumbnails.Of(Entry("1"));
  EXPECT_EQ(made["1"], 2);
}

TEST_F(RowThumbnailsTest, GoWithTheirEntries) {
  thumbnails.Of(Entry("a"));
  thumbnails.Clear();
  thumbnails.Of(Entry("a"));
  EXPECT_EQ(made["a"], 2);
}

}  // namespace
}  // namespace file_explorer
