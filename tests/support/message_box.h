// What a message box shows.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace test_support {

struct MessageBoxContents {
  std::string caption;
  std::string text;
  std::wstring wideText;     // the same with every letter
  std::vector<int> buttons;  // IDOK, IDYES, ..., from left to right
  UINT icon = 0;             // MB_ICONERROR, MB_ICONQUESTION, MB_ICONEXCLAMATION, MB_ICONINFORMATION or 0
  HWND owner = nullptr;
};

// Only once it has been activated is a message box complete.
bool IsMessageBox(HWND window);
MessageBoxContents ReadMessageBox(HWND window);

// The button that does least: Cancel, No, or the first one.
int LeastHarmfulButton(const MessageBoxContents& box);

}  // namespace test_support
