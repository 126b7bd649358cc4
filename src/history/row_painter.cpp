#include "src/history/row_painter.h"

#include <commctrl.h>

#include <algorithm>
#include <string_view>

#include "base/text/code_page.h"
#include "base/text/display_name.h"
#include "src/history/history_platform.h"
#include "src/history/path_compaction.h"
#include "src/history/row_layout.h"

namespace file_explorer {
namespace {

// Selects an object for as long as it lives.
class Selection {
 public:
  Selection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
  ~Selection() { SelectObject(dc_, previous_); }
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;

 private:
  HDC dc_;
  HGDIOBJ previous_;
};

int TextWidth(HDC dc, std::wstring_view text) {
  SIZE size = {};
  GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
  return size.cx;
}

int TextHeight(HDC dc) {
  TEXTMETRICW metrics = {};
  GetTextMetricsW(dc, &metrics);
  return metrics.tmHeight;
}

DWORD ToRgb(COLORREF color) {
  return RGB(GetBValue(color), GetGValue(color), GetRValue(color));  // the other order of bytes
}

bool DrawThumbnail(HDC dc, int left, int top, const preview::Picture& picture, COLORREF background) {
  const int width = std::min(picture.width, kThumbnailSize);
  const int height = std::min(picture.height, kThumbnailSize);
  const preview::Picture flat = preview::Flatten(picture, ToRgb(background));
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), flat.width, -flat.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  return SetDIBitsToDevice(dc, left, top, static_cast<DWORD>(width), static_cast<DWORD>(height), 0, 0, 0,
                           static_cast<UINT>(flat.height), flat.pixels.data(), &info, DIB_RGB_COLORS) != 0;
}

bool DrawIcon(HDC dc, int left, int top, const RowPictures::Icon& icon) {
  if (icon.list == nullptr) return false;
  const int width = std::min<int>(icon.size.cx, kThumbnailSize);
  const int height = std::min<int>(icon.size.cy, kThumbnailSize);
  return ImageList_DrawEx(icon.list, icon.index, dc, left, top, width, height, CLR_NONE, CLR_NONE,
                          ILD_TRANSPARENT) != FALSE;
}

void DrawEmptyBox(HDC dc, int left, int top) {
  const Selection pen(dc, GetStockObject(BLACK_PEN));
  const Selection brush(dc, GetStockObject(LTGRAY_BRUSH));
  Rectangle(dc, left + 3, top + 1, left + 66, top + 64);
}

// The best picture that there is, left of a tall row's text. False when a better one is left for later.
bool DrawTallPicture(const DRAWITEMSTRUCT& item, const HistoryEntry* entry, const std::string& path,
                     COLORREF background, RowPictures& pictures) {
  const int left = item.rcItem.left;
  const int top = item.rcItem.top;
  RowThumbnails::Answer thumbnail;
  if (entry != nullptr) thumbnail = pictures.thumbnails().Of(*entry);
  if (thumbnail.preview != nullptr &&
      DrawThumbnail(item.hDC, left + 3, top + 1, thumbnail.preview->picture, background)) {
    return true;
  }
  const RowPictures::Icon icon = pictures.LargeIcon(path);
  if (!DrawIcon(item.hDC, left + 2 + CentreInThumbnail(icon.size.cx),
                top + 1 + CentreInThumbnail(icon.size.cy), icon)) {
    DrawEmptyBox(item.hDC, left, top);
  }
  return !thumbnail.isLater;
}

std::string LastAccessLine(const HistoryEntry* entry) {
  HistoryTime local;
  return entry != nullptr && ToLocalTime(entry->lastAccess, &local) ? LastAccessText(local) : std::string();
}

void DrawTallTexts(const DRAWITEMSTRUCT& item, int left, const HistoryEntry* entry,
                   const std::wstring& path) {
  const int rowHeight = item.rcItem.bottom - item.rcItem.top;
  const TallRowLines lines = LinesOfTallRow(item.rcItem.top, rowHeight, TextHeight(item.hDC));
  const UINT previousAlignment = SetTextAlign(item.hDC, TA_LEFT | TA_BOTTOM);
  const auto drawLine = [&](int bottom, const std::wstring& text) {
    ExtTextOutW(item.hDC, left, bottom, ETO_CLIPPED, &item.rcItem, text.c_str(),
                static_cast<UINT>(text.size()), nullptr);
  };
  drawLine(lines.path, path);
  drawLine(lines.time, base::WideFromNarrow(LastAccessLine(entry)));
  drawLine(lines.third, std::wstring());  // room that is kept free
  SetTextAlign(item.hDC, previousAlignment);
}

void DrawCompactText(const DRAWITEMSTRUCT& item, int left, const std::wstring& path) {
  RECT room = item.rcItem;
  room.left = left;
  DrawTextW(item.hDC, path.c_str(), static_cast<int>(path.size()), &room,
            DT_SINGLELINE | DT_VCENTER | DT_LEFT | DT_NOPREFIX);
}

// An entry without a path is called by its name.
std::string PathOf(const HistoryEntry* entry) {
  if (entry == nullptr) return std::string();
  return entry->fullPath.empty() ? entry->displayName : entry->fullPath;
}

}  // namespace

bool PaintHistoryRow(const DRAWITEMSTRUCT& item, const HistoryEntry* entry, bool showIcons, HFONT font,
                     RowPictures& pictures) {
  const HDC dc = item.hDC;
  const bool isSelected = (item.itemState & ODS_SELECTED) != 0;
  const COLORREF textColor = GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
  const int background = isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW;
  FillRect(dc, &item.rcItem, GetSysColorBrush(background));

  const std::string path = PathOf(entry);
  const Selection selectedFont(dc, font);
  int textLeft = item.rcItem.left + TextIndent(LOWORD(GetDialogBaseUnits()));
  bool isComplete = true;
  if (showIcons) {
    isComplete = DrawTallPicture(item, entry, path, GetSysColor(background), pictures);
    textLeft += kTallTextStart;
  } else {
    const RowPictures::Icon icon = pictures.SmallIcon(path);
    DrawIcon(dc, item.rcItem.left + 2, item.rcItem.top + 1, icon);
    textLeft += icon.size.cx + 2;
  }

  // Converted here: the 8-bit calls of GDI take bytes in a code page of their own.
  const std::wstring shown =
      CompactPath(base::HarmlessText(base::WideFromNarrow(path)), item.rcItem.right - textLeft,
                  [dc](std::wstring_view text) { return TextWidth(dc, text); });
  const COLORREF previousColor = SetTextColor(dc, textColor);
  const int previousMode = SetBkMode(dc, TRANSPARENT);
  if (showIcons) {
    DrawTallTexts(item, textLeft, entry, shown);
  } else {
    DrawCompactText(item, textLeft, shown);
  }
  SetBkMode(dc, previousMode);
  SetTextColor(dc, previousColor);
  if ((item.itemState & ODS_FOCUS) != 0) DrawFocusRect(dc, &item.rcItem);
  return isComplete;
}

}  // namespace file_explorer
