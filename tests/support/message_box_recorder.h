// Message boxes of this thread, recorded and answered as they come up.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace test_support {

struct RecordedMessageBox {
  std::string caption;
  std::string text;
  std::wstring wideText;  // the same with every letter
  std::vector<int> buttons;  // IDOK, IDYES, ..., from left to right
  UINT icon = 0;             // MB_ICONERROR, MB_ICONQUESTION, MB_ICONEXCLAMATION, MB_ICONINFORMATION or 0
  HWND owner = nullptr;
};

// While one exists, every message box of the thread is recorded and answered at once. One at a time.
class MessageBoxRecorder {
 public:
  MessageBoxRecorder();
  ~MessageBoxRecorder();
  MessageBoxRecorder(const MessageBoxRecorder&) = delete;
  MessageBoxRecorder& operator=(const MessageBoxRecorder&) = delete;

  // The button to press from now on; a box without it gets its first button pressed. Starts with IDOK.
  void AnswerWith(int button) { answer_ = button; }

  const std::vector<RecordedMessageBox>& boxes() const { return boxes_; }

 private:
  static LRESULT CALLBACK OnWindowEvent(int code, WPARAM first, LPARAM second);
  void OnActivate(HWND window);

  HHOOK hook_ = nullptr;
  int answer_ = IDOK;
  HWND answered_ = nullptr;
  std::vector<RecordedMessageBox> boxes_;
};

}  // namespace test_support
