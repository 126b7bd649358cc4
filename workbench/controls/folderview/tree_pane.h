// The window of the folder view: the tree and its nodes, read as they are opened.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "workbench/controls/shell/folder_reader.h"
#include "workbench/controls/shell/location.h"
#include "workbench/controls/shell/type_cache.h"
#include "workbench/controls/shell/window_base.h"

namespace controls {

class TreePaneOwner {
 public:
  // The user moved to another node.
  virtual void OnNodeSelected(const Location& location) = 0;
  // The user clicked on the node that is selected already.
  virtual void OnNodeClicked(const Location& location) = 0;
  virtual void OnTreeContextMenu(const Location& location, POINT screen) = 0;
  virtual bool MayRenameNode(const Location& location) = 0;
  // False when the folder keeps its name.
  virtual bool OnNodeRenamed(const Location& location, const std::wstring& name) = 0;
  virtual bool OnTreeKey(UINT key) = 0;
  virtual void OnTreeFocus() = 0;
  virtual void OnTreeDestroyed() = 0;

 protected:
  ~TreePaneOwner() = default;
};

class TreePane : public WindowBase {
 public:
  explicit TreePane(TreePaneOwner& owner) : owner_(owner) {}
  ~TreePane() override { Destroy(); }

  struct Options {
    bool files = false;
    bool virtualFolders = true;
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
  // Reads the selected folder's children again.
  void RefreshSelected();
  // The node's folder has another name now.
  void RenameNode(const Location& from, const Location& to);

 protected:
  LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  struct Node {
    Location location;
    std::wstring name;
    bool populated = false;  // all children are there
    bool expandWhenRead = false;
    int icon = -1;
  };
  struct Reading {
    HTREEITEM item = nullptr;
    std::vector<std::wstring> names;
    FolderReader reader;
  };
  struct Handler {
    UINT code;
    LRESULT (TreePane::*handler)(NMHDR*);
  };

  bool CreateTree();
  DWORD OwnStyleBits() const;
  Node* NodeOf(HTREEITEM item) const;
  HTREEITEM Insert(HTREEITEM parent, HTREEITEM after, std::unique_ptr<Node> node, bool mayHaveChildren);
  HTREEITEM FindChild(HTREEITEM parent, const Location& location) const;
  HTREEITEM EnsureChild(HTREEITEM parent, const Location& location);
  HTREEITEM EnsureItem(const Location& location);
  HTREEITEM FindItem(const Location& location);
  HTREEITEM ChildOf(HTREEITEM item) const;
  HTREEITEM NextOf(HTREEITEM item) const;
  void Populate(HTREEITEM item);
  void PopulateVirtual(HTREEITEM item);
  void StartReading(HTREEITEM item);
  void OnReaderMessage();
  bool ContinueReading(Reading& reading);
  void InsertSorted(HTREEITEM parent, std::vector<std::wstring>& names, const std::wstring& folder);
  void ForgetReading(HTREEITEM item);
  void SetChildCount(HTREEITEM item, int count);

  LRESULT OnNotify(NMHDR* header);
  LRESULT OnGetDispInfo(NMHDR* header);
  LRESULT OnExpanding(NMHDR* header);
  LRESULT OnSelChanged(NMHDR* header);
  LRESULT OnDeleteItem(NMHDR* header);
  LRESULT OnBeginLabelEdit(NMHDR* header);
  LRESULT OnEndLabelEdit(NMHDR* header);
  LRESULT OnKeyDown(NMHDR* header);
  LRESULT OnSetFocus(NMHDR* header);
  LRESULT OnClick(NMHDR* header);
  LRESULT OnRightClick(NMHDR* header);
  void OnContext(LPARAM lParam);

  TreePaneOwner& owner_;
  HWND tree_ = nullptr;
  HFONT font_ = nullptr;
  Options options_;
  TypeCache types_;
  int quiet_ = 0;
  std::vector<std::unique_ptr<Reading>> readings_;
};

}  // namespace controls
