// favorites.dat: any bytes give a tree, and what is written of it is read back as the same tree.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "src/favorites/favorites_file.h"

using namespace file_explorer;

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

PlaceFavorite PlaceIn(FavoriteList& list) {
  return [&list](std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent) {
    return list.Add(std::move(record), parent);
  };
}

// The file calls on a text in memory.
struct TextFile {
  char* written = nullptr;
  std::size_t size = 0;

  FavoritesFileCalls Calls(std::string& content) {
    FavoritesFileCalls calls;
    calls.open = [this, &content](const char*, const char* mode) {
      if (mode[0] == 'w') return open_memstream(&written, &size);
      return fmemopen(content.data(), content.size(), "r");
    };
    calls.exists = [](const char*) { return false; };
    calls.remove = [](const char*) {};
    calls.rename = [](const char*, const char*) {};
    calls.backupName = [](const std::string&) { return std::string(); };
    return calls;
  }
};

std::string Write(const FavoriteList& list) {
  TextFile file;
  std::string unused;
  WriteFavoritesText("x", file.Calls(unused), FavoritesText(list, list.topLevel().front()));
  const std::string text(file.written, file.size);
  std::free(file.written);
  return text;
}

void Read(std::string text, FavoriteList& list) {
  TextFile file;
  if (!text.empty()) ReadFavoritesFile("x", file.Calls(text), list, PlaceIn(list));
}

// Each record with the place that it has, in the order of the tree.
std::string Shape(const FavoriteList& list) {
  std::string shape;
  std::vector<std::pair<const FavoriteRecord*, int>> pending;
  for (const FavoriteRecord* const record : list.topLevel()) pending.emplace_back(record, 0);
  while (!pending.empty()) {
    const auto [record, depth] = pending.back();
    pending.pop_back();
    shape += std::to_string(depth) + record->key + '\n' + record->displayName + '\n' + record->path + '\n';
    for (const FavoriteRecord* const child : record->children) pending.emplace_back(child, depth + 1);
  }
  return shape;
}

// Sorting once at the end gives the tree of placing one by one; a record that is taken off takes no other
// with it.
void CheckLoadingAtOnce(const std::string& text, const FavoriteList& oneByOne) {
  FavoriteList list;
  list.BeginLoading();
  Read(text, list);
  list.EndLoading();
  Require(Shape(list) == Shape(oneByOne));
  if (list.empty()) return;
  const size_t count = list.records().size();
  list.Remove(*list.records().front());
  Require(list.records().size() == count - 1);
  for (const auto& record : list.records()) Require(list.FindByKey(record->key) != nullptr);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FavoriteList list;
  Read(std::string(reinterpret_cast<const char*>(data), size), list);
  CheckLoadingAtOnce(std::string(reinterpret_cast<const char*>(data), size), list);
  for (const auto& record : list.records())
    Require(record->parent == nullptr || LiesWithin(*record, *record->parent));
  if (list.topLevel().empty()) {
    Require(list.empty());
    return 0;
  }
  // Records of one key may change places among each other once; after that the text is stable.
  const std::string first = Write(list);
  FavoriteList again;
  Read(first, again);
  Require(again.records().size() == list.records().size());
  FavoriteList third;
  Read(Write(again), third);
  Require(third.records().size() == list.records().size());
  return 0;
}
