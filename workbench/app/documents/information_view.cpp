#include "workbench/app/documents/information_view.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/window/high_contrast.h"
#include "workbench/app/documents/describe.h"
#include "workbench/app/documents/document_icon.h"
#include "workbench/app/documents/view_window.h"

namespace workbench {
namespace {

// Lengths at 96 DPI.
constexpr int kMargin = 24;
constexpr int kIconSize = 72;
constexpr int kGap = 16;
constexpr int kRowGap = 8;
constexpr int kWidestContent = 760;
constexpr int kNotePadding = 10;
constexpr COLORREF kNoteBackground = RGB(255, 244, 206);
constexpr COLORREF kNoteEdge = RGB(214, 170, 60);
constexpr COLORREF kNoteText = RGB(90, 62, 0);
constexpr COLORREF kLabelText = RGB(96, 104, 114);
constexpr COLORREF kRule = RGB(220, 224, 229);

struct Row {
  const wchar_t* label;
  std::wstring value;
  HWND edit = nullptr;
  int top = 0;
};

class InformationView final : public DocumentView, private ViewWindow {
 public:
  InformationView(const FileFacts& facts, std::wstring note)
      : facts_(facts), note_(std::move(note)), type_(DescribeType(Utf8(facts.name))) {
    if (facts.folder) type_ = {"Folder", FileKind::kFolder};
    rows_.push_back({L"Full path", facts.path});
    rows_.push_back({L"Type", Wide(type_.description)});
    if (!facts.folder) rows_.push_back({L"Size", Wide(FullSize(facts.size))});
    rows_.push_back({L"Created", DateText(facts.created)});
    rows_.push_back({L"Modified", DateText(facts.modified)});
    const bool readOnly = facts.readOnly && !facts.folder;  // of a folder the bit means something else
    if (readOnly || facts.hidden) {
      rows_.push_back({L"Attributes", !readOnly      ? L"Hidden"
                                      : facts.hidden ? L"Read-only, hidden"
                                                     : L"Read-only"});
    }
  }

  bool CreateIn(HWND parent) {
    font_ = CreateMessageFont();
    nameFont_ = CreateMessageFont(170);
    if (!Create(parent, L"WorkbenchInformationView", WS_VSCROLL,
                LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)))) {
      return false;
    }
    ShowScrollBar(handle(), SB_VERT, FALSE);
    SetWindowTextW(handle(), note_.c_str());  // not shown; what assistive programs read
    name_ = CreateText(facts_.name, nameFont_.get());
    for (Row& row : rows_) row.edit = CreateText(row.value, font_.get());
    MeasureLabels();
    return true;
  }

  HWND window() const override { return handle(); }
  const std::wstring& path() const override { return facts_.path; }
  std::wstring title() const override { return facts_.name; }
  std::wstring kind() const override { return L"information"; }
  std::wstring summary() const override {
    const std::wstring type = Wide(type_.description);
    return facts_.folder ? type : type + L", " + Wide(RoundedSize(facts_.size));
  }

 private:
  static std::wstring DateText(const DateTime& time) {
    const std::string text = FormatDateTime(time);
    return text.empty() ? L"Unknown" : Wide(text);
  }

  // Texts are read-only edit controls without a border, so that they can be selected and copied.
  HWND CreateText(const std::wstring& text, HFONT font) {
    const HWND edit = CreateWindowExW(
        0, L"EDIT", text.c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_MULTILINE | ES_READONLY, 0, 0,
        ScaledPixels(100), ScaledPixels(20), handle(), nullptr, nullptr, nullptr);
    SendMessageW(edit, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    SendMessageW(edit, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, 0);
    return edit;
  }

  void MeasureLabels() {
    const HDC screen = GetDC(nullptr);
    {
      const ObjectSelection font(screen, font_.get());
      for (const Row& row : rows_) {
        SIZE extent = {};
        GetTextExtentPoint32W(screen, row.label, lstrlenW(row.label), &extent);
        labelWidth_ = std::max<int>(labelWidth_, extent.cx);
      }
      lineHeight_ = LineHeight(screen);
      const ObjectSelection nameFont(screen, nameFont_.get());
      nameHeight_ = LineHeight(screen);
    }
    ReleaseDC(nullptr, screen);
  }

  static int LineHeight(HDC dc) {
    TEXTMETRICW metrics = {};
    GetTextMetricsW(dc, &metrics);
    return metrics.tmHeight;
  }

  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    switch (message) {
      case WM_SIZE:
        if (!inScrollUpdate_) Layout();
        return 0;
      case WM_VSCROLL:
        return OnScroll(LOWORD(wParam));
      case WM_MOUSEWHEEL:
        return ScrollTo(scroll_ - GET_WHEEL_DELTA_WPARAM(wParam) * 3 * lineHeight_ / WHEEL_DELTA);
      case WM_ERASEBKGND:
        return 1;
      case WM_PAINT:
        OnPaint();
        return 0;
      case WM_CTLCOLORSTATIC:
        SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
        SetTextColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOWTEXT));
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
      default:
        return DefaultHandling(message, wParam, lParam);
    }
  }

  // Gives an edit control the width, asks how many lines its text takes, and gives it that height.
  int Place(HWND edit, int x, int y, int width, int lineHeight) const {
    SetWindowPos(edit, nullptr, x, y, width, lineHeight, SWP_NOZORDER | SWP_NOACTIVATE);
    const int lines = std::max(1, static_cast<int>(SendMessageW(edit, EM_GETLINECOUNT, 0, 0)));
    const int height = lines * lineHeight + ScaledPixels(2);
    SetWindowPos(edit, nullptr, x, y, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    return height;
  }

  void Layout() {
    // A bar that comes or goes changes the width, so that a second round may be needed; never a third.
    for (int round = 0; round < 2 && LayoutOnce(); ++round) {
    }
    InvalidateRect(handle(), nullptr, FALSE);
  }

  bool LayoutOnce() {
    const SIZE client = ClientSize();
    const int margin = ScaledPixels(kMargin);
    const int width =
        std::max(ScaledPixels(160), std::min<int>(client.cx - 2 * margin, ScaledPixels(kWidestContent)));
    int y = margin - scroll_;
    noteRect_ = {margin, y, margin + width, y};
    if (!note_.empty()) {
      noteRect_.bottom = y + NoteHeight(width);
      y = noteRect_.bottom + ScaledPixels(kGap);
    }
    iconTop_ = y;
    const int textLeft = margin + ScaledPixels(kIconSize + kGap);
    const int nameHeight =
        Place(name_, textLeft, y + ScaledPixels(6), margin + width - textLeft, nameHeight_);
    typeTop_ = y + ScaledPixels(6) + nameHeight + ScaledPixels(4);
    y = std::max(y + ScaledPixels(kIconSize), typeTop_ + lineHeight_) + ScaledPixels(kGap);
    ruleTop_ = y;
    y += ScaledPixels(kGap);
    const int valueLeft = margin + labelWidth_ + ScaledPixels(kGap);
    for (Row& row : rows_) {
      row.top = y;
      y += Place(row.edit, valueLeft, y, margin + width - valueLeft, lineHeight_) + ScaledPixels(kRowGap);
    }
    contentRight_ = margin + width;
    return UpdateScrollBar(y + scroll_ + margin - ScaledPixels(kRowGap));
  }

  int NoteHeight(int width) const {
    const int padding = ScaledPixels(kNotePadding);
    RECT text = {0, 0, width - 2 * padding, 0};
    const HDC screen = GetDC(nullptr);
    {
      const ObjectSelection font(screen, font_.get());
      DrawTextW(screen, note_.c_str(), -1, &text, DT_WORDBREAK | DT_CALCRECT | DT_NOPREFIX);
    }
    ReleaseDC(nullptr, screen);
    return text.bottom + 2 * padding;
  }

  // True when the bar came or went or the place changed, so that the layout has to be done again.
  bool UpdateScrollBar(int contentHeight) {
    const int height = ClientSize().cy;
    const int kept = std::clamp(scroll_, 0, std::max(0, contentHeight - height));
    const bool moved = kept != scroll_;
    scroll_ = kept;
    const SIZE before = ClientSize();
    SCROLLINFO info = {sizeof info,
                       SIF_RANGE | SIF_PAGE | SIF_POS,
                       0,
                       std::max(0, contentHeight - 1),
                       static_cast<UINT>(std::max(0, height)),
                       scroll_,
                       0};
    inScrollUpdate_ = true;
    SetScrollInfo(handle(), SB_VERT, &info, TRUE);
    inScrollUpdate_ = false;
    return moved || ClientSize().cx != before.cx;
  }

  LRESULT OnScroll(int request) {
    SCROLLINFO info = {sizeof info, SIF_ALL, 0, 0, 0, 0, 0};
    GetScrollInfo(handle(), SB_VERT, &info);
    const int page = static_cast<int>(info.nPage);
    switch (request) {
      case SB_LINEUP:
        return ScrollTo(scroll_ - lineHeight_);
      case SB_LINEDOWN:
        return ScrollTo(scroll_ + lineHeight_);
      case SB_PAGEUP:
        return ScrollTo(scroll_ - page);
      case SB_PAGEDOWN:
        return ScrollTo(scroll_ + page);
      case SB_THUMBTRACK:
      case SB_THUMBPOSITION:
        return ScrollTo(info.nTrackPos);
      default:
        return 0;
    }
  }

  LRESULT ScrollTo(int place) {
    scroll_ = std::max(0, place);
    Layout();
    return 0;
  }

  void OnPaint() const {
    const OffscreenPaint paint(handle());
    const HDC dc = paint.dc();
    FillRect(dc, &paint.client(), GetSysColorBrush(COLOR_WINDOW));
    const ObjectSelection font(dc, font_.get());
    SetBkMode(dc, TRANSPARENT);
    if (!note_.empty()) PaintNote(dc);
    const int margin = ScaledPixels(kMargin);
    DrawDocumentIcon(dc, margin, iconTop_, ScaledPixels(kIconSize), type_.kind,
                     Wide(UpperExtension(Utf8(facts_.name))), GetSysColor(COLOR_WINDOW));
    SetTextColor(dc, base::ContrastColor(kLabelText, COLOR_WINDOWTEXT));
    const std::wstring type = Wide(type_.description);
    TextOutW(dc, margin + ScaledPixels(kIconSize + kGap), typeTop_, type.c_str(),
             static_cast<int>(type.size()));
    for (const Row& row : rows_) TextOutW(dc, margin, row.top, row.label, lstrlenW(row.label));
    const RECT rule = {margin, ruleTop_, contentRight_, ruleTop_ + 1};
    const UniqueBrush ruleBrush(CreateSolidBrush(base::ContrastColor(kRule, COLOR_WINDOWTEXT)));
    FillRect(dc, &rule, ruleBrush.get());
  }

  void PaintNote(HDC dc) const {
    const UniqueBrush brush(CreateSolidBrush(base::ContrastColor(kNoteBackground, COLOR_INFOBK)));
    const UniqueBrush edge(CreateSolidBrush(base::ContrastColor(kNoteEdge, COLOR_INFOTEXT)));
    FillRect(dc, &noteRect_, brush.get());
    FrameRect(dc, &noteRect_, edge.get());
    RECT text = noteRect_;
    InflateRect(&text, -ScaledPixels(kNotePadding), -ScaledPixels(kNotePadding));
    SetTextColor(dc, base::ContrastColor(kNoteText, COLOR_INFOTEXT));
    DrawTextW(dc, note_.c_str(), -1, &text, DT_WORDBREAK | DT_NOPREFIX);
  }

  FileFacts facts_;
  std::wstring note_;
  FileType type_;
  std::vector<Row> rows_;
  HWND name_ = nullptr;
  UniqueFont font_;
  UniqueFont nameFont_;
  int labelWidth_ = 0;
  int lineHeight_ = 16;
  int nameHeight_ = 28;
  int scroll_ = 0;
  RECT noteRect_ = {};
  int iconTop_ = 0;
  int typeTop_ = 0;
  int ruleTop_ = 0;
  int contentRight_ = 0;
  bool inScrollUpdate_ = false;
};

}  // namespace

std::unique_ptr<DocumentView> CreateInformationView(HWND parent, const FileFacts& facts,
                                                    const std::wstring& note) {
  auto view = std::make_unique<InformationView>(facts, note);
  if (!view->CreateIn(parent)) return nullptr;
  return view;
}

}  // namespace workbench
