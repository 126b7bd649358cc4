// Message boxes of this thread, recorded and answered.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace test_support {

struct MessageBoxSeen {
  std::string caption;
  std::string text;
  std::vector<int> buttons;
  bool hasIcon = false;
  HWND owner = nullptr;
};

// While it lives, message boxes are answered at once. One at a time.
class MessageBoxes {
 public:
  explicit MessageBoxes(int answer = IDOK);
  ~MessageBoxes();
  MessageBoxes(const MessageBoxes&) = delete;
  MessageBoxes& operator=(const MessageBoxes&) = delete;

  const std::vector<MessageBoxSeen>& seen() const { return seen_; }

 private:
  static LRESULT CALLBACK Hook(int code, WPARAM wParam, LPARAM lParam);
  void OnActivate(HWND box);

  static MessageBoxes* current;
  const int answer_;
  HHOOK hook_;
  HWND last_ = nullptr;
  std::vector<MessageBoxSeen> seen_;
};

}  // namespace test_support
