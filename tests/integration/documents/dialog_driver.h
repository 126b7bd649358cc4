// Answers a modal dialog: while the dialog's own message loop runs, a timer finds the dialog and acts on it.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "tests/support/unexpected_boxes.h"

namespace document_tests {

class DialogDriver {
 public:
  // act gets the first visible dialog of this thread, once. When the dialog does not close after that, it is
  // cancelled after the time of a wait, and the test fails.
  explicit DialogDriver(std::function<void(HWND dialog)> act);
  ~DialogDriver();
  DialogDriver(const DialogDriver&) = delete;
  DialogDriver& operator=(const DialogDriver&) = delete;

  bool acted() const { return acted_; }

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
  void Poll();

  std::function<void(HWND)> act_;
  test_support::ExpectsBoxes expects_;
  UINT_PTR timer_ = 0;
  ULONGLONG deadline_ = 0;
  bool acted_ = false;
};

// Presses a button by its id, as a click would; after the current message is done.
void Press(HWND dialog, int id);
// Sends a key to the dialog's focused control through the message queue, where the dialog's keyboard handling
// sees it.
void Type(HWND dialog, WPARAM key);

}  // namespace document_tests
