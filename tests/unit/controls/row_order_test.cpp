#include "workbench/controls/model/row_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace controls {
namespace {

using testing::ElementsAre;

class Rows : public testing::Test {
 protected:
  ItemId Add(const wchar_t* name, uint64_t size = 0, uint64_t modified = 0, bool folder = false,
             uint32_t type = 0) {
    ItemFacts facts;
    facts.size = size;
    facts.modified = modified;
    facts.attributes = folder ? kAttributeDirectory : 0;
    const ItemId id = store_.Add(name, facts);
    store_.at(id).type = type;
    return id;
  }
  OwnOrder Order(SortColumn column, bool descending = false) {
    return OwnOrder(store_, {column, descending}, &ranks_);
  }
  std::vector<std::wstring> Names() const {
    std::vector<std::wstring> names;
    for (const ItemId id : rows_.rows()) names.emplace_back(store_.name(id));
    return names;
  }

  ItemStore store_;
  RowOrder rows_;
  std::vector<uint32_t> ranks_;
};

TEST_F(Rows, FoldersStandFirstInBothDirections) {
  rows_.Merge({Add(L"b"), Add(L"a"), Add(L"z", 0, 0, true), Add(L"y", 0, 0, true)}, Order(SortColumn::kName));
  EXPECT_THAT(Names(), ElementsAre(L"y", L"z", L"a", L"b"));
  rows_.Sort(Order(SortColumn::kName, true));
  EXPECT_THAT(Names(), ElementsAre(L"z", L"y", L"b", L"a"));
}

TEST_F(Rows, EqualValuesFollowTheName) {
  rows_.Merge({Add(L"b", 5), Add(L"a", 5), Add(L"c", 1)}, Order(SortColumn::kSize));
  EXPECT_THAT(Names(), ElementsAre(L"c", L"a", L"b"));
}

TEST_F(Rows, TypesFollowTheRankOfTheirNames) {
  ranks_ = {2, 0, 1};
  rows_.Merge({Add(L"x", 0, 0, false, 0), Add(L"y", 0, 0, false, 1), Add(L"z", 0, 0, false, 2)},
              Order(SortColumn::kType));
  EXPECT_THAT(Names(), ElementsAre(L"y", L"z", L"x"));
}

TEST_F(Rows, LaterArrivalsAreMergedIntoTheirPlaces) {
  rows_.Merge({Add(L"b"), Add(L"d")}, Order(SortColumn::kName));
  rows_.Merge({Add(L"e"), Add(L"a"), Add(L"c")}, Order(SortColumn::kName));
  EXPECT_THAT(Names(), ElementsAre(L"a", L"b", L"c", L"d", L"e"));
}

TEST_F(Rows, RowOfFollowsEveryChange) {
  const ItemId b = Add(L"b");
  const ItemId a = Add(L"a");
  rows_.Merge({b}, Order(SortColumn::kName));
  EXPECT_EQ(rows_.RowOf(b), 0);
  EXPECT_EQ(rows_.RowOf(a), -1);
  rows_.Merge({a}, Order(SortColumn::kName));
  EXPECT_EQ(rows_.RowOf(b), 1);
  EXPECT_TRUE(rows_.RemoveIf([a](ItemId id) { return id == a; }));
  EXPECT_EQ(rows_.RowOf(a), -1);
  EXPECT_EQ(rows_.RowOf(b), 0);
  EXPECT_FALSE(rows_.RemoveIf([a](ItemId id) { return id == a; }));
  rows_.Clear();
  EXPECT_EQ(rows_.RowOf(b), -1);
}

}  // namespace
}  // namespace controls
