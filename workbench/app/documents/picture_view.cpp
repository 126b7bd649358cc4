#include "workbench/app/documents/picture_view.h"

#include <windowsx.h>

#include <cmath>
#include <utility>
#include <vector>

#include "workbench/app/documents/view_window.h"

namespace workbench {
namespace {

constexpr std::uint32_t kBackground = 0xF0F1F3;  // 0xRRGGBB
constexpr double kKeyFactor = 1.25;
constexpr int kBoardSquare = 8;  // at 96 DPI
constexpr int kPanStep = 40;     // at 96 DPI

class PictureView final : public DocumentView, private ViewWindow {
 public:
  PictureView(std::wstring path, std::wstring name, LoadedPicture picture)
      : path_(std::move(path)),
        name_(std::move(name)),
        bitsPerPixel_(picture.bitsPerPixel),
        pyramid_(std::move(picture.grid)),
        layout_(pyramid_.size()) {}

  bool CreateIn(HWND parent) {
    return Create(parent, L"WorkbenchPictureView", WS_TABSTOP, LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)));
  }

  HWND window() const override { return handle(); }
  const std::wstring& path() const override { return path_; }
  std::wstring title() const override { return name_; }
  std::wstring kind() const override { return L"picture"; }
  std::wstring summary() const override {
    const PixelSize size = pyramid_.size();
    std::wstring text = std::to_wstring(size.width) + L" x " + std::to_wstring(size.height) + L" pixels";
    if (bitsPerPixel_ > 0) text += L", " + std::to_wstring(bitsPerPixel_) + L" bits";
    return text;
  }

 private:
  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    switch (message) {
      case WM_SIZE:
        layout_.SetView({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        return Redraw();
      case WM_ERASEBKGND:
        return 1;
      case WM_PAINT:
        return OnPaint();
      case WM_GETDLGCODE:
        return DLGC_WANTARROWS | DLGC_WANTCHARS;
      case WM_MOUSEWHEEL:
        return OnWheel(wParam, lParam);
      case WM_LBUTTONDOWN:
        return OnButtonDown(lParam);
      case WM_MOUSEMOVE:
        return OnMouseMove(lParam);
      case WM_LBUTTONUP:
        if (dragging_) ReleaseCapture();
        return 0;
      case WM_CAPTURECHANGED:
        dragging_ = false;
        return 0;
      case WM_LBUTTONDBLCLK:
        return OnDoubleClick(lParam);
      case WM_SETCURSOR:
        return OnSetCursor(wParam, lParam);
      case WM_KEYDOWN:
        return OnKey(wParam);
      case WM_CHAR:
        return OnCharacter(wParam);
      default:
        return DefaultHandling(message, wParam, lParam);
    }
  }

  LRESULT Redraw() {
    rendered_.clear();
    InvalidateRect(handle(), nullptr, FALSE);
    return 0;
  }

  LRESULT OnPaint() {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(handle(), &paint);
    const PixelSize view = layout_.view();
    if (rendered_.empty()) rendered_ = pyramid_.Render(layout_, kBackground, ScaledPixels(kBoardSquare));
    if (!rendered_.empty()) {
      BITMAPINFO info = {};
      info.bmiHeader.biSize = sizeof info.bmiHeader;
      info.bmiHeader.biWidth = view.width;
      info.bmiHeader.biHeight = -view.height;  // rows from the top
      info.bmiHeader.biPlanes = 1;
      info.bmiHeader.biBitCount = 32;
      // All pixels are ready, so one copy shows them without flicker.
      SetDIBitsToDevice(dc, 0, 0, static_cast<DWORD>(view.width), static_cast<DWORD>(view.height), 0, 0, 0,
                        static_cast<UINT>(view.height), rendered_.data(), &info, DIB_RGB_COLORS);
    }
    EndPaint(handle(), &paint);
    return 0;
  }

  LRESULT OnWheel(WPARAM wParam, LPARAM lParam) {
    POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    ScreenToClient(handle(), &at);
    layout_.ZoomBy(std::pow(kKeyFactor, GET_WHEEL_DELTA_WPARAM(wParam) / static_cast<double>(WHEEL_DELTA)),
                   at.x, at.y);
    return Redraw();
  }

  LRESULT OnButtonDown(LPARAM lParam) {
    SetFocus(handle());
    if (!layout_.CanPan()) return 0;
    dragging_ = true;
    dragFrom_ = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    SetCapture(handle());
    return 0;
  }

  LRESULT OnMouseMove(LPARAM lParam) {
    if (!dragging_) return 0;
    const POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    layout_.Pan(at.x - dragFrom_.x, at.y - dragFrom_.y);
    dragFrom_ = at;
    return Redraw();
  }

  // Changes between the whole picture and its own size.
  LRESULT OnDoubleClick(LPARAM lParam) {
    if (layout_.fits() && layout_.zoom() < 1.0) {
      layout_.SetZoom(1.0, GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
    } else {
      layout_.SetFit();
    }
    return Redraw();
  }

  LRESULT OnSetCursor(WPARAM wParam, LPARAM lParam) {
    if (LOWORD(lParam) != HTCLIENT || !layout_.CanPan()) return DefaultHandling(WM_SETCURSOR, wParam, lParam);
    SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(32646)));  // four arrows: it can be moved
    return TRUE;
  }

  LRESULT OnKey(WPARAM key) {
    const int step = ScaledPixels(kPanStep);
    switch (key) {
      case VK_LEFT:
        layout_.Pan(step, 0);
        return Redraw();
      case VK_RIGHT:
        layout_.Pan(-step, 0);
        return Redraw();
      case VK_UP:
        layout_.Pan(0, step);
        return Redraw();
      case VK_DOWN:
        layout_.Pan(0, -step);
        return Redraw();
      case VK_HOME:
        layout_.SetFit();
        return Redraw();
      default:
        return 0;
    }
  }

  LRESULT OnCharacter(WPARAM character) {
    const PixelSize view = layout_.view();
    const int x = view.width / 2;
    const int y = view.height / 2;
    switch (character) {
      case '+':
      case '=':
        layout_.ZoomBy(kKeyFactor, x, y);
        return Redraw();
      case '-':
        layout_.ZoomBy(1 / kKeyFactor, x, y);
        return Redraw();
      case '1':
        layout_.SetZoom(1.0, x, y);
        return Redraw();
      case '0':
      case '*':
        layout_.SetFit();
        return Redraw();
      default:
        return 0;
    }
  }

  std::wstring path_;
  std::wstring name_;
  unsigned bitsPerPixel_;
  PicturePyramid pyramid_;
  PictureLayout layout_;
  std::vector<std::uint32_t> rendered_;  // what the window shows; empty when it must be drawn anew
  bool dragging_ = false;
  POINT dragFrom_ = {};
};

}  // namespace

std::unique_ptr<DocumentView> CreatePictureView(HWND parent, const FileFacts& facts, LoadedPicture picture) {
  auto view = std::make_unique<PictureView>(facts.path, facts.name, std::move(picture));
  if (!view->CreateIn(parent)) return nullptr;
  return view;
}

}  // namespace workbench
