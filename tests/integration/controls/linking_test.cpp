// Tree, list and path box stand at the same folder, whichever the user moves.
#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>
#include <optional>

#include "tests/integration/controls/control_container.h"
#include "tests/support/temp_directory.h"
#include "tests/support/unexpected_boxes.h"
#include "tests/support/wait_until.h"

namespace controls_test {
namespace {

using test_support::PumpMessages;
using test_support::TempDirectory;
using test_support::WaitUntil;

class Linking : public testing::Test {
 protected:
  void SetUp() override {
    folder_.AddFile(L"one\\a.obj");
    folder_.AddFile(L"two\\b.obj");
    folder_.AddFile(L"two\\deeper\\c.obj");
  }
  void Link() {
    ASSERT_EQ(PutObject(combo_.dispatch(), 8, tree_.unknown()), S_OK);
    ASSERT_EQ(PutObject(tree_.dispatch(), 24, view_.unknown()), S_OK);
  }
  static bool Same(const std::wstring& a, const std::wstring& b) {
    return _wcsicmp(a.c_str(), b.c_str()) == 0;
  }
  std::wstring ViewPath() { return GetText(GetObject(view_.dispatch(), 69).get(), 1); }
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
  void ExpectAllAt(const std::wstring& path) {
    EXPECT_TRUE(WaitUntil([&] { return Same(ViewPath(), path); })) << "list";
    EXPECT_TRUE(Same(TreePath(), path)) << "tree";
    EXPECT_TRUE(Same(ComboText(), path)) << "box";
  }

  TempDirectory folder_;
  Hosted view_{kFileView};
  Hosted tree_{kFolderView};
  Hosted combo_{kComboView};
};

TEST_F(Linking, TheListLeads) {
  Link();
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"one")));
  ExpectAllAt(folder_.Join(L"one"));
  EXPECT_EQ(view_.log().Count(3), 1) << "no echo";
}

TEST_F(Linking, TheTreeLeads) {
  Link();
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"two\\deeper")));
  const auto selected = reinterpret_cast<HTREEITEM>(SendMessageW(Tree(), TVM_GETNEXTITEM, TVGN_CARET, 0));
  const LPARAM parent =
      SendMessageW(Tree(), TVM_GETNEXTITEM, TVGN_PARENT, reinterpret_cast<LPARAM>(selected));
  SendMessageW(Tree(), TVM_SELECTITEM, TVGN_CARET, parent);
  ExpectAllAt(folder_.Join(L"two"));
  EXPECT_EQ(view_.log().Count(3), 2);
}

TEST_F(Linking, TheSelectedFolderStaysInSightUnlessTheUserScrollsAway) {
  for (int i = 0; i < 60; ++i) folder_.AddFolder(L"one\\brother " + std::to_wstring(i));
  folder_.AddFolder(L"one\\the last one");
  Link();
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"one\\the last one")));
  const auto relative = [&](UINT relation, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(Tree(), TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
  };
  const HTREEITEM selected = relative(TVGN_CARET, nullptr);
  const auto brothers = [&] {
    int count = 0;
    for (HTREEITEM item = relative(TVGN_CHILD, relative(TVGN_PARENT, selected)); item;
         item = relative(TVGN_NEXT, item))
      ++count;
    return count;
  };
  ASSERT_TRUE(WaitUntil([&] { return brothers() == 61; })) << brothers();
  const auto inSight = [&] {
    RECT row = {};
    std::memcpy(&row, &selected, sizeof(selected));
    RECT client = {};
    GetClientRect(Tree(), &client);
    return SendMessageW(Tree(), TVM_GETITEMRECT, FALSE, reinterpret_cast<LPARAM>(&row)) != 0 && row.top >= 0 &&
           row.bottom <= client.bottom;
  };
  EXPECT_TRUE(WaitUntil(inSight)) << "though its brothers came after it";
  const HWND window = GetParent(Tree());
  RECT size = {};
  GetClientRect(window, &size);
  const auto resize = [&](int height) {
    SetWindowPos(window, nullptr, 0, 0, size.right, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  };
  resize(size.bottom / 2);
  EXPECT_TRUE(inSight()) << "in the smaller window too";
  SendMessageW(Tree(), WM_VSCROLL, SB_TOP, 0);
  ASSERT_FALSE(inSight());
  resize(size.bottom / 3);
  EXPECT_FALSE(inSight()) << "who looks elsewhere stays there";
}

TEST_F(Linking, ThePathBoxLeads) {
  Link();
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"one")));
  Type(L"\"" + folder_.Join(L"two") + L"\\\"");
  ExpectAllAt(folder_.Join(L"two"));
}

TEST_F(Linking, ATreeThatComesLaterTakesOverTheListsFolder) {
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"one")));
  Link();
  ExpectAllAt(folder_.Join(L"one"));
  EXPECT_EQ(view_.log().Count(3), 1);
}

TEST_F(Linking, ABadPathIsRefusedAndTheOldOneComesBack) {
  Link();
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"one")));
  // The message is modal: it is answered from a timer of the test.
  static HWND message;
  message = nullptr;
  static std::wstring said;
  said.clear();
  const test_support::ExpectsBoxes expects;
  const UINT_PTR timer = SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = FindWindowW(L"#32770", L"Path");
    if (!box || message) return;
    message = box;
    wchar_t text[512] = L"";
    GetDlgItemTextW(box, 0xFFFF, text, 512);
    said = text;
    PostMessageW(box, WM_COMMAND, IDOK, 0);
  });
  Type(folder_.Join(L"no such folder"));
  KillTimer(nullptr, timer);
  EXPECT_NE(said.find(L"cannot be found"), std::wstring::npos);
  ExpectAllAt(folder_.Join(L"one"));
  EXPECT_EQ(combo_.log().Count(2), 1);
}

TEST_F(Linking, GoingUpReachesTheRootAndTheTreesParentEndsThere) {
  Link();
  ASSERT_TRUE(view_.GoAndWait(L"C:\\"));
  auto place = GetObject(tree_.dispatch(), 7);
  int levels = 0;
  while (place && levels < 10) {
    Variant parent;
    ASSERT_EQ(CallMethod(place.get(), 16, {}, &parent), S_OK);
    ASSERT_EQ(parent.vt, VT_DISPATCH);
    place = ComRef<IDispatch>(parent.pdispVal);
    ++levels;
  }
  EXPECT_EQ(levels, 3) << "drive, computer, desktop";
}

TEST_F(Linking, ExpandingAFolderReadsItsChildren) {
  Link();
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  const auto item = reinterpret_cast<HTREEITEM>(SendMessageW(Tree(), TVM_GETNEXTITEM, TVGN_CARET, 0));
  SendMessageW(Tree(), TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
  const auto child = [&] {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(Tree(), TVM_GETNEXTITEM, TVGN_CHILD, reinterpret_cast<LPARAM>(item)));
  };
  ASSERT_TRUE(WaitUntil([&] { return child() != nullptr; }));
  std::vector<std::wstring> names;
  for (HTREEITEM at = child(); at; at = reinterpret_cast<HTREEITEM>(SendMessageW(
                                       Tree(), TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(at)))) {
    wchar_t text[260] = L"";
    TVITEMW data = {};
    data.mask = TVIF_TEXT | TVIF_HANDLE;
    data.hItem = at;
    data.pszText = text;
    data.cchTextMax = 260;
    SendMessageW(Tree(), TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&data));
    names.emplace_back(text);
  }
  EXPECT_THAT(names, testing::ElementsAre(L"one", L"two"));
}

TEST_F(Linking, AForeignObjectCannotBeLinked) {
  EXPECT_TRUE(FAILED(PutObject(tree_.dispatch(), 24, combo_.unknown())));
  EXPECT_EQ(PutObject(tree_.dispatch(), 24, nullptr), S_OK);
}

// A tree that followed itself, or two trees that followed each other, would go round for ever.
TEST_F(Linking, OnlyAFileViewCanBeATreesFileView) {
  Hosted other(kFolderView);
  for (IUnknown* const wrong : {tree_.unknown(), other.unknown(), combo_.unknown()}) {
    EXPECT_NE(PutObject(tree_.dispatch(), 24, wrong), S_OK);
  }
  EXPECT_NE(PutObject(combo_.dispatch(), 8, combo_.unknown()), S_OK) << "nobody can follow a box";
  Link();
  EXPECT_NE(PutObject(tree_.dispatch(), 24, tree_.unknown()), S_OK);
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"one")));
  ExpectAllAt(folder_.Join(L"one"));
}

TEST_F(Linking, ClosingInAnyOrderLeavesTheOthersAlive) {
  Link();
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"one")));
  view_.Close();
  PumpMessages();
  EXPECT_TRUE(Same(TreePath(), folder_.Join(L"one")));
  // Alone, the tree and the box still move together.
  Type(folder_.Join(L"two"));
  EXPECT_TRUE(Same(TreePath(), folder_.Join(L"two")));
  EXPECT_TRUE(Same(ComboText(), folder_.Join(L"two")));
  tree_.Close();
  combo_.Close();
  EXPECT_TRUE(
      WaitUntil([] { return CanUnload(kFileView) && CanUnload(kFolderView) && CanUnload(kComboView); }));
}

TEST_F(Linking, TheBoxKeepsItsNaturalHeight) {
  RECT rect;
  GetWindowRect(Combo(), &rect);
  EXPECT_GT(rect.bottom - rect.top, 10);
  EXPECT_LT(rect.bottom - rect.top, 60) << "the pane takes this height for the row of the path box";
}

}  // namespace
}  // namespace controls_test
