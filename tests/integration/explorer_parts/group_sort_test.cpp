// The keys and comparisons of grouped sorting, against a scripted control and items.
#include "src/explorer/group_sort.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>
#include <shobjidl.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "src/host/vc64_tx.h"
#include "tests/support/scripted_control.h"

namespace file_explorer {
namespace {

using test_support::ScriptedItem;

using Item = ComPtr<CComObject<ScriptedItem>>;

Item NewItem(const std::wstring& name, LONG key, ULONG attributes = SFGAO_FILESYSTEM) {
  const Item item = CComObject<ScriptedItem>::New();
  item->name = name;
  item->sortKey = key;
  item->attributes = attributes;
  return item;
}

constexpr ULONG kFolder = SFGAO_FILESYSTEM | SFGAO_FOLDER;
constexpr LONG kUntouched = 77;

LONG Compare(GroupSort& sort, const Item& first, const Item& second) {
  LONG order = kUntouched;
  sort.Compare(first.Get(), second.Get(), &order);
  return order;
}

LONG Compare(const Item& first, const Item& second) {
  GroupSort sort;
  return Compare(sort, first, second);
}

TEST(GroupSortCompare, FoldersFirstThenKeysThenNames) {
  const Item folder = NewItem(L"c:\\z", 0, kFolder);
  const Item bitmap = NewItem(L"c:\\z.bmp", 2);
  const Item object = NewItem(L"c:\\a.obj", 4);
  const Item objectToo = NewItem(L"c:\\B.OBJ", 4);
  const Item unknown = NewItem(L"c:\\a.xyz", 32767);
  EXPECT_EQ(Compare(folder, bitmap), -1);
  EXPECT_EQ(Compare(bitmap, folder), 1);
  EXPECT_EQ(Compare(bitmap, object), -1);
  EXPECT_EQ(Compare(object, objectToo), -1);
  EXPECT_EQ(Compare(unknown, objectToo), 1);
  EXPECT_EQ(Compare(object, object), 0);
}

TEST(GroupSortCompare, AnArchiveSortsWithTheFiles) {
  const Item archive = NewItem(L"c:\\a.ZIP", 32, kFolder);
  EXPECT_EQ(Compare(archive, NewItem(L"c:\\z", 0, kFolder)), 1);
  EXPECT_EQ(Compare(archive, NewItem(L"c:\\z.bmp", 2)), 1);
  EXPECT_EQ(Compare(archive, NewItem(L"c:\\a.txt", 64)), -1);
}

TEST(GroupSortCompare, AnEmptyNameLeavesTheOrderAlone) {
  EXPECT_EQ(Compare(NewItem(L"", 2), NewItem(L"c:\\a.obj", 4)), kUntouched);
  EXPECT_EQ(Compare(NewItem(L"c:\\a.obj", 4), NewItem(L"", 2, kFolder)), kUntouched);
}

TEST(GroupSortCompare, AnItemThatFailsLeavesTheOrderAlone) {
  for (const DISPID property : {1, 9, 18}) {
    const Item failing = NewItem(L"c:\\a.obj", 4);
    failing->failures[property] = E_FAIL;
    EXPECT_EQ(Compare(failing, NewItem(L"c:\\b.bmp", 2)), kUntouched) << property;
    EXPECT_EQ(Compare(NewItem(L"c:\\b.bmp", 2), failing), kUntouched) << property;
  }
}

TEST(GroupSortCompare, ShortSortsReadTheItemsAsTheyAreNow) {
  GroupSort sort;
  const Item first = NewItem(L"c:\\a.obj", 4);
  const Item second = NewItem(L"c:\\b.obj", 4);
  EXPECT_EQ(Compare(sort, first, second), -1);
  first->name = L"c:\\c.obj";
  EXPECT_EQ(Compare(sort, first, second), 1);
  second->sortKey = 8;
  EXPECT_EQ(Compare(sort, first, second), -1);
}

// A file view whose members are answered by the test: 47 gives the items, 52 their number, 26 the list.
class GroupSortView : public testing::Test {
 protected:
  static constexpr CLSID kClass = {
      0x5D1B7A10, 0x2C44, 0x4E0E, {0x9A, 0x61, 0x0B, 0x77, 0x1F, 0x28, 0xD3, 0x55}};

  void SetUp() override {
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    list_ = CreateWindowExA(0, WC_LISTVIEWA, "", WS_POPUP | LVS_REPORT, 0, 0, 100, 100, nullptr, nullptr,
                            nullptr, nullptr);
    LVCOLUMNA column = {};
    SendMessageA(list_, LVM_INSERTCOLUMNA, 0, reinterpret_cast<LPARAM>(&column));
    control_.script.members[52] = [this](WORD, DISPPARAMS*, VARIANT* result) {
      result->vt = VT_I4;
      result->lVal = count_ >= 0 ? count_ : static_cast<LONG>(items_.size());
      return S_OK;
    };
    control_.script.members[26] = [this](WORD, DISPPARAMS*, VARIANT* result) {
      result->vt = VT_I4;
      result->lVal = static_cast<LONG>(reinterpret_cast<LONG_PTR>(list_));
      return S_OK;
    };
    control_.script.members[47] = [this](WORD, DISPPARAMS* parameters, VARIANT* result) {
      const size_t index = static_cast<size_t>(parameters->rgvarg[0].lVal);
      if (index < 1 || index > items_.size()) return DISP_E_BADINDEX;
      result->vt = VT_DISPATCH;
      result->pdispVal = items_[index - 1].Get();
      result->pdispVal->AddRef();
      return S_OK;
    };
    ComPtr<IDispatch> dispatch;
    ASSERT_EQ(CoCreateInstance(kClass, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                               reinterpret_cast<void**>(dispatch.ReleaseAndGetAddressOf())),
              S_OK);
    host_.site = QueryFor<IUnknown>(dispatch.Get());
    host_.control = dispatch;
  }
  void TearDown() override {
    host_.control.Reset();
    host_.site.Reset();
    DestroyWindow(list_);
  }

  // An item with its row; the list shows names, the item gives paths.
  Item Add(const std::string& name) {
    const Item item = NewItem(L"c:\\" + std::wstring(name.begin(), name.end()), -1);
    items_.push_back(item);
    std::string text = name;
    LVITEMA row = {};
    row.mask = LVIF_TEXT;
    row.iItem = static_cast<int>(items_.size()) - 1;
    row.pszText = text.data();
    SendMessageA(list_, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&row));
    return item;
  }

  // Kept until the process ends: closing the last apartment takes Wine two seconds.
  struct Apartment {
    Apartment() {
      static const HRESULT kInitialized = OleInitialize(nullptr);
      EXPECT_TRUE(SUCCEEDED(kInitialized));
    }
  };

  Apartment apartment_;  // before the class, which is registered in it
  test_support::ScriptedClass control_{kClass, {}};
  ShellControlHost host_;
  std::vector<Item> items_;
  LONG count_ = -1;  // another number than that of the items
  HWND list_ = nullptr;
  GroupSort sort_;
};

TEST_F(GroupSortView, GivesEachItemTheHandlerTypesOfItsName) {
  const std::int64_t types = kTxTypeObject3D | kTxTypeText;
  constexpr char kGuid[] = "{5D1B7A10-2C44-4E0E-9A61-0B771F28D356}";
  ASSERT_TRUE(Tx_FileFormatHandler(kGuid, Tx_Inquire_Token("function"), Tx_Inquire_Token("viewer"), 1,
                                   Tx_Inquire_Token("type"), &types, 1, Tx_Inquire_Token("filetypes"),
                                   ".many", 1, 0));
  const Item known = Add("a.many");
  const Item unknown = Add("a.nothing we know");
  sort_.AssignKeys(&host_);
  EXPECT_EQ(known->sortKey, 0x44);
  EXPECT_EQ(unknown->sortKey, 32767);
  EXPECT_TRUE(Tx_Remove_FileFormatHandler(kGuid));
}

TEST_F(GroupSortView, AnItemWithoutANameKeepsItsKey) {
  const Item nameless = Add("");
  const Item named = Add("a.xyz");
  sort_.AssignKeys(&host_);
  EXPECT_EQ(nameless->sortKey, -1);
  EXPECT_EQ(named->sortKey, 32767);
}

TEST_F(GroupSortView, AnItemThatRefusesDoesNotKeepTheOthersFromTheirKeys) {
  Add("a.xyz")->failures[9] = E_FAIL;
  const Item second = Add("b.xyz");
  sort_.AssignKeys(&host_);
  EXPECT_EQ(second->sortKey, 32767);
}

TEST_F(GroupSortView, AViewThatCountsMoreItemsThanItHasIsNoHarm) {
  const Item only = Add("a.xyz");
  count_ = 3;
  sort_.AssignKeys(&host_);
  EXPECT_EQ(only->sortKey, 32767);
}

TEST_F(GroupSortView, NothingIsAskedOfAnEmptyView) {
  count_ = 0;
  sort_.AssignKeys(&host_);
  EXPECT_TRUE(control_.LogOf({"get"}).size() <= 1u);
}

TEST_F(GroupSortView, ALongSortReadsEachItemOnceAndLetsGoOfIt) {
  constexpr int kItems = 40;
  for (int i = 0; i < kItems; ++i) Add("file" + std::to_string(i % 10) + ".xyz");
  sort_.AssignKeys(&host_);
  for (const Item& item : items_) item->log.clear();
  for (int pass = 0; pass < 100; ++pass) {
    for (size_t i = 0; i + 1 < items_.size(); ++i) Compare(sort_, items_[i], items_[i + 1]);
  }
  // 3,900 comparisons of two items: some are read afresh at the beginning, then each once.
  for (const Item& item : items_) EXPECT_LT(item->log.size(), 60u);
  sort_.Forget();
  for (const Item& item : items_) {
    item.Get()->AddRef();
    EXPECT_EQ(item.Get()->Release(), 1u);
  }
}

TEST_F(GroupSortView, AControlThatMakesItemsForEachComparisonIsReadEachTime) {
  Add("a.xyz");
  Add("b.xyz");
  sort_.AssignKeys(&host_);
  for (int i = 0; i < 3000; ++i) {
    const bool turned = i % 2 != 0;
    const Item first = NewItem(turned ? L"c:\\b.xyz" : L"c:\\a.xyz", 32767);
    const Item second = NewItem(turned ? L"c:\\a.xyz" : L"c:\\b.xyz", 32767);
    ASSERT_EQ(Compare(sort_, first, second), turned ? 1 : -1) << i;
  }
}

// What was freed is soon somebody else's: blocks of the sizes in question, full of letters that sort last.
void UseFreedMemory() {
  for (size_t size = 32; size <= 512; size += 16) {
    std::vector<std::unique_ptr<char[]>> blocks;
    for (int i = 0; i < 64; ++i) {
      blocks.push_back(std::make_unique<char[]>(size));
      std::fill_n(blocks.back().get(), size, '\x7E');
    }
  }
}

TEST_F(GroupSortView, AControlThatEndsTheSortWhileItsItemIsReadIsNoHarm) {
  const Item first = Add("a item whose name is long enough to lie in a block of its own.xyz");
  const Item other = Add("b.xyz");
  Add("c.xyz");
  sort_.AssignKeys(&host_);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(Compare(sort_, first, other), -1);
  const size_t readings = first->log.size();
  ASSERT_EQ(Compare(sort_, first, other), -1);
  ASSERT_EQ(first->log.size(), readings) << "the first one is kept by now";
  for (const DISPID property : {9, 18, 1}) {
    const Item late = NewItem(L"c:\\b item whose name is long enough to lie in a block of its own.xyz", 32767);
    late->whenAsked = [&](DISPID id) {
      if (id != property) return;
      sort_.Forget();
      UseFreedMemory();
    };
    EXPECT_EQ(Compare(sort_, first, late), -1) << property;
    for (int i = 0; i < 3; ++i) ASSERT_EQ(Compare(sort_, first, other), -1);  // kept again
    EXPECT_EQ(Compare(sort_, late, first), 1) << property;
    for (int i = 0; i < 3; ++i) ASSERT_EQ(Compare(sort_, first, other), -1);
  }
}

TEST_F(GroupSortView, AControlThatSortsAgainWhileItsItemIsReadIsNoHarm) {
  const Item first = Add("a item whose name is long enough to lie in a block of its own.xyz");
  const Item other = Add("b.xyz");
  Add("c.xyz");
  sort_.AssignKeys(&host_);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(Compare(sort_, first, other), -1);
  const Item late = NewItem(L"c:\\b item whose name is long enough to lie in a block of its own.xyz", 32767);
  late->whenAsked = [&](DISPID id) {
    if (id != 1) return;
    late->whenAsked = nullptr;
    EXPECT_EQ(Compare(sort_, late, other), -1);
    sort_.AssignKeys(&host_);
    UseFreedMemory();
  };
  EXPECT_EQ(Compare(sort_, first, late), -1);
}

TEST_F(GroupSortView, TheNextSortReadsTheItemsAgain) {
  const Item first = Add("a.xyz");
  const Item second = Add("b.xyz");
  sort_.AssignKeys(&host_);
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(Compare(sort_, first, second), -1);
  first->name = L"c:\\c.xyz";
  sort_.AssignKeys(&host_);
  EXPECT_EQ(Compare(sort_, first, second), 1);
}

}  // namespace
}  // namespace file_explorer
