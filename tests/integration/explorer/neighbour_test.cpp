// Loading the previous and the next file of the list.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "tests/integration/explorer/running_explorer.h"
#include "tests/support/wait_until.h"

namespace explorer_tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kPrevious = 110;
constexpr int kNext = 111;

class NeighbourTest : public RunningExplorer {
 protected:
  void SetUp() override {
    fixture_.directory().AddFolder(L"files\\folder");
    for (const wchar_t* const name : {L"a.txt", L"b.txt", L"c.txt"}) {
      fixture_.directory().AddFile(std::wstring(L"files\\") + name);
    }
    Begin(4);
  }
  size_t Documents() { return fixture_.workbench().documents().documents().size(); }
  LRESULT HistoryCount() const { return SendMessageA(fixture_.PanelChild(32000), LB_GETCOUNT, 0, 0); }
};

TEST_F(NeighbourTest, NextLoadsTheFileBehindAndMovesTheSelection) {
  Select({"a.txt"});
  Press(kCommandToolbar, kNext);
  EXPECT_EQ(HandOver(), FilePath("b.txt"));
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("b.txt"));
  EXPECT_EQ(Documents(), 1U);
  EXPECT_EQ(HistoryCount(), 1);
  test_support::PumpMessages();
  Press(kCommandToolbar, kNext);
  EXPECT_EQ(HandOver(), FilePath("c.txt"));
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("c.txt"));
  EXPECT_EQ(HistoryCount(), 2);
}

TEST_F(NeighbourTest, PreviousLoadsTheFileBefore) {
  Select({"c.txt"});
  Press(kCommandToolbar, kPrevious);
  EXPECT_EQ(HandOver(), FilePath("b.txt"));
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("b.txt"));
}

TEST_F(NeighbourTest, TheFocusGoesAlong) {
  Select({"a.txt"});
  Press(kCommandToolbar, kNext);
  test_support::PumpMessages();
  EXPECT_EQ(SendMessageA(fixture_.FileList(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED),
            fixture_.IndexOf("b.txt"));
}

TEST_F(NeighbourTest, NothingHappensAtEitherEnd) {
  Select({"c.txt"});
  SendToExplorer(kNext);
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("c.txt"));
  // Before the first file there is only a folder.
  Select({"a.txt"});
  SendToExplorer(kPrevious);
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("a.txt"));
  EXPECT_EQ(Documents(), 0U);
  EXPECT_EQ(HistoryCount(), 0);
}

TEST_F(NeighbourTest, AFolderIsAStartingPointButNeverLoaded) {
  Select({"folder"});
  SendToExplorer(kNext);
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("a.txt"));
  EXPECT_EQ(HandOver(), FilePath("a.txt"));
}

TEST_F(NeighbourTest, TheOrderIsTheOneShown) {
  // A click on the header of the names turns the order round.
  const HWND header = reinterpret_cast<HWND>(SendMessageA(fixture_.FileList(), LVM_GETHEADER, 0, 0));
  for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP}) {
    PostMessageA(header, message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0, MAKELPARAM(20, 8));
  }
  ASSERT_TRUE(test_support::WaitUntil([&] { return fixture_.IndexOf("c.txt") < fixture_.IndexOf("a.txt"); }));
  Select({"c.txt"});
  Press(kCommandToolbar, kNext);
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("b.txt"));
}

TEST_F(NeighbourTest, WithoutExactlyOneSelectedItemNothingHappens) {
  Select({});
  EXPECT_FALSE(IsEnabled(kCommandToolbar, kNext));
  SendToExplorer(kNext);
  EXPECT_THAT(fixture_.SelectedNames(), IsEmpty());
  Select({"a.txt", "b.txt"});
  EXPECT_FALSE(IsEnabled(kCommandToolbar, kPrevious));
  SendToExplorer(kNext);
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("a.txt", "b.txt"));
  EXPECT_EQ(Documents(), 0U);
}

class LongListTest : public RunningExplorer {};

TEST_F(LongListTest, TheVisibleAreaFollows) {
  constexpr size_t kFiles = 200;
  for (size_t i = 0; i < kFiles; ++i) {
    fixture_.directory().AddFile(L"files\\" + std::to_wstring(1000 + i) + L".txt");
  }
  Begin(kFiles);
  const HWND list = fixture_.FileList();
  SendMessageA(list, LVM_ENSUREVISIBLE, 0, FALSE);
  const auto perPage = SendMessageA(list, LVM_GETCOUNTPERPAGE, 0, 0);
  ASSERT_LT(perPage, 150);
  // The last row in sight; the next one is below the edge.
  const std::string last = fixture_.FileNames().at(static_cast<size_t>(perPage - 1));
  const std::string behind = fixture_.FileNames().at(static_cast<size_t>(perPage));
  Select({last});
  SendToExplorer(kNext);
  test_support::PumpMessages();
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre(behind));
  const auto top = SendMessageA(list, LVM_GETTOPINDEX, 0, 0);
  EXPECT_GE(top, 1);
  EXPECT_GE(fixture_.IndexOf(behind), top);
  EXPECT_LT(fixture_.IndexOf(behind), top + perPage);
}

}  // namespace
}  // namespace explorer_tests
