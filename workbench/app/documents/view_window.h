// What the windows of this folder share: a window class for each kind of window, sizes in device-independent
// pixels, and fonts.
#pragma once

#include <windows.h>

#include <string>

#include "base/text/utf8.h"
#include "workbench/app/ui/gdi_owners.h"

namespace workbench {

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

// Texts of the logic, which are ASCII or UTF-8, for Windows.
inline std::wstring Wide(const std::string& utf8) { return base::WideFromUtf8(utf8); }
inline std::string Utf8(const std::wstring& text) { return base::Utf8FromWide(text); }
// Puts a text on the clipboard; false when it is taken.
bool CopyTextToClipboard(HWND owner, const std::wstring& text);

}  // namespace workbench
