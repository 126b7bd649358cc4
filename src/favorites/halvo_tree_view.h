// A tree control that holds favourites: shows, sorts, checks, drags and renames them, and reports activation,
// additions, renames and deletions.
//
// Lives on the thread of its parent window. The owner of the tree (panel or dialog) offers it every message.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <memory>
#include <string>

#include "src/favorites/favorite_list.h"
#include "src/favorites/favorites_platform.h"
#include "src/favorites/tree_control.h"

namespace file_explorer {

class TreeDragImage;

enum class FavoriteChange { kAdded = 0, kRenamed = 1, kDeleted = 2 };

class CHalvoTreeView {
 public:
  // record: the activated item's; may be null.
  using ActivationCallback = std::function<void(const FavoriteRecord* record)>;
  // parent: the folder that the record is in (null: top level). Moves are not reported.
  using ChangeCallback =
      std::function<void(const FavoriteRecord& record, const FavoriteRecord* parent, FavoriteChange change)>;

  // parent: the window that gets the tree and routes its messages. placeholder: a control whose place the
  // tree takes, or null for the parent's whole client area. style: window style, TVS_CHECKBOXES included when
  // check boxes are wanted. Makes no window yet.
  CHalvoTreeView(HINSTANCE instance, HWND parent, HWND placeholder, int controlId, DWORD style);
  CHalvoTreeView(const CHalvoTreeView&) = delete;
  CHalvoTreeView& operator=(const CHalvoTreeView&) = delete;

  // The operations that a tree of another kind can replace, in their fixed order. Points are in the tree's
  // client area.
  virtual void BeginDrag(HTREEITEM item, POINT point);
  virtual void DragMove(POINT point);
  virtual void Drop();
  virtual void MouseMove(POINT point);
  virtual void ButtonUp(POINT point);
  virtual bool LeftButtonDown(POINT point);  // true when the control is to leave the click alone
  virtual void OtherButtonUp(POINT point);
  virtual void EndDrag();
  virtual void Click(POINT point);
  virtual void DoubleClick();
  virtual ~CHalvoTreeView();

  // False when the tree control can't be created.
  bool CreateTreeWindow();
  HWND window() const { return tree_.window(); }
  void SetImages(FavoriteImages images);

  // Replaces everything by the file's favourites; true when there is at least one.
  bool LoadFavorites(const std::string& path);
  // Writes from the first visible entry on. Deliberate: of a tree that is scrolled to a nested entry, only
  // that entry's level is written.
  void SaveFavorites(const std::string& path);

  // The router does nothing until this is called with false.
  void SetRouterOff(bool off) { isRouterOff_ = off; }
  // The owner's window or dialog procedure offers every message: true when it is dealt with and *result is
  // the answer (a dialog's message result is set already).
  bool RouteMessage(HWND owner, UINT message, WPARAM wParam, LPARAM lParam, bool isDialog, LRESULT* result);

  void SetActivationCallback(ActivationCallback callback) { onActivation_ = std::move(callback); }
  void SetChangeCallback(ChangeCallback callback) { onChange_ = std::move(callback); }
  void SetSyncFolderChecks(bool sync) { syncFolderChecks_ = sync; }

  const FavoriteList& list() const { return list_; }
  // The selected item's record, or null.
  FavoriteRecord* current() const { return tree_.RecordOf(tree_.Selected()); }
  void Select(const FavoriteRecord* record);
  void SelectFirstVisible() { tree_.Select(tree_.FirstVisible()); }

  // Adds a record below parent (null: top level) and reports it. A record without a key gets a fresh one.
  // Null when the tree control refuses the item.
  FavoriteRecord* AddFavorite(std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent);
  FavoriteRecord* FindByKey(std::string_view key) const { return list_.FindByKey(key); }
  // Starts editing the record's label in place.
  void EditLabel(const FavoriteRecord& record);
  void SetDisplayName(FavoriteRecord& record, const std::string& name);
  // What a drag does, by keys: marks an entry that may be dragged (null: no longer any), then moves it as a
  // drop on `target` (may be null) would, if that is allowed.
  void MarkForMove(FavoriteRecord* record);
  void MoveMarked(FavoriteRecord* target);
  // Deletes the record with everything below it and reports it.
  void DeleteEntry(FavoriteRecord& record);

 private:
  using NotifyHandler = bool (CHalvoTreeView::*)(NMHDR* notification, LRESULT* result);
  struct NotifyRow {
    UINT code;
    NotifyHandler handler;
  };
  using MouseHandler = void (CHalvoTreeView::*)(POINT point);
  struct MouseRow {
    UINT message;
    bool isInScreen;  // the point is in screen coordinates
    MouseHandler handler;
  };
  static const NotifyRow kNotifyRows[];
  static const MouseRow kMouseRows[];

  static LRESULT CALLBACK TreeProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnTreeMessage(UINT message, WPARAM wParam, LPARAM lParam);
  RECT InitialPlace() const;
  void Subclass();
  void DestroyTree();

  bool RouteNotification(NMHDR* notification, LRESULT* result);
  bool RouteMouse(HWND owner, UINT message, LPARAM lParam);
  bool OnBeginLabelEdit(NMHDR* notification, LRESULT* result);
  bool OnEndLabelEdit(NMHDR* notification, LRESULT* result);
  bool OnBeginDrag(NMHDR* notification, LRESULT* result);
  bool OnClick(NMHDR* notification, LRESULT* result);
  bool OnDoubleClick(NMHDR* notification, LRESULT* result);
  bool OnReturn(NMHDR* notification, LRESULT* result);
  void OnParentLeftButtonDown(POINT point) { LeftButtonDown(point); }
  void OnParentDoubleClick(POINT point);
  void CancelDrag();
  void StopDragging();
  void SetDropTarget(HTREEITEM item);
  void ScrollWhileDragging(POINT point) const;
  void ForgetMouse();

  FavoriteRecord* Insert(std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent);
  HTREEITEM InsertItem(FavoriteRecord& record, bool isExpanded = true);
  void InsertLoaded();
  void InsertBelow(FavoriteRecord& folder);
  void MoveEntry(FavoriteRecord& record, FavoriteRecord& folder);
  void ToggleCheck(FavoriteRecord& record);
  void Report(const FavoriteRecord& record, const FavoriteRecord* parent, FavoriteChange change) const;

  const HINSTANCE instance_;
  const HWND parent_;
  const HWND placeholder_;
  const int controlId_;
  const DWORD style_;
  TreeControl tree_;
  WNDPROC previousProcedure_ = nullptr;
  FavoriteImages images_;
  FavoriteList list_;

  bool isRouterOff_ = true;
  bool syncFolderChecks_ = true;
  ActivationCallback onActivation_;
  ChangeCallback onChange_;

  std::unique_ptr<TreeDragImage> dragImage_;
  bool isDragging_ = false;
  HTREEITEM draggedItem_ = nullptr;
  HTREEITEM dropTarget_ = nullptr;

  FavoriteRecord* marked_ = nullptr;  // to be moved by keys; of the list

  HWND endedEdit_ = nullptr;  // label editor whose end was dealt with

  HTREEITEM lastClicked_ = nullptr;
  POINT lastButtonDown_ = {-1, -1};       // where the tree saw the left button go down
  HTREEITEM activatedByClick_ = nullptr;  // item that a second click activated...
  LONG activatedAt_ = 0;  // ...and when (message time): a double click behind it does nothing more
};

}  // namespace file_explorer
