// The page of the document area while no document is open.
#include <algorithm>
#include <utility>

#include "base/window/high_contrast.h"
#include "workbench/app/documents/document_icon.h"
#include "workbench/app/documents/document_view.h"
#include "workbench/app/documents/view_window.h"

namespace workbench {
namespace {

// Lengths at 96 DPI.
constexpr int kMargin = 24;
constexpr int kWidestText = 520;
constexpr int kIconSize = 40;
constexpr int kGap = 14;
constexpr COLORREF kTitleColor = RGB(38, 62, 92);
constexpr COLORREF kTextColor = RGB(60, 66, 74);
constexpr COLORREF kHintColor = RGB(96, 104, 114);

struct Tip {
  FileKind kind;
  const wchar_t* extension;
  const wchar_t* heading;
  const wchar_t* text;
};

constexpr wchar_t kTitle[] = L"No document is open";
constexpr wchar_t kIntroduction[] = L"Double-click a file in the File Explorer to open it here.";
constexpr Tip kTips[] = {
    {FileKind::kFolder, L"", L"Find your files",
     L"Walk through folders in the tree or the file list, or type a path into the box above the list and "
     L"press Enter."},
    {FileKind::kPicture, L"PNG", L"Look at pictures",
     L"Turn the mouse wheel to zoom, drag to move the picture, and double-click to change between the whole "
     L"picture "
     L"and its own size."},
    {FileKind::kText, L"TXT", L"Read texts",
     L"Select with the mouse and press Ctrl+C to copy. Other files show their size, dates and type."},
};

class WelcomeView final : public DocumentView, private ViewWindow {
 public:
  bool CreateIn(HWND parent) {
    font_ = CreateMessageFont();
    headingFont_ = CreateMessageFont(100, true);
    introductionFont_ = CreateMessageFont(120);
    titleFont_ = CreateMessageFont(200);
    return Create(parent, L"WorkbenchWelcomeView", 0, LoadCursorW(nullptr, MAKEINTRESOURCEW(32512)));
  }

  HWND window() const override { return handle(); }
  const std::wstring& path() const override { return path_; }
  std::wstring title() const override { return L"Welcome"; }
  std::wstring kind() const override { return L"welcome"; }
  std::wstring summary() const override { return L"Ready"; }

 private:
  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override {
    switch (message) {
      case WM_SIZE:
        InvalidateRect(handle(), nullptr, FALSE);
        return 0;
      case WM_ERASEBKGND:
        return 1;
      case WM_PAINT:
        OnPaint();
        return 0;
      default:
        return DefaultHandling(message, wParam, lParam);
    }
  }

  // Draws (or only measures) a text at the top of the rectangle, broken into lines; gives its height.
  static int Text(HDC dc, HFONT font, COLORREF color, const wchar_t* text, const RECT& place, bool draw) {
    const ObjectSelection scope(dc, font);
    RECT measured = place;
    DrawTextW(dc, text, -1, &measured, DT_WORDBREAK | DT_NOPREFIX | DT_CALCRECT);
    if (draw) {
      RECT target = place;
      target.bottom = measured.bottom;
      SetTextColor(dc, base::ContrastColor(color, COLOR_WINDOWTEXT));
      DrawTextW(dc, text, -1, &target, DT_WORDBREAK | DT_NOPREFIX);
    }
    return measured.bottom - measured.top;
  }

  // Gives the height of all.
  int Content(HDC dc, RECT place, bool draw) const {
    const int start = place.top;
    place.top += Text(dc, titleFont_.get(), kTitleColor, kTitle, place, draw) + ScaledPixels(kGap) / 2;
    place.top +=
        Text(dc, introductionFont_.get(), kTextColor, kIntroduction, place, draw) + 2 * ScaledPixels(kGap);
    for (const Tip& tip : kTips) place.top += OneTip(dc, tip, place, draw) + ScaledPixels(kGap);
    return place.top - start - ScaledPixels(kGap);
  }

  int OneTip(HDC dc, const Tip& tip, RECT place, bool draw) const {
    const int icon = ScaledPixels(kIconSize);
    if (draw) {
      DrawDocumentIcon(dc, place.left, place.top, icon, tip.kind, tip.extension, GetSysColor(COLOR_WINDOW));
    }
    const int top = place.top;
    place.left += icon + ScaledPixels(kGap);
    place.top += Text(dc, headingFont_.get(), kTextColor, tip.heading, place, draw) + ScaledPixels(2);
    place.top += Text(dc, font_.get(), kHintColor, tip.text, place, draw);
    return std::max<int>(icon, place.top - top);
  }

  void OnPaint() const {
    const OffscreenPaint paint(handle());
    const HDC dc = paint.dc();
    const RECT& client = paint.client();
    FillRect(dc, &client, GetSysColorBrush(COLOR_WINDOW));
    SetBkMode(dc, TRANSPARENT);
    const int margin = ScaledPixels(kMargin);
    const int width =
        std::max<int>(ScaledPixels(160), std::min<int>(client.right - 2 * margin, ScaledPixels(kWidestText)));
    RECT place = {std::max<LONG>(margin, (client.right - width) / 2), 0, 0, client.bottom};
    place.right = place.left + width;
    const int height = Content(dc, place, false);
    // A little above the middle looks like the middle.
    place.top = std::max<LONG>(margin, (client.bottom - height) * 2 / 5);
    Content(dc, place, true);
  }

  std::wstring path_;
  UniqueFont font_;
  UniqueFont headingFont_;
  UniqueFont introductionFont_;
  UniqueFont titleFont_;
};

}  // namespace

std::unique_ptr<DocumentView> CreateWelcomeView(HWND parent) {
  auto view = std::make_unique<WelcomeView>();
  if (!view->CreateIn(parent)) return nullptr;
  return view;
}

}  // namespace workbench
