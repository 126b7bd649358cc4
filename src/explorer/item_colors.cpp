#include "src/explorer/item_colors.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "src/explorer/item_name.h"
#include "src/filter/category_lookup.h"
#include "src/framework/module_context.h"

namespace file_explorer {
namespace {

// A window whose procedure was replaced. They are found in this list, not by a window property, which would
// be asked for at each message: there is one file view, seldom more.
struct Replaced {
  HWND window;
  WNDPROC original;
  ItemColors* colors;  // null once detached under somebody else's procedure
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

void ItemColors::Attach(HWND list) {
  Detach();
  const HWND receiver = list != nullptr ? GetParent(list) : nullptr;
  if (receiver == nullptr) return;
  if (Replaced* const known = FindReplaced(receiver)) {
    if (known->colors != nullptr) return;
    known->colors = this;
  } else {
    replacedWindows.push_back({receiver, CurrentProcedure(receiver), this});
    ReplaceProcedure(receiver, &ItemColors::Procedure);
  }
  list_ = list;
  window_ = receiver;
}

void ItemColors::Detach() {
  list_ = nullptr;
  const HWND window = std::exchange(window_, nullptr);
  Replaced* const entry = window != nullptr ? FindReplaced(window) : nullptr;
  if (entry == nullptr) return;
  entry->colors = nullptr;
  // Somebody who came later calls our procedure: it stays, and only passes on.
  if (CurrentProcedure(window) != &ItemColors::Procedure) return;
  ReplaceProcedure(window, entry->original);
  ForgetReplaced(window);
}

LRESULT CALLBACK ItemColors::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const Replaced* const entry = FindReplaced(window);
  if (entry == nullptr) return DefWindowProcA(window, message, wParam, lParam);
  const WNDPROC original = entry->original;
  ItemColors* const colors = entry->colors;
  if (message == WM_NOTIFY && colors != nullptr) {
    const auto* const header = reinterpret_cast<const NMHDR*>(lParam);
    if (header->code == static_cast<UINT>(NM_CUSTOMDRAW) && header->hwndFrom == colors->list_) {
      return OnCustomDraw(original, window, wParam, *reinterpret_cast<NMLVCUSTOMDRAW*>(lParam));
    }
  }
  if (message == WM_NCDESTROY) {
    if (colors != nullptr) colors->list_ = colors->window_ = nullptr;
    ForgetReplaced(window);
  }
  return CallOriginal(original, window, message, wParam, lParam);
}

LRESULT ItemColors::OnCustomDraw(WNDPROC original, HWND window, WPARAM wParam, NMLVCUSTOMDRAW& draw) {
  const DWORD stage = draw.nmcd.dwDrawStage;
  const bool selected = (draw.nmcd.uItemState & CDIS_SELECTED) != 0;
  const LRESULT answer = CallOriginal(original, window, WM_NOTIFY, wParam, reinterpret_cast<LPARAM>(&draw));
  if (stage == CDDS_PREPAINT) return answer | CDRF_NOTIFYITEMDRAW;
  // A control that takes the mark of a selected item away shows its selection in a colour of its own.
  const bool ownSelection = selected && (draw.nmcd.uItemState & CDIS_SELECTED) == 0;
  if (stage == CDDS_ITEMPREPAINT && (answer & CDRF_SKIPDEFAULT) == 0 && !ownSelection) ColorItem(draw);
  return answer;
}

void ItemColors::ColorItem(NMLVCUSTOMDRAW& draw) {
  try {
    const ModuleContext context;
    ItemName name;
    if (!name.Read(draw.nmcd.hdr.hwndFrom, static_cast<int>(draw.nmcd.dwItemSpec))) return;
    const std::optional<COLORREF> color = CategoryColorFor(name.text());
    if (color) draw.clrTextBk = *color;
  } catch (...) {
    // An item without its colour is better than none.
  }
}

}  // namespace file_explorer
