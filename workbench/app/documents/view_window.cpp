#include "workbench/app/documents/view_window.h"

#include <cstring>

namespace workbench {
namespace {

constexpr int kStandardDpi = 96;

int ScreenDpi() {
  static const int dpi = [] {
    const HDC screen = GetDC(nullptr);
    const int value = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return value > 0 ? value : kStandardDpi;
  }();
  return dpi;
}

int CALLBACK FoundFont(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
  *reinterpret_cast<bool*>(found) = true;
  return 0;
}

bool FontExists(const wchar_t* face) {
  LOGFONTW wanted = {};
  wanted.lfCharSet = DEFAULT_CHARSET;
  lstrcpynW(wanted.lfFaceName, face, LF_FACESIZE);
  bool found = false;
  const HDC screen = GetDC(nullptr);
  EnumFontFamiliesExW(screen, &wanted, FoundFont, reinterpret_cast<LPARAM>(&found), 0);
  ReleaseDC(nullptr, screen);
  return found;
}

// A window class is registered once a process and kind, with this module's own instance.
HINSTANCE OwnInstance() {
  static const int marker = 0;
  HMODULE module = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                     reinterpret_cast<LPCWSTR>(&marker), &module);
  return module;
}

}  // namespace

int ScaledPixels(int length) {
  return MulDiv(length, ScreenDpi(), kStandardDpi);
}

UniqueFont CreateMessageFont(int percent, bool bold) {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW font = metrics.lfMessageFont;
  // Some systems answer with a size that has not followed the screen's resolution, or with hardly readable
  // one.
  const int smallest = MulDiv(9, ScreenDpi(), 72);
  if (font.lfHeight > -smallest) font.lfHeight = -smallest;
  font.lfHeight = MulDiv(font.lfHeight, percent, 100);
  font.lfQuality = CLEARTYPE_QUALITY;
  if (bold) font.lfWeight = FW_BOLD;
  return UniqueFont(CreateFontIndirectW(&font));
}

UniqueFont CreateFixedFont() {
  LOGFONTW font = {};
  font.lfHeight = -MulDiv(10, ScreenDpi(), 72);
  font.lfCharSet = DEFAULT_CHARSET;
  font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
  font.lfQuality = CLEARTYPE_QUALITY;
  for (const wchar_t* face : {L"Consolas", L"DejaVu Sans Mono", L"Liberation Mono", L"Courier New"}) {
    if (!FontExists(face)) continue;
    lstrcpynW(font.lfFaceName, face, LF_FACESIZE);
    break;
  }
  return UniqueFont(CreateFontIndirectW(&font));
}

ViewWindow::~ViewWindow() {
  DestroyViewWindow();
}

void ViewWindow::DestroyViewWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
}

bool ViewWindow::Create(HWND parent, const wchar_t* className, DWORD style, HCURSOR cursor) {
  WNDCLASSEXW windowClass = {};
  windowClass.cbSize = sizeof windowClass;
  windowClass.style = CS_DBLCLKS;
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = OwnInstance();
  windowClass.hCursor = cursor;
  windowClass.lpszClassName = className;
  if (RegisterClassExW(&windowClass) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) return false;
  return CreateWindowExW(0, className, L"", WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | style, 0, 0, 0, 0,
                         parent, nullptr, OwnInstance(), this) != nullptr;
}

LRESULT CALLBACK ViewWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* self = reinterpret_cast<ViewWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (message == WM_NCCREATE) {
    self = static_cast<ViewWindow*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  if (self == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->window_ = nullptr;
    return DefWindowProcW(window, message, wParam, lParam);
  }
  try {
    return self->HandleMessage(message, wParam, lParam);
  } catch (...) {
    // Nothing may pass through Windows' own frames; the view keeps what it had.
    return 0;
  }
}

LRESULT ViewWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  return DefaultHandling(message, wParam, lParam);
}

LRESULT ViewWindow::DefaultHandling(UINT message, WPARAM wParam, LPARAM lParam) {
  return DefWindowProcW(window_, message, wParam, lParam);
}

SIZE ViewWindow::ClientSize() const {
  RECT client = {};
  GetClientRect(window_, &client);
  return {client.right, client.bottom};
}

bool CopyTextToClipboard(HWND owner, const std::wstring& text) {
  const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
  if (memory == nullptr) return false;
  std::memcpy(GlobalLock(memory), text.c_str(), bytes);
  GlobalUnlock(memory);
  bool taken = false;
  if (OpenClipboard(owner)) {
    EmptyClipboard();
    taken = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
    CloseClipboard();
  }
  if (!taken) GlobalFree(memory);  // the clipboard owns what it took
  return taken;
}

}  // namespace workbench
