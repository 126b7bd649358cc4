// Base of the workbench's own window classes: takes the object's address when the window is created and maps
// messages to handlers through a table that the derived class gives.
//
//   static std::span<const MessageHandler> Handlers();       // the table
//   static constexpr wchar_t kClassName[] = L"...";
//
// A handler that does not want to keep a message returns Default(message).
#pragma once

#include <windows.h>

#include <span>

namespace workbench {

struct Message {
  UINT id = 0;
  WPARAM first = 0;
  LPARAM second = 0;

  // Client coordinates of a mouse message.
  POINT point() const { return {static_cast<short>(LOWORD(second)), static_cast<short>(HIWORD(second))}; }
};

// The module that the workbench's code is linked into (the program, or a test program).
inline HINSTANCE ModuleInstance() {
  return GetModuleHandleW(nullptr);
}

template <typename Derived>
class WindowBase {
 public:
  struct MessageHandler {
    UINT id;
    LRESULT (Derived::*handle)(const Message&);
  };

  WindowBase() = default;
  WindowBase(const WindowBase&) = delete;
  WindowBase& operator=(const WindowBase&) = delete;

  HWND window() const { return window_; }

 protected:
  // A derived class whose handlers matter while its window goes calls DestroyNow in its own destructor; here
  // the object is only a base any more and hears no message.
  ~WindowBase() {
    if (window_ == nullptr) return;
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
  }

  // Creates the window; false when the system refuses.
  bool CreateWindowAt(DWORD extendedStyle, DWORD style, const RECT& rect, HWND parent,
                      const wchar_t* title = L"", UINT classStyle = CS_DBLCLKS) {
    RegisterOnce(classStyle);
    CreateWindowExW(extendedStyle, Derived::kClassName, title, style, rect.left, rect.top,
                    rect.right - rect.left, rect.bottom - rect.top, parent, nullptr, ModuleInstance(),
                    static_cast<Derived*>(this));
    return window_ != nullptr;
  }

  void DestroyNow() {
    if (window_ != nullptr) DestroyWindow(window_);
  }

  LRESULT Default(const Message& message) {
    return DefWindowProcW(window_, message.id, message.first, message.second);
  }

 private:
  static void RegisterOnce(UINT classStyle) {
    WNDCLASSEXW existing = {};
    existing.cbSize = sizeof existing;
    if (GetClassInfoExW(ModuleInstance(), Derived::kClassName, &existing)) return;
    WNDCLASSEXW description = {};
    description.cbSize = sizeof description;
    description.style = classStyle;
    description.lpfnWndProc = &Procedure;
    description.hInstance = ModuleInstance();
    description.hCursor = LoadCursorW(nullptr, MAKEINTRESOURCEW(32512));
    description.lpszClassName = Derived::kClassName;
    RegisterClassExW(&description);
  }

  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM first, LPARAM second) {
    if (id == WM_NCCREATE) {
      const auto* create = reinterpret_cast<const CREATESTRUCTW*>(second);
      auto* created = static_cast<Derived*>(create->lpCreateParams);
      static_cast<WindowBase*>(created)->window_ = window;
      SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
    }
    auto* self = reinterpret_cast<Derived*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self == nullptr) return DefWindowProcW(window, id, first, second);
    if (id == WM_NCDESTROY) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      static_cast<WindowBase*>(self)->window_ = nullptr;
      return DefWindowProcW(window, id, first, second);
    }
    // Nothing may be thrown through the system's code; a failed handler falls back to the default.
    try {
      for (const MessageHandler& handler : Derived::Handlers()) {
        if (handler.id == id) return (self->*handler.handle)(Message{id, first, second});
      }
    } catch (...) {
    }
    return DefWindowProcW(window, id, first, second);
  }

  HWND window_ = nullptr;
};

}  // namespace workbench
