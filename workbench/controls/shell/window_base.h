// Windows of our own classes, and subclassing of windows that we did not make.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <string>
#include <type_traits>

namespace controls {

struct FontDeleter {
  using pointer = HFONT;
  void operator()(HFONT font) const { DeleteObject(font); }
};
using UniqueFont = std::unique_ptr<std::remove_pointer_t<HFONT>, FontDeleter>;

// A window class that is registered while somebody uses it.
class WindowClassUse {
 public:
  WindowClassUse() = default;
  ~WindowClassUse() { Release(); }
  WindowClassUse(const WindowClassUse&) = delete;
  WindowClassUse& operator=(const WindowClassUse&) = delete;

  bool Acquire(const wchar_t* name, WNDPROC procedure);
  void Release();

 private:
  std::wstring name_;  // empty while nothing is held
};

// Base of the controls' own windows.
class WindowBase {
 public:
  WindowBase() = default;
  virtual ~WindowBase() { Destroy(); }
  WindowBase(const WindowBase&) = delete;
  WindowBase& operator=(const WindowBase&) = delete;

  HWND hwnd() const { return hwnd_; }
  // A child window that fills rect of its parent.
  bool Create(const wchar_t* className, HWND parent, const RECT& rect);
  // A window with styles of its own; for one that takes messages only parent is HWND_MESSAGE. parent owns a popup.
  struct Look {
    DWORD style = 0;
    DWORD extended = 0;
    const wchar_t* title = L"";
  };
  bool Create(const wchar_t* className, HWND parent, const RECT& rect, const Look& look);
  void Destroy();

 protected:
  // Exceptions end at the window procedure; the message then counts as not handled.
  virtual LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcW(hwnd_, message, wParam, lParam);
  }

 private:
  static LRESULT CALLBACK Procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  WindowClassUse class_;
  HWND hwnd_ = nullptr;
};

// Takes part in another window's messages while it lives. The window procedure is replaced directly: the
// common controls' own subclassing looks a window property up for each message, which is a call to another
// process under Wine, and 100,000 selection messages must not take seconds.
class Subclass {
 public:
  Subclass() = default;
  virtual ~Subclass() { Detach(); }
  Subclass(const Subclass&) = delete;
  Subclass& operator=(const Subclass&) = delete;

  void Attach(HWND window);
  void Detach();

 protected:
  virtual LRESULT HandleSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) = 0;
  // The window's own handling.
  static LRESULT Original(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
  HWND window_ = nullptr;
};

}  // namespace controls
