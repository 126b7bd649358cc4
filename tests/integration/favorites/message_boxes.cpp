#include "tests/integration/favorites/message_boxes.h"

namespace test_support {
namespace {

constexpr int kTextId = 0xFFFF;

std::string TextOf(HWND window) {
  char text[1024] = "";
  GetWindowTextA(window, text, sizeof(text));
  return text;
}

bool IsOfClass(HWND window, const char* name) {
  char text[64] = "";
  GetClassNameA(window, text, sizeof(text));
  return lstrcmpiA(text, name) == 0;
}

BOOL CALLBACK AddChild(HWND child, LPARAM parameter) {
  auto* const seen = reinterpret_cast<MessageBoxSeen*>(parameter);
  if (!IsWindowVisible(child) && (GetWindowLongPtrA(child, GWL_STYLE) & WS_VISIBLE) == 0) return TRUE;
  if (IsOfClass(child, "Button")) seen->buttons.push_back(GetDlgCtrlID(child));
  if (IsOfClass(child, "Static") && SendMessageA(child, STM_GETICON, 0, 0) != 0) seen->hasIcon = true;
  return TRUE;
}

}  // namespace

MessageBoxes* MessageBoxes::current = nullptr;

MessageBoxes::MessageBoxes(int answer)
    : answer_(answer), hook_(SetWindowsHookExA(WH_CBT, Hook, nullptr, GetCurrentThreadId())) {
  current = this;
}

MessageBoxes::~MessageBoxes() {
  UnhookWindowsHookEx(hook_);
  current = nullptr;
}

LRESULT CALLBACK MessageBoxes::Hook(int code, WPARAM wParam, LPARAM lParam) {
  // A box is complete when it is activated, not when it is created.
  if (code == HCBT_ACTIVATE && current != nullptr) current->OnActivate(reinterpret_cast<HWND>(wParam));
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

void MessageBoxes::OnActivate(HWND box) {
  const HWND text = GetDlgItem(box, kTextId);
  if (text == nullptr || !IsOfClass(box, "#32770") || box == last_) return;
  last_ = box;
  MessageBoxSeen seen;
  seen.caption = TextOf(box);
  seen.text = TextOf(text);
  seen.owner = GetWindow(box, GW_OWNER);
  EnumChildWindows(box, AddChild, reinterpret_cast<LPARAM>(&seen));
  seen_.push_back(seen);
  PostMessageA(box, WM_COMMAND, MAKEWPARAM(answer_, BN_CLICKED), 0);
}

}  // namespace test_support
