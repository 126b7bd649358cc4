// The tree control's messages as typed calls. Owns nothing; a null window answers like an empty tree.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "src/favorites/favorite_record.h"

namespace file_explorer {

class TreeControl {
 public:
  explicit TreeControl(HWND window = nullptr) : window_(window) {}
  HWND window() const { return window_; }

  // The record's item below parent (null: top level), after `after` (null: first; TVI_LAST: last), expanded
  // or not. Null when refused.
  HTREEITEM Insert(FavoriteRecord& record, HTREEITEM parent, HTREEITEM after, bool isExpanded = true) const;
  void Delete(HTREEITEM item) const;
  void DeleteAll() const { Delete(TVI_ROOT); }
  void SetText(HTREEITEM item, const std::string& text) const;
  void SetCheckMark(HTREEITEM item, bool isChecked) const;
  void SetFaded(HTREEITEM item, bool isFaded) const;  // as entries that are about to be moved
  bool IsExpanded(HTREEITEM item) const;

  // The record of an item; null for a null item.
  FavoriteRecord* RecordOf(HTREEITEM item) const;
  HTREEITEM Selected() const { return Next(TVGN_CARET); }
  HTREEITEM FirstVisible() const { return Next(TVGN_FIRSTVISIBLE); }
  void Select(HTREEITEM item) const;
  void EditLabel(HTREEITEM item) const;
  HWND LabelEdit() const;
  std::wstring LabelText() const;  // what the label's editor shows; empty without one

  // The item at a point of the client area, or null; flags (may be null) gets the TVHT_ flags.
  HTREEITEM ItemAt(POINT point, UINT* flags = nullptr) const;
  // The item's text in client coordinates; false when it is not visible.
  bool ItemRect(HTREEITEM item, RECT* rect) const;
  void Highlight(HTREEITEM dropTarget) const;
  HIMAGELIST CreateDragImage(HTREEITEM item) const;
  HIMAGELIST Images() const;  // the control's own images; not the caller's
  void SetRedraw(bool redraw) const;

 private:
  LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam) const;
  HTREEITEM Next(WPARAM relation) const;
  void SetState(HTREEITEM item, UINT mask, UINT state) const;
  void ClearHighlight(HTREEITEM item) const;

  HWND window_;
};

}  // namespace file_explorer
