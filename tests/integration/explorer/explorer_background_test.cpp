// What the explorer window shows before its controls do, and what becomes of a window that can't be made.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/integration/explorer/running_explorer.h"
#include "tests/support/explorer/blocked_class.h"

namespace explorer_tests {
namespace {

using testing::ElementsAre;

// A picture in memory that a window can paint its background into.
class Canvas {
 public:
  Canvas(int width, int height) : width_(width), height_(height) {
    const HDC screen = GetDC(nullptr);
    dc_ = CreateCompatibleDC(screen);
    bitmap_ = CreateCompatibleBitmap(screen, width, height);
    ReleaseDC(nullptr, screen);
    old_ = SelectObject(dc_, bitmap_);
    const HBRUSH red = CreateSolidBrush(RGB(255, 0, 0));
    const RECT all = {0, 0, width, height};
    FillRect(dc_, &all, red);
    DeleteObject(red);
  }
  ~Canvas() {
    SelectObject(dc_, old_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  HDC dc() const { return dc_; }
  COLORREF At(int x, int y) const { return GetPixel(dc_, x, y); }
  // The smallest rectangle around everything that has another colour.
  RECT Around(COLORREF ground) const {
    RECT found = {width_, height_, 0, 0};
    for (LONG y = 0; y < height_; ++y) {
      for (LONG x = 0; x < width_; ++x) {
        if (At(static_cast<int>(x), static_cast<int>(y)) == ground) continue;
        found = {std::min(found.left, x), std::min(found.top, y), std::max(found.right, x + 1),
                 std::max(found.bottom, y + 1)};
      }
    }
    return found;
  }

 private:
  int width_;
  int height_;
  HDC dc_;
  HBITMAP bitmap_;
  HGDIOBJ old_;
};

class BackgroundTest : public RunningExplorer {
 protected:
  void SetUp() override {
    Begin(0);
    window_ = fixture_.ExplorerWindow();
    GetClientRect(window_, &client_);
  }
  LRESULT Erase(const Canvas& canvas) const {
    return SendMessageA(window_, WM_ERASEBKGND, reinterpret_cast<WPARAM>(canvas.dc()), 0);
  }
  int ToolbarHeight() const {
    RECT bounds = {};
    GetWindowRect(Toolbar(kCommandToolbar), &bounds);
    return static_cast<int>(bounds.bottom - bounds.top);
  }

  HWND window_ = nullptr;
  RECT client_ = {};
};

TEST_F(BackgroundTest, IsTheWindowColourWithATextInTheMiddleBelowTheToolbar) {
  const Canvas canvas(client_.right, client_.bottom);
  EXPECT_EQ(Erase(canvas), 1);
  const COLORREF ground = GetSysColor(COLOR_WINDOW);
  for (const POINT& corner : {POINT{0, 0}, POINT{client_.right - 1, 0}, POINT{0, client_.bottom - 1},
                              POINT{client_.right - 1, client_.bottom - 1}}) {
    EXPECT_EQ(canvas.At(corner.x, corner.y), ground);
  }
  const RECT text = canvas.Around(ground);
  ASSERT_GT(text.right, text.left) << "no text";
  EXPECT_GE(text.top, ToolbarHeight());
  EXPECT_NEAR((text.left + text.right) / 2, client_.right / 2, 4);
  EXPECT_NEAR((text.top + text.bottom) / 2, (ToolbarHeight() + client_.bottom) / 2, 6);
}

TEST_F(BackgroundTest, TheTextIsBlackAndSaysWhatIsGoingOn) {
  const Canvas canvas(client_.right, client_.bottom);
  Erase(canvas);
  // The same text, drawn by the test.
  const Canvas expected(client_.right, client_.bottom);
  FillRect(expected.dc(), &client_, GetSysColorBrush(COLOR_WINDOW));
  RECT place = client_;
  place.top = ToolbarHeight();
  SelectObject(expected.dc(),
               reinterpret_cast<HFONT>(SendMessageA(Toolbar(kCommandToolbar), WM_GETFONT, 0, 0)));
  SetTextColor(expected.dc(), RGB(0, 0, 0));
  SetBkMode(expected.dc(), TRANSPARENT);
  DrawTextA(expected.dc(), "Initializing File View Contents...", -1, &place,
            DT_SINGLELINE | DT_CENTER | DT_VCENTER);
  const RECT text = expected.Around(GetSysColor(COLOR_WINDOW));
  ASSERT_GT(text.right - text.left, 100);
  int differing = 0;
  for (int y = static_cast<int>(text.top); y < text.bottom; ++y) {
    for (int x = static_cast<int>(text.left); x < text.right; ++x)
      differing += canvas.At(x, y) != expected.At(x, y);
  }
  EXPECT_EQ(differing, 0);
}

TEST_F(BackgroundTest, ErasingLeavesTheDeviceContextAsItWas) {
  const Canvas canvas(client_.right, client_.bottom);
  SetTextColor(canvas.dc(), RGB(1, 2, 3));
  SetBkMode(canvas.dc(), OPAQUE);
  const HGDIOBJ font = GetCurrentObject(canvas.dc(), OBJ_FONT);
  Erase(canvas);
  EXPECT_EQ(GetTextColor(canvas.dc()), RGB(1, 2, 3));
  EXPECT_EQ(GetBkMode(canvas.dc()), OPAQUE);
  EXPECT_EQ(GetCurrentObject(canvas.dc(), OBJ_FONT), font);
}

// ---- A window that can't be made
// ---------------------------------------------------------------------------------

// Refuses every window of a class while it exists.
class RefusedClass {
 public:
  explicit RefusedClass(const char* name) {
    name_ = name;
    hook_ = SetWindowsHookExA(WH_CBT, &RefusedClass::OnEvent, nullptr, GetCurrentThreadId());
  }
  ~RefusedClass() { UnhookWindowsHookEx(hook_); }
  RefusedClass(const RefusedClass&) = delete;
  RefusedClass& operator=(const RefusedClass&) = delete;

 private:
  static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM parameter) {
    if (code == HCBT_CREATEWND) {
      char name[64] = "";
      GetClassNameA(reinterpret_cast<HWND>(window), name, sizeof(name));
      if (lstrcmpiA(name, name_) == 0) return 1;
    }
    return CallNextHookEx(nullptr, code, window, parameter);
  }

  static inline const char* name_ = nullptr;
  HHOOK hook_;
};

class CreationTest : public RunningExplorer {};

TEST_F(CreationTest, AWindowThatCanNotBeMadeIsSaidAndNotHandedToTheHost) {
  fixture_.Start();
  {
    const RefusedClass refused("HalvoFileViewClass");
    EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}), 0U);
  }
  EXPECT_EQ(fixture_.services().CountCalls("CreateDockedWindow"), 0);
  ASSERT_EQ(fixture_.boxes().boxes().size(), 1U);
  const auto& box = fixture_.boxes().boxes()[0];
  EXPECT_EQ(box.caption, "Shell Viewing Error");
  EXPECT_EQ(box.owner, fixture_.workbench().window());
  EXPECT_THAT(box.buttons, ElementsAre(IDOK));
  fixture_.SayWithHost({{"destroy_instance", nullptr}, {"shutdown", nullptr}});
  // The next instance is a whole one.
  EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}), 0U);
  EXPECT_NE(fixture_.ExplorerWindow(), nullptr);
  EXPECT_EQ(fixture_.boxes().boxes().size(), 1U);
  fixture_.SayWithHost({{"destroy_instance", nullptr}, {"shutdown", nullptr}});
}

TEST_F(CreationTest, WithoutAToolbarThereAreNoControls) {
  fixture_.Start();
  {
    const RefusedClass refused(TOOLBARCLASSNAMEA);
    EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}), 0U);
  }
  EXPECT_NE(fixture_.ExplorerWindow(), nullptr);
  EXPECT_EQ(fixture_.FileList(), nullptr);
  fixture_.SayWithHost({{"destroy_instance", nullptr}, {"shutdown", nullptr}});
  EXPECT_EQ(fixture_.ExplorerWindow(), nullptr);
}

TEST_F(CreationTest, WithoutAPathBoxTheFileViewIsNotMadeEither) {
  fixture_.Start();
  {
    const test_support::BlockedClass blocked(test_support::kComboViewClassId);
    EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}), 0U);
  }
  EXPECT_NE(fixture_.CommandToolbar(), nullptr);
  EXPECT_EQ(fixture_.FileList(), nullptr);
  fixture_.SayWithHost({{"destroy_instance", nullptr}, {"shutdown", nullptr}});
}

}  // namespace
}  // namespace explorer_tests
