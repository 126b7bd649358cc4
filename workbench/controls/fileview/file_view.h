// The file view control: the list of a folder's contents.
#pragma once

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "workbench/controls/com/ole_control.h"
#include "workbench/controls/fileview/folder_model.h"
#include "workbench/controls/fileview/list_pane.h"
#include "workbench/controls/fileview/listing_item.h"
#include "workbench/controls/operations/file_operations.h"
#include "workbench/controls/shell/file_drop.h"
#include "workbench/controls/shell/font_holder.h"
#include "workbench/controls/shell/location_link.h"

namespace controls {

class ItemMenu;

// Properties that are a plain switch.
struct FileViewSwitches {
  bool shellContextMenu = true;
  bool virtualFolders = true;
  bool folders = true;
  bool hiddenItems = true;
  bool zipFolders = true;
  bool keyboard = true;
  bool dragAndDrop = true;
};

class FileView : public OleControl,
                 public ILocationPeer,
                 public FolderModelEvents,
                 public ListPaneOwner,
                 public ListingItemView,
                 public DropView {
 public:
  void* Interface(REFIID iid);

  // ILocationPeer
  STDMETHODIMP GetKind(PeerKind* kind) override;
  STDMETHODIMP TellLocation(ILocationSink* sink) override;
  STDMETHODIMP GoTo(const wchar_t* path, const ITEMIDLIST* pidl, UINT archiveLength) override;
  STDMETHODIMP AdviseLocation(ILocationSink* sink) override;
  STDMETHODIMP UnadviseLocation(ILocationSink* sink) override;

  // Members of the dispatch interface (file_view_members.cpp).
  template <bool ListPane::Options::*Option>
  HRESULT GetOption(Call& call) {
    return call.ReturnBool(options_.*Option);
  }
  template <bool ListPane::Options::*Option>
  HRESULT PutOption(Call& call) {
    const HRESULT result = call.Bool(0, options_.*Option);
    if (SUCCEEDED(result)) pane_.SetOptions(options_);
    return result;
  }
  template <bool FileViewSwitches::*Switch>
  HRESULT GetSwitch(Call& call) {
    return call.ReturnBool(switches_.*Switch);
  }
  template <bool FileViewSwitches::*Switch>
  HRESULT PutSwitch(Call& call) {
    return call.Bool(0, switches_.*Switch);
  }
  HRESULT PutZipFolders(Call& call);
  HRESULT PutVirtualFolders(Call& call) { return PutFilterSwitch(call, switches_.virtualFolders); }
  HRESULT PutFolders(Call& call) { return PutFilterSwitch(call, switches_.folders); }
  HRESULT PutHiddenItems(Call& call) { return PutFilterSwitch(call, switches_.hiddenItems); }
  HRESULT GetView(Call& call);
  HRESULT PutView(Call& call);
  HRESULT GetFolder(Call& call);
  HRESULT PutFolder(Call& call);
  HRESULT GetListHandle(Call& call);
  HRESULT GetThumbnailQuality(Call& call);
  HRESULT PutThumbnailQuality(Call& call);
  HRESULT GetFont(Call& call);
  HRESULT PutFont(Call& call);
  HRESULT CallGoUp(Call& call);
  HRESULT GetItem(Call& call);
  HRESULT GetFirstSelected(Call& call);
  HRESULT GetNextSelected(Call& call);
  HRESULT CallExecuteOnSelection(Call& call);
  HRESULT CallExecuteOnFolder(Call& call);
  HRESULT GetItemCount(Call& call);
  HRESULT GetSelectedCount(Call& call);
  HRESULT CallRefresh(Call& call);
  HRESULT CallNewFolder(Call& call);
  HRESULT GetFolderItem(Call& call);
  HRESULT CallAddMenuItem(Call& call);

  // FolderModelEvents
  bool AcceptItem(const std::shared_ptr<Listing>& listing, ItemId id) override;
  void FolderOpened() override;
  void FolderFailed(const Location& folder, DWORD error) override;
  void RowsAboutToChange(bool replaced) override;
  void RowsChanged(bool replaced) override;
  void FactsChanged() override;
  void FillFinished() override;
  void ChangesApplied() override;

  // ListPaneOwner
  std::wstring CellText(int row, int column) override;
  int CellImage(int row) override;
  bool RowDimmed(int row) override;
  std::optional<ThumbnailSubject> Thumbnail(int row) override;
  int FindRow(int start, const std::wstring& prefix, bool partial, bool wrap) override;
  void OnRowClicked(int row, POINT point) override;
  void OnRowActivated(int row, POINT point) override;
  void OnSelectionChanged() override;
  void OnColumnClicked(int column) override;
  bool OnKey(UINT key, bool control, bool shift) override;
  void OnContextMenu(int row, POINT point) override;
  bool MayRename(int row) override;
  void OnRenamed(int row, const std::wstring& name) override;
  void OnDrag(bool rightButton) override;
  std::wstring StatusText(bool& isError) override;
  std::wstring EmptyText() override;
  void OnFocus() override { OnGotFocus(); }
  void OnPaneMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnPaneDestroyed() override;

  // DropView
  bool TakesDrops() override { return switches_.dragAndDrop && !closed(); }
  std::wstring DropFolderAt(POINT screen) override;
  void ShowDropTarget(POINT screen, bool taken) override;
  void HideDropTarget() override { pane_.SetDropRow(-1); }
  void OnFilesDropped(DroppedFiles files) override;

  // ListingItemView
  HRESULT OpenItem(const std::shared_ptr<Listing>& listing, ItemId id) override;
  bool IsItemSelected(const std::shared_ptr<Listing>& listing, ItemId id) const override;
  HRESULT SelectItem(const std::shared_ptr<Listing>& listing, ItemId id, bool selected) override;

 protected:
  FileView();
  ~FileView() override;

  DispatchTable Members() override;
  void* MembersSelf() override { return this; }
  HWND CreateControlWindow(HWND parent, const RECT& rect) override;
  void DestroyControlWindow() override;
  void OnClose() override;
  HWND FocusWindow() override { return pane_.list(); }

 private:
  struct SavedView;
  struct ContainerSort;

  HRESULT PutFilterSwitch(Call& call, bool& value);
  void Navigate(const Location& location);
  void GoUp();
  void ShowError(const std::wstring& text);
  void ClearError();
  const Listing& listing() const { return *model_.shown(); }
  ItemId IdOfRow(int row) const;
  int RowCount() const { return static_cast<int>(model_.rows().size()); }
  ComRef<IDispatch> ItemOfRow(int row);
  ComRef<IDispatch> EmptyItem();
  std::vector<std::wstring> SelectedPaths() const;

  void FireClick(int row, POINT point);
  bool FireDoubleClick(int row, POINT point);
  void FireFolderChanged();
  void FireSelectionChanged();
  void FireContentChanged();
  bool FireBeforeSort(int column);
  long FireCompare(ContainerSort& sort, ItemId first, ItemId second);

  void SortBy(SortRule rule);
  void BeginContainerSort(SortRule rule);
  void ContinueContainerSort(bool first);
  bool SortPart(ContainerSort& sort, bool first);
  void FinishContainerSort(ContainerSort& sort);
  void StopSortTimer();
  void Activate(int row, POINT point);
  HRESULT OpenRow(const Listing& from, ItemId id);
  void OpenFile(const std::wstring& path, const ITEMIDLIST* pidl);
  void BeginRename();
  void DeleteSelection(bool permanently);
  void CopySelection(bool cut);
  void Paste(const std::wstring& folder);
  void CopyInto(const std::vector<std::wstring>& paths, const std::wstring& folder, bool move,
                FileOperations::Done also);
  void Undo();
  void SelectArrived(const std::vector<std::wstring>& paths);
  void SelectShown();
  void SelectOnly(const std::vector<int>& rows);
  void EditAgain(int row, const std::wstring& name, const std::wstring& reason);
  void OnEditAgain();
  HRESULT Execute(long command, bool onSelection);
  bool CreateNewFolder(bool edit);
  void RunMenu(int row, POINT point);
  bool RunOwnVerb(const std::string& verb);
  bool IsDropRow(int row) const;
  void CarryOutDrop();
  void UpdateStatus();
  void RestoreByName();
  void FocusNear(const SavedView& saved);

  ListPane pane_;
  DropRegistration drops_;
  std::vector<DroppedFiles> dropped_;  // wait for the end of the drag
  FolderModel model_;
  FileOperations operations_;
  std::set<std::wstring> selectWhenShown_;  // names
  bool selectsFirst_ = false;               // the first of them that is listed ends the selection before
  struct RefusedName {
    ItemId id = kNoItem;
    std::wstring name;
    std::wstring reason;
  };
  RefusedName refusedName_;
  ListPane::Options options_;
  FileViewSwitches switches_;
  ViewStyle view_ = ViewStyle::kReport;
  long thumbnailQuality_ = 2;
  FontHolder font_;
  LocationSource followers_;
  Location wanted_;  // asked for before there was a window
  std::wstring error_;
  std::wstring statusText_;
  bool statusStale_ = true;

  std::shared_ptr<ListingItemOwner> itemOwner_ = std::make_shared<ListingItemOwner>();
  ComRef<ComObject<ListingItem>> askedItem_;  // used again for each item while nobody keeps it
  bool asking_ = false;
  bool leftOut_ = false;
  int nextSelected_ = -1;

  std::unique_ptr<SavedView> saved_;
  std::unique_ptr<ContainerSort> sort_;  // between two parts of a sort that the container decides
  bool sortTimerRuns_ = false;
  ItemMenu* menu_ = nullptr;       // while a context menu is being built
};

}  // namespace controls
