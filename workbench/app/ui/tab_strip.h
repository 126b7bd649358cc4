// A strip of tabs: knows its tabs and its place, draws itself and finds the tab under a point. Not a window
// of its own; the window that it lies in passes the mouse on.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/app/layout/dock_model.h"
#include "workbench/app/layout/tab_layout.h"
#include "workbench/app/ui/theme.h"

namespace workbench {

// A tab's picture: the host's own copy, drawn with one colour left out.
class TabImage {
 public:
  // Copies the bitmap; gives null when it is not one.
  static std::shared_ptr<const TabImage> Copy(HBITMAP bitmap, COLORREF transparent);
  // Draws the picture into a square of the given size.
  void Draw(HDC dc, int left, int top, int size) const;

 private:
  UniqueBitmap bitmap_;
  SIZE size_ = {};
  COLORREF transparent_ = 0;
};

struct Tab {
  int id = 0;
  std::wstring title;
  std::shared_ptr<const TabImage> image;
  bool operator==(const Tab&) const = default;
};

enum class TabLook {
  Top,       // documents: hang on the line below them
  Bottom,    // panes that share a place: hang on the line above them
  LeftEdge,  // collapsed panes, text runs upwards
  RightEdge,
  TopEdge,
  BottomEdge,
};

class TabStrip {
 public:
  explicit TabStrip(TabLook look) : look_(look) {}

  void SetTabs(std::vector<Tab> tabs) { tabs_ = std::move(tabs); }
  const std::vector<Tab>& tabs() const { return tabs_; }
  void SetActive(int id) { active_ = id; }
  int active() const { return active_; }
  void SetRect(const Rect& rect, const Theme& theme);
  const Rect& rect() const { return rect_; }
  // closeButtons: every tab has one.
  void SetCloseButtons(bool on) { closeButtons_ = on; }
  // What the mouse is over; true when the strip must be painted again.
  bool SetHover(std::optional<Point> at, const Theme& theme);

  // Id of the tab at a point; 0 for none.
  int TabIdAt(Point at) const;
  // True when the point lies on the close button of its tab.
  bool IsOnClose(Point at, const Theme& theme) const;
  Rect TabRect(int id) const;
  void Draw(HDC dc, const Theme& theme) const;

 private:
  bool vertical() const { return look_ == TabLook::LeftEdge || look_ == TabLook::RightEdge; }
  bool atEdge() const { return look_ >= TabLook::LeftEdge; }
  int IndexAt(Point at) const;
  Rect RectOf(int index) const;
  Rect CloseRect(const Rect& tab, const Theme& theme) const;
  int WantedLength(const Tab& tab, const Theme& theme) const;
  void DrawTab(HDC dc, const Theme& theme, int index) const;
  void DrawMark(HDC dc, const Theme& theme, const Rect& rect) const;
  void DrawUpright(HDC dc, const Theme& theme, const Tab& tab, const Rect& rect, COLORREF color) const;
  void DrawUpward(HDC dc, const Theme& theme, const Tab& tab, const Rect& rect, COLORREF color) const;

  TabLook look_;
  std::vector<Tab> tabs_;
  int active_ = 0;
  bool closeButtons_ = false;
  Rect rect_;
  TabLayout layout_;
  int hover_ = -1;
  bool hoverOnClose_ = false;
};

}  // namespace workbench
