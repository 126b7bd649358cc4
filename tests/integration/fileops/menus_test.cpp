// The explorer's items in the two context menus.
#include "src/host/vc64_tx.h"
#include "tests/integration/fileops/fileops_fixture.h"

namespace fileops_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::vector<std::string> kFixedItems = {"-", "Move Files To...", "Copy Files To...", "-",
                                              "Add to Halvo Favorites List..."};

class MenusTest : public FileOpsTest {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\model.obj");
    fixture_.directory().AddFile(L"files\\notes.odd");
    fixture_.directory().AddFolder(L"files\\sub");
    Start(3);
    auto& services = fixture_.services();
    services.Override<host::op::ShowHostDialog>([this](const char* keyword, HWND owner, const char* argument,
                                                       std::intptr_t, std::intptr_t, std::intptr_t) {
      hostDialogs_.push_back(keyword);
      owner_ = owner;
      handler_ = argument == nullptr ? "(null)" : argument;
      return 1;
    });
  }
  void TearDown() override { fixture_.services().ClearOverride<host::op::ShowHostDialog>(); }

  // The menu of the list; the one of the empty area without a name.
  SeenMenu ListMenu(const std::string& name, const std::string& choice = {}) {
    RECT rect = {};
    rect.left = LVIR_LABEL;
    POINT point = {};
    if (name.empty()) {
      GetClientRect(list(), &rect);
      point = {rect.right - 20, rect.bottom - 10};
    } else {
      SendMessageA(list(), LVM_GETITEMRECT, static_cast<WPARAM>(fixture_.IndexOf(name)),
                   reinterpret_cast<LPARAM>(&rect));
      point = {rect.left + 4, (rect.top + rect.bottom) / 2};
    }
    ClientToScreen(list(), &point);
    return Open(GetParent(list()), list(), point, choice);
  }
  SeenMenu TreeMenu(HTREEITEM item, const std::string& choice = {}) {
    SendMessageA(tree(), TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
    RECT rect = {};
    *reinterpret_cast<HTREEITEM*>(&rect) = item;
    SendMessageA(tree(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect));
    POINT point = {rect.left + 4, (rect.top + rect.bottom) / 2};
    ClientToScreen(tree(), &point);
    return Open(GetParent(tree()), tree(), point, choice);
  }
  SeenMenu Open(HWND pane, HWND view, POINT point, const std::string& choice) {
    const size_t before = driver_.menus().size();
    driver_.ChooseFromMenu(choice);
    PostMessageA(pane, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view), MAKELPARAM(point.x, point.y));
    EXPECT_TRUE(WaitUntil([&] { return driver_.menus().size() > before; }));
    test_support::PumpMessages();
    return driver_.menus().empty() ? SeenMenu() : driver_.menus().back();
  }
  // The menu that a key opens: Shift+F10, or the menu key.
  SeenMenu KeyboardMenu(HWND view, bool shiftAndF10) {
    SetFocus(view);
    test_support::PumpMessages();
    const size_t before = driver_.menus().size();
    driver_.ChooseFromMenu({});
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_SHIFT] = shiftAndF10 ? 0x80 : 0;
    SetKeyboardState(keys);
    if (shiftAndF10) {
      PostMessageA(view, WM_SYSKEYDOWN, VK_F10, 1);
      PostMessageA(view, WM_SYSKEYUP, VK_F10, 1);
    } else {
      PostMessageA(view, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view),
                   -1);  // what the system makes of the key
    }
    EXPECT_TRUE(WaitUntil([&] { return driver_.menus().size() > before; }));
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
    test_support::PumpMessages();
    EXPECT_EQ(driver_.menus().size(), before + 1) << "one key, one menu";
    return driver_.menus().size() > before ? driver_.menus().back() : SeenMenu();
  }
  // The last items of a menu.
  static std::vector<std::string> Last(const SeenMenu& menu, size_t count) {
    const size_t from = menu.captions.size() > count ? menu.captions.size() - count : 0;
    return {menu.captions.begin() + static_cast<std::ptrdiff_t>(from), menu.captions.end()};
  }

  std::vector<std::string> hostDialogs_;
  HWND owner_ = nullptr;
  std::string handler_;
};

TEST_F(MenusTest, AnImportableFileGetsAllItemsInOrder) {
  std::vector<std::string> items = kFixedItems;
  items.push_back("File Import Options...");
  EXPECT_EQ(Last(ListMenu("model.obj"), 6), items);
}

TEST_F(MenusTest, AFileThatNobodyImportsAFolderAndEmptySpaceGetTheFixedItems) {
  EXPECT_EQ(Last(ListMenu("notes.odd"), 5), kFixedItems);
  EXPECT_EQ(Last(ListMenu("sub"), 5), kFixedItems);
  EXPECT_EQ(Last(ListMenu(""), 5), kFixedItems);
}

TEST_F(MenusTest, TheKeysOpenTheMenuOfTheSelectedFile) {
  std::vector<std::string> items = kFixedItems;
  items.push_back("File Import Options...");
  Select({"model.obj"});
  EXPECT_EQ(Last(KeyboardMenu(list(), true), 6), items);
  EXPECT_EQ(Last(KeyboardMenu(list(), false), 6), items);
  Select({});
  EXPECT_EQ(Last(KeyboardMenu(list(), true), 5), kFixedItems);
}

TEST_F(MenusTest, TheKeysOpenTheMenuOfTheTreesSelectedFolder) {
  EXPECT_EQ(Last(KeyboardMenu(tree(), true), 5), kFixedItems);
  EXPECT_EQ(Last(KeyboardMenu(tree(), false), 5), kFixedItems);
}

TEST_F(MenusTest, TheShellsEntriesBeginWithOpenAsTheDefault) {
  const SeenMenu menu = ListMenu("model.obj");
  EXPECT_EQ(menu.defaultItem, "Open");
  EXPECT_EQ(menu.captions.front(), "Open");
}

TEST_F(MenusTest, TheFolderTreesMenuEndsWithTheFixedItems) {
  EXPECT_EQ(Last(TreeMenu(NextNode(TVGN_CARET)), 5), kFixedItems);
}

TEST_F(MenusTest, ImportOptionsOpensTheHostsDialogForTheHandler) {
  ListMenu("model.obj", "File Import Options...");
  ASSERT_TRUE(WaitUntil([this] { return !hostDialogs_.empty(); }));
  EXPECT_THAT(hostDialogs_, ElementsAre("ImportConverterOptionsDialogBox"));
  EXPECT_EQ(owner_, fixture_.workbench().window());
  const char* types = nullptr;
  ASSERT_TRUE(Tx_Inquire_FileFormatHandler(handler_.c_str(), Tx_Inquire_Token("filetypes"), &types, 0))
      << handler_;
  EXPECT_THAT(types, HasSubstr("obj"));
}

TEST_F(MenusTest, AddToFavoritesTakesTheListsSelection) {
  driver_.PressInDialogs(IDCANCEL);
  ListMenu("model.obj", "Add to Halvo Favorites List...");
  ASSERT_TRUE(WaitUntil([this] { return driver_.dialogs().size() == 1; }));
  EXPECT_EQ(driver_.dialogs()[0].caption, "Add Favorite");
  EXPECT_EQ(driver_.dialogs()[0].owner, fixture_.workbench().window());
  EXPECT_THAT(driver_.dialogs()[0].texts, testing::Contains(Path("model.obj")));
}

TEST_F(MenusTest, AddToFavoritesTakesTheRightClickedFolderOfTheTree) {
  Select({"model.obj"});
  ASSERT_TRUE(ExpandSelected({"sub"}));
  driver_.PressInDialogs(IDCANCEL);
  TreeMenu(ChildOf(NextNode(TVGN_CARET), "sub"), "Add to Halvo Favorites List...");
  ASSERT_TRUE(WaitUntil([this] { return driver_.dialogs().size() == 1; }));
  EXPECT_THAT(driver_.dialogs()[0].texts, testing::Contains(Path("sub")));
}

TEST_F(MenusTest, MoveAndCopyAskForAFolderAndCancellingTouchesNothing) {
  driver_.PressInDialogs(IDCANCEL);
  ListMenu("notes.odd", "Move Files To...");
  ASSERT_TRUE(WaitUntil([this] { return driver_.dialogs().size() == 1; }));
  EXPECT_THAT(driver_.dialogs()[0].texts, testing::Contains("Please select the destination folder"));
  test_support::PumpMessages();
  ASSERT_TRUE(WaitUntil([this] { return !IsWindow(driver_.dialogs()[0].window); }));
  TreeMenu(NextNode(TVGN_CARET), "Copy Files To...");
  ASSERT_TRUE(WaitUntil([this] { return driver_.dialogs().size() == 2; }));
  EXPECT_THAT(driver_.dialogs()[1].texts, testing::Contains("Please select the destination folder"));
  ASSERT_TRUE(WaitUntil([this] { return !IsWindow(driver_.dialogs()[1].window); }));
  EXPECT_TRUE(Exists(Path("notes.odd")));
  EXPECT_TRUE(fixture_.boxes().boxes().empty());
}

}  // namespace
}  // namespace fileops_test
