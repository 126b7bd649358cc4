#include "workbench/app/documents/text_view.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "base/window/high_contrast.h"
#include "workbench/app/documents/line_index.h"
#include "workbench/app/documents/text_decoding.h"
#include "workbench/app/documents/view_window.h"

namespace workbench {
namespace {

constexpr int kMargin = 8;  // at 96 DPI, around the text
constexpr UINT_PTR kScrollTimer = 1;
constexpr UINT kScrollInterval = 50;  // ms, while a selection is dragged outside the window
constexpr UINT kMenuCopy = 1;
constexpr UINT kMenuSelectAll = 2;
constexpr COLORREF kNoteBackground = RGB(255, 244, 206);
constexpr COLORREF kNoteText = RGB(90, 62, 0);

const wchar_t* AsWide(std::u16string_view text) {
  return reinterpret_cast<const wchar_t*>(text.data());
}

class TextView final : public DocumentView, private ViewWindow {
 public:
  TextView(const FileFacts& facts, const std::string& content, bool cutOff)
      : path_(facts.path),
        name_(facts.name),
        encoding_(DetectEncoding(content)),
        text_(DecodeText(content, encoding_, cutOff)),
        index_(text_),
        cutOff_(cutOff),
        size_(facts.size) {}

  bool CreateIn(HWND parent) {
    font_ = CreateFixedFont();
    noteFont_ = CreateMessageFont();
    MeasureCell();
    return Create(parent, L"WorkbenchTextView", WS_VSCROLL | WS_HSCROLL | WS_TABSTOP,
                  LoadCursorW(nullptr, MAKEINTRESOURCEW(32513)));
  }

  HWND window() const override { return handle(); }
  const std::wstring& path() const override { return path_; }
  std::wstring title() const override { return name_; }
  std::wstring kind() const override { return L"text"; }
  std::wstring summary() const override {
    const std::string lines = GroupedNumber(index_.lines()) + (index_.lines() == 1 ? " line, " : " lines, ");
    return Wide((cutOff_ ? "first " : "") + lines + EncodingName(encoding_));
  }

 private:
  using Handler = LRESULT (TextView::*)(WPARAM, LPARAM);
  struct MessageEntry {
    UINT message;
    Handler handler;
  };
  static const MessageEntry kMessages[];

  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

  LRESULT OnSize(WPARAM, LPARAM) {
    UpdateScrollBars();
    InvalidateRect(handle(), nullptr, FALSE);
    return 0;
  }
  LRESULT OnEraseBackground(WPARAM, LPARAM) { return 1; }
  LRESULT OnPaint(WPARAM, LPARAM);
  LRESULT OnVerticalScroll(WPARAM wParam, LPARAM) {
    ScrollTo(ScrolledTo(SB_VERT, LOWORD(wParam), top_, PageRows()), left_);
    return 0;
  }
  LRESULT OnHorizontalScroll(WPARAM wParam, LPARAM) {
    ScrollTo(top_, ScrolledTo(SB_HORZ, LOWORD(wParam), left_, PageColumns()));
    return 0;
  }
  LRESULT OnWheel(WPARAM wParam, LPARAM);
  LRESULT OnKey(WPARAM wParam, LPARAM);
  LRESULT OnButtonDown(WPARAM wParam, LPARAM lParam);
  LRESULT OnMouseMove(WPARAM, LPARAM lParam);
  LRESULT OnButtonUp(WPARAM, LPARAM) {
    if (selecting_) ReleaseCapture();
    return 0;
  }
  LRESULT OnCaptureChanged(WPARAM, LPARAM) {
    selecting_ = false;
    KillTimer(handle(), kScrollTimer);
    return 0;
  }
  LRESULT OnDoubleClick(WPARAM, LPARAM lParam);
  LRESULT OnTimer(WPARAM, LPARAM);
  LRESULT OnContextMenu(WPARAM, LPARAM lParam);
  LRESULT OnDialogCode(WPARAM, LPARAM) { return DLGC_WANTARROWS | DLGC_WANTCHARS; }
  LRESULT OnFocus(WPARAM, LPARAM) {
    InvalidateRect(handle(), nullptr, FALSE);
    return 0;
  }
  LRESULT OnCopy(WPARAM, LPARAM) {
    const std::u16string_view chosen = Selection();
    if (!chosen.empty()) CopyTextToClipboard(handle(), std::wstring(AsWide(chosen), chosen.size()));
    return 0;
  }
  LRESULT OnSelectAll(WPARAM, LPARAM) { return OnSelectRange(0, static_cast<LPARAM>(text_.size())); }
  LRESULT OnSelectRange(WPARAM first, LPARAM last) {
    anchor_ = std::min<std::size_t>(first, text_.size());
    caret_ = std::min<std::size_t>(static_cast<std::size_t>(last), text_.size());
    InvalidateRect(handle(), nullptr, FALSE);
    return 0;
  }
  LRESULT OnGetTopRow(WPARAM, LPARAM) { return top_; }

  void MeasureCell();
  int NoteHeight() const { return cutOff_ ? cellHeight_ + 2 * ScaledPixels(kMargin) : 0; }
  int TextTop() const { return NoteHeight() + ScaledPixels(kMargin) / 2; }
  int PageRows() const { return std::max(1, static_cast<int>(ClientSize().cy - TextTop()) / cellHeight_); }
  int PageColumns() const {
    return std::max(1, static_cast<int>(ClientSize().cx - 2 * ScaledPixels(kMargin)) / cellWidth_);
  }
  void UpdateScrollBars();
  int ScrolledTo(int bar, int request, int now, int page) const;
  void ScrollTo(int row, int column);
  std::size_t PositionUnder(int x, int y) const;
  std::u16string_view Selection() const {
    const auto [first, last] = std::minmax(anchor_, caret_);
    return std::u16string_view(text_).substr(first, last - first);
  }
  void SelectTo(std::size_t position);
  void PaintNote(HDC dc, const RECT& client) const;
  void PaintRow(HDC dc, std::size_t row, int y, const RECT& client) const;
  void PaintRun(HDC dc, std::u16string_view run, int column, int y, bool selected) const;

  std::wstring path_;
  std::wstring name_;
  TextEncoding encoding_;
  std::u16string text_;
  LineIndex index_;
  bool cutOff_;
  std::uint64_t size_;
  UniqueFont font_;
  UniqueFont noteFont_;
  int cellWidth_ = 8;
  int cellHeight_ = 16;
  int top_ = 0;   // first row shown
  int left_ = 0;  // first column shown
  std::size_t anchor_ = 0;
  std::size_t caret_ = 0;
  bool selecting_ = false;
  int wheelRest_ = 0;
};

const TextView::MessageEntry TextView::kMessages[] = {
    {WM_SIZE, &TextView::OnSize},
    {WM_ERASEBKGND, &TextView::OnEraseBackground},
    {WM_PAINT, &TextView::OnPaint},
    {WM_VSCROLL, &TextView::OnVerticalScroll},
    {WM_HSCROLL, &TextView::OnHorizontalScroll},
    {WM_MOUSEWHEEL, &TextView::OnWheel},
    {WM_KEYDOWN, &TextView::OnKey},
    {WM_LBUTTONDOWN, &TextView::OnButtonDown},
    {WM_MOUSEMOVE, &TextView::OnMouseMove},
    {WM_LBUTTONUP, &TextView::OnButtonUp},
    {WM_LBUTTONDBLCLK, &TextView::OnDoubleClick},
    {WM_CAPTURECHANGED, &TextView::OnCaptureChanged},
    {WM_TIMER, &TextView::OnTimer},
    {WM_CONTEXTMENU, &TextView::OnContextMenu},
    {WM_GETDLGCODE, &TextView::OnDialogCode},
    {WM_SETFOCUS, &TextView::OnFocus},
    {WM_KILLFOCUS, &TextView::OnFocus},
    {WM_COPY, &TextView::OnCopy},
    {kTextSelectAll, &TextView::OnSelectAll},
    {kTextSelectRange, &TextView::OnSelectRange},
    {kTextGetTopRow, &TextView::OnGetTopRow},
};

LRESULT TextView::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  for (const MessageEntry& entry : kMessages) {
    if (entry.message == message) return (this->*entry.handler)(wParam, lParam);
  }
  return DefaultHandling(message, wParam, lParam);
}

void TextView::MeasureCell() {
  const HDC screen = GetDC(nullptr);
  {
    const ObjectSelection font(screen, font_.get());
    TEXTMETRICW metrics = {};
    GetTextMetricsW(screen, &metrics);
    SIZE extent = {};
    GetTextExtentPoint32W(screen, L"0", 1, &extent);
    cellWidth_ = std::max<int>(1, extent.cx);
    cellHeight_ = std::max<int>(1, metrics.tmHeight + metrics.tmExternalLeading + ScaledPixels(2));
  }
  ReleaseDC(nullptr, screen);
}

void TextView::UpdateScrollBars() {
  // Showing one bar changes the size and comes back here; the second round finds it shown and ends.
  SCROLLINFO info = {sizeof info, SIF_RANGE | SIF_PAGE | SIF_POS, 0, 0, 0, 0, 0};
  info.nMax = static_cast<int>(index_.rows()) - 1;
  info.nPage = static_cast<UINT>(PageRows());
  top_ = std::clamp(top_, 0, std::max(0, info.nMax + 1 - PageRows()));
  info.nPos = top_;
  SetScrollInfo(handle(), SB_VERT, &info, TRUE);
  info.nMax = std::max(0, index_.widestRow() - 1);
  info.nPage = static_cast<UINT>(PageColumns());
  left_ = std::clamp(left_, 0, std::max(0, info.nMax + 1 - PageColumns()));
  info.nPos = left_;
  SetScrollInfo(handle(), SB_HORZ, &info, TRUE);
}

int TextView::ScrolledTo(int bar, int request, int now, int page) const {
  SCROLLINFO info = {sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
  GetScrollInfo(handle(), bar, &info);
  switch (request) {
    case SB_LINEUP:
      return now - 1;
    case SB_LINEDOWN:
      return now + 1;
    case SB_PAGEUP:
      return now - page;
    case SB_PAGEDOWN:
      return now + page;
    case SB_THUMBTRACK:
    case SB_THUMBPOSITION:
      return info.nTrackPos;
    case SB_TOP:
      return info.nMin;
    case SB_BOTTOM:
      return info.nMax;
    default:
      return now;
  }
}

void TextView::ScrollTo(int row, int column) {
  top_ = row;
  left_ = column;
  UpdateScrollBars();  // keeps both inside the text
  InvalidateRect(handle(), nullptr, FALSE);
}

LRESULT TextView::OnWheel(WPARAM wParam, LPARAM) {
  UINT rows = 3;
  SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &rows, 0);
  if (rows == WHEEL_PAGESCROLL) rows = static_cast<UINT>(PageRows());
  // Fine wheels report parts of a notch; they add up.
  wheelRest_ += GET_WHEEL_DELTA_WPARAM(wParam) * static_cast<int>(rows);
  const int steps = wheelRest_ / WHEEL_DELTA;
  wheelRest_ -= steps * WHEEL_DELTA;
  if (GetKeyState(VK_SHIFT) < 0) {
    ScrollTo(top_, left_ - 2 * steps);
  } else {
    ScrollTo(top_ - steps, left_);
  }
  return 0;
}

LRESULT TextView::OnKey(WPARAM key, LPARAM) {
  const bool control = GetKeyState(VK_CONTROL) < 0;
  if (control && (key == 'C' || key == VK_INSERT)) return OnCopy(0, 0);
  if (control && key == 'A') return OnSelectAll(0, 0);
  switch (key) {
    case VK_UP:
      ScrollTo(top_ - 1, left_);
      break;
    case VK_DOWN:
      ScrollTo(top_ + 1, left_);
      break;
    case VK_LEFT:
      ScrollTo(top_, left_ - 1);
      break;
    case VK_RIGHT:
      ScrollTo(top_, left_ + 1);
      break;
    case VK_PRIOR:
      ScrollTo(top_ - PageRows(), left_);
      break;
    case VK_NEXT:
      ScrollTo(top_ + PageRows(), left_);
      break;
    case VK_HOME:
      ScrollTo(control ? 0 : top_, 0);
      break;
    case VK_END:
      ScrollTo(control ? static_cast<int>(index_.rows()) : top_, control ? 0 : index_.widestRow());
      break;
    default:
      break;
  }
  return 0;
}

std::size_t TextView::PositionUnder(int x, int y) const {
  const int down = (y - TextTop()) / cellHeight_ - (y < TextTop() ? 1 : 0);
  const int row = std::clamp(top_ + down, 0, static_cast<int>(index_.rows()) - 1);
  // The nearer edge of a character counts.
  const int column = left_ + std::max(0, x - ScaledPixels(kMargin) + cellWidth_ / 2) / cellWidth_;
  return index_.PositionAt(static_cast<std::size_t>(row), column);
}

void TextView::SelectTo(std::size_t position) {
  if (position == caret_) return;
  caret_ = position;
  InvalidateRect(handle(), nullptr, FALSE);
}

LRESULT TextView::OnButtonDown(WPARAM wParam, LPARAM lParam) {
  SetFocus(handle());
  const std::size_t position = PositionUnder(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
  if ((wParam & MK_SHIFT) == 0) anchor_ = position;
  caret_ = position;
  selecting_ = true;
  SetCapture(handle());
  SetTimer(handle(), kScrollTimer, kScrollInterval, nullptr);
  InvalidateRect(handle(), nullptr, FALSE);
  return 0;
}

LRESULT TextView::OnMouseMove(WPARAM, LPARAM lParam) {
  if (selecting_) SelectTo(PositionUnder(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)));
  return 0;
}

// While the mouse is held outside the window, the text comes towards it.
LRESULT TextView::OnTimer(WPARAM, LPARAM) {
  if (!selecting_) return 0;
  POINT mouse = {};
  GetCursorPos(&mouse);
  ScreenToClient(handle(), &mouse);
  const SIZE client = ClientSize();
  const int down = mouse.y < TextTop() ? -1 : mouse.y >= client.cy ? 1 : 0;
  const int right = mouse.x < 0 ? -2 : mouse.x >= client.cx ? 2 : 0;
  if (down == 0 && right == 0) return 0;
  ScrollTo(top_ + down, left_ + right);
  SelectTo(PositionUnder(mouse.x, mouse.y));
  return 0;
}

LRESULT TextView::OnDoubleClick(WPARAM, LPARAM lParam) {
  const int row = std::clamp(top_ + (GET_Y_LPARAM(lParam) - TextTop()) / cellHeight_, 0,
                             static_cast<int>(index_.rows()) - 1);
  const int column = left_ + std::max(0, GET_X_LPARAM(lParam) - ScaledPixels(kMargin)) / cellWidth_;
  const TextRange word = WordAt(text_, index_.PositionAt(static_cast<std::size_t>(row), column));
  return OnSelectRange(word.first, static_cast<LPARAM>(word.last));
}

LRESULT TextView::OnContextMenu(WPARAM, LPARAM lParam) {
  POINT at = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  if (at.x == -1 && at.y == -1) {  // by keyboard
    at = {ScaledPixels(kMargin), TextTop()};
    ClientToScreen(handle(), &at);
  }
  const HMENU menu = CreatePopupMenu();
  AppendMenuW(menu, MF_STRING | (Selection().empty() ? MF_GRAYED : 0u), kMenuCopy, L"&Copy\tCtrl+C");
  AppendMenuW(menu, MF_STRING | (text_.empty() ? MF_GRAYED : 0u), kMenuSelectAll, L"Select &all\tCtrl+A");
  const int chosen = TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, handle(), nullptr);
  DestroyMenu(menu);
  if (chosen == kMenuCopy) OnCopy(0, 0);
  if (chosen == kMenuSelectAll) OnSelectAll(0, 0);
  return 0;
}

LRESULT TextView::OnPaint(WPARAM, LPARAM) {
  const OffscreenPaint paint(handle());
  const HDC dc = paint.dc();
  const RECT& client = paint.client();
  FillRect(dc, &client, GetSysColorBrush(COLOR_WINDOW));
  if (cutOff_) PaintNote(dc, client);
  const ObjectSelection font(dc, font_.get());
  SetBkMode(dc, OPAQUE);
  for (int y = TextTop(), row = top_; y < client.bottom && row < static_cast<int>(index_.rows()); ++row) {
    PaintRow(dc, static_cast<std::size_t>(row), y, client);
    y += cellHeight_;
  }
  return 0;
}

void TextView::PaintNote(HDC dc, const RECT& client) const {
  RECT band = {0, 0, client.right, NoteHeight()};
  const UniqueBrush brush(CreateSolidBrush(base::ContrastColor(kNoteBackground, COLOR_INFOBK)));
  FillRect(dc, &band, brush.get());
  const std::wstring note = L"The file has " + Wide(RoundedSize(size_)) + L". The first " +
                            Wide(RoundedSize(kTextSizeLimit)) + L" of it are shown.";
  const ObjectSelection font(dc, noteFont_.get());
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, base::ContrastColor(kNoteText, COLOR_INFOTEXT));
  InflateRect(&band, -ScaledPixels(kMargin), 0);
  DrawTextW(dc, note.c_str(), static_cast<int>(note.size()), &band,
            DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
}

// Draws a row as runs of selected and other characters.
void TextView::PaintRow(HDC dc, std::size_t row, int y, const RECT& client) const {
  const std::u16string_view text = index_.Row(row);
  const std::size_t start = index_.RowStart(row);
  const auto [first, last] = std::minmax(anchor_, caret_);
  const int lastColumn = left_ + client.right / cellWidth_ + 1;
  int column = 0;
  for (std::size_t at = 0; at < text.size() && column <= lastColumn;) {
    const bool selected = start + at >= first && start + at < last;
    const std::size_t runStart = at;
    const int runColumn = column;
    while (at < text.size() && column <= lastColumn &&
           (start + at >= first && start + at < last) == selected) {
      const TextCharacter character = CharacterAt(text, at);
      column += ColumnsOf(character.code, column);
      at += character.units;
    }
    if (column > left_) PaintRun(dc, text.substr(runStart, at - runStart), runColumn, y, selected);
  }
  // A selected line end shows as half a column.
  const std::size_t end = start + text.size();
  if (end >= first && end < last && row + 1 < index_.rows()) {
    const int x = ScaledPixels(kMargin) + (column - left_) * cellWidth_;
    const RECT mark = {x, y, x + cellWidth_ / 2, y + cellHeight_};
    if (column >= left_) FillRect(dc, &mark, GetSysColorBrush(COLOR_HIGHLIGHT));
  }
}

void TextView::PaintRun(HDC dc, std::u16string_view run, int column, int y, bool selected) const {
  // Every character is put on its column, whatever width the font has for it.
  std::u16string drawn;
  std::vector<INT> advances;
  int at = column;
  for (std::size_t i = 0; i < run.size();) {
    const TextCharacter character = CharacterAt(run, i);
    const int columns = ColumnsOf(character.code, at);
    if (at + columns > left_) {
      for (std::size_t unit = 0; unit < character.units; ++unit) {
        const char16_t raw = run[i + unit];
        drawn.push_back(raw < 0x20 ? (raw == u'\t' ? u' ' : u'\u00B7') : raw);
        advances.push_back(unit == 0 ? columns * cellWidth_ : 0);
      }
    } else {
      column = at + columns;
    }
    at += columns;
    i += character.units;
  }
  SetBkColor(dc, GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
  SetTextColor(dc, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
  const int margin = ScaledPixels(kMargin);
  const int x = margin + (column - left_) * cellWidth_;
  const RECT cell = {x, y, margin + (at - left_) * cellWidth_, y + cellHeight_};
  ExtTextOutW(dc, x, y + ScaledPixels(1), ETO_OPAQUE, &cell, AsWide(drawn), static_cast<UINT>(drawn.size()),
              advances.data());
}

}  // namespace

std::unique_ptr<DocumentView> CreateTextView(HWND parent, const FileFacts& facts, const std::string& content,
                                             bool cutOff) {
  auto view = std::make_unique<TextView>(facts, content, cutOff);
  if (!view->CreateIn(parent)) return nullptr;
  return view;
}

}  // namespace workbench
