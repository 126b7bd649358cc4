#include "src/explorer/notification_tap.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace file_explorer {
namespace {

// A window whose procedure was replaced. They are found in this list, not by a window property, which would
// be asked for at each message: there is one file view and one tree, seldom more.
struct Replaced {
  HWND window;
  WNDPROC original;
  std::vector<NotificationTap*> taps;  // empty once all are detached under somebody else's procedure
};

std::vector<Replaced> replacedWindows;

Replaced* FindReplaced(HWND window) {
  const auto found = std::find_if(replacedWindows.begin(), replacedWindows.end(),
                                  [window](const Replaced& entry) { return entry.window == window; });
  return found == replacedWindows.end() ? nullptr : &*found;
}

void ForgetReplaced(HWND window) {
  std::erase_if(replacedWindows, [window](const Replaced& entry) { return entry.window == window; });
}

LRESULT CallOriginal(WNDPROC original, HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return IsWindowUnicode(window) ? CallWindowProcW(original, window, message, wParam, lParam)
                                 : CallWindowProcA(original, window, message, wParam, lParam);
}

// The window keeps its character set: nothing here reads texts of messages.
WNDPROC ReplaceProcedure(HWND window, WNDPROC procedure) {
  const auto value = reinterpret_cast<LONG_PTR>(procedure);
  return reinterpret_cast<WNDPROC>(IsWindowUnicode(window) ? SetWindowLongPtrW(window, GWLP_WNDPROC, value)
                                                           : SetWindowLongPtrA(window, GWLP_WNDPROC, value));
}

WNDPROC CurrentProcedure(HWND window) {
  return reinterpret_cast<WNDPROC>(IsWindowUnicode(window) ? GetWindowLongPtrW(window, GWLP_WNDPROC)
                                                           : GetWindowLongPtrA(window, GWLP_WNDPROC));
}

}  // namespace

void NotificationTap::Attach(HWND sender) {
  Detach();
  const HWND receiver = sender != nullptr ? GetParent(sender) : nullptr;
  if (receiver == nullptr) return;
  if (Replaced* const known = FindReplaced(receiver)) {
    const bool taken = std::any_of(known->taps.begin(), known->taps.end(),
                                   [this](const NotificationTap* tap) { return tap->code_ == code_; });
    if (taken) return;
    known->taps.push_back(this);
  } else {
    replacedWindows.push_back({receiver, CurrentProcedure(receiver), {this}});
    ReplaceProcedure(receiver, &NotificationTap::Procedure);
  }
  sender_ = sender;
  receiver_ = receiver;
}

void NotificationTap::Detach() {
  sender_ = nullptr;
  const HWND window = std::exchange(receiver_, nullptr);
  Replaced* const entry = window != nullptr ? FindReplaced(window) : nullptr;
  if (entry == nullptr) return;
  std::erase(entry->taps, this);
  // Somebody who came later calls our procedure: it stays, and only passes on.
  if (!entry->taps.empty() || CurrentProcedure(window) != &NotificationTap::Procedure) return;
  ReplaceProcedure(window, entry->original);
  ForgetReplaced(window);
}

LRESULT CALLBACK NotificationTap::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  Replaced* const entry = FindReplaced(window);
  if (entry == nullptr) return DefWindowProcA(window, message, wParam, lParam);
  const WNDPROC original = entry->original;
  if (message == WM_NOTIFY) {
    auto& header = *reinterpret_cast<NMHDR*>(lParam);
    for (NotificationTap* const tap : entry->taps) {
      if (header.code != tap->code_ || header.hwndFrom != tap->sender_) continue;
      return tap->OnNotification(header, {window, original, wParam});
    }
  }
  if (message == WM_NCDESTROY) {
    for (NotificationTap* const tap : entry->taps) tap->sender_ = tap->receiver_ = nullptr;
    ForgetReplaced(window);
  }
  return CallOriginal(original, window, message, wParam, lParam);
}

LRESULT NotificationTap::Receiver::PassOn(NMHDR& header) const {
  return CallOriginal(original, window, WM_NOTIFY, wParam, reinterpret_cast<LPARAM>(&header));
}

}  // namespace file_explorer
