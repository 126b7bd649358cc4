#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/integration/controls/control_container.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"

namespace controls_test {
namespace {

using test_support::PumpMessages;
using test_support::TempDirectory;
using test_support::WaitUntil;
using testing::ElementsAre;

class FileView : public testing::Test {
 protected:
  TempDirectory folder_;
  Hosted view_{kFileView};

  void Open() { ASSERT_TRUE(view_.GoAndWait(folder_.path())); }
};

TEST_F(FileView, ShowsFoldersFirstThenFilesInNaturalOrder) {
  folder_.AddFile(L"part10.obj");
  folder_.AddFile(L"part9.obj");
  folder_.AddFile(L"Alpha.txt");
  folder_.AddFolder(L"zebra");
  folder_.AddFolder(L"Beta");
  Open();
  EXPECT_THAT(view_.Names(), ElementsAre(L"Beta", L"zebra", L"Alpha.txt", L"part9.obj", L"part10.obj"));
  EXPECT_EQ(GetLong(view_.dispatch(), 52), 5);
}

TEST_F(FileView, ColumnsShowSizeTypeAndDate) {
  folder_.AddFile(L"model.obj", std::string(12 * 1024 - 10, 'x'));
  folder_.AddFolder(L"sub");
  Open();
  EXPECT_EQ(view_.CellText(0, 1), L"");
  EXPECT_EQ(view_.CellText(1, 1), L"12 KB");
  EXPECT_EQ(view_.CellText(1, 2), L"OBJ File");
  EXPECT_FALSE(view_.CellText(1, 3).empty());
}

TEST_F(FileView, AReasonOfTheSystemNamesTheFile) {
  folder_.AddFile(L"program.exe", "no program at all");
  Open();
  CallMethod(GetObject(view_.dispatch(), 47, 1).get(), 19);
  const auto status = [this] {
    UpdateWindow(GetParent(view_.list()));
    wchar_t text[512] = L"";
    GetWindowTextW(GetParent(view_.list()), text, 512);
    return std::wstring(text);
  };
  EXPECT_TRUE(WaitUntil([&] { return status().find(L"cannot be opened") != std::wstring::npos; }));
  EXPECT_EQ(status().find(L"%1"), std::wstring::npos);
  EXPECT_NE(status().find(L"program.exe"), std::wstring::npos);
}

TEST_F(FileView, AnotherViewLeavesNothingOfTheOneBefore) {
  constexpr long kReport = 1;
  constexpr long kList = 3;
  constexpr DISPID kViewStyle = 9;
  // More than there is room for in a report, less than there is room for in columns.
  for (int i = 0; i < 40; ++i) folder_.AddFile(L"file " + std::to_wstring(100 + i) + L".txt");
  Open();
  const HWND list = view_.list();
  PutLong(view_.dispatch(), kViewStyle, kReport);
  PumpMessages();
  UpdateWindow(list);
  PutLong(view_.dispatch(), kViewStyle, kList);
  PumpMessages();
  RECT client = {};
  GetClientRect(list, &client);
  const HDC context = GetDC(list);
  const auto ground = static_cast<COLORREF>(SendMessageA(list, LVM_GETBKCOLOR, 0, 0));
  int differing = 0;
  // Where the scroll bar below the columns would be.
  for (int y = static_cast<int>(client.bottom) - GetSystemMetrics(SM_CYHSCROLL); y < client.bottom; ++y) {
    for (int x = 0; x < client.right; ++x) differing += GetPixel(context, x, y) != ground;
  }
  ReleaseDC(list, context);
  EXPECT_EQ(differing, 0);
}

}  // namespace
}  // namespace controls_test
