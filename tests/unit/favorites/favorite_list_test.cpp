#include "src/favorites/favorite_list.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/unit/favorites/sample_favorites.h"

namespace file_explorer {
namespace {

class FavoriteListTest : public testing::Test {
 protected:
  std::string Shown() const { return Outline(list.topLevel()); }
  FavoriteRecord* AddFolder(const char* name, FavoriteRecord* parent) {
    return list.Add(Folder(name), parent);
  }
  FavoriteRecord* AddReference(const char* name, FavoriteRecord* parent) {
    return list.Add(Reference(name), parent);
  }

  FavoriteList list;
  FavoriteRecord* const root = list.Add(Folder("Favorites", kRootFolderFlags), nullptr);
};

TEST_F(FavoriteListTest, BelowAFolderFoldersComeFirstAndThenNames) {
  AddReference("b.obj", root);
  AddFolder("zoo", root);
  AddReference("A.obj", root);
  AddFolder("Apes", root);
  EXPECT_EQ(Shown(), "Favorites(Apes zoo A.obj b.obj)");
}

TEST_F(FavoriteListTest, AnEntryGoesBehindSiblingsThatCompareEqual) {
  AddReference("Same", root);
  AddReference("SAME", root);
  AddReference("same", root);
  AddReference("a", root);
  EXPECT_EQ(Shown(), "Favorites(a Same SAME same)");
}

TEST_F(FavoriteListTest, TheTopLevelKeepsTheOrderOfArrival) {
  AddReference("z", nullptr);
  AddFolder("a", nullptr);
  AddReference("b", nullptr);
  EXPECT_EQ(Shown(), "Favorites z a b");
}

TEST_F(FavoriteListTest, AfterARenameTheOldPlaceStaysAndNewEntriesGoBeforeTheFirstThatStandsBehindThem) {
  FavoriteRecord* const a = AddReference("a", root);
  AddReference("b", root);
  AddReference("d", root);
  list.SetDisplayName(*a, "x");
  EXPECT_EQ(Shown(), "Favorites(x b d)");
  AddReference("c", root);
  EXPECT_EQ(Shown(), "Favorites(c x b d)");
}

TEST_F(FavoriteListTest, ManyEntriesEndUpSorted) {
  for (int i = 0; i < 3000; ++i) AddReference(std::to_string(i * 7919 % 100003).c_str(), root);
  EXPECT_TRUE(std::is_sorted(root->children.begin(), root->children.end(),
                             [](const auto* a, const auto* b) { return StandsBefore(*a, *b); }));
}

TEST_F(FavoriteListTest, KeysAreFoundWithoutRegardToCaseAndTheFirstWins) {
  auto first = Reference("first");
  first->key = "{ABC}";
  auto second = Reference("second");
  second->key = "{abc}";
  list.Add(std::move(first), root);
  list.Add(std::move(second), root);
  EXPECT_EQ(list.FindByKey("{aBc}")->displayName, "first");
  EXPECT_EQ(list.FindByKey("{none}"), nullptr);
}

TEST_F(FavoriteListTest, PathsAreComparedWithoutRegardToCase) {
  list.Add(Reference("a", "C:\\Models\\A.obj"), root);
  EXPECT_TRUE(list.HasPath("c:\\models\\a.OBJ"));
  EXPECT_FALSE(list.HasPath("c:\\models\\b.obj"));
  EXPECT_FALSE(list.HasPath(""));  // folders have no path
}

TEST_F(FavoriteListTest, Deliberate_ADeletedEntryStaysInTheListWithItsPath) {
  FavoriteRecord* const a = list.Add(Reference("a", "C:\\a"), root);
  list.MarkDeleted(*a);
  EXPECT_EQ(Shown(), "Favorites");
  EXPECT_EQ(list.records().size(), 2u);
  EXPECT_TRUE(list.HasPath("C:\\a"));
}

TEST_F(FavoriteListTest, DeletingAFolderDeletesWhatIsBelowIt) {
  FavoriteRecord* const folder = AddFolder("f", root);
  FavoriteRecord* const inner = AddFolder("g", folder);
  FavoriteRecord* const leaf = AddReference("x", inner);
  list.MarkDeleted(*folder);
  EXPECT_TRUE(inner->isDeleted);
  EXPECT_TRUE(leaf->isDeleted);
  EXPECT_FALSE(root->isDeleted);
}

TEST_F(FavoriteListTest, AnEntryForADeletedFolderGoesToTheTopLevel) {
  FavoriteRecord* const folder = AddFolder("f", root);
  list.MarkDeleted(*folder);
  AddReference("x", folder);
  EXPECT_EQ(Shown(), "Favorites x");
}

TEST_F(FavoriteListTest, AMovedFolderTakesItsSubtreeAndKeepsItsPlaceInTheList) {
  FavoriteRecord* const from = AddFolder("from", root);
  FavoriteRecord* const to = AddFolder("to", root);
  FavoriteRecord* const moved = AddFolder("moved", from);
  AddReference("x", moved);
  AddReference("y", to);
  list.Move(*moved, *to);
  EXPECT_EQ(Shown(), "Favorites(from to(moved(x) y))");
  EXPECT_EQ(list.records()[3].get(), moved);
}

TEST_F(FavoriteListTest, AMovePlacesTheSubtreeBySortingAgain) {
  FavoriteRecord* const folder = AddFolder("folder", root);
  FavoriteRecord* const a = AddReference("a", folder);
  AddReference("b", folder);
  list.SetDisplayName(*a, "z");
  list.Move(*folder, *AddFolder("other", root));
  EXPECT_EQ(Shown(), "Favorites(other(folder(b z)))");
}

TEST_F(FavoriteListTest, ARefusedRecordIsTakenOffAgain) {
  list.Remove(*AddReference("x", root));
  EXPECT_EQ(Shown(), "Favorites");
  EXPECT_EQ(list.FindByKey("key of x"), nullptr);
}

TEST_F(FavoriteListTest, WhatIsBelowARemovedRecordGoesToTheTopLevelAndItsKeyToTheNextOne) {
  FavoriteRecord* const folder = AddFolder("folder", root);
  AddReference("x", folder);
  FavoriteRecord* const other = AddFolder("folder", root);
  list.Remove(*folder);
  EXPECT_EQ(Shown(), "Favorites(folder) x");
  EXPECT_EQ(list.FindByKey("KEY OF FOLDER"), other);
}

TEST_F(FavoriteListTest, SortingAtTheEndOfLoadingGivesTheTreeOfPlacingOneByOne) {
  FavoriteList loaded;
  loaded.BeginLoading();
  FavoriteRecord* const top = loaded.Add(Folder("Favorites", kRootFolderFlags), nullptr);
  FavoriteRecord* folder = top;
  FavoriteRecord* ownFolder = root;
  for (int i = 0; i < 2000; ++i) {
    const std::string name = (i % 3 == 0 ? "Same " : "same ") + std::to_string(i * 7919 % 97);
    FavoriteRecord* const added = loaded.Add(i % 5 == 0 ? Folder(name) : Reference(name), folder);
    FavoriteRecord* const own = list.Add(i % 5 == 0 ? Folder(name) : Reference(name), ownFolder);
    if (i % 50 == 0) {
      folder = added;
      ownFolder = own;
    }
  }
  loaded.EndLoading();
  EXPECT_EQ(Outline(loaded.topLevel()), Shown());
  loaded.Add(Reference("same 5"), top);
  list.Add(Reference("same 5"), root);
  EXPECT_EQ(Outline(loaded.topLevel()), Shown());
}

TEST_F(FavoriteListTest, NothingIsDroppedOntoItselfOrBelowItself) {
  FavoriteRecord* const outer = AddFolder("outer", root);
  FavoriteRecord* const inner = AddFolder("inner", outer);
  EXPECT_FALSE(MayDrop(*outer, outer));
  EXPECT_FALSE(MayDrop(*outer, inner));
  EXPECT_TRUE(MayDrop(*inner, outer));
  EXPECT_TRUE(MayDrop(*outer, root));
}

TEST_F(FavoriteListTest, OnlyFoldersThatAcceptDropsTakeThem) {
  FavoriteRecord* const closed = list.Add(Folder("closed", kFavoriteFolder), root);
  auto odd = Reference("odd");
  odd->flags = kFavoriteAcceptsDrop;
  FavoriteRecord* const reference = list.Add(std::move(odd), root);
  FavoriteRecord* const dragged = AddReference("dragged", root);
  EXPECT_FALSE(MayDrop(*dragged, closed));
  EXPECT_FALSE(MayDrop(*dragged, reference));
  EXPECT_FALSE(MayDrop(*dragged, nullptr));
}

TEST_F(FavoriteListTest, ADropOnAReferenceGoesToItsFolder) {
  FavoriteRecord* const folder = AddFolder("f", root);
  EXPECT_EQ(DropFolder(AddReference("x", folder)), folder);
  EXPECT_EQ(DropFolder(folder), folder);
  EXPECT_EQ(DropFolder(AddReference("alone", nullptr)), nullptr);
  EXPECT_EQ(DropFolder(nullptr), nullptr);
}

}  // namespace
}  // namespace file_explorer
