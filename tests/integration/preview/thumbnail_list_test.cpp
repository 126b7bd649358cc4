// The list pane in its thumbnail view: what is made, when, and for whom.
#include <windows.h>

#include <commctrl.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "tests/support/wait_until.h"
#include "workbench/controls/com/class_server.h"
#include "workbench/controls/fileview/list_pane.h"

namespace controls {

// In a control's module its class server knows this.
HINSTANCE ModuleInstance() {
  return GetModuleHandleW(nullptr);
}

namespace {

namespace preview = file_explorer::preview;
using test_support::PumpMessages;
using test_support::WaitUntil;
using testing::Contains;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr COLORREF kGreen = RGB(10, 200, 30);

// An owner with rows of made-up files.
class Owner : public ListPaneOwner {
 public:
  std::wstring CellText(int row, int) override { return Name(row); }
  int CellImage(int) override { return 0; }
  bool RowDimmed(int) override { return false; }
  std::optional<ThumbnailSubject> Thumbnail(int row) override {
    if (row < folders) return std::nullopt;
    return ThumbnailSubject{folder + Name(row), stamp};
  }
  int FindRow(int, const std::wstring&, bool, bool) override { return -1; }
  void OnRowClicked(int, POINT) override {}
  void OnRowActivated(int, POINT) override {}
  void OnSelectionChanged() override {}
  void OnColumnClicked(int) override {}
  bool OnKey(UINT, bool, bool) override { return false; }
  void OnContextMenu(int, POINT) override {}
  bool MayRename(int) override { return false; }
  void OnRenamed(int, const std::wstring&) override {}
  void OnDrag(bool) override {}
  std::wstring StatusText(bool&) override { return {}; }
  std::wstring EmptyText() override { return {}; }
  void OnFocus() override {}
  void OnPaneMessage(UINT, WPARAM, LPARAM) override {}
  void OnPaneDestroyed() override {}

  std::wstring Name(int row) const { return L"file" + std::to_wstring(row) + L".obj"; }

  std::wstring folder = L"X:\\one\\";
  uint64_t stamp = 1;
  int folders = 0;
};

// Makes green pictures and keeps a list of what it was asked for. While the gate is shut it waits in each.
class Maker {
 public:
  MakeThumbnail Function() {
    return [this](const ThumbnailJob& job,
                  const std::atomic<bool>& cancelled) -> std::optional<preview::Picture> {
      {
        const std::lock_guard lock(mutex_);
        asked_.push_back(job.path);
      }
      while (WaitForSingleObject(gate_, 5) == WAIT_TIMEOUT) {
        if (cancelled) break;
      }
      if (cancelled) ++cancelled_;
      if (makesNone) return std::nullopt;
      preview::Picture picture = {job.size, job.size, {}};
      picture.pixels.assign(static_cast<size_t>(job.size * job.size), 0xFF0AC81E);
      return picture;
    };
  }
  ~Maker() { CloseHandle(gate_); }
  void Shut() { ResetEvent(gate_); }
  void Open() { SetEvent(gate_); }
  std::vector<std::wstring> asked() const {
    const std::lock_guard lock(mutex_);
    return asked_;
  }
  int cancelled() const { return cancelled_; }

  std::atomic<bool> makesNone = false;

 private:
  mutable std::mutex mutex_;
  std::vector<std::wstring> asked_;
  std::atomic<int> cancelled_ = 0;
  HANDLE gate_ = CreateEventW(nullptr, TRUE, TRUE, nullptr);
};

class ThumbnailList : public testing::Test {
 protected:
  ThumbnailList() {
    frame_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 20, 20, 620, 460, nullptr, nullptr,
                             nullptr, nullptr);
    pane_.thumbnails().SetFunction(maker_.Function());
    EXPECT_TRUE(pane_.CreatePane(frame_, {0, 0, 600, 440}));
    ShowWindow(pane_.hwnd(), SW_SHOW);
    pane_.SetThumbnailSize(64);
  }
  ~ThumbnailList() override {
    maker_.Open();
    pane_.Destroy();
    DestroyWindow(frame_);
  }

  void Show(int rows) {
    pane_.SetView(ViewStyle::kThumbnails);
    pane_.SetRowCount(rows);
    Paint();
  }
  void Paint() {
    InvalidateRect(pane_.list(), nullptr, FALSE);
    UpdateWindow(pane_.list());
  }
  RECT IconOf(int row) const {
    RECT rect = {};
    rect.left = LVIR_ICON;
    SendMessageW(pane_.list(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
    return rect;
  }
  bool IsGreen(int row) const {
    const RECT icon = IconOf(row);
    const HDC dc = GetDC(pane_.list());
    const COLORREF color = GetPixel(dc, (icon.left + icon.right) / 2, (icon.top + icon.bottom) / 2);
    ReleaseDC(pane_.list(), dc);
    return color == kGreen;
  }
  bool IsInSight(int row) const {
    RECT rect = {};
    rect.left = LVIR_BOUNDS;
    RECT client = {};
    RECT both = {};
    GetClientRect(pane_.list(), &client);
    SendMessageW(pane_.list(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
    return IntersectRect(&both, &rect, &client) != FALSE;
  }
  // How much was asked for: waits for what is expected, and then whether more comes in some turns.
  size_t CountWhenQuiet(size_t expected = 0) {
    EXPECT_TRUE(WaitUntil([&] { return maker_.asked().size() >= expected; }));
    int turns = 0;
    EXPECT_TRUE(WaitUntil([&] { return ++turns > 20; }));
    return maker_.asked().size();
  }

  Maker maker_;
  Owner owner_;
  HWND frame_ = nullptr;
  ListPane pane_{owner_};
};

TEST_F(ThumbnailList, ShowsAPictureWhenItIsMadeAndAnIconUntilThen) {
  maker_.Shut();
  Show(3);
  EXPECT_FALSE(IsGreen(0));
  ASSERT_TRUE(WaitUntil([&] { return !maker_.asked().empty(); }));
  maker_.Open();
  for (const int row : {0, 1, 2}) EXPECT_TRUE(WaitUntil([&] { return IsGreen(row); })) << row;
}

TEST_F(ThumbnailList, MakesPicturesOfRowsInSightOnly) {
  Show(1000);
  ASSERT_TRUE(WaitUntil([&] { return IsGreen(0); }));
  const size_t count = CountWhenQuiet();
  size_t inSight = 0;
  for (int row = 0; row < 1000; ++row) inSight += IsInSight(row) ? 1 : 0;
  ASSERT_LT(inSight, 200U);
  EXPECT_LE(count, inSight);
  for (const std::wstring& path : maker_.asked()) {
    const int row = std::stoi(path.substr(owner_.folder.size() + 4));
    EXPECT_TRUE(IsInSight(row)) << row;
  }
}

TEST_F(ThumbnailList, RowsThatWereScrolledAwayBeforeTheirTurnAreLeftOut) {
  maker_.Shut();
  Show(1000);
  ASSERT_TRUE(WaitUntil([&] { return !maker_.asked().empty(); }));
  pane_.EnsureVisible(999);
  Paint();
  maker_.Open();
  ASSERT_TRUE(WaitUntil([&] { return IsGreen(999); }));
  CountWhenQuiet();
  // The one that was being made, and then those of the end.
  EXPECT_THAT(maker_.asked(), Not(Contains(owner_.folder + owner_.Name(3))));
}

TEST_F(ThumbnailList, ASecondPaintingAsksNothing) {
  Show(5);
  ASSERT_TRUE(WaitUntil([&] { return IsGreen(4); }));
  Paint();
  Paint();
  EXPECT_EQ(CountWhenQuiet(5), 5U);
}

TEST_F(ThumbnailList, ThatThereIsNoneIsKeptToo) {
  maker_.makesNone = true;
  Show(5);
  EXPECT_EQ(CountWhenQuiet(5), 5U);
  Paint();
  EXPECT_EQ(CountWhenQuiet(5), 5U);
  EXPECT_FALSE(IsGreen(0));
}

TEST_F(ThumbnailList, AChangedFileIsMadeAnewAndKeepsItsOldPictureMeanwhile) {
  Show(1);
  ASSERT_TRUE(WaitUntil([&] { return IsGreen(0); }));
  maker_.Shut();
  owner_.stamp = 2;
  Paint();
  ASSERT_TRUE(WaitUntil([&] { return maker_.asked().size() == 2; }));
  EXPECT_TRUE(IsGreen(0));
  maker_.makesNone = true;
  maker_.Open();
  EXPECT_TRUE(WaitUntil([&] { return !IsGreen(0); }));
  EXPECT_EQ(CountWhenQuiet(2), 2U);
}

TEST_F(ThumbnailList, RowsWithoutAFileHaveTheirIcon) {
  owner_.folders = 2;
  Show(3);
  ASSERT_TRUE(WaitUntil([&] { return IsGreen(2); }));
  EXPECT_FALSE(IsGreen(0));
  EXPECT_FALSE(IsGreen(1));
  EXPECT_THAT(maker_.asked(), SizeIs(1));
}

TEST_F(ThumbnailList, LeavingTheFolderCancelsWhatIsBeingMadeAndForgetsTheRest) {
  maker_.Shut();
  Show(20);
  ASSERT_TRUE(WaitUntil([&] { return !maker_.asked().empty(); }));
  pane_.thumbnails().OnFolderLeft();
  pane_.SetRowCount(0);
  EXPECT_TRUE(WaitUntil([&] { return maker_.cancelled() == 1; }));
  EXPECT_EQ(CountWhenQuiet(1), 1U);
  maker_.Open();
  owner_.folder = L"X:\\two\\";
  pane_.SetRowCount(2);
  Paint();
  EXPECT_TRUE(WaitUntil([&] { return IsGreen(1); }));
  EXPECT_EQ(CountWhenQuiet(3), 3U);
}

TEST_F(ThumbnailList, ComingBackToAFolderAsksNothing) {
  Show(3);
  ASSERT_TRUE(WaitUntil([&] { return IsGreen(2); }));
  pane_.thumbnails().OnFolderLeft();
  Paint();
  EXPECT_EQ(CountWhenQuiet(3), 3U);
  EXPECT_TRUE(IsGreen(2));
}

TEST_F(ThumbnailList, ARowThatGoesWhileItIsMadeDoesNoHarm) {
  maker_.Shut();
  Show(3);
  ASSERT_TRUE(WaitUntil([&] { return !maker_.asked().empty(); }));
  pane_.SetRowCount(0);
  Paint();
  maker_.Open();
  CountWhenQuiet();
  PumpMessages();
  EXPECT_EQ(SendMessageW(pane_.list(), LVM_GETITEMCOUNT, 0, 0), 0);
}

TEST_F(ThumbnailList, TheWindowMayGoWhileAPictureIsMade) {
  maker_.Shut();
  Show(3);
  ASSERT_TRUE(WaitUntil([&] { return !maker_.asked().empty(); }));
  pane_.Destroy();
  EXPECT_TRUE(WaitUntil([&] { return maker_.cancelled() == 1; }));
}

TEST_F(ThumbnailList, NothingIsMadeInOtherViews) {
  for (const ViewStyle view :
       {ViewStyle::kReport, ViewStyle::kLargeIcon, ViewStyle::kList, ViewStyle::kSmallIcon}) {
    pane_.SetView(view);
    pane_.SetRowCount(10);
    Paint();
  }
  EXPECT_EQ(CountWhenQuiet(0), 0U);
}

TEST_F(ThumbnailList, AnotherSizeMakesEverythingAnew) {
  Show(2);
  ASSERT_TRUE(WaitUntil([&] { return IsGreen(1); }));
  const RECT before = IconOf(0);
  pane_.SetThumbnailSize(128);
  Paint();
  ASSERT_TRUE(WaitUntil([&] { return IsGreen(1); }));
  EXPECT_EQ(CountWhenQuiet(4), 4U);
  EXPECT_GT(IconOf(0).bottom - IconOf(0).top, before.bottom - before.top);
}

TEST_F(ThumbnailList, TheNumberOfKeptPicturesIsBounded) {
  constexpr int kRows = 1200;
  Show(kRows);
  for (int row = 0; row < kRows; row += 10) {
    pane_.EnsureVisible(row);
    Paint();
    ASSERT_TRUE(WaitUntil([&] { return IsGreen(row); })) << row;
  }
  const auto images =
      reinterpret_cast<HIMAGELIST>(SendMessageW(pane_.list(), LVM_GETIMAGELIST, LVSIL_NORMAL, 0));
  EXPECT_LE(ImageList_GetImageCount(images), static_cast<int>(ThumbnailView::kMostPictures) + 1);
  // The first ones were dropped and are made again.
  const size_t count = CountWhenQuiet();
  pane_.EnsureVisible(0);
  Paint();
  EXPECT_TRUE(WaitUntil([&] { return IsGreen(0); }));
  EXPECT_TRUE(WaitUntil([&] { return maker_.asked().size() > count; }));
}

}  // namespace
}  // namespace controls
