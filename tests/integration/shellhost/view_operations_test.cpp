// The operations of file view, folder view and items: which calls they make, and that they do nothing without
// a control.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>
#include <shlobj.h>

#include <bit>

#include "src/framework/com/com_dispatch.h"
#include "src/shellhost/control_contract.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/folder_view.h"
#include "src/shellhost/shell_controls.h"
#include "tests/integration/shellhost/hosting_fixture.h"
#include "tests/support/message_box_recorder.h"

namespace file_explorer {
namespace {

using test_support::Member;
using testing::ElementsAre;
using testing::IsEmpty;

Member Gives(VARIANT value) {
  return [value](WORD, DISPPARAMS*, VARIANT* result) {
    return result ? VariantCopy(result, const_cast<VARIANT*>(&value)) : S_OK;
  };
}

Member GivesNumber(LONG value) {
  return Gives(NumberVariant(value));
}

Member GivesObject(IDispatch* object) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_DISPATCH;
  value.pdispVal = object;
  return Gives(value);
}

Member Fails(HRESULT code) {
  return [code](WORD, DISPPARAMS*, VARIANT*) { return code; };
}

class ViewOperations : public HostingTest {
 protected:
  void SetUp() override {
    HostingTest::SetUp();
    ControlScript script;
    script.dispatchId = DIID_FileViewControl;
    script.eventId = DIID_FileViewEvents;
    control_ = std::make_unique<ScriptedClass>(CLSID_FileViewControl, script);
    host_ = base::make_held<ShellControlHost>();
    CreateShellControl(*host_, kFileViewClass, parent_.get(), {});
    ASSERT_TRUE(host_->site);
    control_->log.clear();
    item_ = CComObject<ScriptedItem>::New();
  }
  void TearDown() override {
    host_.reset();
    EXPECT_EQ(control_->alive, 0);
    control_.reset();
    item_.Reset();
    HostingTest::TearDown();
  }
  ShellControlHost* host() { return host_.get(); }
  Member& member(DISPID id) { return control_->script.members[id]; }

  std::unique_ptr<ScriptedClass> control_;
  ShellControlPtr host_;
  ComPtr<CComObject<ScriptedItem>> item_;
};

TEST_F(ViewOperations, DisplayModesAreExactNames) {
  for (const char* name :
       {"LargeIcon", "Report", "SmallIcon", "List", "Thumbnails", "smallicon", "Tiles", ""}) {
    SetDisplayMode(host(), name);
  }
  EXPECT_THAT(control_->log,
              ElementsAre("put 9 int 0", "put 9 int 1", "put 9 int 2", "put 9 int 3", "put 9 int 4"));
}

TEST_F(ViewOperations, AFolderIsPutAsTheBitsOfItsAddress) {
  unique_pidl folder;
  PIDLIST_ABSOLUTE raw = nullptr;
  ASSERT_EQ(SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, &raw), S_OK);
  folder.reset(raw);
  std::uint64_t received = 0;
  member(21) = [&](WORD flags, DISPPARAMS* parameters, VARIANT*) {
    EXPECT_EQ(flags, DISPATCH_PROPERTYPUT);
    EXPECT_EQ(parameters->rgvarg[0].vt, VT_R8);
    received = std::bit_cast<std::uint64_t>(parameters->rgvarg[0].dblVal);
    return S_OK;
  };
  SetCurrentFolder(host(), folder.get());
  EXPECT_EQ(received, reinterpret_cast<std::uintptr_t>(folder.get()));
}

TEST_F(ViewOperations, ANullFolderIsNotSent) {
  SetCurrentFolder(host(), nullptr);
  EXPECT_THAT(control_->log, IsEmpty());
}

TEST_F(ViewOperations, AFolderIsReadAsANumber) {
  VARIANT value;
  VariantInit(&value);
  value.vt = VT_R8;
  value.dblVal = 4096.75;
  member(21) = Gives(value);
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(GetCurrentFolder(host())), 4096u);
  EXPECT_THAT(control_->log, ElementsAre("get 21"));
}

TEST_F(ViewOperations, AFailedNavigationIsReportedAndTheExplorerCarriesOn) {
  test_support::MessageBoxRecorder recorder;
  member(21) = Fails(E_ACCESSDENIED);
  ITEMIDLIST empty = {};
  SetCurrentFolder(host(), &empty);
  ASSERT_EQ(recorder.boxes().size(), 1u);
  EXPECT_EQ(recorder.boxes()[0].caption, "Fatal COM Error");
  EXPECT_EQ(recorder.boxes()[0].text, std::string("Error: Error while setting the file view PIDL.. ") +
                                          _com_error(E_ACCESSDENIED).ErrorMessage() + ".");
  EXPECT_EQ(recorder.boxes()[0].buttons, std::vector<int>{IDOK});
}

TEST_F(ViewOperations, CopyingAPidlClonesTheCurrentFoldersOne) {
  PIDLIST_ABSOLUTE raw = nullptr;
  ASSERT_EQ(SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, &raw), S_OK);
  const unique_pidl folder(raw);
  item_->pidl = static_cast<double>(reinterpret_cast<std::uintptr_t>(raw));
  member(69) = GivesObject(item_.Get());
  const unique_pidl copy = CopyItemPidl(host());
  ASSERT_TRUE(copy);
  EXPECT_NE(copy.get(), raw);
  EXPECT_TRUE(ILIsEqual(copy.get(), raw));
  EXPECT_THAT(control_->log, ElementsAre("get 69"));
  item_->pidl = 0;
  EXPECT_FALSE(CopyItemPidl(host()));
  member(69) = GivesObject(nullptr);
  EXPECT_FALSE(CopyItemPidl(host()));
}

TEST_F(ViewOperations, AFailedCopyOfAPidlIsReported) {
  test_support::MessageBoxRecorder recorder;
  member(69) = Fails(E_OUTOFMEMORY);
  EXPECT_FALSE(CopyItemPidl(host()));
  ASSERT_EQ(recorder.boxes().size(), 1u);
  EXPECT_EQ(recorder.boxes()[0].caption, "Fatal COM Error");
  EXPECT_EQ(recorder.boxes()[0].text.find("Error: Error while copying a PIDL.. "), 0u);
}

TEST_F(ViewOperations, CountsAreRead) {
  member(52) = GivesNumber(100000);
  member(53) = GivesNumber(7);
  EXPECT_EQ(GetItemCount(host()), 100000);
  EXPECT_EQ(GetSelectedCount(host()), 7);
  EXPECT_THAT(control_->log, ElementsAre("get 52", "get 53"));
}

TEST_F(ViewOperations, ItemsAreGottenByRowFromOneAndByTheThreeGetters) {
  for (const DISPID id : {47, 48, 49, 69}) member(id) = GivesObject(item_.Get());
  EXPECT_EQ(GetItem(host(), 1).get(), item_.Get());
  EXPECT_EQ(GetFirstSelectedItem(host()).get(), item_.Get());
  EXPECT_EQ(GetNextSelectedItem(host()).get(), item_.Get());
  EXPECT_EQ(GetCurrentFolderItem(host()).get(), item_.Get());
  EXPECT_THAT(control_->log, ElementsAre("get 47(int 1)", "get 48", "get 49", "get 69"));
  member(49) = Member();
  control_->script.members.erase(49);
  EXPECT_FALSE(GetNextSelectedItem(host())) << "nothing at the end";
}

TEST_F(ViewOperations, CommandsAreMethodsWithTheirArgument) {
  GoUpOneLevel(host());
  RefreshView(host());
  CreateNewFolder(host());
  ExecuteOnSelection(host(), ShellCommand::kCut);
  ExecuteOnSelection(host(), ShellCommand::kCopy);
  ExecuteOnSelection(host(), ShellCommand::kDelete);
  ExecuteOnSelection(host(), ShellCommand::kRename);
  ExecuteOnFolder(host(), ShellCommand::kPaste);
  EXPECT_THAT(control_->log,
              ElementsAre("method 44()", "method 56()", "method 58(bool -1)", "method 50(int 3)",
                          "method 50(int 4)", "method 50(int 6)", "method 50(int 10)", "method 51(int 5)"));
}

TEST_F(ViewOperations, MenuItemsAreAddedWithCaptionAndVerb) {
  member(70) = GivesNumber(41);
  EXPECT_EQ(AddFileViewMenuItem(host(), "Move Files To...", "Default"), 41);
  EXPECT_EQ(AddFileViewMenuItem(host(), "", "Separator"), 41);
  member(25) = GivesNumber(42);
  EXPECT_EQ(AddFolderViewMenuItem(host(), "Copy Files To...", "Default"), 42);
  EXPECT_THAT(control_->log, ElementsAre("method 70(text Move Files To..., text Default)",
                                         "method 70(text , text Separator)",
                                         "method 25(text Copy Files To..., text Default)"));
}

TEST_F(ViewOperations, TheSelectedRowComesFromTheListWindow) {
  INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
  InitCommonControlsEx(&controls);
  const HWND list = CreateWindowExA(0, WC_LISTVIEWA, "", WS_POPUP | LVS_REPORT, 0, 0, 100, 100, nullptr,
                                    nullptr, nullptr, nullptr);
  member(26) = GivesNumber(static_cast<LONG>(reinterpret_cast<LONG_PTR>(list)));
  EXPECT_EQ(GetListWindow(host()), list);
  EXPECT_EQ(GetSelectedIndex(host()), -1);
  char text[] = "row";
  for (int row = 0; row < 3; ++row) {
    LVITEMA item = {};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.pszText = text;
    SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
  }
  LVITEMA state = {};
  state.stateMask = state.state = LVIS_SELECTED;
  SendMessageA(list, LVM_SETITEMSTATE, 1, reinterpret_cast<LPARAM>(&state));
  EXPECT_EQ(GetSelectedIndex(host()), 1);
  DestroyWindow(list);
}

TEST_F(ViewOperations, OfTheFolderAndTheComboView) {
  SetFolderViewOption(host(), FolderViewOption::kShowFiles, true);
  SetFolderViewOption(host(), FolderViewOption::kShowVirtualFolders, false);
  SetFolderViewOption(host(), FolderViewOption::kDragAndDrop, true);
  member(23) = GivesNumber(static_cast<LONG>(reinterpret_cast<LONG_PTR>(parent_.get())));
  EXPECT_EQ(GetTreeWindow(host()), parent_.get());
  member(13) = GivesNumber(static_cast<LONG>(reinterpret_cast<LONG_PTR>(parent_.get())));
  EXPECT_EQ(GetComboWindow(host()), parent_.get());
  CreateNewFolderInTree(host());
  EXPECT_THAT(control_->log, ElementsAre("put 4 bool -1", "put 5 bool 0", "put 22 bool -1", "get 23",
                                         "get 13", "method 26()"));
}

TEST_F(ViewOperations, TheSelectedFolderKnowsWhetherItHasAParent) {
  EXPECT_FALSE(SelectedFolderHasParent(host())) << "nothing is selected";
  member(7) = GivesObject(item_.Get());
  EXPECT_EQ(GetSelectedFolder(host()).get(), item_.Get());
  EXPECT_FALSE(SelectedFolderHasParent(host())) << "the root has none";
  item_->parent = ComPtr<IDispatch>(CComObject<ScriptedItem>::New());
  EXPECT_TRUE(SelectedFolderHasParent(host()));
  EXPECT_EQ(item_->log.back(), "method 16()");
  item_->parent.Reset();
}

TEST_F(ViewOperations, NothingHappensWithoutAHostOrAControl) {
  ShellControlHost empty;
  ITEMIDLIST list = {};
  for (ShellControlHost* const none : {static_cast<ShellControlHost*>(nullptr), &empty}) {
    SetDisplayMode(none, "List");
    SetCurrentFolder(none, &list);
    EXPECT_EQ(GetCurrentFolder(none), nullptr);
    EXPECT_EQ(GetListWindow(none), nullptr);
    EXPECT_EQ(GetSelectedIndex(none), -1);
    EXPECT_EQ(GetItemCount(none), 0);
    EXPECT_EQ(GetSelectedCount(none), 0);
    EXPECT_FALSE(GetItem(none, 1));
    EXPECT_FALSE(GetFirstSelectedItem(none));
    EXPECT_FALSE(GetNextSelectedItem(none));
    EXPECT_FALSE(GetCurrentFolderItem(none));
    EXPECT_FALSE(CopyItemPidl(none));
    GoUpOneLevel(none);
    RefreshView(none);
    CreateNewFolder(none);
    ExecuteOnSelection(none, ShellCommand::kCut);
    ExecuteOnFolder(none, ShellCommand::kPaste);
    EXPECT_EQ(AddFileViewMenuItem(none, "a", "b"), 0);
    SetFolderViewOption(none, FolderViewOption::kShowFiles, true);
    EXPECT_EQ(GetTreeWindow(none), nullptr);
    EXPECT_FALSE(GetSelectedFolder(none));
    EXPECT_FALSE(SelectedFolderHasParent(none));
    CreateNewFolderInTree(none);
    EXPECT_EQ(AddFolderViewMenuItem(none, "a", "b"), 0);
    EXPECT_EQ(GetComboWindow(none), nullptr);
    LinkShellControls(none, none, none);
    ApplyControlOptions(none, none, {});
  }
  // A host that lost its site is driven no more even when its control is still known.
  const ComPtr<IUnknown> site = std::exchange(host_->site, nullptr);
  GoUpOneLevel(host());
  EXPECT_THAT(control_->log, IsEmpty());
  host_->site = site;
}

TEST_F(ViewOperations, AFailureElsewhereRaises) {
  for (const DISPID id : {9, 26, 44, 50, 51, 52, 53, 56, 58, 47, 48}) member(id) = Fails(E_FAIL);
  EXPECT_THROW(SetDisplayMode(host(), "List"), _com_error);
  EXPECT_THROW(GetListWindow(host()), _com_error);
  EXPECT_THROW(GoUpOneLevel(host()), _com_error);
  EXPECT_THROW(ExecuteOnSelection(host(), ShellCommand::kCut), _com_error);
  EXPECT_THROW(ExecuteOnFolder(host(), ShellCommand::kPaste), _com_error);
  EXPECT_THROW(GetItemCount(host()), _com_error);
  EXPECT_THROW(GetSelectedCount(host()), _com_error);
  EXPECT_THROW(RefreshView(host()), _com_error);
  EXPECT_THROW(CreateNewFolder(host()), _com_error);
  EXPECT_THROW(GetItem(host(), 1), _com_error);
  EXPECT_THROW(GetFirstSelectedItem(host()), _com_error);
}

TEST_F(ViewOperations, ItemsAreReadAndWrittenByTheirIds) {
  const ShellItem item(static_cast<IDispatch*>(item_.Get()));
  item_->attributes = SFGAO_FILESYSTEM | SFGAO_LINK | SFGAO_HIDDEN;
  item_->name = L"c:\\a.obj";
  item_->fullPath = L"c:\\b.obj";
  item_->folderText = L"text";
  item_->pidl = 65536;
  EXPECT_EQ(item.HasAttributes(SFGAO_LINK | SFGAO_FOLDER), static_cast<ULONG>(SFGAO_LINK));
  EXPECT_EQ(item.GetName(), "c:\\a.obj");
  EXPECT_EQ(item.GetFullPath(), "c:\\b.obj");
  EXPECT_EQ(item.GetFolderText(), "text");
  EXPECT_EQ(reinterpret_cast<std::uintptr_t>(item.GetPidl()), 65536u);
  VARIANT key = NumberVariant(32767);
  item.SetSortKey(key);
  EXPECT_EQ(item.GetSortKey()->vt, VT_INT);
  EXPECT_EQ(item.GetSortKey()->lVal, 32767);
  item.SetSelected(true);
  EXPECT_TRUE(item.IsSelected());
  item.InvokeDefault();
  EXPECT_EQ(item_->log.back(), "method 19()");
  const ShellItem none;
  EXPECT_EQ(none.HasAttributes(0xFFFFFFFF), 0u);
  EXPECT_FALSE(none.GetName());
  EXPECT_EQ(none.GetSortKey()->vt, VT_EMPTY);
  EXPECT_FALSE(none.GetParent());
  none.InvokeDefault();
  none.SetSelected(true);
}

}  // namespace
}  // namespace file_explorer
