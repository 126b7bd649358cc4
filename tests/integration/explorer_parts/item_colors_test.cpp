// Colours of items, answered for a list whose window is a test's own.
#include "src/explorer/item_colors.h"

#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "src/host/vc64_tx.h"
#include "tests/support/high_contrast.h"

namespace file_explorer {
namespace {

constexpr char kGuid[] = "{5D1B7A10-2C44-4E0E-9A61-0B771F28D357}";

// What the list's own window answers, and what it was asked.
LRESULT ownAnswer = 0;
bool ownSelection = false;  // it takes the mark of a selected item away
int ownCalls = 0;

LRESULT CALLBACK OwnProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == static_cast<UINT>(NM_CUSTOMDRAW)) {
    ++ownCalls;
    auto* const draw = reinterpret_cast<NMLVCUSTOMDRAW*>(lParam);
    if (ownSelection) draw->nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
    return ownAnswer;
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

class ItemColorsTest : public testing::Test {
 protected:
  void SetUp() override {
    ownAnswer = CDRF_DODEFAULT;
    ownCalls = 0;
    ownSelection = false;
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&classes);
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = OwnProcedure;
    windowClass.lpszClassName = "ItemColorsTest";
    RegisterClassA(&windowClass);
    parent_ = CreateWindowExA(0, "ItemColorsTest", "", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, nullptr,
                              nullptr);
    list_ = CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | LVS_REPORT, 0, 0, 100, 100, parent_, nullptr,
                            nullptr, nullptr);
    LVCOLUMNA column = {};
    SendMessageA(list_, LVM_INSERTCOLUMNA, 0, reinterpret_cast<LPARAM>(&column));
    const std::int64_t types = kTxTypeText;
    ASSERT_TRUE(Tx_FileFormatHandler(kGuid, Tx_Inquire_Token("function"), Tx_Inquire_Token("viewer"), 1,
                                     Tx_Inquire_Token("type"), &types, 1, Tx_Inquire_Token("filetypes"),
                                     ".colored", 1, 0));
    Tx_FileFormatHandler_SetAssociatedFileTypeHandlerColor(kTxTypeText, 1.0F, 0.5F, 0.0F);
    AddRow("a.colored");
    AddRow("a.plain");
    AddRow("");
  }
  void TearDown() override {
    colors_.Detach();
    if (IsWindow(parent_)) DestroyWindow(parent_);
    UnregisterClassA("ItemColorsTest", nullptr);
    Tx_Remove_FileFormatHandler(kGuid);
    Tx_FileFormatHandler_ResetAssociatedFileTypeHandlerColors();
  }
  void AddRow(std::string name) {
    LVITEMA row = {};
    row.mask = LVIF_TEXT;
    row.iItem = 100;
    row.pszText = name.data();
    SendMessageA(list_, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&row));
  }
  void SelectRow(int row) {
    LVITEMA item = {};
    item.state = item.stateMask = LVIS_SELECTED;
    SendMessageA(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  }
  LRESULT Ask(DWORD stage, int row, COLORREF* background, UINT state = 0) {
    NMLVCUSTOMDRAW draw = {};
    draw.nmcd.uItemState = state;
    draw.nmcd.hdr = {list_, 1, static_cast<UINT>(NM_CUSTOMDRAW)};
    draw.nmcd.dwDrawStage = stage;
    draw.nmcd.dwItemSpec = static_cast<DWORD_PTR>(row);
    draw.clrText = draw.clrTextBk = CLR_DEFAULT;
    const LRESULT answer = SendMessageA(parent_, WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&draw));
    *background = draw.clrTextBk;
    EXPECT_EQ(draw.clrText, CLR_DEFAULT) << "the background, not the text";
    return answer;
  }
  LONG_PTR Procedure() const { return GetWindowLongPtrA(parent_, GWLP_WNDPROC); }

  HWND parent_ = nullptr;
  HWND list_ = nullptr;
  ItemColors colors_;
  COLORREF background_ = 0;
};

TEST_F(ItemColorsTest, AsksForEveryItemAndColoursTheKnownOnes) {
  colors_.Attach(list_);
  EXPECT_EQ(Ask(CDDS_PREPAINT, 0, &background_), CDRF_NOTIFYITEMDRAW);
  EXPECT_EQ(Ask(CDDS_ITEMPREPAINT, 0, &background_), CDRF_DODEFAULT);
  EXPECT_EQ(background_, RGB(255, 127, 0));
  Ask(CDDS_ITEMPREPAINT, 1, &background_);
  EXPECT_EQ(background_, CLR_DEFAULT) << "no handler";
  Ask(CDDS_ITEMPREPAINT, 2, &background_);
  EXPECT_EQ(background_, CLR_DEFAULT) << "no name";
  Ask(CDDS_POSTPAINT, 0, &background_);
  EXPECT_EQ(background_, CLR_DEFAULT);
}

TEST_F(ItemColorsTest, TheBitOfNoCategoryIsNoColour) {
  const std::int64_t types = kTxTypeUnknown;
  ASSERT_TRUE(Tx_FileFormatHandler(kGuid, Tx_Inquire_Token("function"), Tx_Inquire_Token("viewer"), 1,
                                   Tx_Inquire_Token("type"), &types, 1, Tx_Inquire_Token("filetypes"),
                                   ".colored", 1, 0));
  colors_.Attach(list_);
  Ask(CDDS_ITEMPREPAINT, 0, &background_);
  EXPECT_EQ(background_, CLR_DEFAULT);
}

TEST_F(ItemColorsTest, WhatTheWindowAnswersItselfStands) {
  colors_.Attach(list_);
  ownAnswer = CDRF_NOTIFYPOSTPAINT;
  EXPECT_EQ(Ask(CDDS_PREPAINT, 0, &background_), CDRF_NOTIFYPOSTPAINT | CDRF_NOTIFYITEMDRAW);
  ownAnswer = CDRF_SKIPDEFAULT;
  EXPECT_EQ(Ask(CDDS_ITEMPREPAINT, 0, &background_), CDRF_SKIPDEFAULT);
  EXPECT_EQ(background_, CLR_DEFAULT) << "it drew the item itself";
  EXPECT_EQ(ownCalls, 2);
}

TEST_F(ItemColorsTest, ASelectionThatTheWindowDrawsInItsOwnColourStands) {
  colors_.Attach(list_);
  SelectRow(0);
  Ask(CDDS_ITEMPREPAINT, 0, &background_, CDIS_SELECTED);
  EXPECT_EQ(background_, RGB(255, 127, 0)) << "the list itself shows its selection";
  ownSelection = true;
  Ask(CDDS_ITEMPREPAINT, 0, &background_, CDIS_SELECTED);
  EXPECT_EQ(background_, CLR_DEFAULT);
  Ask(CDDS_ITEMPREPAINT, 0, &background_, CDIS_FOCUS);
  EXPECT_EQ(background_, RGB(255, 127, 0));
}

// A list that always shows its selection may give the mark of a selected item to every item.
TEST_F(ItemColorsTest, AMarkThatIsTakenFromAnItemThatIsNotSelectedKeepsTheColour) {
  colors_.Attach(list_);
  SelectRow(1);
  ownSelection = true;
  Ask(CDDS_ITEMPREPAINT, 0, &background_, CDIS_SELECTED);
  EXPECT_EQ(background_, RGB(255, 127, 0));
}

TEST_F(ItemColorsTest, InHighContrastTheSystemsColoursStand) {
  colors_.Attach(list_);
  {
    const test_support::HighContrast contrast(GetModuleHandleW(nullptr));
    ASSERT_TRUE(contrast.installed());
    EXPECT_EQ(Ask(CDDS_PREPAINT, 0, &background_), CDRF_NOTIFYITEMDRAW);
    Ask(CDDS_ITEMPREPAINT, 0, &background_);
    EXPECT_EQ(background_, CLR_DEFAULT);
  }
  Ask(CDDS_PREPAINT, 0, &background_);
  Ask(CDDS_ITEMPREPAINT, 0, &background_);
  EXPECT_EQ(background_, RGB(255, 127, 0)) << "the next painting follows the setting";
}

TEST_F(ItemColorsTest, OtherWindowsAreLeftAlone) {
  colors_.Attach(list_);
  NMLVCUSTOMDRAW draw = {};
  draw.nmcd.hdr = {parent_, 1, static_cast<UINT>(NM_CUSTOMDRAW)};
  draw.nmcd.dwDrawStage = CDDS_PREPAINT;
  EXPECT_EQ(SendMessageA(parent_, WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&draw)), CDRF_DODEFAULT);
}

TEST_F(ItemColorsTest, DetachingGivesTheWindowBack) {
  const LONG_PTR before = Procedure();
  colors_.Attach(list_);
  EXPECT_NE(Procedure(), before);
  colors_.Detach();
  EXPECT_EQ(Procedure(), before);
  EXPECT_EQ(Ask(CDDS_PREPAINT, 0, &background_), CDRF_DODEFAULT);
  colors_.Attach(nullptr);
  EXPECT_EQ(Procedure(), before);
}

WNDPROC later = nullptr;
LRESULT CALLBACK LaterProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return CallWindowProcA(later, window, message, wParam, lParam);
}

TEST_F(ItemColorsTest, SomebodyWhoCameLaterKeepsHisPlace) {
  colors_.Attach(list_);
  later = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrA(parent_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&LaterProcedure)));
  colors_.Detach();
  EXPECT_EQ(Procedure(), reinterpret_cast<LONG_PTR>(&LaterProcedure));
  ownAnswer = CDRF_NOTIFYPOSTPAINT;
  EXPECT_EQ(Ask(CDDS_PREPAINT, 0, &background_), CDRF_NOTIFYPOSTPAINT) << "only passed on";
  colors_.Attach(list_);
  EXPECT_EQ(Ask(CDDS_PREPAINT, 0, &background_), CDRF_NOTIFYPOSTPAINT | CDRF_NOTIFYITEMDRAW)
      << "and taken up again";
}

TEST_F(ItemColorsTest, AWindowThatGoesFirstIsNoHarm) {
  colors_.Attach(list_);
  DestroyWindow(parent_);
  colors_.Detach();
  colors_.Attach(nullptr);
}

}  // namespace
}  // namespace file_explorer
