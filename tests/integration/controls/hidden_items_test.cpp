// Items that are marked as hidden, in list, archive and tree.
#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cwchar>

#include "tests/integration/controls/control_container.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"
#include "tests/support/zip_builder.h"

namespace controls_test {
namespace {

using test_support::TempDirectory;
using test_support::WaitUntil;
using testing::ElementsAre;

constexpr DISPID kListHidden = 71;
constexpr DISPID kTreeHidden = 32;
constexpr DISPID kFilled = 17;

void Hide(const std::wstring& path, bool hidden = true) {
  const DWORD plain = GetFileAttributesW(path.c_str()) & ~static_cast<DWORD>(FILE_ATTRIBUTE_HIDDEN);
  ASSERT_TRUE(SetFileAttributesW(path.c_str(), hidden ? plain | FILE_ATTRIBUTE_HIDDEN : plain));
}

bool SamePath(const std::wstring& first, const std::wstring& second) {
  return _wcsicmp(first.c_str(), second.c_str()) == 0;
}

class HiddenItems : public testing::Test {
 protected:
  bool ShowHidden(bool on) {
    const int filled = view_.log().Count(kFilled);
    if (PutBool(view_.dispatch(), kListHidden, on) != S_OK) return false;
    return WaitUntil([&] { return view_.log().Count(kFilled) > filled; });
  }
  // A folder and files, one of each hidden.
  void MakeFolder() {
    folder_.AddFolder(L"cellar");
    folder_.AddFolder(L"parlour");
    folder_.AddFile(L"plain.obj");
    folder_.AddFile(L"secret.obj");
    Hide(folder_.Join(L"cellar"));
    Hide(folder_.Join(L"secret.obj"));
  }

  TempDirectory folder_;
  Hosted view_{kFileView};
};

TEST_F(HiddenItems, AreListedByAListThatWasToldNothing) {
  MakeFolder();
  EXPECT_TRUE(GetBool(view_.dispatch(), kListHidden));
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  EXPECT_THAT(view_.Names(), ElementsAre(L"cellar", L"parlour", L"plain.obj", L"secret.obj"));
}

TEST_F(HiddenItems, AreLeftOutWhenTheyAreNotWanted) {
  MakeFolder();
  ASSERT_EQ(PutBool(view_.dispatch(), kListHidden, false), S_OK);
  EXPECT_FALSE(GetBool(view_.dispatch(), kListHidden));
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  EXPECT_THAT(view_.Names(), ElementsAre(L"parlour", L"plain.obj"));
  EXPECT_EQ(GetLong(view_.dispatch(), 52), 2);
  EXPECT_EQ(view_.log().Count(12), 2) << "the container is not asked for what the user doesn't want";
}

TEST_F(HiddenItems, ComeAndGoWithTheOptionAndTheSelectionStays) {
  MakeFolder();
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  for (const wchar_t* const name : {L"plain.obj", L"secret.obj"}) {
    ASSERT_EQ(PutBool(GetObject(view_.dispatch(), 47, view_.RowOf(name) + 1).get(), 12, true), S_OK);
  }
  ASSERT_TRUE(ShowHidden(false));
  EXPECT_THAT(view_.Names(), ElementsAre(L"parlour", L"plain.obj"));
  EXPECT_EQ(GetLong(view_.dispatch(), 53), 1);
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 48).get(), 23), L"plain.obj");
  ASSERT_TRUE(ShowHidden(true));
  EXPECT_THAT(view_.Names(), ElementsAre(L"cellar", L"parlour", L"plain.obj", L"secret.obj"));
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 48).get(), 23), L"plain.obj");
  EXPECT_EQ(view_.log().Count(3), 1) << "the folder is the same";
}

TEST_F(HiddenItems, AValueThatIsThereAlreadyReadsNothingAgain) {
  MakeFolder();
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  ASSERT_EQ(PutBool(view_.dispatch(), kListHidden, true), S_OK);
  folder_.AddFile(L"last.obj");
  ASSERT_TRUE(WaitUntil([&] { return view_.RowOf(L"last.obj") >= 0; }));
  EXPECT_EQ(view_.log().Count(kFilled), 1);
}

TEST_F(HiddenItems, MarkingAFileTakesItOutOfTheListAndUnmarkingBringsItBack) {
  MakeFolder();
  ASSERT_EQ(PutBool(view_.dispatch(), kListHidden, false), S_OK);
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  Hide(folder_.Join(L"plain.obj"));
  EXPECT_TRUE(WaitUntil([&] { return view_.Names() == std::vector<std::wstring>{L"parlour"}; }));
  Hide(folder_.Join(L"secret.obj"), false);
  EXPECT_TRUE(WaitUntil([&] {
    return view_.Names() == std::vector<std::wstring>{L"parlour", L"secret.obj"};
  }));
  Hide(folder_.Join(L"plain.obj"), false);
  EXPECT_TRUE(WaitUntil([&] {
    return view_.Names() == std::vector<std::wstring>{L"parlour", L"plain.obj", L"secret.obj"};
  }));
  EXPECT_EQ(view_.log().Count(kFilled), 1) << "without reading the folder again";
}

TEST_F(HiddenItems, MarkingAFileLeavesItInAListThatShowsThem) {
  MakeFolder();
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  Hide(folder_.Join(L"plain.obj"));
  folder_.AddFile(L"last.obj");
  ASSERT_TRUE(WaitUntil([&] { return view_.RowOf(L"last.obj") >= 0; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"cellar", L"parlour", L"last.obj", L"plain.obj", L"secret.obj"));
}

TEST_F(HiddenItems, AHiddenFolderIsOpenedByItsPath) {
  folder_.AddFile(L"cellar\\wine.obj");
  Hide(folder_.Join(L"cellar"));
  ASSERT_EQ(PutBool(view_.dispatch(), kListHidden, false), S_OK);
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"cellar")));
  EXPECT_THAT(view_.Names(), ElementsAre(L"wine.obj"));
}

TEST_F(HiddenItems, InAnArchiveAreLeftOutToo) {
  test_support::ZipEntry secret;
  secret.name = "secret.obj";
  secret.content = "s";
  secret.attributes = FILE_ATTRIBUTE_HIDDEN;
  folder_.AddFile(L"box.zip", test_support::ZipBuilder().Add("plain.obj", "p").Add(secret).Build());
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"box.zip")));
  EXPECT_THAT(view_.Names(), ElementsAre(L"plain.obj", L"secret.obj"));
  ASSERT_TRUE(ShowHidden(false));
  EXPECT_THAT(view_.Names(), ElementsAre(L"plain.obj"));
  ASSERT_TRUE(ShowHidden(true));
  EXPECT_THAT(view_.Names(), ElementsAre(L"plain.obj", L"secret.obj"));
}

TEST_F(HiddenItems, DrivesAreListedWhateverTheirMarks) {
  ASSERT_EQ(PutBool(view_.dispatch(), kListHidden, false), S_OK);
  LPITEMIDLIST computer = nullptr;
  ASSERT_EQ(SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, &computer), S_OK);
  ASSERT_EQ(PutPidl(view_.dispatch(), 21, computer), S_OK);
  CoTaskMemFree(computer);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(kFilled) == 1; }));
  bool drive = false;
  for (long i = 1; i <= GetLong(view_.dispatch(), 52); ++i) {
    drive |= _wcsicmp(GetText(GetObject(view_.dispatch(), 47, i).get(), 1).c_str(), L"C:\\") == 0;
  }
  EXPECT_TRUE(drive);
}

class HiddenNodes : public testing::Test {
 protected:
  void SetUp() override {
    for (const wchar_t* const name : {L"attic", L"cellar\\deep", L"parlour"}) folder_.AddFolder(name);
    Hide(folder_.Join(L"cellar"));
    ASSERT_EQ(PutObject(tree_.dispatch(), 24, view_.unknown()), S_OK);
  }
  HWND Tree() { return reinterpret_cast<HWND>(static_cast<LONG_PTR>(GetLong(tree_.dispatch(), 23))); }
  HTREEITEM Next(UINT relation, HTREEITEM item = nullptr) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(Tree(), TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
  }
  std::wstring TextOf(HTREEITEM item) {
    wchar_t text[260] = L"";
    TVITEMW data = {};
    data.mask = TVIF_TEXT | TVIF_HANDLE;
    data.hItem = item;
    data.pszText = text;
    data.cchTextMax = 260;
    SendMessageW(Tree(), TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&data));
    return text;
  }
  // The folders below the node that lies `levels` above the selected one.
  std::vector<std::wstring> Children(int levels = 0) {
    HTREEITEM parent = Next(TVGN_CARET);
    for (; levels > 0; --levels) parent = Next(TVGN_PARENT, parent);
    std::vector<std::wstring> names;
    for (HTREEITEM item = Next(TVGN_CHILD, parent); item; item = Next(TVGN_NEXT, item))
      names.push_back(TextOf(item));
    return names;
  }
  bool WaitForChildren(const std::vector<std::wstring>& names, int levels = 0) {
    return WaitUntil([&] { return Children(levels) == names; });
  }
  void GoAndOpen() {
    ASSERT_TRUE(view_.GoAndWait(folder_.path()));
    Open();
  }
  void Open() { SendMessageW(Tree(), TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(Next(TVGN_CARET))); }
  std::wstring TreePath() { return GetText(GetObject(tree_.dispatch(), 7).get(), 1); }

  TempDirectory folder_;
  Hosted view_{kFileView};
  Hosted tree_{kFolderView};
};

TEST_F(HiddenNodes, StandInATreeThatWasToldNothing) {
  EXPECT_TRUE(GetBool(tree_.dispatch(), kTreeHidden));
  GoAndOpen();
  EXPECT_TRUE(WaitForChildren({L"attic", L"cellar", L"parlour"}));
}

TEST_F(HiddenNodes, ComeAndGoWithTheOption) {
  GoAndOpen();
  ASSERT_TRUE(WaitForChildren({L"attic", L"cellar", L"parlour"}));
  ASSERT_EQ(PutBool(tree_.dispatch(), kTreeHidden, false), S_OK);
  EXPECT_TRUE(SamePath(TreePath(), folder_.path()));
  Open();
  EXPECT_TRUE(WaitForChildren({L"attic", L"parlour"}));
  ASSERT_EQ(PutBool(tree_.dispatch(), kTreeHidden, true), S_OK);
  Open();
  EXPECT_TRUE(WaitForChildren({L"attic", L"cellar", L"parlour"}));
}

TEST_F(HiddenNodes, FilesTooWhenTheTreeShowsFiles) {
  folder_.AddFile(L"plain.obj");
  Hide(folder_.AddFile(L"secret.obj"));
  ASSERT_EQ(PutBool(tree_.dispatch(), 4, true), S_OK);
  ASSERT_EQ(PutBool(tree_.dispatch(), kTreeHidden, false), S_OK);
  GoAndOpen();
  EXPECT_TRUE(WaitForChildren({L"attic", L"parlour", L"plain.obj"}));
}

TEST_F(HiddenNodes, TheCurrentFolderAndItsParentsAreThereThoughHidden) {
  Hide(folder_.Join(L"cellar\\deep"));
  ASSERT_EQ(PutBool(tree_.dispatch(), kTreeHidden, false), S_OK);
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"cellar\\deep")));
  EXPECT_TRUE(WaitForChildren({L"attic", L"cellar", L"parlour"}, 2)) << "its parent beside the others";
  EXPECT_EQ(Children(1), std::vector<std::wstring>{L"deep"});
  EXPECT_TRUE(SamePath(TreePath(), folder_.Join(L"cellar\\deep")));
}

TEST_F(HiddenNodes, SwitchingThemOffKeepsTheCurrentOne) {
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"cellar\\deep")));
  ASSERT_EQ(PutBool(tree_.dispatch(), kTreeHidden, false), S_OK);
  EXPECT_TRUE(SamePath(TreePath(), folder_.Join(L"cellar\\deep")));
  EXPECT_TRUE(WaitForChildren({L"attic", L"cellar", L"parlour"}, 2));
  EXPECT_EQ(view_.log().Count(3), 1) << "and nobody goes elsewhere";
}

TEST_F(HiddenNodes, MarkingAFolderTakesItOutUnlessTheUserIsInIt) {
  ASSERT_EQ(PutBool(tree_.dispatch(), kTreeHidden, false), S_OK);
  GoAndOpen();
  ASSERT_TRUE(WaitForChildren({L"attic", L"parlour"}));
  Hide(folder_.Join(L"attic"));
  EXPECT_TRUE(WaitForChildren({L"parlour"}));
  Hide(folder_.Join(L"cellar"), false);
  EXPECT_TRUE(WaitForChildren({L"cellar", L"parlour"}));
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"parlour")));
  Hide(folder_.Join(L"parlour"));
  folder_.AddFolder(L"stairs");
  EXPECT_TRUE(WaitForChildren({L"cellar", L"parlour", L"stairs"}, 1));
  EXPECT_TRUE(SamePath(TreePath(), folder_.Join(L"parlour")));
}

}  // namespace
}  // namespace controls_test
