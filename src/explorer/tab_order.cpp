#include "src/explorer/tab_order.h"

#include <algorithm>

namespace file_explorer {
namespace {

bool IsDown(int key) {
  return GetKeyState(key) < 0;
}

}  // namespace

bool IsTab(WPARAM key) {
  return key == VK_TAB && !IsDown(VK_CONTROL) && !IsDown(VK_MENU);
}

void AskForNext(HWND window) {
  SendMessageA(window, WM_NEXTDLGCTL, IsDown(VK_SHIFT) ? TRUE : FALSE, FALSE);
}

void FocusNext(std::span<const HWND> order, bool backwards) {
  const HWND focus = GetFocus();
  const auto found = focus == nullptr ? order.end() : std::find(order.begin(), order.end(), focus);
  const size_t current = found == order.end() ? 0 : static_cast<size_t>(found - order.begin());
  const size_t step = backwards ? order.size() - 1 : 1;
  for (size_t i = 1; i < order.size(); ++i) {
    const HWND next = order[(current + i * step) % order.size()];
    if (next == nullptr) continue;
    SetFocus(next);
    return;
  }
}

void ViewTabKey::Attach(HWND view, HWND container) {
  container_ = container;
  NotificationTap::Attach(view);
}

LRESULT ViewTabKey::OnNotification(NMHDR& header, const Receiver& receiver) {
  if (!IsTab(reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey)) return receiver.PassOn(header);
  AskForNext(container_);
  return 1;  // a tree would search for it otherwise
}

}  // namespace file_explorer
