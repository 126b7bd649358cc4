// Dragging favourites from folder to folder.
#include <gtest/gtest.h>

#include "tests/integration/favorites/favorites_fixture.h"
#include "tests/support/wait_until.h"

namespace file_explorer {
namespace {

class TreeDragTest : public FavoritesFixture {
 protected:
  // The panel's own messages while it has the mouse.
  void SendToPanel(UINT message, const char* key) {
    POINT point = PointOf(key);
    MapWindowPoints(tree().window(), panel, &point, 1);
    SendMessageA(panel, message, 0, MAKELPARAM(point.x, point.y));
  }
  void BeginDrag(const char* key) {
    NMTREEVIEWA info = {};
    info.hdr = {tree().window(), 104, static_cast<UINT>(TVN_BEGINDRAGA)};
    info.itemNew.hItem = static_cast<HTREEITEM>(Record(key).treeItem);
    info.ptDrag = PointOf(key);
    SendMessageA(panel, WM_NOTIFY, 104, reinterpret_cast<LPARAM>(&info));
  }
  void Drag(const char* from, const char* to) {
    BeginDrag(from);
    SendToPanel(WM_MOUSEMOVE, to);
    SendToPanel(WM_LBUTTONUP, to);
  }
  bool IsHighlighted(const char* key) {
    const auto item = reinterpret_cast<WPARAM>(Record(key).treeItem);
    return (SendMessageA(tree().window(), TVM_GETITEMSTATE, item, TVIS_DROPHILITED) & TVIS_DROPHILITED) != 0;
  }
  static int CursorCount() {
    const int count = ShowCursor(TRUE);
    ShowCursor(FALSE);
    return count - 1;
  }
};

TEST_F(TreeDragTest, AReferenceMovesIntoAFolder) {
  CreateWithSample();
  Show();
  Drag("{4}", "{1}");
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj wood.png) Textures)");
}

TEST_F(TreeDragTest, ADropOnAReferenceGoesToItsFolder) {
  CreateWithSample();
  Show();
  Drag("{4}", "{2}");
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj wood.png) Textures)");
}

TEST_F(TreeDragTest, AFolderMovesWithEverythingInIt) {
  CreateWithSample();
  Show();
  Drag("{1}", "{3}");
  EXPECT_EQ(Shown(), "Favorites(Textures(Models(cube.obj)) wood.png)");
  EXPECT_EQ(tree().list().records()[1]->displayName, "Models");
  pane->Save();
  EXPECT_TRUE(tree().LoadFavorites(file()));
  EXPECT_EQ(Shown(), "Favorites(Textures(Models(cube.obj)) wood.png)");
}

TEST_F(TreeDragTest, NothingMovesOntoItselfOrBelowItself) {
  CreateWithSample();
  Show();
  const std::string before = Shown();
  Drag("{1}", "{1}");
  Drag("{1}", "{2}");
  EXPECT_EQ(Shown(), before);
}

TEST_F(TreeDragTest, AClosedFolderStaysClosedWhenItMovesAndAnOpenOneOpen) {
  PutFavorites(
      "K={0}\ns=49\nd=Favorites\nE\nK={1}\ns=21\nd=outer\np={0}\nK={2}\ns=21\nd=inner\np={1}\n"
      "K={3}\ns=6\nd=leaf\nn=X:\\leaf\np={2}\nK={4}\ns=21\nd=target\np={0}\n");
  Create();
  Show();
  const auto itemOf = [this](const char* key) { return reinterpret_cast<LPARAM>(Record(key).treeItem); };
  const auto isOpen = [&](const char* key) {
    return TreeControl(tree().window()).IsExpanded(reinterpret_cast<HTREEITEM>(itemOf(key)));
  };
  SendMessageA(tree().window(), TVM_EXPAND, TVE_COLLAPSE, itemOf("{2}"));
  Drag("{1}", "{4}");
  EXPECT_EQ(Shown(), "Favorites(target(outer(inner(leaf))))");
  EXPECT_TRUE(isOpen("{1}"));
  EXPECT_FALSE(isOpen("{2}"));
  EXPECT_EQ(SendMessageA(tree().window(), TVM_GETITEMSTATE, static_cast<WPARAM>(itemOf("{3}")),
                         TVIS_STATEIMAGEMASK) &
                TVIS_STATEIMAGEMASK,
            static_cast<LRESULT>(INDEXTOSTATEIMAGEMASK(2)));
}

TEST_F(TreeDragTest, NothingMovesToAPlaceWithoutAnItemOrAFolderThatTakesNoDrops) {
  PutFavorites(
      "K={0}\ns=49\nd=Favorites\nE\nK={1}\ns=5\nd=closed\np={0}\nK={2}\ns=4\nd=leaf\np={0}\n"
      "K={3}\ns=4\nd=at the top\nE\n");
  Create();
  Show();
  const std::string before = Shown();
  Drag("{2}", "{1}");
  Drag("{2}", "{3}");
  BeginDrag("{2}");
  SendMessageA(panel, WM_MOUSEMOVE, 0, MAKELPARAM(150, 380));
  SendMessageA(panel, WM_LBUTTONUP, 0, MAKELPARAM(150, 380));
  EXPECT_EQ(Shown(), before);
}

TEST_F(TreeDragTest, TheRootIsNotDragged) {
  CreateWithSample();
  Show();
  BeginDrag("{0}");
  EXPECT_NE(GetCapture(), panel);
}

TEST_F(TreeDragTest, MovesAreNotReported) {
  CreateWithSample();
  Show();
  int reports = 0;
  tree().SetChangeCallback([&](const FavoriteRecord&, const FavoriteRecord*, FavoriteChange) { ++reports; });
  Drag("{4}", "{1}");
  EXPECT_EQ(reports, 0);
}

TEST_F(TreeDragTest, ADragHoldsTheMouseAndGivesItBack) {
  CreateWithSample();
  Show();
  const int cursor = CursorCount();
  BeginDrag("{4}");
  EXPECT_EQ(GetCapture(), panel);
  EXPECT_EQ(CursorCount(), cursor - 1);
  SendToPanel(WM_MOUSEMOVE, "{3}");
  EXPECT_TRUE(IsHighlighted("{3}"));
  SendToPanel(WM_RBUTTONUP, "{3}");
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_EQ(CursorCount(), cursor);
  EXPECT_FALSE(IsHighlighted("{3}"));
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures(wood.png))");
}

TEST_F(TreeDragTest, APictureOfTheItemFollowsTheMouse) {
  CreateWithSample();
  const HBITMAP strip = CreateBitmap(6 * 16, 15, 1, 32, nullptr);
  const FavoriteImages images = MakeFavoriteImages(strip);
  DeleteObject(strip);
  tree().SetImages(images);
  Show();
  BeginDrag("{4}");
  POINT place = {};
  EXPECT_NE(ImageList_GetDragImage(&place, nullptr), nullptr);
  const int before = place.y;
  SendToPanel(WM_MOUSEMOVE, "{1}");
  ImageList_GetDragImage(&place, nullptr);
  EXPECT_EQ(before - place.y, PointOf("{4}").y - PointOf("{1}").y);
  SendToPanel(WM_LBUTTONUP, "{1}");
  EXPECT_EQ(ImageList_GetDragImage(&place, nullptr), nullptr);
}

TEST_F(TreeDragTest, EscapeAndALostMouseCancel) {
  CreateWithSample();
  Show();
  const std::string before = Shown();
  const int cursor = CursorCount();
  BeginDrag("{4}");
  SendToPanel(WM_MOUSEMOVE, "{1}");
  SendMessageA(tree().window(), WM_KEYDOWN, VK_ESCAPE, 0);
  SendToPanel(WM_LBUTTONUP, "{1}");
  BeginDrag("{4}");
  SendToPanel(WM_MOUSEMOVE, "{1}");
  ReleaseCapture();
  SendToPanel(WM_LBUTTONUP, "{1}");
  EXPECT_EQ(Shown(), before);
  EXPECT_EQ(CursorCount(), cursor);
}

TEST_F(TreeDragTest, ADragEndsWithThePane) {
  CreateWithSample();
  Show();
  const int cursor = CursorCount();
  BeginDrag("{4}");
  pane.reset();
  EXPECT_EQ(CursorCount(), cursor);
  EXPECT_EQ(GetCapture(), nullptr);
}

// The keys that do what a drag does.
class TreeMoveByKeysTest : public TreeDragTest {
 protected:
  ~TreeMoveByKeysTest() override { HoldControl(false); }
  static void HoldControl(bool down) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_CONTROL] = down ? 0x80 : 0;
    SetKeyboardState(keys);
  }
  void Type(const char* key, WPARAM letter) {
    Select(key);
    HoldControl(true);
    SendMessageA(tree().window(), WM_KEYDOWN, letter, 1);
    HoldControl(false);
  }
  bool IsFaded(const char* key) {
    const auto item = reinterpret_cast<WPARAM>(Record(key).treeItem);
    return (SendMessageA(tree().window(), TVM_GETITEMSTATE, item, TVIS_CUT) & TVIS_CUT) != 0;
  }
};

TEST_F(TreeMoveByKeysTest, CutAndPasteMoveAnEntryAsADropWould) {
  CreateWithSample();
  Show();
  Type("{4}", 'X');
  EXPECT_TRUE(IsFaded("{4}"));
  Type("{2}", 'V');  // a reference: its folder
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj wood.png) Textures)");
  EXPECT_FALSE(IsFaded("{4}"));
  EXPECT_EQ(tree().current(), &Record("{4}"));
  Type("{3}", 'V');  // has been done
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj wood.png) Textures)");
}

TEST_F(TreeMoveByKeysTest, WhatADropRefusesIsRefused) {
  CreateWithSample();
  Show();
  const std::string before = Shown();
  Type("{0}", 'X');
  EXPECT_FALSE(IsFaded("{0}"));
  Type("{3}", 'V');
  Type("{1}", 'X');
  Type("{2}", 'V');
  EXPECT_EQ(Shown(), before);
  Type("{3}", 'V');
  EXPECT_EQ(Shown(), "Favorites(Textures(Models(cube.obj)) wood.png)");
}

TEST_F(TreeMoveByKeysTest, AnotherEntryTakesThePlaceOfTheOneThatWasCut) {
  CreateWithSample();
  Show();
  Type("{4}", 'X');
  Type("{2}", 'X');
  EXPECT_FALSE(IsFaded("{4}"));
  EXPECT_TRUE(IsFaded("{2}"));
  SendMessageA(tree().window(), WM_KEYDOWN, VK_ESCAPE, 1);
  EXPECT_FALSE(IsFaded("{2}"));
  Type("{3}", 'V');
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures wood.png)");
}

TEST_F(TreeMoveByKeysTest, AnEntryThatIsGoneIsNotMoved) {
  CreateWithSample();
  Show();
  Type("{4}", 'X');
  tree().DeleteEntry(Record("{4}"));
  Type("{3}", 'V');
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures)");
  Type("{2}", 'X');
  tree().LoadFavorites(file());
  Type("{3}", 'V');
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures wood.png)");
}

TEST_F(TreeDragTest, TheControlsOwnGestureStartsADrag) {
  CreateWithSample();
  Show();
  const POINT from = PointOf("{4}");
  const HWND window = tree().window();
  SetCursorPos(0, 0);
  // What the control's drag detection finds in the queue.
  PostMessageA(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(from.x + 20, from.y));
  SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(from.x, from.y));
  EXPECT_EQ(GetCapture(), panel);
  SendToPanel(WM_LBUTTONUP, "{1}");
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj wood.png) Textures)");
}

}  // namespace
}  // namespace file_explorer
