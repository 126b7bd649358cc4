#include "tests/support/dialog_visits.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>

#include "tests/support/failure_report.h"
#include "tests/support/wait_until.h"

namespace test_support {
namespace {

DialogVisits* current = nullptr;

struct Search {
  const std::string& caption;
  HWND found = nullptr;
};

BOOL CALLBACK MatchDialog(HWND window, LPARAM parameter) {
  auto* const search = reinterpret_cast<Search*>(parameter);
  std::array<char, 256> text = {};
  GetClassNameA(window, text.data(), static_cast<int>(text.size()));
  if (std::string(text.data()) != "#32770" || !IsWindowVisible(window)) return TRUE;
  GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
  if (search->caption != text.data()) return TRUE;
  search->found = window;
  return FALSE;
}

HWND VisibleDialog(const std::string& caption) {
  Search search = {caption};
  EnumThreadWindows(GetCurrentThreadId(), MatchDialog, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

// The dialog's own loop, until nothing is waiting.
void PumpDialog(HWND dialog) {
  MSG message;
  while (IsWindow(dialog) && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (IsDialogMessageA(dialog, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

HWND KeyTarget(HWND dialog) {
  const HWND focus = GetFocus();
  return focus != nullptr && IsChild(dialog, focus) ? focus : dialog;
}

}  // namespace

DialogVisits::DialogVisits() {
  current = this;
  timer_ = SetTimer(nullptr, 0, 20, OnTimer);
}

DialogVisits::~DialogVisits() {
  KillTimer(nullptr, timer_);
  current = nullptr;
}

void DialogVisits::Expect(std::string caption, int close, std::function<void(HWND)> visit) {
  expected_.push_back({std::move(caption), close, std::move(visit)});
}

void CALLBACK DialogVisits::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (current == nullptr) return;
  current->EndOverdue();
  current->Poll();
}

void DialogVisits::Poll() {
  if (expected_.empty()) return;
  const HWND dialog = VisibleDialog(expected_.front().caption);
  if (dialog == nullptr) return;
  const Expected next = std::move(expected_.front());
  expected_.pop_front();
  if (next.visit) next.visit(dialog);
  if (!IsWindow(dialog)) return;
  PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(next.close, BN_CLICKED),
               reinterpret_cast<LPARAM>(GetDlgItem(dialog, next.close)));
  leaving_.push_back({dialog, GetTickCount64() + Patience()});
}

void DialogVisits::EndOverdue() {
  std::erase_if(leaving_, [](const Leaving& leaving) {
    if (!IsWindow(leaving.dialog)) return true;
    if (GetTickCount64() < leaving.deadline) return false;
    ADD_FAILURE() << "the dialog did not close\n" << DescribeWindows();
    EndDialog(leaving.dialog, 0);
    return true;
  });
}

void TypeKey(HWND dialog, WPARAM key) {
  PostMessageA(KeyTarget(dialog), WM_KEYDOWN, key, 1);
  PumpDialog(dialog);
}

void TypeAccessKey(HWND dialog, char letter) {
  constexpr LPARAM kAltIsDown = 1 << 29;
  PostMessageA(KeyTarget(dialog), WM_SYSCHAR, static_cast<WPARAM>(letter), kAltIsDown | 1);
  PumpDialog(dialog);
}

void PressButton(HWND dialog, int id) {
  SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
               reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
}

void ChooseEntry(HWND dialog, int id, int index) {
  const HWND list = GetDlgItem(dialog, id);
  SendMessageA(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, CBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
}

}  // namespace test_support
