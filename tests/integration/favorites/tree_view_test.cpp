// The favourites tree: its window, labels, check boxes and activation.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "tests/integration/favorites/favorites_fixture.h"
#include "tests/support/wait_until.h"

namespace file_explorer {
namespace {

using test_support::WaitUntil;
using testing::ElementsAre;
using testing::IsEmpty;

class TreeViewTest : public FavoritesFixture {
 protected:
  HWND StartEditing(const char* key) {
    tree().EditLabel(Record(key));
    return reinterpret_cast<HWND>(SendMessageA(tree().window(), TVM_GETEDITCONTROL, 0, 0));
  }
  void EndEditing(bool cancel) {
    SendMessageA(tree().window(), TVM_ENDEDITLABELNOW, cancel ? TRUE : FALSE, 0);
  }
};

TEST_F(TreeViewTest, IsAHiddenTreeControlOverThePanel) {
  Create();
  char name[32] = "";
  GetClassNameA(tree().window(), name, sizeof(name));
  EXPECT_STRCASEEQ(name, "SysTreeView32");
  EXPECT_EQ(static_cast<DWORD>(GetWindowLongPtrA(tree().window(), GWL_STYLE)) & ~WS_CLIPSIBLINGS,
            0x4000022Bu);
  EXPECT_NE(GetWindowLongPtrA(tree().window(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0);
  EXPECT_EQ(GetDlgCtrlID(tree().window()), 104);
}

TEST_F(TreeViewTest, CannotBeMadeWithoutAParent) {
  CHalvoTreeView orphan(GetModuleHandleA(nullptr), nullptr, nullptr, 104, WS_CHILD);
  EXPECT_FALSE(orphan.CreateTreeWindow());
  EXPECT_EQ(orphan.window(), nullptr);
}

TEST_F(TreeViewTest, APlaceholderGivesItsPlaceAndIsHidden) {
  ShowWindow(panel, SW_SHOW);
  const HWND placeholder = CreateWindowExA(0, "Static", "", WS_CHILD | WS_VISIBLE, 20, 30, 100, 120, panel,
                                           nullptr, GetModuleHandleA(nullptr), nullptr);
  CHalvoTreeView other(GetModuleHandleA(nullptr), panel, placeholder, 104, WS_CHILD);
  ASSERT_TRUE(other.CreateTreeWindow());
  RECT rect = {};
  GetWindowRect(other.window(), &rect);
  MapWindowPoints(nullptr, panel, reinterpret_cast<POINT*>(&rect), 2);
  EXPECT_EQ(rect.left, 20);
  EXPECT_EQ(rect.top, 30);
  EXPECT_EQ(rect.right - rect.left, 100);
  EXPECT_EQ(rect.bottom - rect.top, 120);
  EXPECT_FALSE(IsWindowVisible(placeholder));
}

TEST_F(TreeViewTest, ShowsTheFileExpandedAndSorted) {
  PutFavorites(
      "K={0}\ns=49\nd=Favorites\nE\n"
      "K={1}\ns=4\ni=1\nd=zebra\np={0}\nK={2}\ns=4\ni=1\nd=Apple\np={0}\nK={3}\ns=21\nd=folder\np={0}\n"
      "K={4}\ns=4\nd=inner\np={3}\n");
  Create();
  EXPECT_EQ(Shown(), "Favorites(folder(inner) Apple zebra)");
  EXPECT_TRUE(SendMessageA(tree().window(), TVM_GETITEMSTATE,
                           reinterpret_cast<WPARAM>(Record("{3}").treeItem), TVIS_EXPANDED) &
              TVIS_EXPANDED);
}

TEST_F(TreeViewTest, LoadingTwiceGivesTheSameTree) {
  CreateWithSample();
  const std::string before = Shown();
  EXPECT_TRUE(tree().LoadFavorites(file()));
  EXPECT_EQ(Shown(), before);
  EXPECT_EQ(tree().list().records().size(), 5u);
}

TEST_F(TreeViewTest, TheControlShowsTheOrderOfTheList) {
  CreateWithSample();
  auto add = [this](const char* name, int flags, const char* parent) {
    auto record = std::make_unique<FavoriteRecord>();
    record->displayName = name;
    record->flags = flags;
    tree().AddFavorite(std::move(record), &Record(parent));
  };
  add("alpha", kReferenceFlags, "{0}");
  add("zoo", kNewFolderFlags, "{0}");
  add("Atlas", kNewFolderFlags, "{0}");
  add("a.obj", kReferenceFlags, "{1}");
  EXPECT_EQ(Shown(), "Favorites(Atlas Models(a.obj cube.obj) Textures zoo alpha wood.png)");
}

TEST_F(TreeViewTest, ASaveWritesTheTreeAndLeavesDeletedEntriesOut) {
  CreateWithSample();
  tree().DeleteEntry(Record("{1}"));
  EXPECT_EQ(Shown(), "Favorites(Textures wood.png)");
  EXPECT_EQ(tree().list().records().size(), 5u);
  pane->Save();
  const std::string text = TextOfFile(file());
  EXPECT_EQ(text.find("Models"), std::string::npos);
  EXPECT_EQ(text.find("cube"), std::string::npos);
  EXPECT_NE(text.find("wood"), std::string::npos);
}

TEST_F(TreeViewTest, Deliberate_ASaveOfAScrolledTreeStartsAtTheFirstVisibleEntry) {
  std::string text = "K={0}\ns=49\nd=Favorites\nE\nK={1}\ns=21\nd=folder\np={0}\n";
  for (int i = 100; i < 200; ++i) {
    text += "K={" + std::to_string(i) + "}\ns=4\nd=entry " + std::to_string(i) + "\np={1}\n";
  }
  PutFavorites(text);
  Create();
  Show();
  SendMessageA(tree().window(), TVM_SELECTITEM, TVGN_FIRSTVISIBLE,
               reinterpret_cast<LPARAM>(Record("{150}").treeItem));
  pane->Save();
  EXPECT_TRUE(TextOfFile(file()).starts_with("K={150}\r\ns=4\r\ni=0\r\nd=entry 150\r\nE\r\nK={151}"));
}

// The steps of the manual: end the program, put the file with everything into the first one's place, start.
TEST_F(TreeViewTest, WhatAScrolledTreeLeavesOutComesBackFromTheFileWithEverything) {
  std::string text = "K={0}\ns=49\nd=Favorites\nE\n";
  for (int i = 100; i < 188; ++i) {
    const bool isFolder = i % 30 == 10;
    text += "K={" + std::to_string(i) + "}\ns=" + (isFolder ? "21" : "4") + "\nd=entry " + std::to_string(i) +
            "\np={" + (i % 30 > 10 ? std::to_string(i - i % 30 + 10) : "0") + "}\n";
  }
  PutFavorites(text);
  Create();
  Show();
  const std::string all = Shown();
  ASSERT_EQ(tree().list().records().size(), 89u);
  const auto endScrolledTo = [&](HTREEITEM item) {
    SendMessageA(tree().window(), TVM_SELECTITEM, TVGN_FIRSTVISIBLE, reinterpret_cast<LPARAM>(item));
    pane->Save();
    pane.reset();
    Create();
    Show();
  };
  const auto top = [&] {
    return reinterpret_cast<HTREEITEM>(SendMessageA(tree().window(), TVM_GETNEXTITEM, TVGN_ROOT, 0));
  };
  auto item = top();
  for (int i = 1; i < 31; ++i) {
    item = reinterpret_cast<HTREEITEM>(
        SendMessageA(tree().window(), TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, reinterpret_cast<LPARAM>(item)));
  }
  endScrolledTo(item);
  EXPECT_LT(tree().list().records().size(), 89u);
  // Later runs, with one more entry, neither bring the rest back nor lose it.
  auto record = std::make_unique<FavoriteRecord>();
  record->displayName = "added later";
  record->flags = kReferenceFlags;
  tree().AddFavorite(std::move(record), nullptr);
  endScrolledTo(top());
  endScrolledTo(static_cast<HTREEITEM>(tree().list().topLevel().back()->treeItem));
  EXPECT_LT(tree().list().records().size(), 89u);
  pane.reset();
  const std::string everything = folder.Join(std::string_view("favorites.all.dat"));
  ASSERT_TRUE(MoveFileExA(everything.c_str(), file().c_str(), MOVEFILE_REPLACE_EXISTING));
  Create();
  EXPECT_EQ(Shown(), all + " added later");
}

TEST_F(TreeViewTest, TypingEnterDoesNotReachTheControl) {
  Create();
  EXPECT_EQ(SendMessageA(tree().window(), WM_CHAR, '\r', 0), 1);
  EXPECT_EQ(SendMessageA(tree().window(), WM_CHAR, '\n', 0), 1);
}

TEST_F(TreeViewTest, ARenameChangesLabelAndRecordAndIsReported) {
  CreateWithSample();
  Show();
  std::vector<std::string> reports;
  tree().SetChangeCallback(
      [&](const FavoriteRecord& record, const FavoriteRecord* parent, FavoriteChange change) {
        reports.push_back(record.displayName + " in " + parent->displayName + " " +
                          std::to_string(static_cast<int>(change)));
      });
  const HWND edit = StartEditing("{2}");
  ASSERT_NE(edit, nullptr);
  SetWindowTextA(edit, "sphere.obj");
  EndEditing(false);
  EXPECT_EQ(Record("{2}").displayName, "sphere.obj");
  EXPECT_EQ(Shown(), "Favorites(Models(sphere.obj) Textures wood.png)");
  EXPECT_THAT(reports, ElementsAre("sphere.obj in Models 1"));
}

TEST_F(TreeViewTest, AnAdditionAndADeletionAreReportedOnceWithTheFolder) {
  CreateWithSample();
  std::vector<std::string> reports;
  tree().SetChangeCallback(
      [&](const FavoriteRecord& record, const FavoriteRecord* parent, FavoriteChange change) {
        reports.push_back(record.displayName + " in " + parent->displayName + " " +
                          std::to_string(static_cast<int>(change)));
      });
  auto record = std::make_unique<FavoriteRecord>();
  record->displayName = "new";
  tree().AddFavorite(std::move(record), &Record("{1}"));
  tree().DeleteEntry(Record("{1}"));  // with two entries in it
  EXPECT_THAT(reports, ElementsAre("new in Models 0", "Models in Favorites 2"));
}

TEST_F(TreeViewTest, ARenameToNothingKeepsTheOldName) {
  CreateWithSample();
  Show();
  SetWindowTextA(StartEditing("{2}"), "");
  EndEditing(false);
  EXPECT_EQ(Record("{2}").displayName, "cube.obj");
  SetWindowTextA(StartEditing("{2}"), "other");
  EndEditing(true);
  EXPECT_EQ(Record("{2}").displayName, "cube.obj");
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures wood.png)");
}

// The panel is the host's. A host that speaks wide text may have its controls ask again which form it takes.
TEST_F(TreeViewTest, ATreeThatTellsItsPanelWideTextWorksTheSame) {
  CreateWithSample();
  Show();
  SendMessageA(tree().window(), TVM_SETUNICODEFORMAT, TRUE, 0);
  const HWND edit = StartEditing("{2}");
  ASSERT_NE(edit, nullptr);
  EXPECT_NE(GetPropA(edit, "1AFD44F7-ECEE-49e8-AE72-37D663499A44"), nullptr) << "the edit is announced as well";
  SetWindowTextA(edit, "renamed");
  EndEditing(false);
  EXPECT_EQ(Record("{2}").displayName, "renamed");
  EXPECT_EQ(Shown(), "Favorites(Models(renamed) Textures wood.png)");
  EXPECT_EQ(StartEditing("{0}"), nullptr) << "a protected entry";
  SetWindowTextA(StartEditing("{2}"), "other");
  EndEditing(true);
  EXPECT_EQ(Record("{2}").displayName, "renamed");
}

// Half a surrogate pair is no letter of any code page.
TEST_F(TreeViewTest, ALabelThatTheCodePageCannotExpressKeepsTheOldName) {
  CreateWithSample();
  Show();
  wchar_t text[] = L"caf\xD83D";
  NMTVDISPINFOW info = {};
  info.hdr = {tree().window(), 104, static_cast<UINT>(TVN_ENDLABELEDITW)};
  info.item.hItem = static_cast<HTREEITEM>(Record("{2}").treeItem);
  info.item.pszText = text;
  EXPECT_EQ(SendMessageA(panel, WM_NOTIFY, 104, reinterpret_cast<LPARAM>(&info)), FALSE);
  EXPECT_EQ(Record("{2}").displayName, "cube.obj");
}

TEST_F(TreeViewTest, TheLabelEditorTakesEnterAndEscape) {
  CreateWithSample();
  Show();
  const HWND edit = StartEditing("{2}");
  EXPECT_NE(GetPropA(edit, "1AFD44F7-ECEE-49e8-AE72-37D663499A44"), nullptr);
  EXPECT_EQ(SendMessageA(edit, WM_GETDLGCODE, VK_RETURN, 0), DLGC_WANTALLKEYS);
  EXPECT_EQ(SendMessageA(edit, WM_GETDLGCODE, VK_ESCAPE, 0), DLGC_WANTALLKEYS);
  SetWindowTextA(edit, "by key");
  SendMessageA(edit, WM_KEYDOWN, VK_RETURN, 0);
  EXPECT_TRUE(WaitUntil([this] { return Record("{2}").displayName == "by key"; }));
}

TEST_F(TreeViewTest, AProtectedEntryIsNotEditedInPlace) {
  CreateWithSample();
  Show();
  EXPECT_EQ(StartEditing("{0}"), nullptr);
}

TEST_F(TreeViewTest, TheRouterIsOffUntilItIsSwitchedOn) {
  CHalvoTreeView other(GetModuleHandleA(nullptr), panel, nullptr, 105, WS_CHILD | TVS_EDITLABELS);
  ASSERT_TRUE(other.CreateTreeWindow());
  NMHDR click = {other.window(), 105, static_cast<UINT>(NM_CLICK)};
  LRESULT result = 0;
  int activations = 0;
  other.SetActivationCallback([&](const FavoriteRecord*) { ++activations; });
  NMHDR twice = {other.window(), 105, static_cast<UINT>(NM_DBLCLK)};
  EXPECT_FALSE(other.RouteMessage(panel, WM_NOTIFY, 105, reinterpret_cast<LPARAM>(&click), false, &result));
  other.RouteMessage(panel, WM_NOTIFY, 105, reinterpret_cast<LPARAM>(&twice), false, &result);
  EXPECT_EQ(activations, 0);
  other.SetRouterOff(false);
  other.RouteMessage(panel, WM_NOTIFY, 105, reinterpret_cast<LPARAM>(&twice), false, &result);
  EXPECT_EQ(activations, 1);
}

TEST_F(TreeViewTest, ASecondClickOnTheSameItemActivatesIt) {
  CreateWithSample();
  Show();
  Click("{2}");
  EXPECT_THAT(loaded, IsEmpty());
  Click("{4}");
  EXPECT_THAT(loaded, IsEmpty());
  Click("{4}");
  EXPECT_THAT(loaded, ElementsAre("X:\\textures\\wood.png"));
}

// Else the control would begin to edit the label of what has just been loaded.
TEST_F(TreeViewTest, AClickThatActivatesIsKeptFromTheControlAndOneOnAFolderIsNot) {
  CreateWithSample();
  Show();
  const auto notifyClick = [this] {
    NMHDR click = {tree().window(), 104, static_cast<UINT>(NM_CLICK)};
    return SendMessageA(panel, WM_NOTIFY, 104, reinterpret_cast<LPARAM>(&click));
  };
  Click("{4}");
  EXPECT_EQ(notifyClick(), 1);
  EXPECT_EQ(loaded.size(), 1u);
  Click("{3}");
  EXPECT_EQ(notifyClick(), 0);
}

TEST_F(TreeViewTest, AClickThatActivatesStillSelects) {
  CreateWithSample();
  Show();
  Click("{4}");
  Select("{2}");
  Click("{4}");
  EXPECT_EQ(loaded.size(), 1u);
  EXPECT_EQ(tree().current(), &Record("{4}"));
}

TEST_F(TreeViewTest, ASecondClickOnAFoldersNameEditsIt) {
  CreateWithSample();
  Show();
  SetFocus(tree().window());
  Click("{3}");
  Click("{3}");
  EXPECT_TRUE(WaitUntil([this] { return TreeControl(tree().window()).LabelEdit() != nullptr; }));
}

TEST_F(TreeViewTest, ADoubleClickActivatesOnce) {
  CreateWithSample();
  Show();
  const POINT point = PointOf("{2}");
  Click("{2}");
  SendMessageA(tree().window(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(point.x, point.y));
  SendMessageA(tree().window(), WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
  EXPECT_THAT(loaded, ElementsAre("X:\\models\\cube.obj"));
  Click("{2}");
  SendMessageA(tree().window(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(point.x, point.y));
  EXPECT_EQ(loaded.size(), 2u);  // the second click has activated it; the double click adds nothing
}

TEST_F(TreeViewTest, EnterActivates) {
  CreateWithSample();
  Select("{4}");
  SendMessageA(tree().window(), WM_KEYDOWN, VK_RETURN, 0);
  EXPECT_THAT(loaded, ElementsAre("X:\\textures\\wood.png"));
}

TEST_F(TreeViewTest, FoldersAndEntriesWithoutAPathAreNotActivated) {
  PutFavorites("K={0}\ns=49\nd=Favorites\nE\nK={1}\ns=4\nd=nothing\np={0}\n");
  Create();
  for (const char* key : {"{0}", "{1}"}) {
    Select(key);
    SendMessageA(tree().window(), WM_KEYDOWN, VK_RETURN, 0);
  }
  EXPECT_THAT(loaded, IsEmpty());
  EXPECT_THAT(opened, IsEmpty());
}

TEST_F(TreeViewTest, AFolderOnDiskOpensInTheFileView) {
  PutFavorites("K={0}\ns=4\nd=here\nn=" + folder.narrow() + "\nE\n");
  Create();
  Select("{0}");
  SendMessageA(tree().window(), WM_KEYDOWN, VK_RETURN, 0);
  EXPECT_THAT(opened, ElementsAre(folder.narrow()));
  EXPECT_THAT(loaded, IsEmpty());
}

TEST_F(TreeViewTest, CheckBoxesFollowTheFolders) {
  CreateWithSample();
  CHalvoTreeView boxes(GetModuleHandleA(nullptr), panel, nullptr, 105,
                       WS_CHILD | WS_VISIBLE | TVS_CHECKBOXES);
  ASSERT_TRUE(boxes.CreateTreeWindow());
  EXPECT_NE(GetWindowLongPtrA(boxes.window(), GWL_STYLE) & TVS_CHECKBOXES, 0);
  ASSERT_TRUE(boxes.LoadFavorites(file()));
  boxes.SetRouterOff(false);
  ShowWindow(panel, SW_SHOW);
  const auto isChecked = [&](const char* key) {
    const LRESULT state =
        SendMessageA(boxes.window(), TVM_GETITEMSTATE,
                     reinterpret_cast<WPARAM>(boxes.FindByKey(key)->treeItem), TVIS_STATEIMAGEMASK);
    return (static_cast<UINT>(state) & TVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
  };
  // The state icon is left of the label.
  RECT rect = {};
  const TreeControl control(boxes.window());
  control.ItemRect(static_cast<HTREEITEM>(boxes.FindByKey("{1}")->treeItem), &rect);
  POINT point = {rect.left, (rect.top + rect.bottom) / 2};
  UINT flags = 0;
  while (point.x > 0 && (flags & TVHT_ONITEMSTATEICON) == 0) {
    --point.x;
    control.ItemAt(point, &flags);
  }
  ASSERT_NE(flags & TVHT_ONITEMSTATEICON, 0u);
  EXPECT_TRUE(boxes.LeftButtonDown(point));
  EXPECT_TRUE(isChecked("{1}"));
  EXPECT_TRUE(isChecked("{2}"));
  EXPECT_FALSE(isChecked("{0}"));
  EXPECT_TRUE(boxes.FindByKey("{2}")->Has(kFavoriteChecked));
  boxes.LeftButtonDown(point);
  EXPECT_FALSE(isChecked("{1}"));
  EXPECT_FALSE(isChecked("{2}"));
}

// Stands before the tree and refuses items of one name.
WNDPROC behindTheRefusal = nullptr;
LRESULT CALLBACK RefuseBadItems(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == TVM_INSERTITEMA &&
      std::string(reinterpret_cast<const TVINSERTSTRUCTA*>(lParam)->item.pszText) == "refused") {
    return 0;
  }
  return CallWindowProcA(behindTheRefusal, window, message, wParam, lParam);
}

TEST_F(TreeViewTest, AnItemThatTheControlRefusesIsTakenOffTheList) {
  CreateWithSample();
  behindTheRefusal = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrA(tree().window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(RefuseBadItems)));
  auto record = std::make_unique<FavoriteRecord>();
  record->displayName = "refused";
  EXPECT_EQ(tree().AddFavorite(std::move(record), &Record("{0}")), nullptr);
  EXPECT_EQ(tree().list().records().size(), 5u);
  PutFavorites(
      "K={0}\ns=49\nd=Favorites\nE\nK={1}\ns=21\nd=refused\np={0}\nK={2}\ns=4\nd=orphan\np={1}\n"
      "K={3}\ns=4\nd=kept\np={0}\n");
  EXPECT_TRUE(tree().LoadFavorites(file()));
  EXPECT_EQ(Shown(), "Favorites(kept) orphan");
  EXPECT_EQ(tree().list().records().size(), 3u);
  SetWindowLongPtrA(tree().window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(behindTheRefusal));
}

TEST_F(TreeViewTest, ManyFavouritesInAnyOrderAreShownSorted) {
  std::string text = "K={0}\ns=49\nd=Favorites\nE\n";
  for (int i = 0; i < 3000; ++i) {
    text += "K={" + std::to_string(i + 1) + "}\ns=4\nd=entry " + std::to_string(100000 + i * 7919 % 3001) +
            "\np={0}\n";
  }
  PutFavorites(text);
  Create();
  const std::vector<FavoriteRecord*>& children = Record("{0}").children;
  ASSERT_EQ(children.size(), 3000u);
  auto item = reinterpret_cast<HTREEITEM>(SendMessageA(tree().window(), TVM_GETNEXTITEM, TVGN_CHILD,
                                                       reinterpret_cast<LPARAM>(Record("{0}").treeItem)));
  for (const FavoriteRecord* const child : children) {
    ASSERT_EQ(item, child->treeItem) << child->displayName;
    item = reinterpret_cast<HTREEITEM>(
        SendMessageA(tree().window(), TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(item)));
  }
  EXPECT_TRUE(std::is_sorted(children.begin(), children.end(),
                             [](const auto* a, const auto* b) { return a->sortKey < b->sortKey; }));
}

TEST_F(TreeViewTest, ThePicturesAreSixteenByFifteen) {
  const HBITMAP strip = CreateBitmap(6 * 16, 15, 1, 32, nullptr);
  const FavoriteImages images = MakeFavoriteImages(strip);
  DeleteObject(strip);
  int width = 0;
  int height = 0;
  ASSERT_TRUE(ImageList_GetIconSize(images->get(), &width, &height));
  EXPECT_EQ(width, 16);
  EXPECT_EQ(height, 15);
  EXPECT_EQ(ImageList_GetImageCount(images->get()), 6);
  EXPECT_EQ(MakeFavoriteImages(nullptr), nullptr);
}

TEST_F(TreeViewTest, AParentThatGoesFirstDoesNoHarm) {
  CreateWithSample();
  DestroyWindow(panel);
  EXPECT_EQ(tree().window(), nullptr);
  tree().DeleteEntry(Record("{4}"));
  pane.reset();
}

}  // namespace
}  // namespace file_explorer
