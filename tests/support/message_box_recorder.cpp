#include "tests/support/message_box_recorder.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace test_support {
namespace {

MessageBoxRecorder* current = nullptr;

}  // namespace

MessageBoxRecorder::MessageBoxRecorder() {
  if (current) throw std::logic_error("one message box recorder at a time");
  hook_ = SetWindowsHookExA(WH_CBT, OnWindowEvent, nullptr, GetCurrentThreadId());
  if (!hook_) throw std::runtime_error("cannot watch message boxes");
  current = this;
}

MessageBoxRecorder::~MessageBoxRecorder() {
  UnhookWindowsHookEx(hook_);
  current = nullptr;
}

// A message box is complete when it is activated, not yet when it is created.
LRESULT CALLBACK MessageBoxRecorder::OnWindowEvent(int code, WPARAM first, LPARAM second) {
  const HWND window = reinterpret_cast<HWND>(first);
  if (current && code == HCBT_ACTIVATE) current->OnActivate(window);
  // The next box may have the same handle.
  if (current && code == HCBT_DESTROYWND && window == current->answered_) current->answered_ = nullptr;
  return CallNextHookEx(nullptr, code, first, second);
}

void MessageBoxRecorder::OnActivate(HWND window) {
  if (window == answered_ || !IsMessageBox(window)) return;
  answered_ = window;
  RecordedMessageBox box = ReadMessageBox(window);
  const bool offered = std::find(box.buttons.begin(), box.buttons.end(), answer_) != box.buttons.end();
  const int press = offered || box.buttons.empty() ? answer_ : box.buttons.front();
  boxes_.push_back(std::move(box));
  if (const std::function<void()> act = std::exchange(act_, nullptr)) act();
  PostMessageA(window, WM_COMMAND, MAKEWPARAM(press, BN_CLICKED), 0);
}

}  // namespace test_support
