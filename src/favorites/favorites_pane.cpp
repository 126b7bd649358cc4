#include "src/favorites/favorites_pane.h"

#include <utility>

#include "base/files/paths.h"
#include "base/reach/drive_reach.h"
#include "base/text/code_page.h"
#include "src/favorites/add_favorite_dialog.h"
#include "src/favorites/favorite_target.h"
#include "src/favorites/favorites_commands.h"
#include "src/filter/category_lookup.h"

namespace file_explorer {
namespace {

constexpr int kTreeId = 104;
// Child, buttons, lines, label editing, selection always shown, hot tracking; hidden until the panel shows
// it.
constexpr DWORD kPaneTreeStyle =
    WS_CHILD | TVS_HASBUTTONS | TVS_HASLINES | TVS_EDITLABELS | TVS_SHOWSELALWAYS | TVS_TRACKSELECT;
static_assert(kPaneTreeStyle == 0x4000022B);

bool IsFolderOnDisk(const std::string& path) {
  std::wstring wide = base::WideFromNarrow(path);
  if (wide.size() >= MAX_PATH) wide = base::ExtendedPath(wide);  // else the system refuses it
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// A machine that is gone is not asked where the name says enough.
bool IsFolder(const std::string& path) {
  if (!base::MayHang(path)) return IsFolderOnDisk(path);
  switch (TargetByName(path, CategoryTypeMask(path.c_str()) != 0)) {
    case FavoriteTarget::kFile:
      return false;
    case FavoriteTarget::kFolder:
      return true;
    default:
      return IsFolderOnDisk(path);
  }
}

}  // namespace

std::unique_ptr<FavoritesPane> FavoritesPane::Create(HWND panel, FavoritesServices services) {
  std::unique_ptr<FavoritesPane> pane(new FavoritesPane(std::move(services)));
  pane->tree_ =
      std::make_unique<CHalvoTreeView>(pane->services_.instance, panel, nullptr, kTreeId, kPaneTreeStyle);
  if (!pane->tree_->CreateTreeWindow()) return nullptr;
  SetWindowTextA(pane->tree_->window(), "Favorites");  // not shown; what a screen reader calls the tree
  pane->tree_->SetImages(pane->images_);
  pane->tree_->SetActivationCallback(
      [self = pane.get()](const FavoriteRecord* record) { self->OnActivation(record); });
  return pane;
}

FavoritesPane::FavoritesPane(FavoritesServices services)
    : services_(std::move(services)), images_(LoadFavoriteImages(services_.instance)) {}

FavoritesPane::~FavoritesPane() = default;

void FavoritesPane::Load() {
  const std::string path = FavoritesFilePath(services_.mainWindow());
  if (path.empty() || !tree_->LoadFavorites(path)) {
    auto root = std::make_unique<FavoriteRecord>();
    root->displayName = "Favorites";
    root->flags = kRootFolderFlags;
    root->imageIndex = kFolderImage;
    tree_->AddFavorite(std::move(root), nullptr);
  }
  tree_->SetRouterOff(false);
}

void FavoritesPane::Save() {
  const std::string path = FavoritesFilePath(services_.mainWindow());
  if (!path.empty()) tree_->SaveFavorites(path);
}

bool FavoritesPane::HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
  if (message == WM_NOTIFY) {
    const auto* const notification = reinterpret_cast<const NMHDR*>(lParam);
    if (notification->hwndFrom == tree_->window() && notification->code == static_cast<UINT>(TVN_KEYDOWN)) {
      *result = 0;
      return OnKey(window, reinterpret_cast<const NMTVKEYDOWN*>(lParam)->wVKey);
    }
  }
  return tree_->RouteMessage(window, message, wParam, lParam, false, result);
}

bool FavoritesPane::OnKey(HWND panel, WORD key) {
  if (key == VK_TAB) {
    SendMessageA(panel, WM_NEXTDLGCTL, GetKeyState(VK_SHIFT) < 0 ? TRUE : FALSE, FALSE);
    return true;
  }
  if (key == VK_ESCAPE) tree_->MarkForMove(nullptr);
  return RunFavoritesKey(*tree_, services_.mainWindow(), key);
}

bool FavoritesPane::HandleCommand(int command) {
  struct Row {
    int command;
    void (*run)(CHalvoTreeView& tree, HWND owner);
  };
  static constexpr Row kRows[] = {{kCommandNewFavoritesFolder, NewFavoritesFolder},
                                  {kCommandRenameFavorite, RenameFavorite},
                                  {kCommandDeleteFavorite, DeleteFavorite}};
  for (const Row& row : kRows) {
    if (row.command != command) continue;
    row.run(*tree_, services_.mainWindow());
    return true;
  }
  return false;
}

void FavoritesPane::OnActivation(const FavoriteRecord* record) const {
  if (record == nullptr || record->Has(kFavoriteFolder) || record->path.empty()) return;
  const std::string path = record->path;  // opening may change the favourites
  // A copy: the host may take the explorer down while it opens the file.
  const auto open = IsFolder(path) ? services_.openFolder : services_.loadFile;
  if (open) open(path.c_str());
}

void FavoritesPane::AddFavorite(HWND owner, const AddFavoriteSources& sources) {
  const std::weak_ptr alive = alive_;
  const AddFavoriteChoice choice = ChooseFavoritePath(sources);
  if (alive.expired()) return;  // what was asked for the path has ended the explorer
  if (choice.path.empty()) {
    if (choice.message != nullptr) MessageBoxA(owner, choice.message, choice.caption, MB_OK);
    return;
  }
  if (tree_->list().HasPath(choice.path)) {
    MessageBoxA(owner, "The directory path is already contained within the Favorites list.", "Error", MB_OK);
    return;
  }
  Save();
  AddFavoriteDialog dialog;
  dialog.instance = services_.instance;
  dialog.path = choice.path;
  dialog.note = AddFavoriteNote(services_.hostFlags ? services_.hostFlags() : 0);
  dialog.favoritesFile = FavoritesFilePath(services_.mainWindow());
  dialog.images = images_;
  dialog.onChange = [this, alive = std::weak_ptr(alive_)](
                        const FavoriteRecord& record, const FavoriteRecord* parent, FavoriteChange change) {
    if (!alive.expired()) Mirror(record, parent, change);
  };
  ShowAddFavoriteDialog(owner, std::move(dialog));
}

void FavoritesPane::Mirror(const FavoriteRecord& record, const FavoriteRecord* parent,
                           FavoriteChange change) {
  if (change == FavoriteChange::kAdded) {
    auto copy = std::make_unique<FavoriteRecord>();
    copy->key = record.key;
    copy->displayName = record.displayName;
    copy->path = record.path;
    copy->imageIndex = record.imageIndex;
    copy->flags = record.flags;
    tree_->AddFavorite(std::move(copy), parent != nullptr ? tree_->FindByKey(parent->key) : nullptr);
    return;
  }
  FavoriteRecord* const mine = tree_->FindByKey(record.key);
  if (mine == nullptr) return;
  if (change == FavoriteChange::kRenamed) tree_->SetDisplayName(*mine, record.displayName);
  if (change == FavoriteChange::kDeleted) tree_->DeleteEntry(*mine);
}

}  // namespace file_explorer
