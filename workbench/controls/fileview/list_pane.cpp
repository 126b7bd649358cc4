#include "workbench/controls/fileview/list_pane.h"

#include <algorithm>

#include "workbench/controls/fileview/folder_model.h"
#include "workbench/controls/shell/type_cache.h"

namespace controls {
namespace {

constexpr wchar_t kClassName[] = L"SswareShellFileView";
constexpr int kThumbnailMargin =
    4;  // between a thumbnail and the border of its cell; pixels at 96 dots an inch

struct Column {
  const wchar_t* title;
  int width;  // pixels at 96 dots an inch
  int format;
};
constexpr Column kColumns[kColumnCount] = {
    {L"Name", 260, LVCFMT_LEFT},
    {L"Size", 84, LVCFMT_RIGHT},
    {L"Type", 130, LVCFMT_LEFT},
    {L"Modified", 140, LVCFMT_LEFT},
};

constexpr DWORD kOwnStyleMask =
    LVS_TYPEMASK | LVS_SINGLESEL | LVS_EDITLABELS | LVS_NOCOLUMNHEADER | LVS_NOSORTHEADER | LVS_AUTOARRANGE;

DWORD TypeBits(ViewStyle view) {
  switch (view) {
    case ViewStyle::kReport:
      return LVS_REPORT;
    case ViewStyle::kSmallIcon:
      return LVS_SMALLICON;
    case ViewStyle::kList:
      return LVS_LIST;
    default:
      return LVS_ICON;
  }
}

}  // namespace

ListPane::~ListPane() {
  listPart_.Detach();
  thumbnails_.Detach();
  Destroy();
}

int ListPane::Scale(int pixels) const {
  const HDC context = GetDC(hwnd());
  const int dpi = GetDeviceCaps(context, LOGPIXELSX);
  ReleaseDC(hwnd(), context);
  return MulDiv(pixels, dpi, 96);
}

bool ListPane::CreatePane(HWND parent, const RECT& rect) {
  return Create(kClassName, parent, rect) && CreateList();
}

bool ListPane::CreateList() {
  const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS | LVS_OWNERDATA |
                      LVS_SHAREIMAGELISTS | LVS_SHOWSELALWAYS | OwnStyleBits();
  list_ = CreateWindowExW(0, WC_LISTVIEWW, L"", style, 0, 0, 0, 0, hwnd(), reinterpret_cast<HMENU>(1),
                          nullptr, nullptr);
  if (!list_) return false;
  // The container may subclass this window with either character set; the list keeps talking Unicode to us.
  SendMessageW(list_, LVM_SETUNICODEFORMAT, TRUE, 0);
  listPart_.Attach(list_);
  thumbnails_.Attach(hwnd(), list_);
  InsertColumns();
  ApplyImages();
  ApplyListStyle();
  if (font_) SetFont(font_);
  Layout();
  return true;
}

void ListPane::InsertColumns() {
  for (int i = 0; i < kColumnCount; ++i) {
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
    column.pszText = const_cast<LPWSTR>(kColumns[i].title);
    column.cx = Scale(kColumns[i].width);
    column.fmt = kColumns[i].format;
    column.iSubItem = i;
    SendMessageW(list_, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
  }
}

void ListPane::SetFont(HFONT font) {
  font_ = font;
  if (!list_) return;
  SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
  Layout();
  InvalidateRect(hwnd(), nullptr, TRUE);
}

DWORD ListPane::OwnStyleBits() const {
  DWORD bits = TypeBits(view_) | LVS_AUTOARRANGE;
  if (options_.singleSelection) bits |= LVS_SINGLESEL;
  if (options_.inPlaceRename) bits |= LVS_EDITLABELS;
  if (!options_.columnHeaders) bits |= LVS_NOCOLUMNHEADER;
  if (!options_.headerSort) bits |= LVS_NOSORTHEADER;
  return bits;
}

void ListPane::ApplyListStyle() {
  if (!list_) return;
  applyingStyle_ = true;
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(list_, GWL_STYLE));
  const DWORD wanted = (style & ~kOwnStyleMask) | OwnStyleBits();
  if (style != wanted) SetWindowLongPtrW(list_, GWL_STYLE, static_cast<LONG_PTR>(wanted));
  applyingStyle_ = false;
  DWORD extended = LVS_EX_HEADERDRAGDROP | LVS_EX_DOUBLEBUFFER;
  if (options_.gridLines) extended |= LVS_EX_GRIDLINES;
  if (options_.fullRowSelect) extended |= LVS_EX_FULLROWSELECT;
  if (options_.infoTips) extended |= LVS_EX_INFOTIP;
  SendMessageW(
      list_, LVM_SETEXTENDEDLISTVIEWSTYLE,
      LVS_EX_HEADERDRAGDROP | LVS_EX_DOUBLEBUFFER | LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT | LVS_EX_INFOTIP,
      static_cast<LPARAM>(extended));
}

void ListPane::ApplyImages() {
  const bool own = view_ == ViewStyle::kThumbnails && thumbnails_.images();
  const HIMAGELIST large = own ? thumbnails_.images() : SystemImages(true);
  SendMessageW(list_, LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(large));
  SendMessageW(list_, LVM_SETIMAGELIST, LVSIL_SMALL, reinterpret_cast<LPARAM>(SystemImages(false)));
}

void ListPane::SetView(ViewStyle view) {
  view_ = view;
  if (!list_) return;
  if (view == ViewStyle::kThumbnails && !thumbnails_.images()) ResetThumbnails();
  {
    const Quiet quiet(*this);
    ApplyView();
  }
  // The room for icons is known now that the scroll bars are there.
  SendMessageW(list_, LVM_ARRANGE, LVA_DEFAULT, 0);
  // Scroll bars that went while nothing was drawn have left their picture behind.
  RedrawWindow(list_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
}

void ListPane::ApplyView() {
  const ViewStyle view = view_;
  ApplyListStyle();
  ApplyImages();
  if (view == ViewStyle::kList) SendMessageW(list_, LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(Scale(220), 0));
  if (view == ViewStyle::kReport)
    SendMessageW(list_, LVM_SETCOLUMNWIDTH, 0, MAKELPARAM(Scale(kColumns[0].width), 0));
  if (view == ViewStyle::kLargeIcon || view == ViewStyle::kThumbnails) {
    const int cell = view == ViewStyle::kThumbnails ? thumbnails_.cell() + Scale(36) : Scale(90);
    const int line = view == ViewStyle::kThumbnails ? thumbnails_.cell() + Scale(46) : Scale(84);
    SendMessageW(list_, LVM_SETICONSPACING, 0, MAKELPARAM(cell, line));
  }
  SendMessageW(list_, LVM_ARRANGE, LVA_DEFAULT, 0);
}

void ListPane::ResetThumbnails() {
  const int picture = Scale(thumbnailSize_);
  // The list lets go of the old images before they go.
  SendMessageW(list_, LVM_SETIMAGELIST, LVSIL_NORMAL, reinterpret_cast<LPARAM>(SystemImages(true)));
  thumbnails_.SetSize(picture, picture + 2 * Scale(kThumbnailMargin));
}

void ListPane::SetThumbnailSize(int pixels) {
  if (thumbnailSize_ == pixels) return;
  thumbnailSize_ = pixels;
  if (!list_ || !thumbnails_.images()) return;
  ResetThumbnails();
  if (view_ == ViewStyle::kThumbnails) SetView(view_);
}

int ListPane::ThumbnailImage(int row, int systemImage) {
  const std::optional<ThumbnailSubject> subject = owner_.Thumbnail(row);
  return thumbnails_.ImageOf(row, systemImage, subject ? &*subject : nullptr);
}

void ListPane::SetOptions(const Options& options) {
  options_ = options;
  if (!list_) return;
  ApplyListStyle();
  if (sort_) ShowSort(*sort_);
}

void ListPane::ShowSort(SortRule rule) {
  sort_ = rule;
  const auto header = reinterpret_cast<HWND>(SendMessageW(list_, LVM_GETHEADER, 0, 0));
  if (!header) return;
  for (int i = 0; i < kColumnCount; ++i) {
    HDITEMW item = {};
    item.mask = HDI_FORMAT;
    SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (i == static_cast<int>(rule.column)) item.fmt |= rule.descending ? HDF_SORTDOWN : HDF_SORTUP;
    SendMessageW(header, HDM_SETITEMW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
  }
}

ListPane::Quiet::Quiet(ListPane& pane) : pane_(pane) {
  if (pane_.quiet_++ == 0 && pane_.list_) SendMessageW(pane_.list_, WM_SETREDRAW, FALSE, 0);
}

ListPane::Quiet::~Quiet() {
  if (--pane_.quiet_ != 0 || !pane_.list_) return;
  SendMessageW(pane_.list_, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(pane_.list_, nullptr, TRUE);
}

void ListPane::SetRowCount(int count) {
  if (pendingFocus_ >= count) pendingFocus_ = -1;
  SendMessageW(list_, LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
}

void ListPane::Redraw() {
  if (list_) InvalidateRect(list_, nullptr, TRUE);
}

int ListPane::StatusHeight() const {
  const HDC context = GetDC(hwnd());
  const HGDIOBJ old = SelectObject(context, font_ ? font_ : GetStockObject(DEFAULT_GUI_FONT));
  TEXTMETRICW metrics = {};
  GetTextMetricsW(context, &metrics);
  SelectObject(context, old);
  ReleaseDC(hwnd(), context);
  return metrics.tmHeight + Scale(7);
}

void ListPane::Layout() {
  RECT client;
  GetClientRect(hwnd(), &client);
  const int listHeight = static_cast<int>(client.bottom) - StatusHeight();
  SetWindowPos(list_, nullptr, 0, 0, client.right, listHeight > 0 ? listHeight : 0,
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
  RedrawStatus();
}

void ListPane::RedrawStatus() {
  if (!hwnd()) return;
  RECT client;
  GetClientRect(hwnd(), &client);
  client.top = client.bottom - StatusHeight();
  InvalidateRect(hwnd(), &client, FALSE);
}

int ListPane::SelectedCount() const {
  return list_ ? static_cast<int>(SendMessageW(list_, LVM_GETSELECTEDCOUNT, 0, 0)) : 0;
}

int ListPane::NextSelected(int row) const {
  if (!list_) return -1;
  return static_cast<int>(
      SendMessageW(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(row), MAKELPARAM(LVNI_SELECTED, 0)));
}

std::vector<int> ListPane::SelectedRows() const {
  std::vector<int> rows;
  const int count = SelectedCount();
  if (count == 0) return rows;
  rows.reserve(static_cast<size_t>(count));
  for (int row = NextSelected(-1); row >= 0; row = NextSelected(row)) rows.push_back(row);
  return rows;
}

void ListPane::Select(int row, bool selected) {
  LVITEMW item = {};
  item.stateMask = LVIS_SELECTED;
  item.state = selected ? LVIS_SELECTED : 0u;
  SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void ListPane::SelectAll(bool selected) {
  if (SelectedCount() != 0 || selected) Select(-1, selected);
}

bool ListPane::IsSelected(int row) const {
  return list_ && SendMessageW(list_, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
}

int ListPane::FocusedRow() const {
  return list_ ? static_cast<int>(SendMessageW(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1),
                                               MAKELPARAM(LVNI_FOCUSED, 0)))
               : -1;
}

void ListPane::Focus(int row) {
  LVITEMW item = {};
  item.stateMask = LVIS_FOCUSED;
  item.state = LVIS_FOCUSED;
  SendMessageW(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  SendMessageW(list_, LVM_SETSELECTIONMARK, 0, row);
}

int ListPane::TopRow() const {
  return view_ == ViewStyle::kReport || view_ == ViewStyle::kList
             ? static_cast<int>(SendMessageW(list_, LVM_GETTOPINDEX, 0, 0))
             : 0;
}

void ListPane::ScrollTo(int topRow) {
  if (view_ != ViewStyle::kReport) return;
  RECT row = {};
  row.left = LVIR_BOUNDS;
  if (!SendMessageW(list_, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row))) return;
  const int lines = topRow - TopRow();
  if (lines != 0) SendMessageW(list_, LVM_SCROLL, 0, lines * (row.bottom - row.top));
}

void ListPane::EnsureVisible(int row) {
  SendMessageW(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

POINT ListPane::RowPoint(int row) const {
  RECT rect = {};
  rect.left = LVIR_LABEL;
  SendMessageW(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
  return {rect.left + 2, rect.bottom - 2};
}

// The list scrolls to each item that gets the focus. A program that selects and focuses thousands of items
// one by one would wait for thousands of scrolls, so of focus changes that come together only the last is
// carried out.
LRESULT ListPane::SetItemState(WPARAM row, LVITEMW item) {
  if ((item.stateMask & LVIS_FOCUSED) && row != static_cast<WPARAM>(-1)) {
    if (item.state & LVIS_FOCUSED) {
      if (pendingFocus_ < 0) PostMessageW(hwnd(), kFocusMessage, 0, 0);
      pendingFocus_ = static_cast<int>(row);
      item.stateMask &= ~static_cast<UINT>(LVIS_FOCUSED);
      item.state &= ~static_cast<UINT>(LVIS_FOCUSED);
    } else if (pendingFocus_ == static_cast<int>(row)) {
      pendingFocus_ = -1;
    }
  }
  if (item.stateMask == 0) return TRUE;
  return ListPart::Original(list_, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
}

void ListPane::ApplyFocus() {
  if (pendingFocus_ < 0 || !list_) return;
  LVITEMW item = {};
  item.stateMask = LVIS_FOCUSED;
  item.state = LVIS_FOCUSED;
  const int row = pendingFocus_;
  pendingFocus_ = -1;
  ListPart::Original(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
  ListPart::Original(list_, LVM_SETSELECTIONMARK, 0, row);
}

LRESULT ListPane::ListPart::HandleSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case LVM_SETITEMSTATE:
      return pane_.SetItemState(wParam, *reinterpret_cast<const LVITEMW*>(lParam));
    case LVM_GETNEXTITEM:
      if (LOWORD(lParam) & LVNI_FOCUSED) pane_.ApplyFocus();
      break;
    case LVM_GETITEMSTATE:
      if (lParam & LVIS_FOCUSED) pane_.ApplyFocus();
      break;
    case WM_KEYDOWN:
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
      pane_.ApplyFocus();
      break;
    case WM_STYLECHANGING:
      // The view and the selection mode are ours: bits that somebody else puts into the style do not stick.
      if (wParam == static_cast<WPARAM>(GWL_STYLE) && !pane_.applyingStyle_) {
        auto* change = reinterpret_cast<STYLESTRUCT*>(lParam);
        change->styleNew = (change->styleNew & ~kOwnStyleMask) | pane_.OwnStyleBits();
      }
      break;
    case WM_ERASEBKGND:
      pane_.EraseBelowColumns(reinterpret_cast<HDC>(wParam));
      break;
    case WM_PAINT: {
      const LRESULT result = Original(window, message, wParam, lParam);
      pane_.PaintEmptyText();
      pane_.thumbnails_.OnPainted();
      return result;
    }
    case WM_GETDLGCODE:
      return Original(window, message, wParam, lParam) |
             (lParam && reinterpret_cast<MSG*>(lParam)->wParam == VK_RETURN ? DLGC_WANTALLKEYS : 0);
    default:
      break;
  }
  return Original(window, message, wParam, lParam);
}

}  // namespace controls
