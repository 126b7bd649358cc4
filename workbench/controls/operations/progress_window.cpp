#include "workbench/controls/operations/progress_window.h"

#include <commctrl.h>

#include <utility>

namespace controls {
namespace {

constexpr wchar_t kClassName[] = L"SswareShellProgress";
constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT;
constexpr int kSteps = 1000;

// Pixels at 96 dots an inch.
constexpr SIZE kClient = {400, 124};
constexpr RECT kNamePlace = {14, 12, 386, 30};
constexpr RECT kBarPlace = {14, 36, 386, 54};
constexpr RECT kCountsPlace = {14, 60, 386, 78};
constexpr RECT kButtonPlace = {296, 88, 386, 114};

UniqueFont MessageFont() {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  return UniqueFont(CreateFontIndirectW(&metrics.lfMessageFont));
}

void SetChangedText(HWND window, const std::wstring& text) {
  wchar_t old[512] = L"";
  GetWindowTextW(window, old, 512);
  if (text != old) SetWindowTextW(window, text.c_str());
}

}  // namespace

int ProgressWindow::Scale(int pixels) const {
  const HDC context = GetDC(nullptr);
  const int dpi = GetDeviceCaps(context, LOGPIXELSX);
  ReleaseDC(nullptr, context);
  return MulDiv(pixels, dpi, 96);
}

bool ProgressWindow::Open(HWND owner, std::function<void()> cancel) {
  cancel_ = std::move(cancel);
  RECT frame = {0, 0, Scale(kClient.cx), Scale(kClient.cy)};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExtendedStyle);
  RECT around = {};
  GetWindowRect(owner, &around);
  OffsetRect(&frame, (around.left + around.right - frame.right - frame.left) / 2,
             (around.top + around.bottom - frame.bottom - frame.top) / 2);
  if (!Create(kClassName, owner, frame, {kStyle, kExtendedStyle})) return false;
  font_ = MessageFont();
  CreateChildren();
  ShowWindow(hwnd(), SW_SHOWNOACTIVATE);
  return true;
}

void ProgressWindow::CreateChildren() {
  constexpr DWORD kLabel = SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS;
  name_ = AddChild(WC_STATICW, L"", kLabel, kNamePlace, 1);
  bar_ = AddChild(PROGRESS_CLASSW, L"", PBS_SMOOTH, kBarPlace, 3);
  SendMessageW(bar_, PBM_SETRANGE32, 0, kSteps);
  counts_ = AddChild(WC_STATICW, L"", kLabel, kCountsPlace, 4);
  cancelButton_ = AddChild(WC_BUTTONW, L"Cancel", BS_PUSHBUTTON | WS_TABSTOP, kButtonPlace, IDCANCEL);
  button_.Attach(cancelButton_);
}

HWND ProgressWindow::AddChild(const wchar_t* className, const wchar_t* text, DWORD style, const RECT& place,
                              int id) {
  const HWND child =
      CreateWindowExW(0, className, text, WS_CHILD | WS_VISIBLE | style, Scale(place.left), Scale(place.top),
                      Scale(place.right - place.left), Scale(place.bottom - place.top), hwnd(),
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
  SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
  return child;
}

void ProgressWindow::Show(const ProgressText& text) {
  if (!cancel_) return;  // on its way out: "Cancelling..." stays
  SetChangedText(hwnd(), text.title);
  SetChangedText(name_, text.name);
  SetChangedText(counts_, text.counts);
  SendMessageW(bar_, PBM_SETPOS, static_cast<WPARAM>(text.thousandths), 0);
}

void ProgressWindow::Cancel() {
  const std::function<void()> cancel = std::exchange(cancel_, nullptr);
  if (!cancel) return;
  SetWindowTextW(name_, L"Cancelling\u2026");
  EnableWindow(cancelButton_, FALSE);
  cancel();
}

LRESULT ProgressWindow::Button::HandleSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_KEYDOWN && (wParam == VK_ESCAPE || wParam == VK_RETURN)) {
    window_.Cancel();
    return 0;
  }
  return Original(window, message, wParam, lParam);
}

LRESULT ProgressWindow::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_COMMAND:
      if (LOWORD(wParam) == IDCANCEL) Cancel();
      return 0;
    case WM_CLOSE:
      Cancel();
      return 0;
    case WM_SETFOCUS:
      SetFocus(cancelButton_);
      return 0;
    case WM_ERASEBKGND: {
      RECT client;
      GetClientRect(hwnd(), &client);
      FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_BTNFACE));
      return 1;
    }
    case WM_DESTROY:
      button_.Detach();
      return 0;
    default:
      return Default(message, wParam, lParam);
  }
}

}  // namespace controls
