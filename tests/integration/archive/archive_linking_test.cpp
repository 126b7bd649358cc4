// Tree and path box while the list is in an archive.
#include "tests/integration/archive/archive_fixture.h"

#include <cwchar>

namespace controls_test {
namespace {

class ArchiveLinking : public ArchiveFixture {
 protected:
  void SetUp() override {
    ArchiveFixture::SetUp();
    ASSERT_EQ(PutObject(combo_.dispatch(), 8, tree_.unknown()), S_OK);
    ASSERT_EQ(PutObject(tree_.dispatch(), 24, view_.unknown()), S_OK);
    ASSERT_TRUE(view_.GoAndWait(Archive()));
  }
  std::wstring TreePath() { return GetText(GetObject(tree_.dispatch(), 7).get(), 1); }
  HWND Combo() { return reinterpret_cast<HWND>(static_cast<LONG_PTR>(GetLong(combo_.dispatch(), 13))); }
  HWND Edit() { return reinterpret_cast<HWND>(SendMessageW(Combo(), CBEM_GETEDITCONTROL, 0, 0)); }
  HWND Tree() { return reinterpret_cast<HWND>(static_cast<LONG_PTR>(GetLong(tree_.dispatch(), 23))); }
  std::wstring ComboText() {
    wchar_t text[1024] = L"";
    GetWindowTextW(Edit(), text, 1024);
    return text;
  }
  void Type(const std::wstring& text) {
    SetWindowTextW(Edit(), text.c_str());
    SendMessageW(Edit(), WM_KEYDOWN, VK_RETURN, 0);
  }

  Hosted tree_{kFolderView};
  Hosted combo_{kComboView};
};

TEST_F(ArchiveLinking, TheBoxShowsThePathThroughTheArchiveAndTheTreeStaysOnItsFolder) {
  EXPECT_EQ(ComboText(), Archive());
  EXPECT_EQ(TreePath(), folder_.path());
  Enter(L"models");
  ASSERT_TRUE(WaitForNames({L"parts", L"teapot.obj"}));
  EXPECT_EQ(ComboText(), Archive(L"models"));
  EXPECT_EQ(TreePath(), folder_.path());
}

TEST_F(ArchiveLinking, BackOnDiskAllThreeAreThere) {
  ASSERT_EQ(CallMethod(view_.dispatch(), 44), S_OK);
  ASSERT_TRUE(WaitUntil([&] { return ViewPath() == folder_.path(); }));
  EXPECT_EQ(ComboText(), folder_.path());
  EXPECT_EQ(TreePath(), folder_.path());
}

TEST_F(ArchiveLinking, ATypedPathLeadsIntoTheArchive) {
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  Type(Archive(L"models\\parts"));
  ASSERT_TRUE(WaitForNames({L"lid.obj"}));
  EXPECT_EQ(ComboText(), Archive(L"models\\parts"));
  Type(Archive());
  EXPECT_TRUE(WaitForNames({L"models", L"readme.txt"}));
}

TEST_F(ArchiveLinking, ATypedPathThatTheArchiveDoesNotHaveIsRefused) {
  Type(Archive(L"no such folder"));
  EXPECT_TRUE(WaitUntil([&] { return ComboText() == Archive(); })) << "the old path comes back";
  EXPECT_EQ(ViewPath(), Archive());
}

TEST_F(ArchiveLinking, AClickOnTheTreesSelectedFolderLeavesTheArchive) {
  const auto item = reinterpret_cast<HTREEITEM>(SendMessageW(Tree(), TVM_GETNEXTITEM, TVGN_CARET, 0));
  SendMessageW(Tree(), TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  RECT rect = {};
  *reinterpret_cast<HTREEITEM*>(&rect) = item;
  ASSERT_TRUE(SendMessageW(Tree(), TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect)));
  POINT point = {rect.left + 3, (rect.top + rect.bottom) / 2};
  const LPARAM at = MAKELPARAM(point.x, point.y);
  ClientToScreen(Tree(), &point);
  SetCursorPos(point.x, point.y);
  PumpMessages();
  PostMessageW(Tree(), WM_LBUTTONDOWN, MK_LBUTTON, at);
  PostMessageW(Tree(), WM_LBUTTONUP, 0, at);
  EXPECT_TRUE(WaitUntil([&] { return ViewPath() == folder_.path(); }));
}

TEST_F(ArchiveLinking, EnterInTheTreeLeavesTheArchive) {
  SendMessageW(Tree(), WM_KEYDOWN, VK_RETURN, 0);
  EXPECT_TRUE(WaitUntil([&] { return ViewPath() == folder_.path(); }));
}

TEST_F(ArchiveLinking, TheOpenListOfTheBoxShowsTheWayThroughTheArchive) {
  Enter(L"models");
  ASSERT_TRUE(WaitForNames({L"parts", L"teapot.obj"}));
  SendMessageW(Combo(), CB_SHOWDROPDOWN, TRUE, 0);
  std::vector<std::wstring> texts;
  const auto count = static_cast<int>(SendMessageW(Combo(), CB_GETCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) {
    wchar_t text[300] = L"";
    COMBOBOXEXITEMW row = {};
    row.mask = CBEIF_TEXT;
    row.iItem = i;
    row.pszText = text;
    row.cchTextMax = 300;
    SendMessageW(Combo(), CBEM_GETITEMW, 0, reinterpret_cast<LPARAM>(&row));
    texts.emplace_back(text);
  }
  SendMessageW(Combo(), CB_SHOWDROPDOWN, FALSE, 0);
  EXPECT_THAT(texts, testing::IsSupersetOf({L"box.zip ", L"models "}));
}

}  // namespace
}  // namespace controls_test
