// What the windows of this folder share: a window class for each kind of window, sizes in device-independent
// pixels, fonts, and double-buffered painting.
#pragma once

#include <windows.h>

#include <string>
#include <utility>

namespace workbench {

// Owner of a GDI object.
template <typename Handle>
class UniqueGdi {
 public:
  UniqueGdi() = default;
  explicit UniqueGdi(Handle handle) : handle_(handle) {}
  UniqueGdi(UniqueGdi&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  UniqueGdi& operator=(UniqueGdi&& other) noexcept {
    if (this != &other) reset(std::exchange(other.handle_, nullptr));
    return *this;
  }
  UniqueGdi(const UniqueGdi&) = delete;
  UniqueGdi& operator=(const UniqueGdi&) = delete;
  ~UniqueGdi() { reset(); }

  void reset(Handle handle = nullptr) {
    if (handle_ != nullptr) DeleteObject(handle_);
    handle_ = handle;
  }
  Handle get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }

 private:
  Handle handle_ = nullptr;
};
using UniqueFont = UniqueGdi<HFONT>;
using UniqueBrush = UniqueGdi<HBRUSH>;
using UniqueBitmap = UniqueGdi<HBITMAP>;
using UniquePen = UniqueGdi<HPEN>;

// Selects an object into a device context for a scope.
class SelectedObject {
 public:
  SelectedObject(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
  ~SelectedObject() { SelectObject(dc_, previous_); }
  SelectedObject(const SelectedObject&) = delete;
  SelectedObject& operator=(const SelectedObject&) = delete;

 private:
  HDC dc_;
  HGDIOBJ previous_;
};

// Pixels of the screen for a length at 96 DPI.
int ScaledPixels(int length);

// The font of the system's messages, at a percentage of its size.
UniqueFont CreateMessageFont(int percent = 100, bool bold = false);
// A font whose characters are equally wide.
UniqueFont CreateFixedFont();

// A window of this folder. The C++ object and the window live and die separately: an object whose window was
// destroyed by its parent stays usable, with a null window.
class ViewWindow {
 public:
  ViewWindow() = default;
  virtual ~ViewWindow();
  ViewWindow(const ViewWindow&) = delete;
  ViewWindow& operator=(const ViewWindow&) = delete;

  HWND handle() const { return window_; }

 protected:
  // Creates the hidden child window; false when Windows refuses.
  bool Create(HWND parent, const wchar_t* className, DWORD style, HCURSOR cursor);
  virtual LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT DefaultHandling(UINT message, WPARAM wParam, LPARAM lParam);
  SIZE ClientSize() const;
  // Destroys the window; for destructors of derived classes, while their handlers still exist.
  void DestroyViewWindow();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window_ = nullptr;
};

// Paints through a bitmap of the window's size, which is shown when the scope ends.
class BufferedPaint {
 public:
  explicit BufferedPaint(HWND window);
  ~BufferedPaint();
  BufferedPaint(const BufferedPaint&) = delete;
  BufferedPaint& operator=(const BufferedPaint&) = delete;

  HDC dc() const { return buffer_; }
  const RECT& client() const { return client_; }

 private:
  HWND window_;
  PAINTSTRUCT paint_ = {};
  RECT client_ = {};
  HDC buffer_ = nullptr;
  UniqueBitmap bitmap_;
  HGDIOBJ previous_ = nullptr;
};

// Texts of the logic, which are ASCII or UTF-8, for Windows.
std::wstring Wide(const std::string& utf8);
std::string Utf8(const std::wstring& text);
// Puts a text on the clipboard; false when it is taken.
bool CopyTextToClipboard(HWND owner, const std::wstring& text);

}  // namespace workbench
