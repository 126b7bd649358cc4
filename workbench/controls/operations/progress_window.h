// The window that shows how far a file operation is.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "workbench/controls/operations/operation_text.h"
#include "workbench/controls/shell/window_base.h"

namespace controls {

class ProgressWindow : public WindowBase {
 public:
  ProgressWindow() : button_(*this) {}
  ~ProgressWindow() override { Destroy(); }

  // In the middle of its owner, without taking the focus. cancel: the user wants the operation to end.
  bool Open(HWND owner, std::function<void()> cancel);
  void Show(const ProgressText& text);

 protected:
  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  // No dialog manager looks after a window that is not modal: the button knows its keys itself.
  class Button : public Subclass {
   public:
    explicit Button(ProgressWindow& window) : window_(window) {}
    LRESULT HandleSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

   private:
    ProgressWindow& window_;
  };

  void CreateChildren();
  HWND AddChild(const wchar_t* className, const wchar_t* text, DWORD style, const RECT& place, int id);
  int Scale(int pixels) const;
  void Cancel();

  std::function<void()> cancel_;
  UniqueFont font_;
  Button button_;
  HWND name_ = nullptr;
  HWND counts_ = nullptr;
  HWND bar_ = nullptr;
  HWND cancelButton_ = nullptr;
};

}  // namespace controls
