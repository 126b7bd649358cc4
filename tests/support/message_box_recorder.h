// Message boxes of this thread, recorded and answered as they come up.
#pragma once

#include <windows.h>

#include <functional>
#include <utility>
#include <vector>

#include "tests/support/message_box.h"
#include "tests/support/unexpected_boxes.h"

namespace test_support {

using RecordedMessageBox = MessageBoxContents;

// While one exists, every message box of the thread is recorded and answered at once. One at a time.
class MessageBoxRecorder {
 public:
  MessageBoxRecorder();
  ~MessageBoxRecorder();
  MessageBoxRecorder(const MessageBoxRecorder&) = delete;
  MessageBoxRecorder& operator=(const MessageBoxRecorder&) = delete;

  // The button to press from now on; a box without it gets its first button pressed. Starts with IDOK.
  void AnswerWith(int button) { answer_ = button; }

  // Done while the next box is open, before it is answered; once.
  void BeforeAnswering(std::function<void()> act) { act_ = std::move(act); }

  const std::vector<RecordedMessageBox>& boxes() const { return boxes_; }

 private:
  static LRESULT CALLBACK OnWindowEvent(int code, WPARAM first, LPARAM second);
  void OnActivate(HWND window);

  ExpectsBoxes expects_;
  HHOOK hook_ = nullptr;
  int answer_ = IDOK;
  std::function<void()> act_;
  HWND answered_ = nullptr;
  std::vector<RecordedMessageBox> boxes_;
};

}  // namespace test_support
