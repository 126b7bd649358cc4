#include "tests/integration/documents/view_host.h"

#include <stdexcept>

#include "tests/support/wait_until.h"

namespace document_tests {

ViewHost::ViewHost(int width, int height) {
  WNDCLASSW windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = L"DocumentTestHost";
  RegisterClassW(&windowClass);
  window_ = CreateWindowExW(0, L"DocumentTestHost", L"", WS_POPUP, 10, 10, width, height, nullptr, nullptr,
                            windowClass.hInstance, nullptr);
  if (window_ == nullptr) throw std::runtime_error("cannot create the host window");
  // Not activated: without a window manager each activated window costs two seconds when it goes.
  ShowWindow(window_, SW_SHOWNOACTIVATE);
}

ViewHost::~ViewHost() {
  view_.reset();
  DestroyHostWindow();
}

workbench::DocumentView* ViewHost::Open(const std::wstring& path, std::wstring* error) {
  view_.reset();
  auto view = workbench::OpenDocumentView(window_, path, error);
  if (view) Show(std::move(view));
  return view_.get();
}

void ViewHost::Show(std::unique_ptr<workbench::DocumentView> view) {
  view_ = std::move(view);
  RECT client = {};
  GetClientRect(window_, &client);
  SetWindowPos(view_->window(), nullptr, 0, 0, client.right, client.bottom, SWP_NOZORDER | SWP_SHOWWINDOW);
  UpdateWindow(view_->window());
  test_support::PumpMessages();
}

void ViewHost::DestroyHostWindow() {
  if (window_ != nullptr) DestroyWindow(window_);
  window_ = nullptr;
}

COLORREF ViewHost::PixelAt(int x, int y) const {
  UpdateWindow(view_->window());
  const HDC dc = GetDC(view_->window());
  const COLORREF color = GetPixel(dc, x, y);
  ReleaseDC(view_->window(), dc);
  return color;
}

std::string BitmapFile(int width, int height, COLORREF color, bool pixels) {
  const std::size_t stride = (static_cast<std::size_t>(width) * 3 + 3) / 4 * 4;
  const std::size_t dataSize = pixels ? stride * static_cast<std::size_t>(height) : 0;
  BITMAPFILEHEADER file = {};
  file.bfType = 0x4D42;
  file.bfOffBits = sizeof file + sizeof(BITMAPINFOHEADER);
  file.bfSize = static_cast<DWORD>(file.bfOffBits + dataSize);
  BITMAPINFOHEADER info = {};
  info.biSize = sizeof info;
  info.biWidth = width;
  info.biHeight = height;
  info.biPlanes = 1;
  info.biBitCount = 24;
  std::string content(reinterpret_cast<const char*>(&file), sizeof file);
  content.append(reinterpret_cast<const char*>(&info), sizeof info);
  const std::size_t start = content.size();
  content.resize(start + dataSize);
  for (std::size_t y = 0; pixels && y < static_cast<std::size_t>(height); ++y) {
    for (std::size_t x = 0; x < static_cast<std::size_t>(width); ++x) {
      char* pixel = &content[start + y * stride + x * 3];
      pixel[0] = static_cast<char>(GetBValue(color));
      pixel[1] = static_cast<char>(GetGValue(color));
      pixel[2] = static_cast<char>(GetRValue(color));
    }
  }
  return content;
}

std::string SmallPng() {
  static constexpr unsigned char kBytes[] = {
      0x89, 0x50, 0x4E, 0x47, 0x0D, 0x0A, 0x1A, 0x0A, 0x00, 0x00, 0x00, 0x0D, 0x49, 0x48, 0x44, 0x52,
      0x00, 0x00, 0x00, 0x02, 0x00, 0x00, 0x00, 0x02, 0x08, 0x06, 0x00, 0x00, 0x00, 0x72, 0xB6, 0x0D,
      0x24, 0x00, 0x00, 0x00, 0x13, 0x49, 0x44, 0x41, 0x54, 0x78, 0x9C, 0x63, 0xF8, 0xCF, 0xC0, 0xF0,
      0x1F, 0x0C, 0x81, 0x34, 0x88, 0x60, 0x00, 0x00, 0x3F, 0xD2, 0x05, 0xFB, 0xCB, 0x17, 0xA6, 0xCE,
      0x00, 0x00, 0x00, 0x00, 0x49, 0x45, 0x4E, 0x44, 0xAE, 0x42, 0x60, 0x82,
  };
  return std::string(reinterpret_cast<const char*>(kBytes), sizeof kBytes);
}

std::wstring WindowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

std::wstring ClipboardText() {
  std::wstring text;
  if (!OpenClipboard(nullptr)) return text;
  const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
  if (memory != nullptr) {
    text = static_cast<const wchar_t*>(GlobalLock(memory));
    GlobalUnlock(memory);
  }
  CloseClipboard();
  return text;
}

}  // namespace document_tests
