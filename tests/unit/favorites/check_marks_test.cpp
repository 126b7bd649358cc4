#include "src/favorites/check_marks.h"

#include <gtest/gtest.h>

#include "tests/unit/favorites/sample_favorites.h"

namespace file_explorer {
namespace {

class CheckMarksTest : public testing::Test {
 protected:
  FavoriteList list;
  FavoriteRecord* const root = list.Add(Folder("root"), nullptr);
  FavoriteRecord* const inner = list.Add(Folder("inner"), root);
  FavoriteRecord* const a = list.Add(Reference("a"), inner);
  FavoriteRecord* const b = list.Add(Reference("b"), inner);
  FavoriteRecord* const empty = list.Add(Folder("empty"), root);
};

TEST_F(CheckMarksTest, AFolderGivesItsStateToEverythingBelowIt) {
  ToggleCheckMark(list, *root, true);
  for (const auto& record : list.records()) EXPECT_TRUE(record->Has(kFavoriteChecked)) << record->displayName;
  ToggleCheckMark(list, *root, true);
  for (const auto& record : list.records())
    EXPECT_FALSE(record->Has(kFavoriteChecked)) << record->displayName;
}

TEST_F(CheckMarksTest, AFolderIsCheckedWhenAllItsChildrenAre) {
  ToggleCheckMark(list, *a, true);
  EXPECT_FALSE(inner->Has(kFavoriteChecked));
  ToggleCheckMark(list, *b, true);
  EXPECT_TRUE(inner->Has(kFavoriteChecked));
  EXPECT_FALSE(root->Has(kFavoriteChecked));
  ToggleCheckMark(list, *empty, true);
  EXPECT_TRUE(root->Has(kFavoriteChecked));
}

TEST_F(CheckMarksTest, WithoutSyncFoldersStayAsTheyAre) {
  ToggleCheckMark(list, *a, false);
  ToggleCheckMark(list, *b, false);
  EXPECT_FALSE(inner->Has(kFavoriteChecked));
}

TEST_F(CheckMarksTest, OtherFlagsStay) {
  ToggleCheckMark(list, *a, true);
  EXPECT_EQ(a->flags, kReferenceFlags | kFavoriteChecked);
  ToggleCheckMark(list, *a, true);
  EXPECT_EQ(a->flags, kReferenceFlags);
}

}  // namespace
}  // namespace file_explorer
