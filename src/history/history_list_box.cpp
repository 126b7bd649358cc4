#include "src/history/history_list_box.h"

#include <algorithm>

#include "src/framework/module_context.h"

namespace file_explorer {
namespace {

// Whole rows only would leave a strip of the panel uncovered, a tall one with tall rows.
constexpr DWORD kStyle = WS_CHILD | WS_HSCROLL | WS_VSCROLL | LBS_HASSTRINGS | LBS_OWNERDRAWFIXED |
                         LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;

constexpr UINT kLaterMessage = WM_APP + 1;

struct NavigationKey {
  WPARAM key;
  RowStep step;
};
constexpr NavigationKey kNavigationKeys[] = {
    {VK_UP, RowStep::kUp},         {VK_DOWN, RowStep::kDown},  {VK_PRIOR, RowStep::kPageUp},
    {VK_NEXT, RowStep::kPageDown}, {VK_HOME, RowStep::kFirst}, {VK_END, RowStep::kLast},
};

}  // namespace

HistoryListBox::HistoryListBox(HINSTANCE instance, HWND parent, int controlId) {
  RECT area = {};
  GetClientRect(parent, &area);
  // The text is not shown; it is what a screen reader calls the list.
  window_.reset(CreateWindowExW(WS_EX_CLIENTEDGE, L"ListBox", L"History", kStyle, 0, 0, area.right, area.bottom,
                                parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)), instance,
                                nullptr));
  if (!window_) return;
  SetWindowLongPtrA(window_.get(), GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  // Replaced by hand: filling the list sends two messages a row, and the way through a list of subclasses
  // costs more than the list box itself.
  previous_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window_.get(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
}

// Most messages, those of filling and painting above all, pass straight through.
LRESULT CALLBACK HistoryListBox::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const box = reinterpret_cast<HistoryListBox*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (box == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  const WNDPROC previous = box->previous_;
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
    SetWindowLongPtrA(window, GWLP_USERDATA, 0);
    box->window_.release();  // the parent may destroy its children before the view goes
  } else if (message == WM_KEYDOWN || message == WM_CHAR || message == WM_GETDLGCODE || message == WM_PAINT ||
             message == kLaterMessage) {
    try {
      const ModuleContext context;
      LRESULT result = 0;
      if (box->HandleMessage(message, wParam, lParam, &result)) return result;
    } catch (...) {
      // The system's frames must not see an exception; the list box goes on by itself.
    }
  }
  const bool mayScroll = message == WM_HSCROLL || message == WM_MOUSEHWHEEL || message == WM_KEYDOWN;
  const int place = mayScroll ? GetScrollPos(window, SB_HORZ) : 0;
  const LRESULT result = CallWindowProcW(previous, window, message, wParam, lParam);
  // The list box moves what it shows; but how a path is shortened depends on where it begins.
  if (mayScroll && GetScrollPos(window, SB_HORZ) != place) InvalidateRect(window, nullptr, FALSE);
  return result;
}

void HistoryListBox::AskForLater() {
  if (!isLaterPosted_) isLaterPosted_ = PostMessageA(window_.get(), kLaterMessage, 0, 0) != FALSE;
}

LRESULT HistoryListBox::CallPrevious(UINT message, WPARAM wParam, LPARAM lParam) const {
  return CallWindowProcW(previous_, window_.get(), message, wParam, lParam);
}

bool HistoryListBox::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message == WM_PAINT && beforePaint_) beforePaint_();
  if (message == kLaterMessage) {
    isLaterPosted_ = false;
    const auto later = later_;  // a copy: the box may go while it runs
    if (later) later();
    return true;
  }
  if (message == WM_KEYDOWN) return OnKeyDown(wParam);
  if (message == WM_CHAR) return OnCharacter(wParam);
  if (message == WM_GETDLGCODE && wParam == VK_RETURN) {
    *result = CallPrevious(message, wParam, lParam) | DLGC_WANTMESSAGE;
    return true;
  }
  return false;
}

bool HistoryListBox::OnKeyDown(WPARAM key) {
  if (key == VK_RETURN) {
    ReportSelection();
    return true;
  }
  if (key == VK_TAB) {
    SendMessageA(GetParent(window_.get()), WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0 ? TRUE : FALSE, FALSE);
    return true;
  }
  const auto* const found =
      std::find_if(std::begin(kNavigationKeys), std::end(kNavigationKeys),
                   [key](const NavigationKey& candidate) { return candidate.key == key; });
  if (found == std::end(kNavigationKeys)) return false;
  const int count = static_cast<int>(Send(LB_GETCOUNT));
  MoveTo(NextRow(found->step, static_cast<int>(Send(LB_GETCURSEL)), count, RowsOnPage()));
  return true;
}

// A letter leads to the next row whose name begins with it.
bool HistoryListBox::OnCharacter(WPARAM letter) {
  if (letter <= ' ') return letter == '\r';  // Enter came as a key already
  const wchar_t prefix[] = {static_cast<wchar_t>(letter), L'\0'};
  MoveTo(static_cast<int>(
      Send(LB_FINDSTRING, static_cast<WPARAM>(Send(LB_GETCURSEL)), reinterpret_cast<LPARAM>(prefix))));
  return true;
}

void HistoryListBox::MoveTo(int row) {
  if (row >= 0) Send(LB_SETCURSEL, static_cast<WPARAM>(row));
}

void HistoryListBox::ReportSelection() const {
  if (Send(LB_GETCURSEL) == LB_ERR) return;
  const auto id = static_cast<WORD>(GetDlgCtrlID(window_.get()));
  SendMessageA(GetParent(window_.get()), WM_COMMAND, MAKEWPARAM(id, LBN_SELCHANGE),
               reinterpret_cast<LPARAM>(window_.get()));
}

int HistoryListBox::RowsOnPage() const {
  RECT area = {};
  GetClientRect(window_.get(), &area);
  const int rowHeight = static_cast<int>(Send(LB_GETITEMHEIGHT));
  return rowHeight > 0 ? area.bottom / rowHeight : 1;
}

LRESULT HistoryListBox::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
  return SendMessageW(window_.get(), message, wParam, lParam);
}

}  // namespace file_explorer
