// The window of the file view: the list and the status line under it.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

#include "workbench/controls/fileview/thumbnail_view.h"
#include "workbench/controls/model/row_order.h"
#include "workbench/controls/shell/window_base.h"

namespace controls {

// The container's values of the view property.
enum class ViewStyle : long { kLargeIcon = 0, kReport = 1, kSmallIcon = 2, kList = 3, kThumbnails = 4 };

// What the pane asks its owner. Rows count from 0; points are in the pane's client coordinates.
class ListPaneOwner {
 public:
  virtual std::wstring CellText(int row, int column) = 0;
  virtual int CellImage(int row) = 0;
  virtual bool RowDimmed(int row) = 0;
  // The file of a row, for its thumbnail; none for what is no file.
  virtual std::optional<ThumbnailSubject> Thumbnail(int row) = 0;
  virtual int FindRow(int start, const std::wstring& prefix, bool partial, bool wrap) = 0;
  virtual void OnRowClicked(int row, POINT point) = 0;
  virtual void OnRowActivated(int row, POINT point) = 0;
  // Once for any number of changes that come together.
  virtual void OnSelectionChanged() = 0;
  virtual void OnColumnClicked(int column) = 0;
  // True when the key was used.
  virtual bool OnKey(UINT key, bool control, bool shift) = 0;
  // point in screen coordinates; row -1 for the empty area.
  virtual void OnContextMenu(int row, POINT point) = 0;
  virtual bool MayRename(int row) = 0;
  virtual void OnRenamed(int row, const std::wstring& name) = 0;
  virtual void OnDrag(bool rightButton) = 0;
  virtual std::wstring StatusText(bool& isError) = 0;
  // What stands in the list area while it has no rows; empty for nothing.
  virtual std::wstring EmptyText() = 0;
  virtual void OnFocus() = 0;
  virtual void OnPaneMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  virtual void OnPaneDestroyed() = 0;

 protected:
  ~ListPaneOwner() = default;
};

class ListPane : public WindowBase {
 public:
  static constexpr UINT kFocusMessage = WM_APP + 21;

  explicit ListPane(ListPaneOwner& owner) : owner_(owner), listPart_(*this) {}
  ~ListPane() override;

  bool CreatePane(HWND parent, const RECT& rect);
  HWND list() const { return list_; }

  void SetFont(HFONT font);
  void SetView(ViewStyle view);
  ViewStyle view() const { return view_; }
  // The largest side of a thumbnail, in pixels at 96 dots an inch.
  void SetThumbnailSize(int pixels);
  ThumbnailView& thumbnails() { return thumbnails_; }
  // Every option of the list; applied at once.
  struct Options {
    bool gridLines = true;
    bool columnHeaders = true;
    bool singleSelection = false;
    bool inPlaceRename = true;
    bool fullRowSelect = true;
    bool headerSort = true;
    bool infoTips = true;
  };
  void SetOptions(const Options& options);
  void ShowSort(SortRule rule);

  // While it lives, selection messages caused by the program are not reported, and the list is not redrawn.
  class Quiet {
   public:
    explicit Quiet(ListPane& pane);
    ~Quiet();
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

   private:
    ListPane& pane_;
  };

  void SetRowCount(int count);
  void Redraw();
  void RedrawStatus();
  int SelectedCount() const;
  int NextSelected(int row) const;
  std::vector<int> SelectedRows() const;
  void Select(int row, bool selected);
  void SelectAll(bool selected);
  int FocusedRow() const;
  void Focus(int row);
  int TopRow() const;
  void ScrollTo(int topRow);
  void EnsureVisible(int row);
  bool IsSelected(int row) const;
  bool EditLabel(int row);
  bool editing() const { return SendMessageW(list_, LVM_GETEDITCONTROL, 0, 0) != 0; }
  // Of the name that is being edited.
  void SetEditText(const std::wstring& text);
  POINT RowPoint(int row) const;
  // The row at a point of the screen; -1 for none.
  int RowAt(POINT screen) const;
  // The row that is marked as the target of a drop; -1 for none.
  void SetDropRow(int row);

 protected:
  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  class ListPart : public Subclass {
   public:
    explicit ListPart(ListPane& pane) : pane_(pane) {}
    LRESULT HandleSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;
    using Subclass::Original;

   private:
    ListPane& pane_;
  };
  friend class ListPart;

  struct Notification;
  bool CreateList();
  void InsertColumns();
  void Layout();
  void Paint();
  void PaintStatus(HDC context);
  void PaintEmptyText();
  void EraseBelowColumns(HDC context) const;
  void ApplyListStyle();
  void ApplyImages();
  void ApplyView();
  DWORD OwnStyleBits() const;
  int StatusHeight() const;
  int Scale(int pixels) const;
  void ResetThumbnails();
  int ThumbnailImage(int row, int systemImage);
  LRESULT SetItemState(WPARAM row, LVITEMW item);
  void ApplyFocus();

  LRESULT OnNotify(NMHDR* header);
  LRESULT OnGetDispInfo(NMHDR* header);
  LRESULT OnItemChanged(NMHDR* header);
  LRESULT OnFindItem(NMHDR* header);
  LRESULT OnClick(NMHDR* header);
  LRESULT OnDoubleClick(NMHDR* header);
  LRESULT OnColumnClick(NMHDR* header);
  LRESULT OnKeyDown(NMHDR* header);
  LRESULT OnBeginLabelEdit(NMHDR* header);
  LRESULT OnEndLabelEdit(NMHDR* header);
  LRESULT OnCustomDraw(NMHDR* header);
  static void DrawUnfocusedSelection(NMLVCUSTOMDRAW* draw);
  LRESULT OnBeginDrag(NMHDR* header);
  LRESULT OnBeginRightDrag(NMHDR* header);
  LRESULT OnSetFocus(NMHDR* header);
  LRESULT OnHover(NMHDR* header);
  void OnContext(LPARAM lParam);

  ListPaneOwner& owner_;
  ListPart listPart_;
  HWND list_ = nullptr;
  HFONT font_ = nullptr;
  std::wstring statusText_;  // as painted last
  ViewStyle view_ = ViewStyle::kReport;
  Options options_;
  int quiet_ = 0;
  int dropRow_ = -1;
  int pendingFocus_ = -1;  // the row that gets the focus when the messages that wait have been handled
  bool selectionPosted_ = false;
  bool applyingStyle_ = false;
  std::optional<SortRule> sort_;
  ThumbnailView thumbnails_;
  int thumbnailSize_ = 128;  // pixels at 96 dots an inch
};

}  // namespace controls
