#include "src/favorites/halvo_tree_view.h"

#include <windowsx.h>

#include <algorithm>
#include <cstddef>
#include <deque>
#include <utility>

#include "base/files/system_recovery_calls.h"
#include "base/text/code_page.h"
#include "base/text/letter_case.h"
#include "src/favorites/check_marks.h"
#include "src/favorites/favorites_platform.h"
#include "src/favorites/favorites_store.h"
#include "src/favorites/label_edit_hook.h"
#include "src/favorites/tree_drag_image.h"
#include "src/framework/module_context.h"

namespace file_explorer {
namespace {

// Both forms of these notifications are alike but for the type of the texts that they point at.
static_assert(offsetof(NMTVDISPINFOA, item.hItem) == offsetof(NMTVDISPINFOW, item.hItem));
static_assert(offsetof(NMTREEVIEWA, itemNew.hItem) == offsetof(NMTREEVIEWW, itemNew.hItem));
static_assert(offsetof(NMTREEVIEWA, ptDrag) == offsetof(NMTREEVIEWW, ptDrag));

// What a label was edited to. Empty when the edit was cancelled, and when the code page lacks one of the letters: a name
// with question marks is not what was typed. typed: the editor's own text, where there is an editor; an 8-bit
// notification's text may have letters that were bent.
std::string EditedText(const NMHDR& notification, const std::wstring& typed) {
  const bool wide = notification.code == static_cast<UINT>(TVN_ENDLABELEDITW);
  const wchar_t* const wideText = wide ? reinterpret_cast<const NMTVDISPINFOW&>(notification).item.pszText : nullptr;
  const char* const text = wide ? nullptr : reinterpret_cast<const NMTVDISPINFOA&>(notification).item.pszText;
  if (wideText == nullptr && text == nullptr) return {};
  if (!typed.empty()) return base::ExactNarrow(typed).value_or(std::string());
  return wideText != nullptr ? base::ExactNarrow(wideText).value_or(std::string()) : text;
}

}  // namespace

// Wide notifications too: the panel is the host's, which may have its controls ask again which form it takes.
const CHalvoTreeView::NotifyRow CHalvoTreeView::kNotifyRows[] = {
    {static_cast<UINT>(TVN_BEGINLABELEDITA), &CHalvoTreeView::OnBeginLabelEdit},
    {static_cast<UINT>(TVN_BEGINLABELEDITW), &CHalvoTreeView::OnBeginLabelEdit},
    {static_cast<UINT>(TVN_ENDLABELEDITA), &CHalvoTreeView::OnEndLabelEdit},
    {static_cast<UINT>(TVN_ENDLABELEDITW), &CHalvoTreeView::OnEndLabelEdit},
    {static_cast<UINT>(TVN_BEGINDRAGA), &CHalvoTreeView::OnBeginDrag},
    {static_cast<UINT>(TVN_BEGINDRAGW), &CHalvoTreeView::OnBeginDrag},
    {static_cast<UINT>(NM_CLICK), &CHalvoTreeView::OnClick},
    {static_cast<UINT>(NM_DBLCLK), &CHalvoTreeView::OnDoubleClick},
    {static_cast<UINT>(NM_RETURN), &CHalvoTreeView::OnReturn},
};

CHalvoTreeView::CHalvoTreeView(HINSTANCE instance, HWND parent, HWND placeholder, int controlId, DWORD style)
    : instance_(instance),
      parent_(parent),
      placeholder_(placeholder),
      controlId_(controlId),
      style_(style),
      list_(base::LowerCaseNarrow) {}

CHalvoTreeView::~CHalvoTreeView() {
  StopDragging();
  DestroyTree();
}

// ---- The window
// ------------------------------------------------------------------------------------------------

bool CHalvoTreeView::CreateTreeWindow() {
  INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_TREEVIEW_CLASSES};
  InitCommonControls();
  InitCommonControlsEx(&classes);
  const RECT place = InitialPlace();
  // Check boxes are asked for afterwards: given at creation, the control does not make their images.
  const DWORD style = style_ & ~static_cast<DWORD>(TVS_CHECKBOXES);
  const HWND window =
      CreateWindowExA(WS_EX_CLIENTEDGE, WC_TREEVIEWA, "", style, place.left, place.top,
                      place.right - place.left, place.bottom - place.top, parent_,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId_)), instance_, nullptr);
  if (window == nullptr) return false;
  tree_ = TreeControl(window);
  SendMessageA(window, TVM_SETUNICODEFORMAT, FALSE, 0);  // 8-bit notifications whatever the parent is
  SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  Subclass();
  tree_.DeleteAll();
  if ((style_ & TVS_CHECKBOXES) != 0) {
    SetWindowLongPtrA(window, GWL_STYLE, GetWindowLongPtrA(window, GWL_STYLE) | TVS_CHECKBOXES);
  }
  return true;
}

RECT CHalvoTreeView::InitialPlace() const {
  RECT place = {};
  if (placeholder_ == nullptr) {
    GetClientRect(parent_, &place);
    return place;
  }
  GetWindowRect(placeholder_, &place);
  MapWindowPoints(nullptr, parent_, reinterpret_cast<POINT*>(&place), 2);
  ShowWindow(placeholder_, SW_HIDE);
  return place;
}

void CHalvoTreeView::Subclass() {
  previousProcedure_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrA(window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(TreeProcedure)));
}

void CHalvoTreeView::DestroyTree() {
  if (window() == nullptr) return;
  SetWindowLongPtrA(window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previousProcedure_));
  SetWindowLongPtrA(window(), GWLP_USERDATA, 0);
  SendMessageA(window(), TVM_SETIMAGELIST, TVSIL_NORMAL, 0);  // the images are shared
  DestroyWindow(window());
  tree_ = TreeControl();
}

void CHalvoTreeView::SetImages(FavoriteImages images) {
  images_ = std::move(images);
  SendMessageA(window(), TVM_SETIMAGELIST, TVSIL_NORMAL,
               images_ ? reinterpret_cast<LPARAM>(images_->get()) : 0);
}

LRESULT CALLBACK CHalvoTreeView::TreeProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const ModuleContext context;
  auto* const view = reinterpret_cast<CHalvoTreeView*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (view == nullptr) return DefWindowProcA(window, message, wParam, lParam);
  const WNDPROC previous = view->previousProcedure_;
  try {
    return view->OnTreeMessage(message, wParam, lParam);
  } catch (...) {
    return CallWindowProcA(previous, window, message, wParam,
                           lParam);  // the system's frames see no exception
  }
}

LRESULT CHalvoTreeView::OnTreeMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND tree = window();
  const WNDPROC previous = previousProcedure_;
  // The tree would beep.
  if (message == WM_CHAR && (wParam == '\r' || wParam == '\n')) return 1;
  if (message == WM_LBUTTONDOWN || message == WM_LBUTTONDBLCLK) {
    lastButtonDown_ = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  }
  if (message == WM_KEYDOWN && wParam == VK_ESCAPE && isDragging_) {
    CancelDrag();
    return 0;
  }
  if (message == WM_NCDESTROY) {  // the parent went first
    StopDragging();
    SetWindowLongPtrA(tree, GWLP_USERDATA, 0);
    tree_ = TreeControl();
  }
  return CallWindowProcA(previous, tree, message, wParam, lParam);
}

// ---- The records
// -----------------------------------------------------------------------------------------------

bool CHalvoTreeView::LoadFavorites(const std::string& path) {
  StopDragging();
  ForgetMouse();
  tree_.SetRedraw(false);
  tree_.DeleteAll();  // the items point at the records
  marked_ = nullptr;
  list_.Clear();
  list_.BeginLoading();
  base::SystemRecoveryCalls calls;
  file_explorer::LoadFavorites(path, SystemFileCalls(), calls, list_,
                               [this](std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent) {
                                 return list_.Add(std::move(record), parent);
                               });
  list_.EndLoading();
  InsertLoaded();
  tree_.SetRedraw(true);
  return !list_.empty();
}

// Every item behind its last sibling: neither the list nor the control has to look for its place.
void CHalvoTreeView::InsertLoaded() {
  std::deque<FavoriteRecord*> pending(list_.topLevel().begin(), list_.topLevel().end());
  while (!pending.empty()) {
    FavoriteRecord& record = *pending.front();
    pending.pop_front();
    const HTREEITEM parent =
        record.parent != nullptr ? static_cast<HTREEITEM>(record.parent->treeItem) : nullptr;
    record.treeItem = tree_.Insert(record, parent, TVI_LAST);
    const std::vector<FavoriteRecord*> next =
        record.treeItem != nullptr ? record.children : list_.Remove(record);
    // An accepted folder's entries come next, those of a refused one behind the top level.
    pending.insert(record.treeItem != nullptr ? pending.begin() : pending.end(), next.begin(), next.end());
  }
}

void CHalvoTreeView::SaveFavorites(const std::string& path) {
  base::SystemRecoveryCalls calls;
  file_explorer::SaveFavorites(path, SystemFileCalls(), calls, list_, tree_.RecordOf(tree_.FirstVisible()));
}

FavoriteRecord* CHalvoTreeView::Insert(std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent) {
  FavoriteRecord* const added = list_.Add(std::move(record), parent);
  if (InsertItem(*added) != nullptr) return added;
  list_.Remove(*added);
  return nullptr;
}

HTREEITEM CHalvoTreeView::InsertItem(FavoriteRecord& record, bool isExpanded) {
  HTREEITEM parent = nullptr;
  HTREEITEM after = TVI_LAST;
  if (record.parent != nullptr) {
    parent = static_cast<HTREEITEM>(record.parent->treeItem);
    const FavoriteRecord* const previous = list_.PreviousSibling(record);
    after = previous != nullptr ? static_cast<HTREEITEM>(previous->treeItem) : nullptr;
  }
  const HTREEITEM item = tree_.Insert(record, parent, after, isExpanded);
  record.treeItem = item;
  return item;
}

// The records below a folder that has got a new item get new ones too, in the state of their old ones.
void CHalvoTreeView::InsertBelow(FavoriteRecord& folder) {
  std::vector<FavoriteRecord*> pending(folder.children.rbegin(), folder.children.rend());
  while (!pending.empty()) {
    FavoriteRecord& record = *pending.back();
    pending.pop_back();
    const bool wasExpanded = tree_.IsExpanded(static_cast<HTREEITEM>(record.treeItem));
    record.treeItem =
        tree_.Insert(record, static_cast<HTREEITEM>(record.parent->treeItem), TVI_LAST, wasExpanded);
    pending.insert(pending.end(), record.children.rbegin(), record.children.rend());
  }
}

FavoriteRecord* CHalvoTreeView::AddFavorite(std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent) {
  if (record->key.empty()) record->key = NewFavoriteKey();
  FavoriteRecord* const added = Insert(std::move(record), parent);
  if (added != nullptr) Report(*added, added->parent, FavoriteChange::kAdded);
  return added;
}

void CHalvoTreeView::Report(const FavoriteRecord& record, const FavoriteRecord* parent,
                            FavoriteChange change) const {
  if (onChange_) onChange_(record, parent, change);
}

void CHalvoTreeView::Select(const FavoriteRecord* record) {
  tree_.Select(record != nullptr ? static_cast<HTREEITEM>(record->treeItem) : nullptr);
}

void CHalvoTreeView::EditLabel(const FavoriteRecord& record) {
  if (record.treeItem != nullptr) tree_.EditLabel(static_cast<HTREEITEM>(record.treeItem));
}

void CHalvoTreeView::SetDisplayName(FavoriteRecord& record, const std::string& name) {
  list_.SetDisplayName(record, name);
  if (record.treeItem != nullptr) tree_.SetText(static_cast<HTREEITEM>(record.treeItem), name);
}

void CHalvoTreeView::DeleteEntry(FavoriteRecord& record) {
  if (record.isDeleted) return;
  const auto item = static_cast<HTREEITEM>(record.treeItem);
  const FavoriteRecord* const parent = record.parent;
  ForgetMouse();  // the item clicked last may be among those that go
  list_.MarkDeleted(record);
  Report(record, parent, FavoriteChange::kDeleted);
  tree_.Delete(item);
}

void CHalvoTreeView::MoveEntry(FavoriteRecord& record, FavoriteRecord& folder) {
  const auto oldItem = static_cast<HTREEITEM>(record.treeItem);
  const bool wasSelected = tree_.Selected() == oldItem;
  ForgetMouse();
  tree_.SetRedraw(false);
  const bool wasExpanded = tree_.IsExpanded(oldItem);
  list_.Move(record, folder);
  InsertItem(record, wasExpanded);
  InsertBelow(record);
  tree_.Delete(oldItem);
  if (wasSelected) Select(&record);
  tree_.SetRedraw(true);
}

void CHalvoTreeView::MarkForMove(FavoriteRecord* record) {
  if (record != nullptr && !record->Has(kFavoriteDraggable)) return;
  if (marked_ != nullptr && marked_->treeItem != nullptr) {
    tree_.SetFaded(static_cast<HTREEITEM>(marked_->treeItem), false);
  }
  marked_ = record;
  if (record != nullptr) tree_.SetFaded(static_cast<HTREEITEM>(record->treeItem), true);
}

void CHalvoTreeView::MoveMarked(FavoriteRecord* target) {
  FavoriteRecord* const record = marked_;
  FavoriteRecord* const folder = DropFolder(target);
  if (record == nullptr || record->isDeleted || !MayDrop(*record, folder)) return;
  MarkForMove(nullptr);
  MoveEntry(*record, *folder);
  Select(record);
}

void CHalvoTreeView::ToggleCheck(FavoriteRecord& record) {
  ToggleCheckMark(list_, record, syncFolderChecks_);
  for (const auto& each : list_.records()) {
    if (each->treeItem != nullptr) {
      tree_.SetCheckMark(static_cast<HTREEITEM>(each->treeItem), each->Has(kFavoriteChecked));
    }
  }
}

// ---- The router
// ------------------------------------------------------------------------------------------------

bool CHalvoTreeView::RouteMessage(HWND owner, UINT message, WPARAM, LPARAM lParam, bool isDialog,
                                  LRESULT* result) {
  if (isRouterOff_ || window() == nullptr) return false;
  *result = 0;
  if (message == WM_CAPTURECHANGED && isDragging_) {
    CancelDrag();
    return false;
  }
  if (message != WM_NOTIFY) return RouteMouse(owner, message, lParam);
  auto* const notification = reinterpret_cast<NMHDR*>(lParam);
  if (notification->hwndFrom != window() || !RouteNotification(notification, result)) return false;
  if (isDialog) SetWindowLongPtrA(owner, DWLP_MSGRESULT, *result);
  return true;
}

bool CHalvoTreeView::RouteNotification(NMHDR* notification, LRESULT* result) {
  const auto* const row = std::find_if(
      std::begin(kNotifyRows), std::end(kNotifyRows),
      [notification](const NotifyRow& candidate) { return candidate.code == notification->code; });
  return row != std::end(kNotifyRows) && (this->*row->handler)(notification, result);
}

bool CHalvoTreeView::OnBeginLabelEdit(NMHDR* notification, LRESULT* result) {
  const auto* const info = reinterpret_cast<NMTVDISPINFOA*>(notification);
  const FavoriteRecord* const record = tree_.RecordOf(info->item.hItem);
  const bool isAllowed = record != nullptr && !record->Has(kFavoriteProtected);
  endedEdit_ = nullptr;
  if (isAllowed) HookLabelEdit(tree_.LabelEdit());
  *result = isAllowed ? FALSE : TRUE;
  return true;
}

bool CHalvoTreeView::OnEndLabelEdit(NMHDR* notification, LRESULT* result) {
  const auto* const info = reinterpret_cast<NMTVDISPINFOA*>(notification);
  *result = FALSE;
  const HWND edit = tree_.LabelEdit();
  // The editor loses the focus while it is taken away, and some controls then report its end again.
  if (edit != nullptr && std::exchange(endedEdit_, edit) == edit) return true;
  UnhookLabelEdit(edit);
  FavoriteRecord* const record = tree_.RecordOf(info->item.hItem);
  const std::string text = EditedText(*notification, edit != nullptr ? tree_.LabelText() : std::wstring());
  if (record == nullptr || text.empty()) return true;
  SetDisplayName(*record, text);
  Report(*record, record->parent, FavoriteChange::kRenamed);
  *result = TRUE;
  return true;
}

bool CHalvoTreeView::OnBeginDrag(NMHDR* notification, LRESULT*) {
  const auto* const info = reinterpret_cast<NMTREEVIEWA*>(notification);
  BeginDrag(info->itemNew.hItem, info->ptDrag);
  return true;
}

bool CHalvoTreeView::OnClick(NMHDR*, LRESULT* result) {
  Click(lastButtonDown_);
  *result = LeftButtonDown(lastButtonDown_) ? 1 : 0;  // what was done here the control must not do too
  return *result != 0;
}

bool CHalvoTreeView::OnDoubleClick(NMHDR*, LRESULT*) {
  if (onActivation_) DoubleClick();
  return false;  // folders still open and close
}

bool CHalvoTreeView::OnReturn(NMHDR*, LRESULT*) {
  if (!onActivation_) return false;
  onActivation_(current());
  return true;
}

void CHalvoTreeView::OnParentDoubleClick(POINT point) {
  if (tree_.ItemAt(point) != nullptr) DoubleClick();
}

}  // namespace file_explorer
