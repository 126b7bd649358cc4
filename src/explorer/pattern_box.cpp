#include "src/explorer/pattern_box.h"

#include <windows.h>

#include <commctrl.h>

#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/pattern_selection.h"
#include "src/explorer/tab_order.h"
#include "src/explorer/toolbar_builder.h"
#include "src/framework/module_context.h"

namespace file_explorer {
namespace {

constexpr char kBoxProperty[] = "ExplorerPatternBox";
constexpr char kLabelText[] = "Select:";
constexpr int kGap = 5;
constexpr int kEditTop = 2;
constexpr int kEditWidth = 100;
constexpr int kBalloonWidth = 400;
constexpr int kBalloonTime = 30000;  // milliseconds

}  // namespace

PatternBox::~PatternBox() { Destroy(); }

bool PatternBox::Create(HINSTANCE instance, ExplorerWindow& owner, HWND toolbar) {
  owner_ = &owner;
  // Before the label is there: it asks for its colours as soon as it gets its font.
  toolbar_ = toolbar;
  SetPropA(toolbar, kBoxProperty, this);
  previousToolbarProcedure_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrA(toolbar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PatternBox::ToolbarProcedure)));
  RECT lastButton = {};
  const LRESULT count = SendMessageA(toolbar, TB_BUTTONCOUNT, 0, 0);
  SendMessageA(toolbar, TB_GETITEMRECT, static_cast<WPARAM>(count - 1), reinterpret_cast<LPARAM>(&lastButton));
  RECT bounds = {};
  GetWindowRect(toolbar, &bounds);
  const int toolbarHeight = bounds.bottom - bounds.top;
  const WPARAM font = static_cast<WPARAM>(SendMessageA(toolbar, WM_GETFONT, 0, 0));

  const SIZE text = MeasureText(toolbar, kLabelText);
  const int labelLeft = lastButton.right + kGap;
  label_ = CreateWindowExA(0, "STATIC", kLabelText, WS_CHILD | WS_VISIBLE | SS_LEFTNOWORDWRAP, labelLeft,
                           (toolbarHeight - text.cy - 4) / 2, text.cx, text.cy + 4, toolbar, nullptr, instance,
                           nullptr);
  const int editLeft = labelLeft + text.cx + kGap;
  // A wide window: in an 8-bit one typed letters that the code page lacks would be bent into others.
  edit_ = CreateWindowExW(WS_EX_CLIENTEDGE, L"EDIT", L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL, editLeft,
                          kEditTop, kEditWidth, toolbarHeight - 6, toolbar,
                          reinterpret_cast<HMENU>(static_cast<INT_PTR>(kSelectEditId)), instance, nullptr);
  if (edit_ == nullptr) return false;
  SendMessageA(edit_, WM_SETFONT, font, TRUE);
  if (label_ != nullptr) SendMessageA(label_, WM_SETFONT, font, TRUE);
  SetPropA(edit_, kBoxProperty, this);
  previousProcedure_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&PatternBox::EditProcedure)));
  CreateBalloon(instance, owner.window());
  return true;
}

void PatternBox::CreateBalloon(HINSTANCE instance, HWND ownerWindow) {
  balloon_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_BALLOON,
                             CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, ownerWindow, nullptr, instance,
                             nullptr);
  if (balloon_ == nullptr) return;  // the box works without its help
  SetWindowPos(balloon_, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
  TTTOOLINFOA tool = {};
  tool.cbSize = sizeof(tool);
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = ownerWindow;
  tool.uId = reinterpret_cast<UINT_PTR>(edit_);
  tool.lpszText = LPSTR_TEXTCALLBACKA;
  SendMessageA(balloon_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
  SendMessageA(balloon_, TTM_SETMAXTIPWIDTH, 0, kBalloonWidth);
  SendMessageA(balloon_, TTM_SETDELAYTIME, TTDT_AUTOPOP, MAKELPARAM(kBalloonTime, 0));
}

void PatternBox::Destroy() {
  if (balloon_ != nullptr && IsWindow(balloon_)) DestroyWindow(balloon_);
  if (edit_ != nullptr && IsWindow(edit_)) {
    SetWindowLongPtrW(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previousProcedure_));
    RemovePropA(edit_, kBoxProperty);
  }
  if (toolbar_ != nullptr && IsWindow(toolbar_)) {
    SetWindowLongPtrA(toolbar_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previousToolbarProcedure_));
    RemovePropA(toolbar_, kBoxProperty);
  }
  balloon_ = label_ = edit_ = toolbar_ = nullptr;
}

void PatternBox::Clear() {
  if (edit_ != nullptr) SendMessageA(edit_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(""));
}

// Tab goes on to the list, Escape back to it. Their characters follow behind the keys and mean nothing more.
bool PatternBox::LeadsOut(const PatternBox& box, UINT message, WPARAM key) {
  if (message == WM_CHAR) return key == VK_TAB || key == VK_ESCAPE;
  if (message != WM_KEYDOWN) return false;
  if (key == VK_ESCAPE) {
    SetFocus(box.owner_->window());
  } else if (IsTab(key)) {
    AskForNext(box.owner_->window());
  } else {
    return false;
  }
  return true;
}

LRESULT CALLBACK PatternBox::EditProcedure(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const box = static_cast<PatternBox*>(GetPropA(edit, kBoxProperty));
  if (box == nullptr) return DefWindowProcW(edit, message, wParam, lParam);
  const base::Hold hold(box->owner_);  // the box is a part of its owner
  if (LeadsOut(*box, message, wParam)) return 0;
  // Enter redoes the selection like every character; the one-line box itself would only beep at it.
  const bool isEnter = message == WM_CHAR && wParam == VK_RETURN;
  const LRESULT result = isEnter ? 0 : CallWindowProcW(box->previousProcedure_, edit, message, wParam, lParam);
  if (message != WM_CHAR) return result;
  try {
    const ModuleContext context;
    SelectItemsByPattern(box->owner_->state().services, box->owner_->fileView(), edit);
  } catch (...) {
    MessageBeep(MB_ICONWARNING);  // the typed character stays; only its selection is missing
  }
  return result;
}

// The flat toolbar shows its parent's background, the colour of windows; a label in the colour of buttons would stand in
// it as a patch.
LRESULT CALLBACK PatternBox::ToolbarProcedure(HWND toolbar, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto* const box = static_cast<PatternBox*>(GetPropA(toolbar, kBoxProperty));
  if (box == nullptr) return DefWindowProcA(toolbar, message, wParam, lParam);
  if (message == WM_CTLCOLORSTATIC && reinterpret_cast<HWND>(lParam) == box->label_) {
    SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
    SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
    return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
  }
  return CallWindowProcA(box->previousToolbarProcedure_, toolbar, message, wParam, lParam);
}

}  // namespace file_explorer
