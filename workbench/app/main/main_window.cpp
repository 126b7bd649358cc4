#include "workbench/app/main/main_window.h"

#include <windows.h>

#include <commctrl.h>

#include "base/window/high_contrast.h"
#include "src/host/plugin_protocol.h"

namespace workbench {
namespace {

constexpr WORD kIconResource = 1;

HICON LoadProgramIcon(int size) {
  return static_cast<HICON>(
      LoadImageW(ModuleInstance(), MAKEINTRESOURCEW(kIconResource), IMAGE_ICON, size, size, LR_SHARED));
}

}  // namespace

std::span<const MainWindow::MessageHandler> MainWindow::Handlers() {
  static constexpr MessageHandler kHandlers[] = {
      {WM_SIZE, &MainWindow::OnSize},
      {WM_COMMAND, &MainWindow::OnCommand},
      {WM_INITMENUPOPUP, &MainWindow::OnInitMenuPopup},
      {host::kAutoloadMessage, &MainWindow::OnAutoload},
      {WM_CLOSE, &MainWindow::OnClose},
      {WM_SETFOCUS, &MainWindow::OnSetFocus},
      {WM_ENDSESSION, &MainWindow::OnEndSession},
      {WM_GETMINMAXINFO, &MainWindow::OnMinMax},
      {WM_ERASEBKGND, &MainWindow::OnErase},
      {WM_SYSCOLORCHANGE, &MainWindow::OnColorChange},
      {WM_SETTINGCHANGE, &MainWindow::OnSettingChange},
  };
  return kHandlers;
}

MainWindow::MainWindow(MainWindowOwner& owner, const Theme& theme)
    : owner_(owner), theme_(theme), menu_(CreateMainMenu()), keys_(CreateMainKeys()) {
  const RECT rect = {CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT};
  if (!CreateWindowAt(WS_EX_APPWINDOW, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, rect, nullptr, L"Workbench"))
    return;
  // A menu of a window goes with the window.
  SetMenu(window(), menu_.get());
  status_ =
      CreateWindowExW(0, STATUSCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | SBARS_SIZEGRIP, 0,
                      0, 0, 0, window(), nullptr, ModuleInstance(), nullptr);
  SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(theme_.font()), TRUE);
  SendMessageW(status_, SB_SETMINHEIGHT, static_cast<WPARAM>(theme_.textHeight() + theme_.Scale(6)), 0);
  const int large = GetSystemMetrics(SM_CXICON);
  const int small = GetSystemMetrics(SM_CXSMICON);
  SendMessageW(window(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(LoadProgramIcon(large)));
  SendMessageW(window(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(LoadProgramIcon(small)));
  LayOutStatus();
}

Rect MainWindow::Room() const {
  RECT client = {};
  RECT status = {};
  GetClientRect(window(), &client);
  GetWindowRect(status_, &status);
  const int bottom = static_cast<int>(client.bottom - (status.bottom - status.top));
  return {0, 0, static_cast<int>(client.right), std::max(bottom, 0)};
}

void MainWindow::SetMessage(const std::wstring& text) {
  message_ = text;
  SendMessageW(status_, SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(message_.c_str()));
}

void MainWindow::SetSummary(const std::wstring& text) {
  if (text == summary_) return;
  summary_ = text;
  SendMessageW(status_, SB_SETTEXTW, 1, reinterpret_cast<LPARAM>(summary_.c_str()));
  LayOutStatus();
}

bool MainWindow::TranslateKeys(MSG& message) {
  return TranslateAcceleratorW(window(), keys_.get(), &message) != 0;
}

// The summary's part is as wide as its text needs, never more than half; the message has the rest.
void MainWindow::LayOutStatus() {
  SendMessageW(status_, WM_SIZE, 0, 0);
  RECT client = {};
  GetClientRect(window(), &client);
  const int width = static_cast<int>(client.right);
  const int wanted = theme_.TextWidth(summary_.c_str()) + theme_.Scale(40);
  const int part = Limit(wanted, theme_.Scale(180), std::max(width / 2, theme_.Scale(180)));
  int edges[] = {std::max(width - part, 0), -1};
  SendMessageW(status_, SB_SETPARTS, 2, reinterpret_cast<LPARAM>(edges));
}

LRESULT MainWindow::OnSize(const Message& message) {
  if (message.first == SIZE_MINIMIZED) return 0;
  LayOutStatus();
  owner_.OnRoomChanged(Room());
  return 0;
}

LRESULT MainWindow::OnCommand(const Message& message) {
  owner_.OnCommand(LOWORD(message.first));
  return 0;
}

LRESULT MainWindow::OnInitMenuPopup(const Message& message) {
  const HMENU popup = reinterpret_cast<HMENU>(message.first);
  if (HIWORD(message.second) == 0 && popup == GetSubMenu(menu_.get(), kViewMenuPosition)) {
    owner_.OnViewMenuOpens(popup);
  }
  return 0;
}

LRESULT MainWindow::OnAutoload(const Message&) {
  owner_.OnAutoload();
  return 0;
}

LRESULT MainWindow::OnClose(const Message&) {
  owner_.OnCloseRequested();
  return 0;
}

LRESULT MainWindow::OnSetFocus(const Message&) {
  owner_.OnFocusArrived();
  return 0;
}

LRESULT MainWindow::OnEndSession(const Message& message) {
  if (message.first != 0) owner_.OnSessionEnds();
  return 0;
}

LRESULT MainWindow::OnMinMax(const Message& message) {
  auto* limits = reinterpret_cast<MINMAXINFO*>(message.second);
  limits->ptMinTrackSize = {theme_.Scale(420), theme_.Scale(300)};
  return 0;
}

LRESULT MainWindow::OnColorChange(const Message&) {
  owner_.OnColorsChanged();
  base::PassOnColorChange(window(), WM_SYSCOLORCHANGE, 0, 0);
  return 0;
}

LRESULT MainWindow::OnSettingChange(const Message& message) {
  return message.first == SPI_SETHIGHCONTRAST ? OnColorChange(message) : Default(message);
}

// Everything inside is covered by the dock site and the status line.
LRESULT MainWindow::OnErase(const Message&) {
  return 1;
}

}  // namespace workbench
