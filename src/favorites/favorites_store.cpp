#include "src/favorites/favorites_store.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace file_explorer {
namespace {

using base::RecoveryCalls;
using base::SaveProgress;
using base::SaveRecovery;

PlaceFavorite PlaceIn(FavoriteList& list) {
  return [&list](std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent) {
    return list.Add(std::move(record), parent);
  };
}

// Puts a tree over the records of an earlier text.
class Merge {
 public:
  Merge(FavoriteList& merged, FoldCase fold) : merged_(merged), fold_(fold) {
    for (const auto& record : merged.records()) unmatched_[fold(record->key)].push_back(record.get());
    for (auto& [key, records] : unmatched_) std::reverse(records.begin(), records.end());
  }

  void Put(const FavoriteList& tree) {
    std::vector<const FavoriteRecord*> pending(tree.topLevel().rbegin(), tree.topLevel().rend());
    while (!pending.empty()) {
      const FavoriteRecord* const record = pending.back();
      pending.pop_back();
      PutRecord(*record);
      pending.insert(pending.end(), record->children.rbegin(), record->children.rend());
    }
    // Entries came after their folders: from the end, a folder is empty once all below it is gone.
    for (auto record = tree.records().rbegin(); record != tree.records().rend(); ++record) {
      if ((*record)->isDeleted) TakeOff(**record);
    }
  }

 private:
  void PutRecord(const FavoriteRecord& record) {
    const auto parent = placed_.find(record.parent);
    FavoriteRecord* const folder = parent != placed_.end() ? parent->second : nullptr;
    FavoriteRecord* mine = TakeMatch(record);
    if (mine == nullptr) {
      mine = merged_.Add(CopyOf(record), folder);
    } else {
      mine->path = record.path;
      mine->imageIndex = record.imageIndex;
      mine->flags = record.flags;
      merged_.SetDisplayName(*mine, record.displayName);
      // At the top level stands what was saved without its folder, too: there the earlier place counts.
      const bool isMoved = folder != nullptr && mine->parent != folder && !LiesWithin(*folder, *mine);
      if (isMoved) merged_.Move(*mine, *folder);
    }
    placed_[&record] = mine;
  }

  void TakeOff(const FavoriteRecord& deleted) {
    FavoriteRecord* const mine = TakeMatch(deleted);
    if (mine != nullptr && mine->children.empty()) merged_.MarkDeleted(*mine);
  }

  // The first record of that key that no other one has matched.
  FavoriteRecord* TakeMatch(const FavoriteRecord& record) {
    const auto found = unmatched_.find(fold_(record.key));
    if (found == unmatched_.end() || found->second.empty()) return nullptr;
    FavoriteRecord* const match = found->second.back();
    found->second.pop_back();
    return match;
  }

  static std::unique_ptr<FavoriteRecord> CopyOf(const FavoriteRecord& record) {
    auto copy = std::make_unique<FavoriteRecord>();
    copy->key = record.key;
    copy->displayName = record.displayName;
    copy->path = record.path;
    copy->imageIndex = record.imageIndex;
    copy->flags = record.flags;
    return copy;
  }

  FavoriteList& merged_;
  const FoldCase fold_;
  std::unordered_map<std::string, std::vector<FavoriteRecord*>> unmatched_;  // by folded key, first one last
  std::unordered_map<const FavoriteRecord*, FavoriteRecord*> placed_;        // the tree's: the merged one
};

std::string WithPlatformLineEnds(const std::string& text) {
#ifdef _WIN32
  std::string lines;
  lines.reserve(text.size() + text.size() / 16);
  for (const char letter : text) {
    if (letter == '\n') lines += '\r';
    lines += letter;
  }
  return lines;
#else
  return text;
#endif
}

// Whether the entries from `first` on are all that there are.
bool WritesAll(const FavoriteList& list, const FavoriteRecord* first) {
  return list.topLevel().empty() || first == list.topLevel().front();
}

RecoveryCalls::Writing KeepAll(const std::string& path, RecoveryCalls& calls, const FavoriteList& list,
                               FavoriteRecord* first) {
  using Reading = RecoveryCalls::Reading;
  using Writing = RecoveryCalls::Writing;
  std::string kept;
  const std::string all = AllFavoritesPath(path);
  const Reading reading = calls.Read(all, &kept);
  if (reading == Reading::kMissing && WritesAll(list, first)) return Writing::kWritten;
  if (reading == Reading::kFailed) return Writing::kRefused;  // what can't be read must not be replaced
  const std::string merged = WithPlatformLineEnds(MergeFavorites(kept, list, list.fold()));
  if (merged == kept) return Writing::kWritten;
  return base::ReplaceContent(calls, all, merged);
}

std::optional<std::string> CompleteCutSave(const std::string& path, const FavoritesFileCalls& files,
                                           SaveRecovery& recovery) {
  return recovery.CompleteCutSave([&](const std::string& text, SaveProgress) {
    return WriteFavoritesText(path, files, text) == FavoritesSaved::kNew;
  });
}

}  // namespace

std::string AllFavoritesPath(const std::string& path) {
  const std::size_t name = path.find_last_of("\\/") + 1;  // 0 without a folder
  const std::size_t dot = path.rfind('.');
  const bool hasExtension = dot != std::string::npos && dot >= name;
  const std::size_t end = hasExtension ? dot : path.size();
  return path.substr(0, end) + ".all" + path.substr(end);
}

std::string MergeFavorites(std::string_view kept, const FavoriteList& tree, FoldCase fold) {
  FavoriteList merged(fold);
  merged.BeginLoading();
  ReadFavoritesText(kept, merged, PlaceIn(merged));
  merged.EndLoading();
  Merge(merged, fold).Put(tree);
  return FavoritesText(merged, merged.topLevel().empty() ? nullptr : merged.topLevel().front());
}

bool LoadFavorites(const std::string& path, const FavoritesFileCalls& files, RecoveryCalls& calls,
                   const FavoriteList& list, const PlaceFavorite& place) {
  SaveRecovery recovery(path, calls);
  const std::optional<std::string> text = CompleteCutSave(path, files, recovery);
  if (!text) return ReadFavoritesFile(path, files, list, place);
  ReadFavoritesText(*text, list, place);
  return !list.empty();
}

void SaveFavorites(const std::string& path, const FavoritesFileCalls& files, RecoveryCalls& calls,
                   const FavoriteList& list, FavoriteRecord* first) {
  using Kept = SaveRecovery::Kept;
  SaveRecovery recovery(path, calls);
  CompleteCutSave(path, files, recovery);
  if (KeepAll(path, calls, list, first) != RecoveryCalls::Writing::kWritten && !WritesAll(list, first))
    return;
  const std::string text = FavoritesText(list, first);
  const Kept kept = recovery.KeepNew(text);
  if (kept == Kept::kNoRoom || kept == Kept::kInTheWay) return;
  // After a failed write the record stays: the next load makes the file of it.
  if (WriteFavoritesText(path, files, text) != FavoritesSaved::kNeither) recovery.Finish();
}

}  // namespace file_explorer
