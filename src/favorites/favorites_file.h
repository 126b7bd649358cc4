// favorites.dat: one text line a field, one closing line a record.
//
//   K=key  s=flags  i=image  d=display name  n=path  and then  p=parent's key  or  E  for the top level
#pragma once

#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "src/favorites/favorite_list.h"

namespace file_explorer {

// Longest piece of a line that is read at once, with its terminator; a longer line counts as several.
inline constexpr int kFavoriteLineSize = 32768;

// Where the reader's records go: adds the record below parent (null: top level). Null when it was refused.
using PlaceFavorite =
    std::function<FavoriteRecord*(std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent)>;

// Turns lines into records.
class FavoritesReader {
 public:
  // list finds the parents; place puts the records into it.
  FavoritesReader(const FavoriteList& list, PlaceFavorite place);
  // One line or piece of a line, with or without its line end.
  void ReadLine(std::string_view line);

 private:
  void Close(FavoriteRecord* parent);

  const FavoriteList& list_;
  PlaceFavorite place_;
  std::unique_ptr<FavoriteRecord> current_;  // not placed yet; fields that come without one are dropped
};

// The record's lines, closed by its parent's key (null: the top level). A path with a line end in it is left
// out: cut, it would name another file.
std::string FavoriteLines(const FavoriteRecord& record, const FavoriteRecord* parent);

// Puts the text into the stream; false when less of it went in.
bool WriteText(std::FILE* file, const std::string& text);

// The calls that reading and writing make; tests put failing ones in their place.
struct FavoritesFileCalls {
  std::function<std::FILE*(const char* path, const char* mode)> open;
  std::function<bool(const char* path)> exists;
  std::function<void(const char* path)> remove;
  std::function<void(const char* from, const char* to)>
      rename;  // refused while the file is open, as the platform does
  std::function<std::string(const std::string& path)> backupName;  // empty: none
  std::function<bool(std::FILE* file, const std::string& text)> write = WriteText;
};

// Adds the file's records to the (empty) list through place. True when the list holds at least one
// afterwards.
bool ReadFavoritesFile(const std::string& path, const FavoritesFileCalls& calls, const FavoriteList& list,
                       const PlaceFavorite& place);

// As ReadFavoritesFile, of a text.
void ReadFavoritesText(std::string_view text, const FavoriteList& list, const PlaceFavorite& place);

// The lines of `first` and the siblings after it, each with everything below it, as the top level. `first` is
// the tree's first visible entry and null for an empty tree. Marks what it takes as written.
std::string FavoritesText(const FavoriteList& list, FavoriteRecord* first);

// What the file holds after a save.
enum class FavoritesSaved {
  kNew,
  kOld,      // it could not be opened and is what it was
  kNeither,  // a write failed
};
// All steps of a save of such a text, which goes out in one block.
FavoritesSaved WriteFavoritesText(const std::string& path, const FavoritesFileCalls& calls,
                                  const std::string& text);

}  // namespace file_explorer
