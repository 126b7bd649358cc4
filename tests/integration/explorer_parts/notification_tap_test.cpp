// Taps on what a list tells the window around it: the Tab key beside the colours.
#include "src/explorer/notification_tap.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <memory>

#include "src/explorer/item_colors.h"
#include "src/explorer/tab_order.h"

namespace file_explorer {
namespace {

constexpr LRESULT kOwnAnswer = 7;
int ownKeys = 0;
int requests = 0;

LRESULT CALLBACK OwnProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NEXTDLGCTL) ++requests;
  if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == static_cast<UINT>(LVN_KEYDOWN)) {
    ++ownKeys;
    return kOwnAnswer;
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

class NotificationTapTest : public testing::Test {
 protected:
  void SetUp() override {
    ownKeys = requests = 0;
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = OwnProcedure;
    windowClass.lpszClassName = "NotificationTapTest";
    RegisterClassA(&windowClass);
    receiver_ = NewWindow(nullptr);
    list_ = NewWindow(receiver_);
    container_ = NewWindow(nullptr);
    before_ = Procedure();
  }
  void TearDown() override {
    keys_.reset();
    colors_.reset();
    if (IsWindow(receiver_)) DestroyWindow(receiver_);
    DestroyWindow(container_);
    UnregisterClassA("NotificationTapTest", nullptr);
  }
  static HWND NewWindow(HWND parent) {
    return CreateWindowExA(0, "NotificationTapTest", "", parent != nullptr ? WS_CHILD : WS_POPUP, 0, 0, 9, 9,
                           parent, nullptr, nullptr, nullptr);
  }
  LRESULT TellKey(WORD key, HWND sender) {
    NMLVKEYDOWN notification = {};
    notification.hdr = {sender, 1, static_cast<UINT>(LVN_KEYDOWN)};
    notification.wVKey = key;
    return SendMessageA(receiver_, WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&notification));
  }
  LRESULT AskForDrawing() {
    NMLVCUSTOMDRAW draw = {};
    draw.nmcd.hdr = {list_, 1, static_cast<UINT>(NM_CUSTOMDRAW)};
    draw.nmcd.dwDrawStage = CDDS_PREPAINT;
    return SendMessageA(receiver_, WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&draw));
  }
  LONG_PTR Procedure() const { return GetWindowLongPtrA(receiver_, GWLP_WNDPROC); }
  void AttachBoth() {
    colors_->Attach(list_);
    keys_->Attach(list_, container_);
  }

  HWND receiver_ = nullptr;
  HWND list_ = nullptr;
  HWND container_ = nullptr;
  LONG_PTR before_ = 0;
  std::unique_ptr<ItemColors> colors_ = std::make_unique<ItemColors>();
  std::unique_ptr<ViewTabKey> keys_ = std::make_unique<ViewTabKey>(static_cast<UINT>(LVN_KEYDOWN));
};

TEST_F(NotificationTapTest, TabAsksTheContainerAndOtherKeysReachTheReceiver) {
  AttachBoth();
  EXPECT_EQ(TellKey(VK_TAB, list_), 1);
  EXPECT_EQ(requests, 1);
  EXPECT_EQ(ownKeys, 0);
  EXPECT_EQ(TellKey(VK_RETURN, list_), kOwnAnswer);
  EXPECT_EQ(TellKey(VK_TAB, receiver_), kOwnAnswer) << "of another window";
  EXPECT_EQ(requests, 1);
  EXPECT_EQ(ownKeys, 2);
}

TEST_F(NotificationTapTest, TwoTapsShareAWindow) {
  AttachBoth();
  EXPECT_EQ(AskForDrawing(), CDRF_NOTIFYITEMDRAW);
  colors_->Detach();
  EXPECT_EQ(AskForDrawing(), CDRF_DODEFAULT);
  EXPECT_EQ(TellKey(VK_TAB, list_), 1);
  keys_->Detach();
  EXPECT_EQ(TellKey(VK_TAB, list_), kOwnAnswer);
  EXPECT_EQ(Procedure(), before_);
}

TEST_F(NotificationTapTest, TheWindowIsGivenBackInTheOtherOrderToo) {
  AttachBoth();
  keys_.reset();
  EXPECT_NE(Procedure(), before_);
  EXPECT_EQ(AskForDrawing(), CDRF_NOTIFYITEMDRAW);
  colors_.reset();
  EXPECT_EQ(Procedure(), before_);
}

TEST_F(NotificationTapTest, OfTwoTapsForTheSameTheFirstHasIt) {
  AttachBoth();
  const HWND otherContainer = list_;
  ViewTabKey second(static_cast<UINT>(LVN_KEYDOWN));
  second.Attach(list_, otherContainer);
  TellKey(VK_TAB, list_);
  EXPECT_EQ(requests, 1);
  second.Detach();
  EXPECT_EQ(TellKey(VK_TAB, list_), 1) << "still the first one's";
}

TEST_F(NotificationTapTest, AWindowThatGoesFirstIsNoHarm) {
  AttachBoth();
  DestroyWindow(receiver_);
  keys_->Detach();
  colors_->Detach();
}

TEST(TabOrderTest, EmptyPlacesAreLeftOut) {
  const auto make = [] {
    return CreateWindowExA(0, "EDIT", "", WS_POPUP | WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr, nullptr,
                           nullptr);
  };
  const HWND first = make();
  const HWND last = make();
  const HWND order[] = {first, nullptr, last};
  SetFocus(first);
  FocusNext(order, false);
  EXPECT_EQ(GetFocus(), last);
  FocusNext(order, false);
  EXPECT_EQ(GetFocus(), first);
  FocusNext(order, true);
  EXPECT_EQ(GetFocus(), last);
  const HWND alone[] = {nullptr, nullptr, last};
  FocusNext(alone, false);
  EXPECT_EQ(GetFocus(), last);
  FocusNext({}, false);
  DestroyWindow(first);
  DestroyWindow(last);
}

}  // namespace
}  // namespace file_explorer
