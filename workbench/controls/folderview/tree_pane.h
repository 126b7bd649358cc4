// The window of the folder view: the tree and its nodes, read as they are opened.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "workbench/controls/shell/file_drop.h"
#include "workbench/controls/shell/folder_reader.h"
#include "workbench/controls/shell/folder_watcher.h"
#include "workbench/controls/shell/location.h"
#include "workbench/controls/shell/type_cache.h"
#include "workbench/controls/shell/window_base.h"

namespace controls {

class TreePaneOwner {
 public:
  // The user moved to another node: its folder, or the one that a file lies in.
  virtual void OnNodeSelected(const Location& location) = 0;
  // The user clicked on the node that is selected already.
  virtual void OnNodeClicked(const Location& location) = 0;
  // The user opened a file by a double click or Enter.
  virtual void OnFileOpened(const Location& location) = 0;
  // The folder or file of a node does not exist any more; the node has gone.
  virtual void OnNodeGone(const Location& location) = 0;
  virtual void OnTreeContextMenu(const Location& location, bool isFile, POINT screen) = 0;
  // The user drags a node that stands for something on a disk. mayMove: it lies in another such folder.
  virtual void OnTreeDrag(const Location& location, bool mayMove, bool rightButton) = 0;
  // A message that the owner posted to this window (WM_APP + 10 and above).
  virtual void OnTreeMessage(UINT message) = 0;
  virtual bool MayRenameNode(const Location& location) = 0;
  // False when the folder keeps its name.
  virtual bool OnNodeRenamed(const Location& location, const std::wstring& name) = 0;
  virtual bool OnTreeKey(UINT key) = 0;
  virtual void OnTreeFocus() = 0;
  virtual void OnTreeDestroyed() = 0;

 protected:
  ~TreePaneOwner() = default;
};

inline constexpr UINT kTreeReaderMessage = WM_APP + 1;
inline constexpr UINT kTreeWatcherMessage = WM_APP + 2;
inline constexpr UINT kTreeEditAgainMessage = WM_APP + 3;

// Keeps program-made selection changes from being taken for the user's.
class QuietScope {
 public:
  explicit QuietScope(int& counter) : counter_(counter) { ++counter_; }
  ~QuietScope() { --counter_; }
  QuietScope(const QuietScope&) = delete;
  QuietScope& operator=(const QuietScope&) = delete;

 private:
  int& counter_;
};

class TreePane : public WindowBase {
 public:
  explicit TreePane(TreePaneOwner& owner) : owner_(owner), treePart_(*this) {}
  ~TreePane() override { Destroy(); }

  struct Options {
    bool files = false;
    bool virtualFolders = true;
    bool hiddenItems = true;
    bool lines = true;
    bool buttons = true;
    bool showSelectionAlways = true;
    bool inPlaceRename = true;
  };

  bool CreatePane(HWND parent, const RECT& rect);
  HWND tree() const { return tree_; }
  void SetFont(HFONT font);
  void SetOptions(const Options& options);

  // Selects the node of a place, making the nodes on the way to it. Raises no OnNodeSelected.
  void SelectLocation(const Location& location);
  // Place of the selected node; empty when none is selected.
  Location selected() const;
  // A folder that was just made below the selected one: its node is selected and its name edited.
  void EditNewFolder(const Location& folder);
  bool EditSelected();
  // Edits a node's name once more, beginning with what was typed before; not from inside the present edit.
  void EditAgain(const Location& location, const std::wstring& typed);
  // The selected folder, or the one that the selected file lies in.
  Location selectedFolder() const;
  bool SelectedIsFile() const;
  // Reads the selected folder's children again.
  void RefreshSelected();
  // Whether nodes can be dragged.
  void SetDragging(bool on);
  // The folder of the node at a point of the screen; empty when there is none on a disk.
  std::wstring FolderAt(POINT screen) const;
  // Marks the node there as the target of a drop and opens it when the files stay over it.
  void ShowDropTarget(POINT screen, bool taken);
  void HideDropTarget();
  // The node's folder has another name now.
  void RenameNode(const Location& from, const Location& to);

 protected:
  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  class TreePart : public Subclass {
   public:
    explicit TreePart(TreePane& pane) : pane_(pane) {}
    LRESULT HandleSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) override;

   private:
    TreePane& pane_;
  };

  static constexpr UINT_PTR kHoverTimer = 1;

  struct Node {
    Location location;
    std::wstring name;
    bool isFile = false;
    bool populated = false;  // all children are there
    bool expandWhenRead = false;
    int icon = -1;
  };
  struct Child {
    std::wstring name;
    bool isFile = false;
  };
  struct Reading {
    HTREEITEM item = nullptr;
    std::vector<Child> children;
    FolderReader reader;
  };
  // Open folders and the selected one are watched.
  struct Watch {
    HTREEITEM item = nullptr;
    FolderWatcher watcher;
  };
  struct Handler {
    UINT code;
    LRESULT (TreePane::*handler)(NMHDR*);
  };

  bool CreateTree();
  void EditLabel(HTREEITEM item);
  DWORD OwnStyleBits() const;
  Node* NodeOf(HTREEITEM item) const;
  HTREEITEM Insert(HTREEITEM parent, HTREEITEM after, std::unique_ptr<Node> node, bool mayHaveChildren);
  HTREEITEM FindChild(HTREEITEM parent, const Location& location) const;
  HTREEITEM EnsureChild(HTREEITEM parent, const Location& location);
  HTREEITEM EnsureItem(const Location& location);
  // The selected node or a child of it; null for others.
  HTREEITEM FindItem(const Location& location) const;
  HTREEITEM ChildOf(HTREEITEM item) const;
  HTREEITEM NextOf(HTREEITEM item) const;
  bool ShowsItem(const ItemFacts& facts) const;
  void Populate(HTREEITEM item);
  void PopulateVirtual(HTREEITEM item);
  void StartReading(HTREEITEM item);
  void OnReaderMessage();
  bool ContinueReading(Reading& reading);
  void MergeChildren(HTREEITEM parent, std::vector<Child>& children);
  void RemoveMissing(HTREEITEM parent, const std::vector<Child>& children);
  HTREEITEM InsertChild(HTREEITEM parent, HTREEITEM after, const Child& child);
  HTREEITEM InsertSorted(HTREEITEM parent, const Child& child);
  HTREEITEM FindName(HTREEITEM parent, const std::wstring& name) const;
  void RemoveNode(HTREEITEM item);
  static int Compare(const Node& node, const Child& child);
  void ForgetReading(HTREEITEM item);
  void SetChildCount(HTREEITEM item, int count);
  HTREEITEM Caret() const;
  // Folders that appear above the selected one, and a smaller window, would push it out of sight.
  bool SelectionIsInView() const;
  void ShowSelection();
  // Whether the selected item is this folder or lies below it.
  bool HoldsSelection(HTREEITEM folder) const;
  HTREEITEM FolderItem() const;
  bool IsExpanded(HTREEITEM item) const;
  HTREEITEM ItemAt(POINT screen) const;
  void WatchItem(HTREEITEM item);
  void UnwatchItem(HTREEITEM item);
  bool IsWatched(HTREEITEM item) const;
  void OnWatcherMessage();
  void ApplyChanges(HTREEITEM item, const ChangeSet& set);
  void ApplyChange(HTREEITEM item, const ItemChange& change);
  void OnHoverTimer();
  void OnEditAgain();
  LRESULT BeginDrag(NMHDR* header, bool rightButton);

  LRESULT OnNotify(NMHDR* header);
  LRESULT OnGetDispInfo(NMHDR* header);
  LRESULT OnExpanding(NMHDR* header);
  LRESULT OnExpanded(NMHDR* header);
  LRESULT OnDoubleClick(NMHDR* header);
  LRESULT OnReturn(NMHDR* header);
  LRESULT OnBeginDrag(NMHDR* header);
  LRESULT OnBeginRightDrag(NMHDR* header);
  LRESULT OnSelChanged(NMHDR* header);
  LRESULT OnCustomDraw(NMHDR* header);
  LRESULT OnDeleteItem(NMHDR* header);
  LRESULT OnBeginLabelEdit(NMHDR* header);
  LRESULT OnEndLabelEdit(NMHDR* header);
  LRESULT OnKeyDown(NMHDR* header);
  LRESULT OnSetFocus(NMHDR* header);
  LRESULT OnClick(NMHDR* header);
  LRESULT OnRightClick(NMHDR* header);
  void OnContext(LPARAM lParam);

  TreePaneOwner& owner_;
  TreePart treePart_;
  HWND tree_ = nullptr;
  HFONT font_ = nullptr;
  Options options_;
  TypeCache types_;
  int quiet_ = 0;
  std::vector<std::unique_ptr<Reading>> readings_;
  std::vector<std::unique_ptr<Watch>> watches_;
  bool dragging_ = false;
  bool editWanted_ = false;  // a name shall be edited, whatever the mouse did
  ULONGLONG focusedAt_ = 0;  // milliseconds of the system's run
  HTREEITEM dropItem_ = nullptr;
  Location editAgain_;  // the node whose name was refused
  std::wstring editAgainText_;
};

}  // namespace controls
