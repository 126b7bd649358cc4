#include "tests/integration/fileops/modal_driver.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/failure_report.h"
#include "tests/support/wait_until.h"

namespace fileops_test {
namespace {

ModalDriver* activeDriver = nullptr;

struct Search {
  const char* className;
  HWND found = nullptr;
};

HWND VisibleWindow(const char* className) {
  Search search = {className};
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM parameter) -> BOOL {
        auto& wanted = *reinterpret_cast<Search*>(parameter);
        char name[32] = "";
        GetClassNameA(window, name, sizeof(name));
        if (lstrcmpA(name, wanted.className) != 0 || !IsWindowVisible(window)) return TRUE;
        wanted.found = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&search));
  return search.found;
}

SeenDialog ReadDialog(HWND window) {
  SeenDialog dialog;
  dialog.window = window;
  dialog.owner = GetWindow(window, GW_OWNER);
  dialog.caption = test_support::TextOf(window);
  EnumChildWindows(
      window,
      [](HWND child, LPARAM parameter) -> BOOL {
        const std::string text = test_support::TextOf(child);
        if (!text.empty()) reinterpret_cast<SeenDialog*>(parameter)->texts.push_back(text);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&dialog));
  return dialog;
}

std::string CaptionAt(HMENU menu, int position) {
  char text[256] = "";
  if (GetMenuStringA(menu, static_cast<UINT>(position), text, sizeof(text), MF_BYPOSITION) == 0) return "-";
  std::string caption = text;
  caption.erase(std::remove(caption.begin(), caption.end(), '&'), caption.end());
  return caption;
}

}  // namespace

ModalDriver::ModalDriver() {
  activeDriver = this;
  timer_ = SetTimer(nullptr, 0, 20, OnTimer);
}

ModalDriver::~ModalDriver() {
  KillTimer(nullptr, timer_);
  activeDriver = nullptr;
}

void CALLBACK ModalDriver::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (activeDriver != nullptr) activeDriver->Poll();
}

void ModalDriver::PressInDialogs(int button) {
  onDialog_ = [button](const SeenDialog& dialog) {
    PostMessageA(dialog.window, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog.window, button)));
  };
}

void ModalDriver::Poll() {
  const HWND menu = VisibleWindow("#32768");
  const HWND dialog = VisibleWindow("#32770");
  if (menu != nullptr && menu != menu_) {
    since_ = GetTickCount64();
    menu_ = menu;
    LookAtMenu(menu);
  } else if (dialog != nullptr && dialog != dialog_) {
    since_ = GetTickCount64();
    dialog_ = dialog;
    dialogs_.push_back(ReadDialog(dialog));
    if (onDialog_) onDialog_(dialogs_.back());
  } else if ((menu != nullptr || dialog != nullptr) && GetTickCount64() - since_ > test_support::Patience()) {
    since_ = GetTickCount64();
    ADD_FAILURE() << "nobody dealt with what came up\n" << test_support::DescribeWindows();
    EndMenu();
    if (dialog != nullptr) PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
  }
  if (menu == nullptr) menu_ = nullptr;
  if (dialog == nullptr) dialog_ = nullptr;
}

void ModalDriver::LookAtMenu(HWND window) {
  const auto menu = reinterpret_cast<HMENU>(SendMessageA(window, 0x1E1 /* MN_GETHMENU */, 0, 0));
  SeenMenu seen;
  int steps = 0;  // presses of the down key that lead to the choice; separators are passed over
  bool found = false;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    seen.captions.push_back(CaptionAt(menu, i));
    if (seen.captions.back() == "-") continue;
    if (!found) ++steps;
    found = found || seen.captions.back() == choice_;
  }
  const UINT preferred = GetMenuDefaultItem(menu, TRUE, 0);
  if (preferred != static_cast<UINT>(-1)) seen.defaultItem = CaptionAt(menu, static_cast<int>(preferred));
  menus_.push_back(std::move(seen));
  if (!found) {
    EndMenu();
    return;
  }
  const HWND receiver = GetForegroundWindow() != nullptr ? GetFocus() : window;
  for (int i = 0; i < steps; ++i) PostMessageA(receiver, WM_KEYDOWN, VK_DOWN, 1);
  PostMessageA(receiver, WM_KEYDOWN, VK_RETURN, 1);
}

}  // namespace fileops_test
