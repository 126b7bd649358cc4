// Folders and names that are hard: dead, forbidden, empty, long, reserved, outside the code page.
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

class FolderNames : public testing::Test {
 protected:
  // Enter on the row of a name, as the user opens it.
  void OpenRow(const std::wstring& name) {
    const int row = view_.RowOf(name);
    ASSERT_GE(row, 0);
    LVITEMW item = {};
    item.state = LVIS_SELECTED | LVIS_FOCUSED;
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(view_.list(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    NMLVKEYDOWN key = {};
    key.hdr = {view_.list(), 1, static_cast<UINT>(LVN_KEYDOWN)};
    key.wVKey = VK_RETURN;
    SendMessageW(view_.window(), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&key));
  }
  std::wstring CurrentPath() { return GetText(GetObject(view_.dispatch(), 69).get(), 1); }

  TempDirectory folder_;
  Hosted view_{kFileView};
};

TEST_F(FolderNames, AnEmptyFolderHasNoRows) {
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  EXPECT_EQ(GetLong(view_.dispatch(), 52), 0);
  EXPECT_EQ(GetLong(view_.dispatch(), 53), 0);
}

TEST_F(FolderNames, NamesOutsideTheCodePageAreShownAndOpened) {
  const std::wstring japanese = L"\u30e2\u30c7\u30eb";
  folder_.AddFile(japanese + L"\\\u0444\u0430\u0439\u043b.obj");
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  EXPECT_THAT(view_.Names(), ElementsAre(japanese));
  OpenRow(japanese);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(17) == 2; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"\u0444\u0430\u0439\u043b.obj"));
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 47, 1).get(), 1),
            folder_.Join(japanese + L"\\\u0444\u0430\u0439\u043b.obj"));
}

TEST_F(FolderNames, TrailingDotsAndReservedWordsAreShownAndOpened) {
  folder_.AddFile(L"dots.\\inside.txt");
  folder_.AddFile(L"dots\\other.txt");
  folder_.AddFile(L"nul\\device.txt");
  folder_.AddFile(L"com1.txt");
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  EXPECT_THAT(view_.Names(), testing::UnorderedElementsAre(L"dots", L"dots.", L"nul", L"com1.txt"));
  OpenRow(L"dots.");
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(17) == 2; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"inside.txt")) << "not the folder without the dot";
  CallMethod(view_.dispatch(), 44);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(17) == 3; }));
  OpenRow(L"nul");
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(17) == 4; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"device.txt"));
}

TEST_F(FolderNames, APathOverTheOldLimitIsReachedByOpeningItsFolders) {
  const std::wstring part(120, L'd');
  folder_.AddFile(part + L"\\" + part + L"\\" + part + L"\\deep.obj");
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  for (int level = 0; level < 3; ++level) {
    const int filled = view_.log().Count(17);
    OpenRow(part);
    ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(17) > filled; })) << level;
  }
  EXPECT_THAT(view_.Names(), ElementsAre(L"deep.obj"));
  EXPECT_GT(CurrentPath().size(), 360u);
  EXPECT_EQ(GetPidl(view_.dispatch(), 21), nullptr) << "the shell has no list for such a path";
  CallMethod(view_.dispatch(), 44);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(17) == 5; }));
  EXPECT_THAT(view_.Names(), ElementsAre(part));
}

TEST_F(FolderNames, HiddenFilesAreShown) {
  SetFileAttributesW(folder_.AddFile(L"hidden.txt").c_str(), FILE_ATTRIBUTE_HIDDEN);
  folder_.AddFile(L".dotfile");
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  EXPECT_THAT(view_.Names(), testing::UnorderedElementsAre(L"hidden.txt", L".dotfile"));
}

TEST_F(FolderNames, AFolderThatIsGoneLeavesTheViewWhereItIs) {
  folder_.AddFile(L"keep.txt");
  const std::wstring dead = folder_.AddFolder(L"dead");
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  LPITEMIDLIST pidl = nullptr;
  ASSERT_EQ(SHParseDisplayName(dead.c_str(), nullptr, &pidl, 0, nullptr), S_OK);
  RemoveDirectoryW(dead.c_str());
  ASSERT_TRUE(WaitUntil([&] { return view_.RowOf(L"dead") < 0; }));
  const int changed = view_.log().Count(18);
  EXPECT_EQ(PutPidl(view_.dispatch(), 21, pidl), S_OK);
  CoTaskMemFree(pidl);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(18) > changed; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"keep.txt"));
  EXPECT_EQ(_wcsicmp(CurrentPath().c_str(), folder_.path().c_str()), 0);
  EXPECT_EQ(view_.log().Count(3), 1);
}

TEST_F(FolderNames, TheShownFolderMayBeDeletedUnderTheView) {
  folder_.AddFile(L"sub\\a.txt");
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"sub")));
  DeleteFileW(folder_.Join(L"sub\\a.txt").c_str());
  ASSERT_TRUE(RemoveDirectoryW(folder_.Join(L"sub").c_str()));
  ASSERT_TRUE(WaitUntil([&] { return GetLong(view_.dispatch(), 52) == 0; }));
  CallMethod(view_.dispatch(), 56);
  PumpMessages();
  EXPECT_EQ(GetLong(view_.dispatch(), 52), 0);
  CallMethod(view_.dispatch(), 44);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(3) == 2; }));
}

TEST_F(FolderNames, AFileIsNotAFolder) {
  const std::wstring file = folder_.AddFile(L"file.txt");
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  const int changed = view_.log().Count(18);
  view_.Go(file);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(18) > changed; }));
  EXPECT_EQ(_wcsicmp(CurrentPath().c_str(), folder_.path().c_str()), 0);
}

TEST_F(FolderNames, NullAndForeignValuesAreRefused) {
  EXPECT_EQ(PutPidl(view_.dispatch(), 21, nullptr), E_INVALIDARG);
  EXPECT_EQ(PutLong(view_.dispatch(), 21, 7), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(PutLong(view_.dispatch(), 9, 5), E_INVALIDARG);
}

TEST_F(FolderNames, VirtualFoldersListTheirItems) {
  LPITEMIDLIST computer = nullptr;
  ASSERT_EQ(SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, &computer), S_OK);
  ASSERT_EQ(PutPidl(view_.dispatch(), 21, computer), S_OK);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(17) == 1; }));
  EXPECT_TRUE(ILIsEqual(GetPidl(view_.dispatch(), 21), computer));
  CoTaskMemFree(computer);
  bool drive = false;
  for (long i = 1; i <= GetLong(view_.dispatch(), 52); ++i) {
    drive |= _wcsicmp(GetText(GetObject(view_.dispatch(), 47, i).get(), 1).c_str(), L"C:\\") == 0;
  }
  EXPECT_TRUE(drive);
  CallMethod(view_.dispatch(), 44);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(17) == 2; }));
  EXPECT_TRUE(ILIsEmpty(GetPidl(view_.dispatch(), 21))) << "above the computer stands the desktop";
  CallMethod(view_.dispatch(), 44);
  EXPECT_EQ(view_.log().Count(3), 2) << "nothing stands above the desktop";
}

TEST_F(FolderNames, ANewFolderGetsAFreeName) {
  folder_.AddFolder(L"New folder");
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  Variant result;
  ASSERT_EQ(CallMethod(view_.dispatch(), 58, {BoolValue(false)}, &result), S_OK);
  EXPECT_EQ(result.boolVal, VARIANT_TRUE);
  EXPECT_GE(view_.RowOf(L"New folder (2)"), 0);
  EXPECT_NE(GetFileAttributesW(folder_.Join(L"New folder (2)").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 48).get(), 23), L"New folder (2)");
}

TEST_F(FolderNames, RenamingInPlaceMovesTheRow) {
  folder_.AddFile(L"a.txt");
  folder_.AddFile(L"m.txt");
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  PutBool(GetObject(view_.dispatch(), 47, 1).get(), 12, true);
  ASSERT_EQ(CallMethod(view_.dispatch(), 50, {LongValue(10)}), S_OK);
  const HWND edit = reinterpret_cast<HWND>(SendMessageW(view_.list(), LVM_GETEDITCONTROL, 0, 0));
  ASSERT_NE(edit, nullptr);
  SetWindowTextW(edit, L"z.txt");
  SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 0);
  EXPECT_THAT(view_.Names(), ElementsAre(L"m.txt", L"z.txt"));
  EXPECT_NE(GetFileAttributesW(folder_.Join(L"z.txt").c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 48).get(), 23), L"z.txt");
}

TEST_F(FolderNames, CopyAndPasteInTheSameFolderMakesACopy) {
  folder_.AddFile(L"model.obj", "v 1 2 3");
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  PutBool(GetObject(view_.dispatch(), 47, 1).get(), 12, true);
  ASSERT_EQ(CallMethod(view_.dispatch(), 50, {LongValue(4)}), S_OK);
  ASSERT_EQ(CallMethod(view_.dispatch(), 51, {LongValue(5)}), S_OK);
  ASSERT_TRUE(WaitUntil([&] { return view_.RowOf(L"model - Copy.obj") >= 0; }));
  EXPECT_GE(view_.RowOf(L"model.obj"), 0);
}

TEST_F(FolderNames, CutAndPasteMovesTheFile) {
  folder_.AddFile(L"from\\model.obj");
  folder_.AddFolder(L"to");
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"from")));
  PutBool(GetObject(view_.dispatch(), 47, 1).get(), 12, true);
  ASSERT_EQ(CallMethod(view_.dispatch(), 50, {LongValue(3)}), S_OK);
  ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"to")));
  ASSERT_EQ(CallMethod(view_.dispatch(), 51, {LongValue(5)}), S_OK);
  ASSERT_TRUE(WaitUntil([&] { return view_.RowOf(L"model.obj") >= 0; }));
  EXPECT_EQ(GetFileAttributesW(folder_.Join(L"from\\model.obj").c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace controls_test
