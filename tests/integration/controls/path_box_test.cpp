// The options of the path box: what it shows, lists and completes.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <cwchar>

#include "tests/integration/controls/control_container.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"

namespace controls_test {
namespace {

using test_support::TempDirectory;
using test_support::WaitUntil;

bool SamePath(const std::wstring& first, const std::wstring& second) {
  return _wcsicmp(first.c_str(), second.c_str()) == 0;
}

class PathBox : public testing::Test {
 protected:
  void SetUp() override {
    folder_.AddFile(L"one\\a.obj");
    folder_.AddFile(L"two\\b.obj");
    ASSERT_EQ(PutObject(combo_.dispatch(), 8, view_.unknown()), S_OK);
    ASSERT_TRUE(view_.GoAndWait(folder_.Join(L"one")));
  }
  HWND Box() { return reinterpret_cast<HWND>(static_cast<LONG_PTR>(GetLong(combo_.dispatch(), 13))); }
  HWND Edit() { return reinterpret_cast<HWND>(SendMessageW(Box(), CBEM_GETEDITCONTROL, 0, 0)); }
  std::wstring Text() {
    wchar_t text[1024] = L"";
    GetWindowTextW(Edit(), text, 1024);
    return text;
  }

  TempDirectory folder_;
  Hosted view_{kFileView};
  Hosted combo_{kComboView};
};

TEST_F(PathBox, ShowsNamesOnlyUntilItIsEdited) {
  ASSERT_EQ(PutBool(combo_.dispatch(), 2, false), S_OK);
  EXPECT_EQ(Text(), L"one");
  SetFocus(Edit());
  ASSERT_EQ(GetFocus(), Edit());
  EXPECT_TRUE(SamePath(Text(), folder_.Join(L"one")));
  DWORD first = 1;
  DWORD last = 0;
  SendMessageW(Edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
  EXPECT_EQ(first, 0u);
  EXPECT_EQ(last, Text().size()) << "ready to be typed over";
  SendMessageW(Edit(), WM_KEYDOWN, VK_RETURN, 0);
  EXPECT_EQ(combo_.log().Count(2), 0) << "what stands there is a place";
  SetFocus(view_.list());
  EXPECT_TRUE(WaitUntil([&] { return Text() == L"one"; }));
}

TEST_F(PathBox, ListsVirtualFoldersWhenTheyAreWanted) {
  const auto count = [&] {
    SendMessageW(combo_.window(), WM_COMMAND, MAKEWPARAM(1, CBN_DROPDOWN), reinterpret_cast<LPARAM>(Box()));
    return SendMessageW(Box(), CB_GETCOUNT, 0, 0);
  };
  const LRESULT all = count();
  ASSERT_EQ(PutBool(combo_.dispatch(), 4, false), S_OK);
  EXPECT_EQ(count(), all - 2) << "without the desktop and the computer";
  EXPECT_GT(count(), 0) << "drives and folders stay";
}

class Completion : public PathBox {
 protected:
  // As if the last letter of a text were typed.
  void Type(const std::wstring& text) {
    SetWindowTextW(Edit(), text.substr(0, text.size() - 1).c_str());
    SendMessageW(Edit(), EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
    SendMessageW(Edit(), WM_CHAR, text.back(), 0);
  }
  std::wstring Selected() {
    DWORD first = 0;
    DWORD last = 0;
    SendMessageW(Edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&first), reinterpret_cast<LPARAM>(&last));
    return Text().substr(first, last - first);
  }
};

TEST_F(Completion, AddsTheRestOfAFoldersNameSelected) {
  folder_.AddFolder(L"garden 10");
  folder_.AddFolder(L"garden 9");
  folder_.AddFile(L"garden 1.obj");
  Type(folder_.Join(L"GAR"));
  EXPECT_EQ(Text(), folder_.Join(L"GARden 9")) << "what was typed stays as it is";
  EXPECT_EQ(Selected(), L"den 9");
  Type(folder_.Join(L"garden 1"));
  EXPECT_EQ(Text(), folder_.Join(L"garden 10")) << "a folder, not a file";
}

TEST_F(Completion, PrefersTheFoldersVisitedLast) {
  folder_.AddFolder(L"on hand");
  Type(folder_.Join(L"on"));
  EXPECT_EQ(Selected(), L"e");
}

TEST_F(Completion, AddsNothingWhereThereIsNothingToAdd) {
  folder_.AddFolder(L"garden");
  folder_.AddFolder(L"garden 2");
  for (const std::wstring& name :
       {std::wstring(L"garden"), std::wstring(L"no"), std::wstring(L"g*"), std::wstring(L"a.o")}) {
    Type(folder_.Join(name));
    EXPECT_EQ(Text(), folder_.Join(name));
  }
  Type(folder_.path() + L"\\");
  EXPECT_TRUE(SamePath(Text(), folder_.Join(L"one"))) << "visited";
  Type(L"\\\\no server\\sha");
  EXPECT_EQ(Text(), L"\\\\no server\\sha");
  Type(L"gar");
  EXPECT_EQ(Text(), L"gar");
}

TEST_F(Completion, LeavesAloneWhatIsTypedInTheMiddle) {
  folder_.AddFolder(L"garden");
  SetWindowTextW(Edit(), folder_.Join(L"ar").c_str());
  const size_t before = folder_.path().size() + 1;
  SendMessageW(Edit(), EM_SETSEL, before, static_cast<LPARAM>(before));
  SendMessageW(Edit(), WM_CHAR, L'g', 0);
  EXPECT_EQ(Text(), folder_.Join(L"gar"));
}

TEST_F(Completion, IsLeftOutWhenItIsNotWanted) {
  folder_.AddFolder(L"garden");
  ASSERT_EQ(PutBool(combo_.dispatch(), 14, false), S_OK);
  Type(folder_.Join(L"gar"));
  EXPECT_EQ(Text(), folder_.Join(L"gar"));
}

TEST_F(PathBox, AnOptionThatStaysAsItIsLeavesWhatIsTyped) {
  SetFocus(Edit());
  SetWindowTextW(Edit(), L"C:\\somewh");
  ASSERT_EQ(PutBool(combo_.dispatch(), 2, true), S_OK);
  ASSERT_EQ(PutBool(combo_.dispatch(), 14, true), S_OK);
  EXPECT_EQ(Text(), L"C:\\somewh");
}

}  // namespace
}  // namespace controls_test
