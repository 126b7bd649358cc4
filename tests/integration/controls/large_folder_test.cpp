// 100,000 files: the window stays alive, the first rows come at once, selection from outside is fast and
// consistent.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/integration/controls/control_container.h"
#include "tests/support/many_files.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"

namespace controls_test {
namespace {

using test_support::PumpMessages;
using test_support::TempDirectory;
using test_support::WaitUntil;

constexpr int kManyFiles = 100000;
constexpr int kSomeFiles = 20000;

class LargeFolder : public testing::Test {
 protected:
  void SetUp() override { view_.log().CountOnly(12); }
  void Fill(int wanted) {
    count_ = test_support::MakeManyFiles(folder_.path(), wanted, false);
    ASSERT_GT(count_, 0);
  }
  void TearDown() override {
    view_.Close();
    test_support::DeleteManyFiles(folder_.path());
  }
  TempDirectory folder_;
  Hosted view_{kFileView};
  int count_ = 0;
};

TEST_F(LargeFolder, MessagesAreHandledBetweenTheSlicesOfTheFill) {
  Fill(kManyFiles);
  // A message that the test posts again whenever it was handled: it must get its turn many times while rows
  // come.
  static int turns;
  static int rowsAtFirstTurnWithRows;
  static IDispatch* control;
  turns = 0;
  rowsAtFirstTurnWithRows = 0;
  control = view_.dispatch();
  const UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) {
    ++turns;
    const long rows = GetLong(control, 52);
    if (rows > 0 && rowsAtFirstTurnWithRows == 0) rowsAtFirstTurnWithRows = static_cast<int>(rows);
  });
  view_.Go(folder_.path());
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(17) > 0; }));
  KillTimer(nullptr, timer);
  EXPECT_EQ(GetLong(view_.dispatch(), 52), count_);
  EXPECT_EQ(view_.log().Count(12), count_);
  EXPECT_EQ(view_.log().Count(18), 1);
  if (count_ == kManyFiles) {
    EXPECT_GE(turns, 5);
    EXPECT_LT(rowsAtFirstTurnWithRows, count_ / 2) << "the first rows are there long before the last";
  }
  EXPECT_EQ(view_.CellText(count_ - 1, 0),
            L"model" + std::wstring(count_ == kManyFiles ? L"100000" : L"002000") + L".obj");
}

TEST_F(LargeFolder, ClosingInTheMiddleOfTheFillIsClean) {
  Fill(kSomeFiles);
  view_.Go(folder_.path());
  WaitUntil([&] { return GetLong(view_.dispatch(), 52) > 0; });
  view_.Close();
  EXPECT_TRUE(WaitUntil([] { return CanUnload(kFileView); }));
}

TEST_F(LargeFolder, GoingElsewhereInTheMiddleOfTheFillShowsTheOtherFolder) {
  Fill(kSomeFiles);
  TempDirectory other;
  other.AddFile(L"only.obj");
  view_.Go(folder_.path());
  WaitUntil([&] { return GetLong(view_.dispatch(), 52) > 0; });
  ASSERT_TRUE(view_.GoAndWait(other.path()));
  PumpMessages();
  EXPECT_EQ(GetLong(view_.dispatch(), 52), 1);
  EXPECT_EQ(view_.CellText(0, 0), L"only.obj");
}

TEST_F(LargeFolder, SelectingFromOutsideAgreesWithTheControl) {
  Fill(kManyFiles);
  ASSERT_TRUE(view_.GoAndWait(folder_.path()));
  PumpMessages();
  view_.log().Clear();
  SendMessageW(view_.list(), WM_SETREDRAW, FALSE, 0);
  for (int row = 0; row < count_; ++row) {
    LVITEMW item = {};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = row % 2 == 0 ? LVIS_SELECTED | LVIS_FOCUSED : 0u;
    if (row % 2 != 0) item.stateMask = LVIS_SELECTED;
    SendMessageW(view_.list(), LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  }
  SendMessageW(view_.list(), WM_SETREDRAW, TRUE, 0);
  ASSERT_TRUE(WaitUntil([&] { return view_.log().Count(10) > 0; }));
  PumpMessages();
  EXPECT_EQ(view_.log().Count(10), 1);
  EXPECT_EQ(GetLong(view_.dispatch(), 53), count_ / 2);
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 49).get(), 1), L"<no text>") << "49 goes on from 48";
  const auto first = GetObject(view_.dispatch(), 48);
  EXPECT_TRUE(GetBool(first.get(), 12));
  EXPECT_FALSE(GetBool(GetObject(view_.dispatch(), 47, 2).get(), 12));
}

}  // namespace
}  // namespace controls_test
