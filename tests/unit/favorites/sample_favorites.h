// Short ways to build and to read favourites in tests.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "src/favorites/favorite_list.h"
#include "src/favorites/favorites_file.h"

namespace file_explorer {

inline std::unique_ptr<FavoriteRecord> Folder(std::string name, int flags = kNewFolderFlags) {
  auto record = std::make_unique<FavoriteRecord>();
  record->key = "key of " + name;
  record->displayName = std::move(name);
  record->flags = flags;
  return record;
}

inline std::unique_ptr<FavoriteRecord> Reference(std::string name, std::string path = "C:\\file") {
  auto record = std::make_unique<FavoriteRecord>();
  record->key = "key of " + name;
  record->displayName = std::move(name);
  record->path = std::move(path);
  record->flags = kReferenceFlags;
  record->imageIndex = kReferenceImage;
  return record;
}

// "Folder(child child(…) …)" of the tree as it is shown.
inline std::string Outline(const std::vector<FavoriteRecord*>& level) {
  std::string text;
  for (const FavoriteRecord* const record : level) {
    if (!text.empty()) text += ' ';
    text += record->displayName;
    if (!record->children.empty()) text += "(" + Outline(record->children) + ")";
  }
  return text;
}

inline PlaceFavorite PlaceIn(FavoriteList& list) {
  return [&list](std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent) {
    return list.Add(std::move(record), parent);
  };
}

// Reads a text line by line, as a file of it would be.
inline void ReadText(FavoriteList& list, std::string_view text) {
  FavoritesReader reader(list, PlaceIn(list));
  while (!text.empty()) {
    const size_t end = text.find('\n');
    const size_t length = end == std::string_view::npos ? text.size() : end + 1;
    reader.ReadLine(text.substr(0, length));
    text.remove_prefix(length);
  }
}

}  // namespace file_explorer
