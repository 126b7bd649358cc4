#include "src/favorites/add_favorite_dialog.h"

#include <utility>

#include "base/text/code_page.h"
#include "src/favorites/favorites_commands.h"
#include "src/framework/module_context.h"
#include "src/host/vc64_imp.h"

namespace file_explorer {
namespace {

constexpr int kNewFolderButton = 100;
constexpr int kRenameButton = 101;
constexpr int kTreePlaceholder = 102;
constexpr int kNameEdit = 103;
constexpr int kTree = 104;
constexpr int kNoteText = 105;
constexpr int kDeleteButton = 106;
constexpr int kNameSize = 512;  // characters, with the terminator
constexpr DWORD kDialogTreeStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES |
                                   TVS_EDITLABELS | TVS_SHOWSELALWAYS | TVS_TRACKSELECT;

class DialogWindow {
 public:
  explicit DialogWindow(AddFavoriteDialog dialog) : dialog_(std::move(dialog)) {}

  INT_PTR Show(HWND owner) {
    return DialogBoxParamA(dialog_.instance, "AddNewFavouritesDialog", owner, Procedure,
                           reinterpret_cast<LPARAM>(this));
  }

 private:
  using CommandHandler = void (DialogWindow::*)();
  struct CommandRow {
    int id;
    CommandHandler handler;
  };

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ModuleContext context;
    try {
      if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        reinterpret_cast<DialogWindow*>(lParam)->window_ = window;
      }
      auto* const self = reinterpret_cast<DialogWindow*>(GetWindowLongPtrA(window, DWLP_USER));
      return self != nullptr ? self->HandleMessage(message, wParam, lParam) : FALSE;
    } catch (...) {
      EndDialog(window, 0);
      return TRUE;
    }
  }

  INT_PTR HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (tree_ && tree_->RouteMessage(window_, message, wParam, lParam, true, &result)) return TRUE;
    if (message == WM_INITDIALOG) return OnInitDialog();
    if (message == WM_COMMAND) return OnCommand(LOWORD(wParam));
    if (message == WM_NOTIFY) return OnNotify(reinterpret_cast<const NMHDR*>(lParam));
    if (message == WM_DESTROY) tree_.reset();
    return FALSE;
  }

  INT_PTR OnInitDialog() {
    Import_IO_Center_Window(window_);
    SetDlgItemTextA(window_, kNoteText, dialog_.note.c_str());
    SendDlgItemMessageA(window_, kNameEdit, EM_LIMITTEXT, kNameSize - 1, 0);
    SetDlgItemTextA(window_, kNameEdit, dialog_.path.c_str());
    const HWND placeholder = GetDlgItem(window_, kTreePlaceholder);
    tree_ = std::make_unique<CHalvoTreeView>(dialog_.instance, window_, placeholder, kTree, kDialogTreeStyle);
    if (!tree_->CreateTreeWindow()) {
      EndDialog(window_, 0);
      return TRUE;
    }
    SetWindowPos(tree_->window(), placeholder, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE);  // its place in the tab order
    tree_->SetImages(dialog_.images);
    tree_->SetRouterOff(false);
    tree_->LoadFavorites(dialog_.favoritesFile);
    tree_->SelectFirstVisible();
    tree_->SetChangeCallback(dialog_.onChange);
    return TRUE;
  }

  INT_PTR OnCommand(int id) {
    static constexpr CommandRow kRows[] = {
        {IDOK, &DialogWindow::OnOk},
        {IDCANCEL, &DialogWindow::OnCancel},
        {kNewFolderButton, &DialogWindow::OnNewFolder},
        {kRenameButton, &DialogWindow::OnRename},
        {kDeleteButton, &DialogWindow::OnDelete},
    };
    for (const CommandRow& row : kRows) {
      if (row.id != id) continue;
      if (tree_) (this->*row.handler)();
      return TRUE;
    }
    return FALSE;
  }

  INT_PTR OnNotify(const NMHDR* notification) {
    if (notification->idFrom != kTree || notification->code != static_cast<UINT>(TVN_KEYDOWN)) return FALSE;
    RunFavoritesKey(*tree_, window_, reinterpret_cast<const NMTVKEYDOWN*>(notification)->wVKey);
    return TRUE;
  }

  // A letter that the code page lacks is shown as "?", not as another letter.
  std::string TypedName() const {
    wchar_t typed[kNameSize] = L"";
    GetDlgItemTextW(window_, kNameEdit, typed, kNameSize);
    std::string name = base::DisplayNarrow(typed);
    return Import_IO_Strip_Whitespace(name.data());
  }

  void OnOk() {
    const std::string name = TypedName();
    if (name.empty()) {
      MessageBoxA(window_, "Please enter a valid 'Name' string.", "Error", MB_OK);
      SetFocus(GetDlgItem(window_, kNameEdit));
      return;
    }
    FavoriteRecord* const selected = tree_->current();
    if (selected == nullptr) {
      MessageBoxA(window_,
                  "Please select a folder which will become the parent of the new item to be created",
                  "Error", MB_OK);
      return;
    }
    auto reference = std::make_unique<FavoriteRecord>();
    reference->displayName = name;
    reference->path = dialog_.path;
    reference->flags = kReferenceFlags;
    reference->imageIndex = kReferenceImage;
    tree_->AddFavorite(std::move(reference), FolderForNewEntry(selected));
    Save();
    EndDialog(window_, 1);
  }

  void OnCancel() {
    EndDialog(window_, 0);
    Save();  // folders that were made or renamed here are kept
  }

  void OnNewFolder() { NewFavoritesFolder(*tree_, window_); }
  void OnRename() { RenameFavorite(*tree_, window_); }
  void OnDelete() { DeleteFavorite(*tree_, window_); }

  void Save() {
    if (!dialog_.favoritesFile.empty()) tree_->SaveFavorites(dialog_.favoritesFile);
  }

  const AddFavoriteDialog dialog_;
  HWND window_ = nullptr;
  std::unique_ptr<CHalvoTreeView> tree_;
};

}  // namespace

bool ShowAddFavoriteDialog(HWND owner, AddFavoriteDialog dialog) {
  return DialogWindow(std::move(dialog)).Show(owner) == 1;
}

}  // namespace file_explorer
