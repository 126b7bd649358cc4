#include "src/history/history_list_box.h"

#include <commctrl.h>

#include <algorithm>

#include "src/framework/module_context.h"

namespace file_explorer {
namespace {

constexpr UINT_PTR kSubclassId = 1;
// Whole rows only would leave a strip of the panel uncovered, a tall one with tall rows.
constexpr DWORD kStyle = WS_CHILD | WS_HSCROLL | WS_VSCROLL | LBS_HASSTRINGS | LBS_OWNERDRAWFIXED |
                         LBS_NOTIFY | LBS_NOINTEGRALHEIGHT;

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
  window_.reset(CreateWindowExA(WS_EX_CLIENTEDGE, "ListBox", "", kStyle, 0, 0, area.right, area.bottom,
                                parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)), instance,
                                nullptr));
  if (window_) SetWindowSubclass(window_.get(), SubclassProc, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
}

LRESULT CALLBACK HistoryListBox::SubclassProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                              UINT_PTR id, DWORD_PTR self) {
  try {
    const ModuleContext context;
    auto* const box = reinterpret_cast<HistoryListBox*>(self);
    if (message == WM_NCDESTROY) {
      RemoveWindowSubclass(window, SubclassProc, id);
      box->window_.release();  // the parent may destroy its children before the view goes
      return DefSubclassProc(window, message, wParam, lParam);
    }
    LRESULT result = 0;
    if (box->HandleMessage(message, wParam, lParam, &result)) return result;
  } catch (...) {
    // The system's frames must not see an exception; the list box goes on by itself.
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

bool HistoryListBox::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message == WM_PAINT && beforePaint_) beforePaint_();
  if (message == WM_KEYDOWN) return OnKeyDown(wParam);
  if (message == WM_CHAR) return OnCharacter(wParam);
  if (message == WM_GETDLGCODE && wParam == VK_RETURN) {
    *result = DefSubclassProc(window_.get(), message, wParam, lParam) | DLGC_WANTMESSAGE;
    return true;
  }
  return false;
}

bool HistoryListBox::OnKeyDown(WPARAM key) {
  if (key == VK_RETURN) {
    ReportSelection();
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
  const char prefix[] = {static_cast<char>(letter), '\0'};
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
  return SendMessageA(window_.get(), message, wParam, lParam);
}

}  // namespace file_explorer
