#include "tests/support/unexpected_boxes.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "tests/support/message_box.h"

namespace test_support {
namespace {

int expecting = 0;
int unexpected = 0;
HWND answered = nullptr;

void Answer(HWND window) {
  const MessageBoxContents box = ReadMessageBox(window);
  ++unexpected;
  ADD_FAILURE() << "an unexpected message box came up: \"" << box.caption << "\" says \"" << box.text << "\"";
  PostMessageA(window, WM_COMMAND, MAKEWPARAM(LeastHarmfulButton(box), BN_CLICKED), 0);
}

LRESULT CALLBACK OnWindowEvent(int code, WPARAM first, LPARAM second) {
  const HWND window = reinterpret_cast<HWND>(first);
  if (code == HCBT_DESTROYWND && window == answered) answered = nullptr;
  if (code == HCBT_ACTIVATE && expecting == 0 && window != answered && IsMessageBox(window)) {
    answered = window;
    Answer(window);
  }
  return CallNextHookEx(nullptr, code, first, second);
}

}  // namespace

ExpectsBoxes::ExpectsBoxes() {
  ++expecting;
}
ExpectsBoxes::~ExpectsBoxes() {
  --expecting;
}

void WatchForUnexpectedBoxes() {
  SetWindowsHookExA(WH_CBT, OnWindowEvent, nullptr, GetCurrentThreadId());
}

int UnexpectedBoxes() {
  return unexpected;
}

}  // namespace test_support
