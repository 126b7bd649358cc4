#include "src/explorer/toolbar_keys.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

#include "src/explorer/tab_order.h"
#include "src/framework/command_ids.h"
#include "src/framework/module_context.h"

namespace file_explorer {
namespace {

constexpr char kPreviousProcedure[] = "file_explorer toolbar keys";
constexpr int kNoButton = -1;

LRESULT Send(HWND toolbar, UINT message, int number = 0, void* data = nullptr) {
  return SendMessageA(toolbar, message, static_cast<WPARAM>(number), reinterpret_cast<LPARAM>(data));
}

bool CanBePressed(HWND toolbar, int index) {
  TBBUTTON button = {};
  return Send(toolbar, TB_GETBUTTON, index, &button) != 0 && (button.fsStyle & BTNS_SEP) == 0 &&
         (button.fsState & TBSTATE_ENABLED) != 0 && (button.fsState & TBSTATE_HIDDEN) == 0 &&
         button.idCommand != kCommandLabelSpacer;
}

// The first button from `index` on that can be pressed; kNoButton when there is none.
int FindButton(HWND toolbar, int index, int step) {
  const int count = static_cast<int>(Send(toolbar, TB_BUTTONCOUNT));
  while (index >= 0 && index < count) {
    if (CanBePressed(toolbar, index)) return index;
    index += step;
  }
  return kNoButton;
}

int FirstButton(HWND toolbar) {
  return FindButton(toolbar, 0, 1);
}
int LastButton(HWND toolbar) {
  return FindButton(toolbar, static_cast<int>(Send(toolbar, TB_BUTTONCOUNT)) - 1, -1);
}
int HotButton(HWND toolbar) {
  return static_cast<int>(Send(toolbar, TB_GETHOTITEM));
}
int NextButton(HWND toolbar) {
  return FindButton(toolbar, HotButton(toolbar) + 1, 1);
}
int PreviousButton(HWND toolbar) {
  return FindButton(toolbar, HotButton(toolbar) - 1, -1);
}

struct MovingKey {
  WPARAM key;
  int (*target)(HWND toolbar);
};
constexpr MovingKey kMovingKeys[] = {
    {VK_LEFT, PreviousButton}, {VK_UP, PreviousButton}, {VK_RIGHT, NextButton},
    {VK_DOWN, NextButton},     {VK_HOME, FirstButton},  {VK_END, LastButton},
};

// True when the key is dealt with.
bool OnKeyDown(HWND toolbar, WPARAM key) {
  if (IsTab(key)) {
    AskForNext(GetParent(toolbar));
    return true;
  }
  if (key == VK_ESCAPE) {
    SetFocus(GetParent(toolbar));
    return true;
  }
  const auto* const found = std::find_if(std::begin(kMovingKeys), std::end(kMovingKeys),
                                         [key](const MovingKey& candidate) { return candidate.key == key; });
  if (found == std::end(kMovingKeys)) return false;
  const int target = found->target(toolbar);
  if (target != kNoButton) Send(toolbar, TB_SETHOTITEM, target);
  return true;
}

LRESULT CALLBACK Procedure(HWND toolbar, UINT message, WPARAM wParam, LPARAM lParam) {
  const ModuleContext context;
  const auto previous = reinterpret_cast<WNDPROC>(GetPropA(toolbar, kPreviousProcedure));
  if (previous == nullptr) return DefWindowProcA(toolbar, message, wParam, lParam);
  if (message == WM_KEYDOWN && OnKeyDown(toolbar, wParam)) return 0;
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrA(toolbar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
    RemovePropA(toolbar, kPreviousProcedure);
  }
  const LRESULT result = CallWindowProcA(previous, toolbar, message, wParam, lParam);
  // Behind the control, whose own choice may be the spacer below the label.
  if (message == WM_SETFOCUS) Send(toolbar, TB_SETHOTITEM, FirstButton(toolbar));
  if (message == WM_KILLFOCUS) Send(toolbar, TB_SETHOTITEM, kNoButton);
  return result;
}

}  // namespace

void AddToolbarKeys(HWND toolbar) {
  const LONG_PTR previous = GetWindowLongPtrA(toolbar, GWLP_WNDPROC);
  if (!SetPropA(toolbar, kPreviousProcedure, reinterpret_cast<HANDLE>(previous))) return;
  SetWindowLongPtrA(toolbar, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure));
}

}  // namespace file_explorer
