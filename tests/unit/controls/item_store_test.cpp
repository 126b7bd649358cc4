#include "workbench/controls/model/item_store.h"

#include <gtest/gtest.h>

namespace controls {
namespace {

ItemFacts File(uint64_t size) {
  ItemFacts facts;
  facts.size = size;
  return facts;
}

TEST(ItemStore, KeepsNamesAndFacts) {
  ItemStore store;
  const ItemId first = store.Add(L"one.txt", File(1));
  ItemFacts folder;
  folder.attributes = kAttributeDirectory | kAttributeHidden;
  const ItemId second = store.Add(L"two", folder);
  EXPECT_EQ(store.name(first), L"one.txt");
  EXPECT_EQ(store.at(first).size, 1u);
  EXPECT_FALSE(store.IsFolder(first));
  EXPECT_TRUE(store.IsFolder(second));
  EXPECT_TRUE(store.IsDimmed(second));
  EXPECT_EQ(store.size(), 2u);
}

TEST(ItemStore, FindsTheExactSpellingBeforeAnother) {
  ItemStore store;
  const ItemId lower = store.Add(L"readme", File(0));
  const ItemId upper = store.Add(L"README", File(0));
  EXPECT_EQ(store.Find(L"README"), upper);
  EXPECT_EQ(store.Find(L"readme"), lower);
  EXPECT_NE(store.Find(L"ReadMe"), kNoItem);
  EXPECT_EQ(store.Find(L"readme2"), kNoItem);
}

TEST(ItemStore, FindsNamesThatWereAddedAfterTheFirstSearch) {
  ItemStore store;
  EXPECT_EQ(store.Find(L"a0"), kNoItem);
  for (int i = 0; i < 1000; ++i) store.Add(L"a" + std::to_wstring(i), File(0));
  for (int i = 0; i < 1000; ++i) EXPECT_EQ(store.Find(L"A" + std::to_wstring(i)), static_cast<ItemId>(i));
}

TEST(ItemStore, ItemsThatAreGoneAreNotFound) {
  ItemStore store;
  const ItemId id = store.Add(L"a", File(0));
  store.at(id).flags |= kItemGone;
  EXPECT_EQ(store.Find(L"a"), kNoItem);
  const ItemId again = store.Add(L"a", File(7));
  EXPECT_EQ(store.Find(L"a"), again);
}

TEST(ItemStore, AnItemCostsItsRecordAndItsName) {
  ItemStore store;
  for (int i = 0; i < 10000; ++i) store.Add(L"model_with_a_name.obj", File(0));
  // Vectors that double may hold twice of what is used.
  EXPECT_LE(store.BytesUsed(), 2 * 10000 * (sizeof(ItemRecord) + 21 * sizeof(wchar_t)));
  EXPECT_LE(sizeof(ItemRecord), 40u);
}

}  // namespace
}  // namespace controls
