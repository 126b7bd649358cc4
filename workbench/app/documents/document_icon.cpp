#include "workbench/app/documents/document_icon.h"

#include <algorithm>
#include <cstring>

#include "workbench/app/documents/picture_pixels.h"
#include "workbench/app/documents/view_window.h"

namespace workbench {
namespace {

constexpr int kOversampling = 4;  // halved twice
constexpr COLORREF kSheet = RGB(250, 251, 252);
constexpr COLORREF kSheetEdge = RGB(150, 158, 168);
constexpr COLORREF kFold = RGB(222, 227, 232);
constexpr COLORREF kFolderBack = RGB(214, 160, 50);
constexpr COLORREF kFolderFront = RGB(245, 197, 86);

COLORREF KindColor(FileKind kind) {
  switch (kind) {
    case FileKind::kModel:
      return RGB(38, 116, 196);
    case FileKind::kPicture:
      return RGB(24, 134, 92);
    case FileKind::kDrawing:
      return RGB(12, 128, 138);
    case FileKind::kText:
      return RGB(84, 98, 116);
    case FileKind::kArchive:
      return RGB(150, 104, 24);
    case FileKind::kVideo:
      return RGB(158, 48, 94);
    case FileKind::kAudio:
      return RGB(118, 70, 160);
    case FileKind::kTable:
      return RGB(46, 120, 50);
    case FileKind::kSlides:
      return RGB(192, 82, 32);
    default:
      return RGB(104, 112, 122);
  }
}

void FillPolygon(HDC dc, const POINT* points, int count, COLORREF fill, COLORREF edge, int edgeWidth) {
  const UniqueBrush brush(CreateSolidBrush(fill));
  const UniquePen pen(CreatePen(edgeWidth > 0 ? PS_SOLID : PS_NULL, edgeWidth, edge));
  const ObjectSelection brushScope(dc, brush.get());
  const ObjectSelection penScope(dc, pen.get());
  Polygon(dc, points, count);
}

void DrawFolder(HDC dc, int side) {
  const auto at = [side](int percent) { return static_cast<LONG>(side * percent / 100); };
  const POINT back[] = {{at(6), at(20)},  {at(40), at(20)}, {at(48), at(30)},
                        {at(94), at(30)}, {at(94), at(82)}, {at(6), at(82)}};
  FillPolygon(dc, back, 6, kFolderBack, 0, 0);
  const POINT front[] = {{at(6), at(40)}, {at(94), at(40)}, {at(94), at(84)}, {at(6), at(84)}};
  FillPolygon(dc, front, 4, kFolderFront, 0, 0);
}

void DrawSheet(HDC dc, int side, FileKind kind, const std::wstring& extension) {
  const auto at = [side](int percent) { return static_cast<LONG>(side * percent / 100); };
  const int edge = std::max(1, side / 48);
  const POINT sheet[] = {
      {at(16), at(4)}, {at(62), at(4)}, {at(84), at(26)}, {at(84), at(96)}, {at(16), at(96)}};
  FillPolygon(dc, sheet, 5, kSheet, kSheetEdge, edge);
  const POINT fold[] = {{at(62), at(4)}, {at(84), at(26)}, {at(62), at(26)}};
  FillPolygon(dc, fold, 3, kFold, kSheetEdge, edge);
  RECT band = {at(6), at(54), at(94), at(82)};
  const UniqueBrush brush(CreateSolidBrush(KindColor(kind)));
  FillRect(dc, &band, brush.get());
  if (extension.empty()) return;
  LOGFONTW shape = {};
  const int letters = std::max(3, static_cast<int>(extension.size()));
  shape.lfHeight = -std::min<int>(at(22), at(118) / letters);
  shape.lfWeight = FW_BOLD;
  shape.lfCharSet = DEFAULT_CHARSET;
  shape.lfQuality = ANTIALIASED_QUALITY;
  lstrcpynW(shape.lfFaceName, L"Tahoma", LF_FACESIZE);
  const UniqueFont font(CreateFontIndirectW(&shape));
  const ObjectSelection fontScope(dc, font.get());
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, RGB(255, 255, 255));
  DrawTextW(dc, extension.c_str(), -1, &band, DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
}

BITMAPINFO TopDownInfo(int side) {
  BITMAPINFO info = {};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = side;
  info.bmiHeader.biHeight = -side;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  return info;
}

}  // namespace

void DrawSmooth(HDC dc, int x, int y, int size, COLORREF background,
                const std::function<void(HDC, int)>& draw) {
  const int side = size * kOversampling;
  if (side <= 0) return;
  const BITMAPINFO large = TopDownInfo(side);
  void* bits = nullptr;
  const HDC memory = CreateCompatibleDC(dc);
  const UniqueBitmap bitmap(CreateDIBSection(memory, &large, DIB_RGB_COLORS, &bits, nullptr, 0));
  PixelGrid grid = {side, side, {}};
  if (bitmap && bits != nullptr) {
    const ObjectSelection selected(memory, bitmap.get());
    const RECT square = {0, 0, side, side};
    const UniqueBrush brush(CreateSolidBrush(background));
    FillRect(memory, &square, brush.get());
    draw(memory, side);
    GdiFlush();
    grid.pixels.resize(static_cast<std::size_t>(side) * static_cast<std::size_t>(side));
    std::memcpy(grid.pixels.data(), bits, grid.pixels.size() * sizeof(std::uint32_t));
  }
  DeleteDC(memory);
  if (grid.pixels.empty()) return;
  const PixelGrid smooth = Halve(Halve(grid));
  const BITMAPINFO small = TopDownInfo(smooth.width);
  SetDIBitsToDevice(dc, x, y, static_cast<DWORD>(size), static_cast<DWORD>(size), 0, 0, 0,
                    static_cast<UINT>(smooth.height), smooth.pixels.data(), &small, DIB_RGB_COLORS);
}

void DrawDocumentIcon(HDC dc, int x, int y, int size, FileKind kind, const std::wstring& extension,
                      COLORREF background) {
  DrawSmooth(dc, x, y, size, background, [&](HDC memory, int side) {
    if (kind == FileKind::kFolder) {
      DrawFolder(memory, side);
    } else {
      DrawSheet(memory, side, kind, extension);
    }
  });
}

}  // namespace workbench
