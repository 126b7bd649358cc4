// One favourite: a folder, or a reference to a file or folder on disk. No Windows in here.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace file_explorer {

// Bits of a favourite's flags. Others that a file brings are kept.
inline constexpr int kFavoriteFolder = 1;        // may hold children
inline constexpr int kFavoriteChecked = 2;       // its check mark is set
inline constexpr int kFavoriteDraggable = 4;     // may be dragged to another folder
inline constexpr int kFavoriteAcceptsDrop = 16;  // takes entries that are dropped on it
inline constexpr int kFavoriteProtected = 32;    // can be neither deleted nor renamed

inline constexpr int kRootFolderFlags = kFavoriteFolder | kFavoriteAcceptsDrop | kFavoriteProtected;
inline constexpr int kNewFolderFlags = kFavoriteFolder | kFavoriteDraggable | kFavoriteAcceptsDrop;
inline constexpr int kReferenceFlags = kFavoriteDraggable;

inline constexpr int kFolderImage = 0;
inline constexpr int kReferenceImage = 1;

struct FavoriteRecord {
  std::string key;          // unique; its children's parent key in the file
  std::string displayName;  // empty: none
  std::string path;         // what a reference points to; empty: none
  int imageIndex = 0;
  int flags = 0;

  bool isWritten = false;  // while a save is in progress: already in the file
  bool isDeleted = false;  // deleted, and kept until the next load

  // Place in the tree, maintained by FavoriteList. children stand in the order that the tree shows.
  FavoriteRecord* parent = nullptr;
  std::vector<FavoriteRecord*> children;
  bool areChildrenSorted = true;  // a rename below it may have left them unsorted
  std::string sortKey;            // displayName without its case
  void* treeItem = nullptr;       // the tree control's item; the list never looks at it

  bool Has(int flag) const { return (flags & flag) != 0; }
};

// Gives a text in which letters that differ only in case are the same.
using FoldCase = std::string (*)(std::string_view);
// The letters A to Z only; what Windows code uses knows the code page's letters.
std::string FoldAsciiLetters(std::string_view text);

}  // namespace file_explorer
