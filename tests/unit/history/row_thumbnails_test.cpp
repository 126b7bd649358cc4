#include "src/history/row_thumbnails.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <utility>

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

  // What the row of a path shows once what it wants is made.
  const preview::Preview* Shown(const std::string& path) {
    thumbnails.BeginPainting();
    if (thumbnails.Of(Entry(path)).isLater) thumbnails.MakeWanted();
    return thumbnails.Of(Entry(path)).preview;
  }

  std::map<std::string, int> made;
  std::uint64_t now = 5000;
  std::uint64_t stamp = 1;
  std::uint64_t cost = 1;
  int looks = 0;
  bool hasPreviews = true;
  RowThumbnails thumbnails{Source(), FoldAsciiCase};
};

TEST_F(RowThumbnailsTest, PaintingMakesNothingAndAsksNoDisk) {
  const RowThumbnails::Answer answer = thumbnails.Of(Entry("C:\\a.obj"));
  EXPECT_EQ(answer.preview, nullptr);
  EXPECT_TRUE(answer.isLater);
  EXPECT_TRUE(made.empty());
  EXPECT_EQ(looks, 0);
  EXPECT_TRUE(thumbnails.MakeWanted());
  EXPECT_EQ(made["C:\\a.obj"], 1);
  EXPECT_NE(thumbnails.Of(Entry("C:\\a.obj")).preview, nullptr);
}

TEST_F(RowThumbnailsTest, AreMadeOnceForAPathInLettersOfAnyCase) {
  EXPECT_NE(Shown("C:\\a.obj"), nullptr);
  EXPECT_NE(Shown("c:\\A.OBJ"), nullptr);
  EXPECT_EQ(made["C:\\a.obj"], 1);
  EXPECT_EQ(made.size(), 1U);
}

TEST_F(RowThumbnailsTest, ThatThereIsNoneIsKeptToo) {
  hasPreviews = false;
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(Shown("a"), nullptr);
    EXPECT_FALSE(thumbnails.Of(Entry("a")).isLater);
  }
  EXPECT_EQ(made["a"], 1);
}

TEST_F(RowThumbnailsTest, AnEntryWithoutAFileHasNone) {
  EXPECT_EQ(thumbnails.Of(HistoryEntry()).preview, nullptr);
  EXPECT_FALSE(thumbnails.MakeWanted());
  EXPECT_TRUE(made.empty());
}

TEST_F(RowThumbnailsTest, AreMadeAgainWhenTheFileHasChangedAndShowTheOldOneUntilThen) {
  Shown("a");
  stamp = 2;
  Shown("a");
  EXPECT_EQ(made["a"], 1) << "not looked at so soon";
  now += RowThumbnails::kLookEveryMs;
  EXPECT_NE(thumbnails.Of(Entry("a")).preview, nullptr) << "the old one";
  EXPECT_EQ(made["a"], 1);
  EXPECT_TRUE(thumbnails.MakeWanted());
  EXPECT_EQ(made["a"], 2);
  now += RowThumbnails::kLookEveryMs;
  Shown("a");
  EXPECT_EQ(made["a"], 2);
}

TEST_F(RowThumbnailsTest, AFileIsNotLookedAtInEveryPainting) {
  for (int i = 0; i < 100; ++i) Shown("a");
  EXPECT_EQ(looks, 1);
}

TEST_F(RowThumbnailsTest, OneIsMadeAtATimeInTheOrderOfTheRows) {
  for (const char* const path : {"a", "b", "c"}) thumbnails.Of(Entry(path));
  EXPECT_TRUE(thumbnails.MakeWanted());
  EXPECT_EQ(made, (std::map<std::string, int>{{"a", 1}}));
  EXPECT_FALSE(thumbnails.MakeWanted()) << "the others ask again when they are painted";
  for (const char* const path : {"a", "b", "c"}) thumbnails.Of(Entry(path));
  EXPECT_TRUE(thumbnails.MakeWanted());
  EXPECT_EQ(made, (std::map<std::string, int>{{"a", 1}, {"b", 1}}));
}

TEST_F(RowThumbnailsTest, WhatIsNoLongerInSightIsNotMade) {
  thumbnails.Of(Entry("a"));
  thumbnails.BeginPainting();
  thumbnails.Of(Entry("b"));
  EXPECT_TRUE(thumbnails.MakeWanted());
  EXPECT_EQ(made, (std::map<std::string, int>{{"b", 1}}));
}

TEST_F(RowThumbnailsTest, TheirNumberIsBoundedAndTheOldestGoes) {
  cost = 0;
  for (std::size_t i = 0; i <= RowThumbnails::kMostKept; ++i) {
    Shown(std::to_string(i));
    Shown("0");
  }
  Shown("0");
  EXPECT_EQ(made["0"], 1);
  Shown("1");
  EXPECT_EQ(made["1"], 2);
}

// A shell extension may handle messages, and the host may take the view down in one of them.
TEST_F(RowThumbnailsTest, MayGoWhileOneIsMade) {
  std::unique_ptr<RowThumbnails> going;
  RowThumbnails::Source source = Source();
  source.make = [&going](const HistoryEntry&) -> std::optional<preview::Preview> {
    going.reset();
    return std::nullopt;
  };
  going = std::make_unique<RowThumbnails>(std::move(source), FoldAsciiCase);
  going->Of(Entry("a"));
  EXPECT_FALSE(going->MakeWanted());
  EXPECT_FALSE(going);
}

TEST_F(RowThumbnailsTest, GoWithTheirEntries) {
  Shown("a");
  thumbnails.Of(Entry("b"));
  thumbnails.Clear();
  EXPECT_FALSE(thumbnails.MakeWanted());
  Shown("a");
  EXPECT_EQ(made["a"], 2);
}

}  // namespace
}  // namespace file_explorer
