#include "src/shellhost/property_list.h"

#include <gtest/gtest.h>

#include "src/framework/com/com_dispatch.h"
#include "src/framework/com/com_text.h"
#include "src/shellhost/property_bag.h"
#include "tests/integration/shellhost/hosting_fixture.h"

namespace file_explorer {
namespace {

VARIANT Borrowed(const UniqueBstr& text) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_BSTR;
  value.bstrVal = text.get();
  return value;
}

TEST(PropertyLists, KeepTheOrderOfTheirEntries) {
  PropertyList list = ListWith(L"First", 1);
  list.Append(L"Second", NumberVariant(2));
  list.Append(L"First", NumberVariant(3));
  ASSERT_EQ(list.entries().size(), 3u);
  EXPECT_STREQ(list.entries()[2].name.get(), L"First");
  EXPECT_EQ(list.Find(L"FIRST")->value->lVal, 1);
  list.Clear();
  EXPECT_TRUE(list.empty());
}

TEST(PropertyLists, ACopyOwnsNamesAndValuesOfItsOwn) {
  const UniqueBstr text = MakeBstr("text");
  PropertyList list;
  list.Append(L"Name", Borrowed(text));
  PropertyList copy(list);
  PropertyList assigned;
  assigned = list;
  ASSERT_EQ(copy.entries().size(), 1u);
  EXPECT_NE(copy.entries()[0].name.get(), list.entries()[0].name.get());
  EXPECT_NE(copy.entries()[0].value->bstrVal, list.entries()[0].value->bstrVal);
  EXPECT_NE(list.entries()[0].value->bstrVal, text.get());
  list.Clear();
  EXPECT_STREQ(copy.entries()[0].value->bstrVal, L"text");
  EXPECT_STREQ(assigned.entries()[0].value->bstrVal, L"text");
}

TEST(PropertyLists, AValueThatCannotBeCopiedLeavesTheListAsItWas) {
  PropertyList list = ListWith(L"Name", 1);
  VARIANT bad;
  VariantInit(&bad);
  bad.vt = 0x0FFF;
  EXPECT_THROW(list.Append(L"Bad", bad), _com_error);
  EXPECT_EQ(list.entries().size(), 1u);
}

TEST(PropertyLists, ReleaseTheObjectsThatTheyHold) {
  const LONG before = LiveComObjects();
  {
    auto item = CComObject<ScriptedItem>::New();
    VARIANT value;
    VariantInit(&value);
    value.vt = VT_DISPATCH;
    value.pdispVal = item.Get();
    PropertyList list;
    list.Append(L"Object", value);
    const PropertyList copy(list);
    list.Clear();
  }
  EXPECT_EQ(LiveComObjects(), before);
}

class PropertyBag : public testing::Test {
 protected:
  ComPtr<CComObject<CPropertyBag>> bag_ = CComObject<CPropertyBag>::New();
};

TEST_F(PropertyBag, FindsANameInAnyCase) {
  VARIANT value = NumberVariant(5);
  EXPECT_EQ(bag_->Write(L"BackColor", &value), S_OK);
  OwnedVariant read;
  EXPECT_EQ(bag_->Read(L"BACKcolor", read.put(), nullptr), S_OK);
  EXPECT_EQ(read->vt, VT_I4);
  EXPECT_EQ(read->lVal, 5);
}

TEST_F(PropertyBag, WritingANameAgainInAnotherCaseReplacesItsValue) {
  VARIANT value = NumberVariant(5);
  bag_->Write(L"Name", &value);
  value.lVal = 6;
  EXPECT_EQ(bag_->Write(L"NAME", &value), S_OK);
  OwnedVariant read;
  bag_->Read(L"name", read.put(), nullptr);
  EXPECT_EQ(read->lVal, 6);
}

TEST_F(PropertyBag, AnUnknownNameIsAnInvalidArgumentAndEmptiesTheValue) {
  VARIANT value = NumberVariant(9);
  EXPECT_EQ(bag_->Read(L"Nothing", &value, nullptr), E_INVALIDARG);
  EXPECT_EQ(value.vt, VT_EMPTY);
}

TEST_F(PropertyBag, NullArgumentsAreInvalid) {
  VARIANT value = NumberVariant(1);
  EXPECT_EQ(bag_->Read(nullptr, &value, nullptr), E_INVALIDARG);
  EXPECT_EQ(bag_->Read(L"Name", nullptr, nullptr), E_INVALIDARG);
  EXPECT_EQ(bag_->Write(nullptr, &value), E_INVALIDARG);
  EXPECT_EQ(bag_->Write(L"Name", nullptr), E_INVALIDARG);
  EXPECT_EQ(value.lVal, 1);
}

TEST_F(PropertyBag, AnObjectReadsAsAnEmptyValueWithSuccess) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_UNKNOWN;
  value.punkVal = static_cast<IPropertyBag*>(bag_.Get());
  auto other = CComObject<CPropertyBag>::New();
  ASSERT_EQ(other->Write(L"Object", &value), S_OK);
  VARIANT read = NumberVariant(3);
  EXPECT_EQ(other->Read(L"object", &read, nullptr), S_OK);
  EXPECT_EQ(read.vt, VT_EMPTY);
}

TEST_F(PropertyBag, AValueThatCannotBeCopiedIsRefused) {
  VARIANT bad;
  VariantInit(&bad);
  bad.vt = 0x0FFF;
  EXPECT_TRUE(FAILED(bag_->Write(L"Bad", &bad)));
  VARIANT good = NumberVariant(1);
  bag_->Write(L"Good", &good);
  EXPECT_TRUE(FAILED(bag_->Write(L"Good", &bad)));
  OwnedVariant read;
  EXPECT_EQ(bag_->Read(L"Good", read.put(), nullptr), S_OK);
  EXPECT_EQ(read->lVal, 1);
}

TEST_F(PropertyBag, TheErrorLogIsIgnored) {
  auto log = CComObject<CErrorLog>::New();
  VARIANT value;
  EXPECT_EQ(bag_->Read(L"Nothing", &value, log.Get()), E_INVALIDARG);
  EXPECT_EQ(log->AddError(L"Name", nullptr), S_OK);
  EXPECT_EQ(log->AddError(nullptr, nullptr), S_OK);
}

}  // namespace
}  // namespace file_explorer
