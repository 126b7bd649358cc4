#include "tests/integration/documents/dialog_driver.h"

#include <gtest/gtest.h>

#include <utility>

#include "tests/support/failure_report.h"
#include "tests/support/wait_until.h"

namespace document_tests {
namespace {

DialogDriver* activeDriver = nullptr;

HWND VisibleDialog() {
  HWND found = nullptr;
  EnumThreadWindows(
      GetCurrentThreadId(),
      [](HWND window, LPARAM result) -> BOOL {
        wchar_t className[16] = L"";
        GetClassNameW(window, className, 16);
        if (lstrcmpW(className, L"#32770") != 0 || !IsWindowVisible(window)) return TRUE;
        *reinterpret_cast<HWND*>(result) = window;
        return FALSE;
      },
      reinterpret_cast<LPARAM>(&found));
  return found;
}

}  // namespace

DialogDriver::DialogDriver(std::function<void(HWND)> act) : act_(std::move(act)) {
  activeDriver = this;
  deadline_ = GetTickCount64() + test_support::Patience();
  timer_ = SetTimer(nullptr, 0, 20, OnTimer);
}

DialogDriver::~DialogDriver() {
  KillTimer(nullptr, timer_);
  activeDriver = nullptr;
}

void CALLBACK DialogDriver::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (activeDriver != nullptr) activeDriver->Poll();
}

void DialogDriver::Poll() {
  const HWND dialog = VisibleDialog();
  if (dialog == nullptr) return;
  if (!acted_) {
    acted_ = true;
    deadline_ = GetTickCount64() + test_support::Patience();
    act_(dialog);
  } else if (GetTickCount64() > deadline_) {
    ADD_FAILURE() << "the dialog did not close\n" << test_support::DescribeWindows();
    Press(dialog, IDCANCEL);
    deadline_ = GetTickCount64() + test_support::Patience();
  }
}

void Press(HWND dialog, int id) {
  PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
               reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
}

void Type(HWND dialog, WPARAM key) {
  const HWND focus = GetFocus();
  PostMessageW(focus != nullptr && IsChild(dialog, focus) ? focus : dialog, WM_KEYDOWN, key, 0);
}

}  // namespace document_tests
