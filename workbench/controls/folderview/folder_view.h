// The folder view control: the tree of folders.
#pragma once

#include <string>

#include "workbench/controls/com/ole_control.h"
#include "workbench/controls/folderview/tree_pane.h"
#include "workbench/controls/operations/file_operations.h"
#include "workbench/controls/shell/font_holder.h"
#include "workbench/controls/shell/item_menu.h"
#include "workbench/controls/shell/location_link.h"

namespace controls {

class FolderView : public OleControl, public ILocationPeer, public TreePaneOwner, public DropView {
 public:
  void* Interface(REFIID iid);

  // ILocationPeer: the tree passes a wish on to the file view that it is linked to and follows what comes of
  // it.
  STDMETHODIMP GetKind(PeerKind* kind) override;
  STDMETHODIMP TellLocation(ILocationSink* sink) override;
  STDMETHODIMP GoTo(const wchar_t* path, const ITEMIDLIST* pidl, UINT archiveLength) override;
  STDMETHODIMP AdviseLocation(ILocationSink* sink) override;
  STDMETHODIMP UnadviseLocation(ILocationSink* sink) override;

  template <bool TreePane::Options::*Option>
  HRESULT GetOption(Call& call) {
    return call.ReturnBool(options_.*Option);
  }
  template <bool TreePane::Options::*Option>
  HRESULT PutOption(Call& call) {
    const HRESULT result = call.Bool(0, options_.*Option);
    if (SUCCEEDED(result)) pane_.SetOptions(options_);
    return result;
  }
  HRESULT GetSelectedFolder(Call& call);
  HRESULT GetContextMenu(Call& call) { return call.ReturnBool(contextMenu_); }
  HRESULT PutContextMenu(Call& call) { return call.Bool(0, contextMenu_); }
  HRESULT GetDragAndDrop(Call& call) { return call.ReturnBool(dragAndDrop_); }
  HRESULT PutDragAndDrop(Call& call);
  HRESULT GetTreeHandle(Call& call);
  HRESULT GetFileView(Call& call);
  HRESULT PutFileView(Call& call);
  HRESULT GetFont(Call& call);
  HRESULT PutFont(Call& call);
  HRESULT CallAddMenuItem(Call& call);
  HRESULT CallNewFolder(Call& call);

  // TreePaneOwner
  void OnNodeSelected(const Location& location) override;
  void OnNodeClicked(const Location& location) override;
  void OnFileOpened(const Location& location) override;
  void OnNodeGone(const Location& location) override;
  void OnTreeContextMenu(const Location& location, bool isFile, POINT screen) override;
  void OnTreeDrag(const Location& location, bool mayMove, bool rightButton) override;
  void OnTreeMessage(UINT message) override;
  bool MayRenameNode(const Location& location) override;
  bool OnNodeRenamed(const Location& location, const std::wstring& name) override;
  bool OnTreeKey(UINT key) override;
  void OnTreeFocus() override { OnGotFocus(); }
  void OnTreeDestroyed() override;

  // DropView
  bool TakesDrops() override { return dragAndDrop_ && !closed(); }
  std::wstring DropFolderAt(POINT screen) override { return pane_.FolderAt(screen); }
  void ShowDropTarget(POINT screen, bool taken) override { pane_.ShowDropTarget(screen, taken); }
  void HideDropTarget() override { pane_.HideDropTarget(); }
  void OnFilesDropped(DroppedFiles files) override;

 protected:
  FolderView();
  ~FolderView() override;

  DispatchTable Members() override;
  void* MembersSelf() override { return this; }
  HWND CreateControlWindow(HWND parent, const RECT& rect) override;
  void DestroyControlWindow() override;
  void OnClose() override;
  HWND FocusWindow() override { return pane_.tree(); }

 private:
  void OnFileViewMoved(const Location& location);
  void Arrive(const Location& location);
  void AddMenuEntries(ItemMenu& menu, const Location& location, bool isFile);
  void RunVerb(const std::string& verb, const Location& location);
  void Delete(const Location& location, bool permanently);
  void LeaveDeleted(const Location& location);
  void PasteInto(const Location& location);
  void Undo();
  void NewFolderUnder(const Location& location);
  void Report(const std::wstring& text);
  ComRef<IDispatch> ItemOf(const Location& location);

  TreePane pane_;
  FileOperations operations_;
  DropRegistration drops_;
  std::vector<DroppedFiles> dropped_;  // wait for the end of the drag
  TreePane::Options options_;
  bool contextMenu_ = true;
  bool dragAndDrop_ = false;
  FontHolder font_;
  Location current_;
  LocationSource followers_;
  LocationLink fileView_;
  ComRef<IUnknown> fileViewObject_;  // what was put, for the getter
  ItemMenu* menu_ = nullptr;         // while a context menu is being built
};

}  // namespace controls
