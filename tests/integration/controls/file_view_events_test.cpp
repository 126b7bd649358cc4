// The events of the file view, with the exact argument types that a container checks.
#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cwchar>

#include "tests/integration/controls/control_container.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"

namespace controls_test {
namespace {

using test_support::PumpMessages;
using test_support::TempDirectory;
using test_support::WaitUntil;
using testing::ElementsAre;

constexpr long kFolderBit = 0x20000000;
constexpr long kLinkBit = 0x10000;
constexpr long kFileSystemBit = 0x40000000;

IDispatch* ObjectOf(const DISPPARAMS& params, UINT index) {
  return params.rgvarg[params.cArgs - 1 - index].pdispVal;
}

class FileViewEvents : public testing::Test {
 protected:
  void SetUp() override {
    folder_.AddFile(L"a.obj");
    folder_.AddFile(L"b.txt");
    folder_.AddFile(L"c.lnk");
    folder_.AddFolder(L"sub");
  }
  void Open() { ASSERT_TRUE(view_.GoAndWait(folder_.path())); }
  POINT PointOf(int row) {
    RECT rect = {};
    rect.left = LVIR_LABEL;
    SendMessageW(view_.list(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
    return {rect.left + 8, (rect.top + rect.bottom) / 2};
  }
  void Click(int row) {
    const POINT point = PointOf(row);
    PostMessageW(view_.list(), WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    SendMessageW(view_.list(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    PumpMessages();
  }
  void DoubleClick(int row) {
    const POINT point = PointOf(row);
    SendMessageW(view_.list(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    SendMessageW(view_.list(), WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    PumpMessages();
  }

  TempDirectory folder_;
  Hosted view_{kFileView};
};

TEST_F(FileViewEvents, FolderChangeCarriesThePath) {
  Open();
  const Event* event = view_.log().Last(3);
  ASSERT_NE(event, nullptr);
  EXPECT_THAT(event->types, ElementsAre(VT_BSTR));
  EXPECT_EQ(_wcsicmp(event->texts[0].c_str(), folder_.path().c_str()), 0);
  EXPECT_EQ(view_.log().Count(3), 1);
}

TEST_F(FileViewEvents, ClickCarriesTheItemAndTheFollowingEventsKeepTheirTypes) {
  Open();
  view_.log().Clear();
  Click(1);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(10) > 0; }));
  const Event* click = view_.log().Last(1);
  ASSERT_NE(click, nullptr);
  EXPECT_THAT(click->types, ElementsAre(VT_DISPATCH, VT_I4, VT_I4));
  EXPECT_EQ(click->texts[0], folder_.Join(L"a.obj"));
  const Event* selection = view_.log().Last(10);
  EXPECT_THAT(selection->types, ElementsAre(VT_DISPATCH, VT_BOOL));
  EXPECT_EQ(selection->texts[0], folder_.Join(L"a.obj"));
  EXPECT_NE(selection->numbers[1], 0);
}

TEST_F(FileViewEvents, DoubleClickCanBeCancelled) {
  Open();
  view_.log().SetHandler([](DISPID id, DISPPARAMS& params) {
    if (id == 2) *params.rgvarg[0].pboolVal = VARIANT_TRUE;
  });
  DoubleClick(0);
  const Event* event = view_.log().Last(2);
  ASSERT_NE(event, nullptr);
  EXPECT_THAT(event->types, ElementsAre(VT_DISPATCH, VT_I4, VT_I4, VT_BOOL | VT_BYREF));
  EXPECT_EQ(GetLong(view_.dispatch(), 52), 4) << "the folder must not have been opened";
}

TEST_F(FileViewEvents, DoubleClickOnAFolderGoesThere) {
  folder_.AddFile(L"sub\\inside.obj");
  Open();
  DoubleClick(0);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(3) == 2 && GetLong(view_.dispatch(), 52) == 1; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"inside.obj"));
}

TEST_F(FileViewEvents, EachItemIsOfferedOnceAndTheDefaultActionLeavesItOut) {
  std::vector<std::wstring> offered;
  view_.log().SetHandler([&](DISPID id, DISPPARAMS& params) {
    if (id != 12) return;
    IDispatch* item = ObjectOf(params, 0);
    offered.push_back(GetText(item, 1));
    if (GetLong(item, 18, kFolderBit) == 0 && offered.back().ends_with(L".txt")) CallMethod(item, 19);
  });
  Open();
  EXPECT_EQ(offered.size(), 4u);
  EXPECT_THAT(view_.Names(), ElementsAre(L"sub", L"a.obj", L"c.lnk"));
  const Event* event = view_.log().Last(12);
  ASSERT_NE(event, nullptr);
  EXPECT_THAT(event->types, ElementsAre(VT_DISPATCH));
}

TEST_F(FileViewEvents, RefreshAsksTheFilterAgainAndKeepsTheSelection) {
  bool hide = true;
  view_.log().SetHandler([&](DISPID id, DISPPARAMS& params) {
    if (id == 12 && hide && GetText(ObjectOf(params, 0), 1).ends_with(L".txt"))
      CallMethod(ObjectOf(params, 0), 19);
  });
  Open();
  EXPECT_EQ(view_.RowOf(L"b.txt"), -1);
  ASSERT_EQ(PutBool(GetObject(view_.dispatch(), 47, view_.RowOf(L"c.lnk") + 1).get(), 12, true), S_OK);
  hide = false;
  const int before = view_.log().Count(17);
  CallMethod(view_.dispatch(), 56);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(17) > before; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"sub", L"a.obj", L"b.txt", L"c.lnk"));
  EXPECT_EQ(GetLong(view_.dispatch(), 53), 1);
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 48).get(), 1), folder_.Join(L"c.lnk"));
}

TEST_F(FileViewEvents, AnItemKnowsItsAttributesPathParentAndList) {
  Open();
  const auto sub = GetObject(view_.dispatch(), 47, 1);
  const auto file = GetObject(view_.dispatch(), 47, 2);
  const auto link = GetObject(view_.dispatch(), 47, 4);
  EXPECT_EQ(GetLong(sub.get(), 18, kFolderBit | kLinkBit | kFileSystemBit), kFolderBit | kFileSystemBit);
  EXPECT_EQ(GetLong(file.get(), 18, kFolderBit | kLinkBit | kFileSystemBit), kFileSystemBit);
  EXPECT_EQ(GetLong(link.get(), 18, kFolderBit | kLinkBit | kFileSystemBit), kLinkBit | kFileSystemBit);
  EXPECT_EQ(GetText(file.get(), 1), folder_.Join(L"a.obj"));
  EXPECT_EQ(GetText(file.get(), 4), folder_.Join(L"a.obj"));
  EXPECT_EQ(GetText(file.get(), 23), L"a.obj");
  wchar_t path[MAX_PATH] = L"";
  ASSERT_TRUE(SHGetPathFromIDListW(GetPidl(file.get(), 21), path));
  EXPECT_EQ(_wcsicmp(path, folder_.Join(L"a.obj").c_str()), 0);
  Variant parent;
  ASSERT_EQ(CallMethod(file.get(), 16, {}, &parent), S_OK);
  ASSERT_EQ(parent.vt, VT_DISPATCH);
  EXPECT_EQ(_wcsicmp(GetText(parent.pdispVal, 1).c_str(), folder_.path().c_str()), 0);
}

TEST_F(FileViewEvents, ItemsOutsideTheCountAreRefused) {
  Open();
  Variant result;
  EXPECT_EQ(Get(view_.dispatch(), 47, &result, {LongValue(0)}), DISP_E_BADINDEX);
  EXPECT_EQ(Get(view_.dispatch(), 47, &result, {LongValue(5)}), DISP_E_BADINDEX);
}

TEST_F(FileViewEvents, SortKeyKeepsWhatTheContainerPut) {
  Open();
  const auto item = GetObject(view_.dispatch(), 47, 2);
  Variant key;
  ASSERT_EQ(Get(item.get(), 9, &key), S_OK);
  EXPECT_EQ(key.vt, VT_EMPTY);
  VARIANT put = {};
  put.vt = VT_INT;
  put.intVal = 32767;
  ASSERT_EQ(Put(item.get(), 9, put), S_OK);
  EXPECT_EQ(GetLong(GetObject(view_.dispatch(), 47, 2).get(), 9), 32767);
}

TEST_F(FileViewEvents, SortingByAHeaderAsksTheContainerFirst) {
  Open();
  view_.log().Clear();
  NMLISTVIEW click = {};
  click.hdr = {view_.list(), 1, static_cast<UINT>(LVN_COLUMNCLICK)};
  click.iSubItem = 1;
  SendMessageW(view_.window(), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&click));
  const Event* event = view_.log().Last(19);
  ASSERT_NE(event, nullptr);
  EXPECT_THAT(event->types, ElementsAre(VT_BSTR, VT_I4, VT_I4 | VT_BYREF));
  EXPECT_EQ(event->texts[0], L"Size");
  EXPECT_EQ(event->numbers[1], 1);
  EXPECT_EQ(view_.log().Count(20), 0);
}

TEST_F(FileViewEvents, AnswerThreeSortsThroughTheContainersComparison) {
  std::vector<VARTYPE> types;
  view_.log().CountOnly(20);
  view_.log().SetHandler([&](DISPID id, DISPPARAMS& params) {
    if (id == 19) *params.rgvarg[0].plVal = 3;
    if (id != 20) return;
    types = {params.rgvarg[2].vt, params.rgvarg[1].vt, params.rgvarg[0].vt};
    // Backwards by name.
    *params.rgvarg[0].plVal =
        -_wcsicmp(GetText(ObjectOf(params, 0), 1).c_str(), GetText(ObjectOf(params, 1), 1).c_str());
  });
  Open();
  ASSERT_TRUE(WaitUntil([&] { return view_.Names().front() == L"sub" && view_.CellText(1, 0) == L"c.lnk"; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"sub", L"c.lnk", L"b.txt", L"a.obj"));
  EXPECT_THAT(types, ElementsAre(VT_DISPATCH, VT_DISPATCH, VT_I4 | VT_BYREF));
  EXPECT_GT(view_.log().Count(20), 0);
}

TEST_F(FileViewEvents, ANewFileThatComesLaterIsSortedByTheContainerToo) {
  view_.log().CountOnly(20);
  view_.log().SetHandler([&](DISPID id, DISPPARAMS& params) {
    if (id == 19) *params.rgvarg[0].plVal = 3;
    if (id == 20) {
      *params.rgvarg[0].plVal =
          -_wcsicmp(GetText(ObjectOf(params, 0), 1).c_str(), GetText(ObjectOf(params, 1), 1).c_str());
    }
  });
  Open();
  folder_.AddFile(L"bb.txt");
  ASSERT_TRUE(WaitUntil([&] { return view_.RowOf(L"bb.txt") == 2; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"sub", L"c.lnk", L"bb.txt", L"b.txt", L"a.obj"));
}

TEST_F(FileViewEvents, SelectingManyItemsRaisesOneSelectionEvent) {
  for (int i = 0; i < 200; ++i) folder_.AddFile(L"many" + std::to_wstring(i) + L".obj");
  Open();
  PumpMessages();
  view_.log().Clear();
  for (int row = 0; row < 204; ++row) {
    LVITEMW item = {};
    item.state = LVIS_SELECTED | LVIS_FOCUSED;
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(view_.list(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  }
  EXPECT_EQ(view_.log().Count(10), 0);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(10) > 0; }));
  PumpMessages();
  EXPECT_EQ(view_.log().Count(10), 1);
  EXPECT_EQ(GetLong(view_.dispatch(), 53), 204);
  EXPECT_TRUE(GetBool(GetObject(view_.dispatch(), 47, 100).get(), 12));
}

TEST_F(FileViewEvents, OfManyFocusChangesTheLastCounts) {
  Open();
  for (const int row : {3, 1, 2}) {
    LVITEMW item = {};
    item.state = LVIS_SELECTED | LVIS_FOCUSED;
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(view_.list(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  }
  EXPECT_EQ(SendMessageW(view_.list(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 2);
  PumpMessages();
  EXPECT_EQ(SendMessageW(view_.list(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 2);
  EXPECT_EQ(GetLong(view_.dispatch(), 53), 3);
}

TEST_F(FileViewEvents, SelectedItemsAreWalkedInOrderAndEndWithNothing) {
  Open();
  PutBool(GetObject(view_.dispatch(), 47, 2).get(), 12, true);
  PutBool(GetObject(view_.dispatch(), 47, 4).get(), 12, true);
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 48).get(), 1), folder_.Join(L"a.obj"));
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 49).get(), 1), folder_.Join(L"c.lnk"));
  EXPECT_FALSE(GetObject(view_.dispatch(), 49));
  EXPECT_FALSE(GetObject(view_.dispatch(), 49));
}

TEST_F(FileViewEvents, ChangesOnDiskKeepTheSelection) {
  Open();
  PutBool(GetObject(view_.dispatch(), 47, view_.RowOf(L"b.txt") + 1).get(), 12, true);
  folder_.AddFile(L"aa_new.obj");
  ASSERT_TRUE(WaitUntil([&] { return view_.RowOf(L"aa_new.obj") >= 0; }));
  DeleteFileW(folder_.Join(L"a.obj").c_str());
  ASSERT_TRUE(WaitUntil([&] { return view_.RowOf(L"a.obj") < 0; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"sub", L"aa_new.obj", L"b.txt", L"c.lnk"));
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 48).get(), 23), L"b.txt");
  EXPECT_EQ(GetLong(view_.dispatch(), 53), 1);
}

TEST_F(FileViewEvents, AMenuItemCannotBeAddedOutsideTheBuildingEvent) {
  Open();
  VARIANT caption = {};
  caption.vt = VT_BSTR;
  caption.bstrVal = SysAllocString(L"Move");
  VARIANT verb = {};
  verb.vt = VT_BSTR;
  verb.bstrVal = SysAllocString(L"Default");
  EXPECT_TRUE(FAILED(CallMethod(view_.dispatch(), 70, {caption, verb})));
  VariantClear(&caption);
  VariantClear(&verb);
}

// Opens the context menu at a row; the handler adds to it, and the last entry is chosen by keyboard.
TEST_F(FileViewEvents, AnAddedMenuItemComesBackAsItsCommand) {
  Open();
  long command = 0;
  long separator = -1;
  view_.log().SetHandler([&](DISPID id, DISPPARAMS& params) {
    if (id != 15) return;
    EXPECT_EQ(GetText(ObjectOf(params, 0), 1), folder_.Join(L"a.obj"));
    const controls::Bstr none(L"");
    const controls::Bstr separatorVerb(L"Separator");
    const controls::Bstr caption(L"Add to list");
    const controls::Bstr verb(L"Default");
    VARIANT values[4] = {};
    BSTR texts[] = {none.get(), separatorVerb.get(), caption.get(), verb.get()};
    for (int i = 0; i < 4; ++i) {
      values[i].vt = VT_BSTR;
      values[i].bstrVal = texts[i];
    }
    Variant result;
    CallMethod(view_.dispatch(), 70, {values[0], values[1]}, &result);
    separator = result.lVal;
    CallMethod(view_.dispatch(), 70, {values[2], values[3]}, &result);
    command = result.lVal;
    // The menu is shown after this event: its last entry is chosen.
    PostMessageW(view_.window(), WM_KEYDOWN, VK_UP, 0);
    PostMessageW(view_.window(), WM_KEYDOWN, VK_RETURN, 0);
  });
  POINT point = PointOf(1);
  ClientToScreen(view_.list(), &point);
  SendMessageW(view_.window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view_.list()),
               MAKELPARAM(point.x, point.y));
  EXPECT_EQ(separator, 0);
  EXPECT_GT(command, 0);
  EXPECT_LT(command, 0x8000);
  const Event* building = view_.log().Last(15);
  ASSERT_NE(building, nullptr);
  EXPECT_THAT(building->types, ElementsAre(VT_DISPATCH));
  const Event* chosen = view_.log().Last(14);
  ASSERT_NE(chosen, nullptr);
  EXPECT_THAT(chosen->types, ElementsAre(VT_DISPATCH, VT_I4));
  EXPECT_EQ(chosen->numbers[1], command);
  EXPECT_EQ(chosen->texts[0], folder_.Join(L"a.obj"));
}

TEST_F(FileViewEvents, TheEmptyAreasMenuCarriesAnItemWithoutText) {
  Open();
  view_.log().SetHandler([&](DISPID id, DISPPARAMS&) {
    if (id == 15) PostMessageW(view_.window(), WM_KEYDOWN, VK_ESCAPE, 0);
  });
  POINT point = {300, 250};
  ClientToScreen(view_.list(), &point);
  SendMessageW(view_.window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view_.list()),
               MAKELPARAM(point.x, point.y));
  const Event* building = view_.log().Last(15);
  ASSERT_NE(building, nullptr);
  EXPECT_EQ(building->texts[0], L"");
  EXPECT_EQ(view_.log().Count(14), 0);
}

}  // namespace
}  // namespace controls_test
