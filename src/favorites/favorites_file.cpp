#include "src/favorites/favorites_file.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace file_explorer {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using UniqueFile = std::unique_ptr<std::FILE, FileCloser>;

bool IsLineEnd(char letter) {
  return letter == '\n' || letter == '\r';
}

std::string OnOneLine(std::string text) {
  std::replace_if(text.begin(), text.end(), IsLineEnd, '?');
  return text;
}

bool IsBlank(char letter) {
  return letter == ' ' || (letter >= '\t' && letter <= '\r');
}

// Decimal digits behind optional blanks and a sign; 0 when there are none. Numbers that are too large stay at
// the limit.
int ParseDecimal(std::string_view text) {
  size_t at = 0;
  while (at < text.size() && IsBlank(text[at])) ++at;
  const bool isNegative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  std::int64_t value = 0;
  for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at) {
    value = std::min<std::int64_t>(value * 10 + (text[at] - '0'), std::int64_t{1} << 31);
  }
  if (isNegative) value = -value;
  return static_cast<int>(std::min<std::int64_t>(value, std::numeric_limits<int>::max()));
}

// The lines of the entries from `first` on, depth first. Not recursive: a file can nest deeper than a stack.
std::string TextOfEntries(const FavoriteList& list, FavoriteRecord* first) {
  struct Pending {
    FavoriteRecord* record;
    const FavoriteRecord* parent;
  };
  std::string text;
  if (first == nullptr) return text;
  std::vector<Pending> pending;
  const auto push = [&pending](auto begin, auto end, const FavoriteRecord* parent) {
    for (auto at = end; at != begin;) pending.push_back({*--at, parent});
  };
  const auto& siblings = list.SiblingsOf(*first);
  push(std::find(siblings.begin(), siblings.end(), first), siblings.end(), nullptr);
  while (!pending.empty()) {
    const auto [record, parent] = pending.back();
    pending.pop_back();
    if (record->isWritten || record->isDeleted) continue;
    record->isWritten = true;
    text += FavoriteLines(*record, parent);
    push(record->children.begin(), record->children.end(), record);
  }
  return text;
}

}  // namespace

bool WriteText(std::FILE* file, const std::string& text) {
  return std::fwrite(text.data(), 1, text.size(), file) == text.size();
}

FavoritesReader::FavoritesReader(const FavoriteList& list, PlaceFavorite place)
    : list_(list), place_(std::move(place)) {}

void FavoritesReader::ReadLine(std::string_view line) {
  for (int i = 0; i < 2; ++i) {
    if (!line.empty() && IsLineEnd(line.back())) line.remove_suffix(1);
  }
  if (line.empty()) return;
  const std::string_view value = line.substr(std::min<size_t>(2, line.size()));
  if (line[0] == 'K') {
    current_ = std::make_unique<FavoriteRecord>();
    current_->key = value;
    return;
  }
  if (!current_) return;
  switch (line[0]) {
    case 's':
      current_->flags = ParseDecimal(value);
      break;
    case 'i':
      current_->imageIndex = ParseDecimal(value);
      break;
    case 'd':
      current_->displayName = value;
      break;
    case 'n':
      current_->path = value;
      break;
    case 'p':
      Close(list_.FindByKey(value));
      break;
    case 'E':
      Close(nullptr);
      break;
    default:
      break;
  }
}

void FavoritesReader::Close(FavoriteRecord* parent) {
  place_(std::move(current_), parent);
}

std::string FavoriteLines(const FavoriteRecord& record, const FavoriteRecord* parent) {
  std::string lines = "K=" + record.key + "\ns=" + std::to_string(record.flags) +
                      "\ni=" + std::to_string(record.imageIndex) + "\n";
  if (!record.displayName.empty()) lines += "d=" + OnOneLine(record.displayName) + "\n";
  if (!record.path.empty() && std::none_of(record.path.begin(), record.path.end(), IsLineEnd)) {
    lines += "n=" + record.path + "\n";
  }
  return lines + (parent != nullptr ? "p=" + parent->key + "\n" : "E\n");
}

bool ReadFavoritesFile(const std::string& path, const FavoritesFileCalls& calls, const FavoriteList& list,
                       const PlaceFavorite& place) {
  const UniqueFile file(calls.open(path.c_str(), "rt"));
  if (!file) return false;
  FavoritesReader reader(list, place);
  const auto line = std::make_unique<std::array<char, kFavoriteLineSize>>();
  while (std::fgets(line->data(), kFavoriteLineSize, file.get()) != nullptr) reader.ReadLine(line->data());
  return !list.empty();
}

void ReadFavoritesText(std::string_view text, const FavoriteList& list, const PlaceFavorite& place) {
  FavoritesReader reader(list, place);
  while (!text.empty()) {
    const size_t length = std::min({text.find('\n'), text.size() - 1, size_t{kFavoriteLineSize} - 2}) + 1;
    reader.ReadLine(text.substr(0, length));
    text.remove_prefix(length);
  }
}

std::string FavoritesText(const FavoriteList& list, FavoriteRecord* first) {
  for (const auto& record : list.records()) record->isWritten = record->isDeleted;
  return TextOfEntries(list, first);
}

FavoritesSaved WriteFavoritesText(const std::string& path, const FavoritesFileCalls& calls,
                                  const std::string& text) {
  UniqueFile file(calls.open(path.c_str(), "wt"));
  if (!file) return FavoritesSaved::kOld;
  // The data file is open and empty by now, so that the platform refuses the rename and the file is rewritten
  // in place without a backup. This order is deliberate and kept.
  std::string backup;
  if (calls.exists(path.c_str())) {
    backup = calls.backupName(path);
    if (!backup.empty()) {
      calls.remove(backup.c_str());
      calls.rename(path.c_str(), backup.c_str());
    }
  }
  const bool isWritten = calls.write(file.get(), text);
  std::fflush(file.get());  // so that the stream knows of errors of its last block too
  if (isWritten && std::ferror(file.get()) == 0 && std::fclose(file.release()) == 0) return FavoritesSaved::kNew;
  // The stream is still open, so that the platform refuses to remove the file: what was written of it stays.
  calls.remove(path.c_str());
  if (!backup.empty()) calls.rename(backup.c_str(), path.c_str());
  return FavoritesSaved::kNeither;
}

}  // namespace file_explorer
