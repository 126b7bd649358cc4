// Dropping files onto the list and the tree through their drop targets, and what leaves them in a drag.
#include <windows.h>

#include <ole2.h>
#include <shlobj.h>

#include "tests/integration/fileops/fileops_fixture.h"
#include "workbench/controls/shell/file_drag.h"
#include "workbench/controls/shell/file_list.h"

namespace fileops_test {
namespace {

using controls::ComRef;
using testing::ElementsAre;

constexpr DWORD kAll = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;

class DragDropTest : public FileOpsTest {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\a.txt", "of a");
    fixture_.directory().AddFolder(L"files\\sub");
    fixture_.directory().AddFile(L"outside\\x.txt", "of x");
    fixture_.directory().AddFolder(L"outside\\folder\\child");
  }
  std::wstring Outside(const std::wstring& name) { return fixture_.directory().Join(L"outside\\" + name); }
  std::string OutsidePath(const std::string& name) { return fixture_.directory().Join("outside\\" + name); }

  // The drop target that a window has registered.
  static IDropTarget* TargetOf(HWND window) {
    return static_cast<IDropTarget*>(GetPropA(window, "OleDropTargetInterface"));
  }
  POINTL PointOf(const std::string& name) {
    RECT rect = {};
    rect.left = LVIR_LABEL;
    SendMessageA(list(), LVM_GETITEMRECT, static_cast<WPARAM>(fixture_.IndexOf(name)),
                 reinterpret_cast<LPARAM>(&rect));
    return OnScreen(list(), rect.left + 4, (rect.top + rect.bottom) / 2);
  }
  POINTL EmptyArea() {
    RECT rect = {};
    GetClientRect(list(), &rect);
    return OnScreen(list(), rect.right / 2, rect.bottom - 30);
  }
  POINTL PointOf(HTREEITEM item) {
    SendMessageA(tree(), TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
    RECT rect = {};
    *reinterpret_cast<HTREEITEM*>(&rect) = item;
    SendMessageA(tree(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect));
    return OnScreen(tree(), rect.left + 4, (rect.top + rect.bottom) / 2);
  }
  static POINTL OnScreen(HWND window, LONG x, LONG y) {
    POINT point = {x, y};
    ClientToScreen(window, &point);
    return {point.x, point.y};
  }

  // Drags over a point; gives the effect that is offered there.
  DWORD Hover(HWND view, const std::vector<std::wstring>& paths, POINTL point, DWORD keys = MK_LBUTTON,
              DWORD allowed = kAll) {
    data_ = controls::MakeFileData(paths);
    DWORD effect = allowed;
    TargetOf(view)->DragEnter(data_.get(), keys, point, &effect);
    effect = allowed;
    TargetOf(view)->DragOver(keys, point, &effect);
    return effect;
  }
  void Leave(HWND view) { TargetOf(view)->DragLeave(); }
  DWORD Drop(HWND view, const std::vector<std::wstring>& paths, POINTL point, DWORD keys = MK_LBUTTON,
             DWORD allowed = kAll) {
    Hover(view, paths, point, keys, allowed);
    DWORD effect = allowed;
    TargetOf(view)->Drop(data_.get(), keys & ~static_cast<DWORD>(MK_LBUTTON | MK_RBUTTON), point, &effect);
    return effect;
  }
  HTREEITEM DropNode() const { return NextNode(TVGN_DROPHILITE); }

  ComRef<IDataObject> data_;
};

TEST_F(DragDropTest, DroppedOntoTheEmptyAreaFilesMoveIntoTheShownFolder) {
  Start(2);
  ASSERT_NE(TargetOf(list()), nullptr);
  EXPECT_EQ(Hover(list(), {Outside(L"x.txt")}, EmptyArea()), static_cast<DWORD>(DROPEFFECT_MOVE));
  Leave(list());
  EXPECT_EQ(Drop(list(), {Outside(L"x.txt")}, EmptyArea()), static_cast<DWORD>(DROPEFFECT_NONE))
      << "the files are moved here: a source that heard of a move would delete them as well";
  EXPECT_TRUE(Shows("x.txt"));
  EXPECT_EQ(Content(Path("x.txt")), "of x");
  EXPECT_FALSE(Exists(OutsidePath("x.txt")));
}

TEST_F(DragDropTest, WithControlTheyAreCopied) {
  Start(2);
  EXPECT_EQ(Drop(list(), {Outside(L"x.txt")}, EmptyArea(), MK_LBUTTON | MK_CONTROL),
            static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_TRUE(Shows("x.txt"));
  EXPECT_TRUE(Exists(OutsidePath("x.txt")));
}

TEST_F(DragDropTest, DroppedOntoAFoldersRowFilesGoIntoThatFolder) {
  Start(2);
  Drop(list(), {Outside(L"x.txt"), Outside(L"folder")}, PointOf("sub"));
  EXPECT_TRUE(WaitUntil([&] { return Exists(Path("sub\\x.txt")) && Exists(Path("sub\\folder\\child")); }));
  EXPECT_FALSE(Exists(OutsidePath("folder")));
}

TEST_F(DragDropTest, DroppedOntoAFilesRowFilesGoIntoTheShownFolder) {
  Start(2);
  Drop(list(), {Outside(L"x.txt")}, PointOf("a.txt"));
  EXPECT_TRUE(Shows("x.txt"));
  EXPECT_EQ(Content(Path("a.txt")), "of a");
}

TEST_F(DragDropTest, WhatIsInTheFolderAlreadyIsNotMovedThere) {
  Start(2);
  const std::wstring file = fixture_.directory().Join(L"files\\a.txt");
  EXPECT_EQ(Hover(list(), {file}, EmptyArea()), static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(Hover(list(), {file}, PointOf("sub")), static_cast<DWORD>(DROPEFFECT_MOVE));
  Leave(list());
  Drop(list(), {file}, PointOf("sub"));
  EXPECT_TRUE(Loses("a.txt"));
  EXPECT_EQ(Content(Path("sub\\a.txt")), "of a");
}

TEST_F(DragDropTest, AFolderIsRefusedByItselfAndByItsOwnChild) {
  Start(2);
  const std::wstring sub = fixture_.directory().Join(L"files\\sub");
  const std::wstring files = fixture_.directory().Join(L"files");
  EXPECT_EQ(Hover(list(), {sub}, PointOf("sub")), static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(Hover(list(), {files}, PointOf("sub"), MK_LBUTTON | MK_CONTROL),
            static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(Drop(list(), {files}, PointOf("sub")), static_cast<DWORD>(DROPEFFECT_NONE));
  ASSERT_TRUE(ExpandSelected({"sub"}));
  const HTREEITEM node = ChildOf(NextNode(TVGN_CARET), "sub");
  EXPECT_EQ(Hover(tree(), {sub}, PointOf(node)), static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(Hover(tree(), {files}, PointOf(node)), static_cast<DWORD>(DROPEFFECT_NONE));
  Leave(tree());
  EXPECT_EQ(Drop(tree(), {files}, PointOf(node)), static_cast<DWORD>(DROPEFFECT_NONE));
  test_support::PumpMessages();
  EXPECT_TRUE(Exists(Path("a.txt")));
  EXPECT_TRUE(fixture_.boxes().boxes().empty());
}

TEST_F(DragDropTest, DroppedOntoANodeFilesGoIntoItsFolder) {
  Start(2);
  ASSERT_TRUE(ExpandSelected({"sub"}));
  const HTREEITEM node = ChildOf(NextNode(TVGN_CARET), "sub");
  EXPECT_EQ(Hover(tree(), {Outside(L"folder")}, PointOf(node)), static_cast<DWORD>(DROPEFFECT_MOVE));
  EXPECT_EQ(DropNode(), node) << "the target is marked";
  Leave(tree());
  EXPECT_EQ(DropNode(), nullptr);
  Drop(tree(), {Outside(L"folder")}, PointOf(node));
  EXPECT_TRUE(WaitUntil([&] { return Exists(Path("sub\\folder\\child")); }));
  EXPECT_EQ(DropNode(), nullptr);
}

TEST_F(DragDropTest, ANodeOpensWhenFilesStayOverIt) {
  fixture_.directory().AddFolder(L"files\\sub\\below");
  Start(2);
  ASSERT_TRUE(ExpandSelected({"sub"}));
  const HTREEITEM node = ChildOf(NextNode(TVGN_CARET), "sub");
  Hover(tree(), {Outside(L"x.txt")}, PointOf(node));
  EXPECT_TRUE(WaitUntil([&] { return ChildOf(node, "below") != nullptr; }));
  Leave(tree());
}

TEST_F(DragDropTest, AVirtualFolderTakesNothing) {
  Start(2);
  EXPECT_EQ(Hover(tree(), {Outside(L"x.txt")}, PointOf(NextNode(TVGN_ROOT))),
            static_cast<DWORD>(DROPEFFECT_NONE));
  Leave(tree());
}

TEST_F(DragDropTest, BothRefuseWhenTheOptionIsOff) {
  Option("FileView_AllowDragandDrop", "0");
  Option("TreeView_AllowDragandDrop", "0");
  Start(2);
  ASSERT_TRUE(ExpandSelected({"sub"}));
  const HTREEITEM node = ChildOf(NextNode(TVGN_CARET), "sub");
  EXPECT_EQ(Hover(list(), {Outside(L"x.txt")}, EmptyArea()), static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(Hover(tree(), {Outside(L"x.txt")}, PointOf(node)), static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(DropNode(), nullptr);
  EXPECT_EQ(Drop(list(), {Outside(L"x.txt")}, EmptyArea()), static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(Drop(tree(), {Outside(L"x.txt")}, PointOf(node)), static_cast<DWORD>(DROPEFFECT_NONE));
  test_support::PumpMessages();
  EXPECT_TRUE(Exists(OutsidePath("x.txt")));
}

TEST_F(DragDropTest, ASourceThatForbidsMovingIsCopied) {
  Start(2);
  EXPECT_EQ(Hover(list(), {Outside(L"x.txt")}, EmptyArea(), MK_LBUTTON, DROPEFFECT_COPY),
            static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_EQ(Hover(list(), {Outside(L"x.txt")}, EmptyArea(), MK_LBUTTON, DROPEFFECT_LINK),
            static_cast<DWORD>(DROPEFFECT_NONE));
  Leave(list());
}

TEST_F(DragDropTest, DataWithoutFilesIsRefused) {
  Start(2);
  EXPECT_EQ(Hover(list(), {}, EmptyArea()), static_cast<DWORD>(DROPEFFECT_NONE));
  DWORD effect = kAll;
  EXPECT_EQ(TargetOf(list())->DragEnter(nullptr, MK_LBUTTON, EmptyArea(), &effect), S_OK);
  EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_NONE));
  Leave(list());
}

TEST_F(DragDropTest, TheRightButtonAsks) {
  Start(2);
  driver_.ChooseFromMenu("Copy Here");
  Drop(list(), {Outside(L"x.txt")}, EmptyArea(), MK_RBUTTON);
  EXPECT_TRUE(Shows("x.txt"));
  EXPECT_TRUE(Exists(OutsidePath("x.txt")));
  ASSERT_EQ(driver_.menus().size(), 1U);
  EXPECT_THAT(driver_.menus()[0].captions, ElementsAre("Copy Here", "Move Here", "-", "Cancel"));
  EXPECT_EQ(driver_.menus()[0].defaultItem, "Move Here");
}

TEST_F(DragDropTest, AFailureIsSaidByNameAndTheNextDropWorks) {
  Start(2);
  DeleteFileW(Outside(L"x.txt").c_str());
  Drop(list(), {Outside(L"x.txt")}, EmptyArea());
  EXPECT_TRUE(WaitUntil([this] { return fixture_.boxes().boxes().size() == 1; }));
  EXPECT_THAT(LastBox(), testing::HasSubstr("x.txt"));
  Drop(list(), {Outside(L"folder")}, EmptyArea());
  EXPECT_TRUE(Shows("folder"));
  EXPECT_EQ(fixture_.boxes().boxes().size(), 1U);
}

TEST(DraggedFiles, LeaveAsAListOfFilesAndLeaveTheEffectToTheTarget) {
  OleInitialize(nullptr);
  const ComRef<IDataObject> data = controls::MakeFileData({L"C:\\one.txt", L"C:\\two words.txt"});
  EXPECT_THAT(controls::FilesOf(data.get()), ElementsAre(L"C:\\one.txt", L"C:\\two words.txt"));
  for (const UINT format : {controls::PreferredEffectFormat(), static_cast<UINT>(CF_TEXT)}) {
    FORMATETC asked = {static_cast<CLIPFORMAT>(format), nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium = {};
    EXPECT_EQ(data->QueryGetData(&asked), DV_E_FORMATETC) << format;
    EXPECT_EQ(data->GetData(&asked, &medium), DV_E_FORMATETC) << format;
  }
  ComRef<IEnumFORMATETC> formats;
  ASSERT_EQ(data->EnumFormatEtc(DATADIR_GET, formats.put()), S_OK);
  FORMATETC offered[4] = {};
  ULONG count = 0;
  formats->Next(4, offered, &count);
  ASSERT_EQ(count, 1U);
  EXPECT_EQ(offered[0].cfFormat, CF_HDROP);
  OleUninitialize();
}

}  // namespace
}  // namespace fileops_test
