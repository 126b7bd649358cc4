// The thumbnails of history rows: wanted when a row is painted, made between paintings, and kept. No Windows in here.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "src/history/history_entry.h"
#include "src/preview/picture.h"

namespace file_explorer {

class RowThumbnails {
 public:
  struct Source {
    // None where none can be made. May take its time.
    std::function<std::optional<preview::Preview>(const HistoryEntry& entry)> make;
    // Changes whenever the file at a path does; quick.
    std::function<std::uint64_t(const std::string& path)> stamp;
    std::function<std::uint64_t()> now;  // milliseconds from any start
  };
  RowThumbnails(Source source, CaseFolder foldCase);

  // A new painting begins: what rows wanted that are in sight no more is forgotten.
  void BeginPainting() { wanted_.clear(); }

  struct Answer {
    const preview::Preview* preview =
        nullptr;           // stays valid until the next call of a function that is not const
    bool isLater = false;  // wanted now: call MakeWanted, and ask again in another painting
  };
  // What there is at once: makes nothing and asks no disk, as rows are painted with it.
  Answer Of(const HistoryEntry& entry);

  // Makes one thumbnail that rows wanted, the first of them whose file is new or has changed. False when there was none to
  // make, and when the object went while one was made. May take its time, once; the caller lets input and painting go on
  // before the next.
  bool MakeWanted();

  // Of entries that are gone.
  void Clear() {
    kept_.clear();
    wanted_.clear();
  }

  // The thumbnail that was not asked for for the longest time goes when there are more.
  static constexpr std::size_t kMostKept = 256;
  static constexpr std::uint64_t kLookEveryMs = 1000;  // whether a file has changed

 private:
  struct Kept {
    std::optional<preview::Preview> preview;  // none where none could be made
    std::uint64_t stamp = 0;
    std::uint64_t lookedAt = 0;
    std::uint64_t used = 0;
  };
  std::string KeyOf(const HistoryEntry& entry) const;
  bool IsFresh(const std::string& key, const HistoryEntry& entry);
  void DropOldest();

  const std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);  // dies with the object
  Source source_;
  CaseFolder foldCase_;
  std::map<std::string, Kept> kept_;  // by path
  std::vector<HistoryEntry> wanted_;  // copies, in the order of the rows: entries may go at any time
  std::uint64_t uses_ = 0;
};

}  // namespace file_explorer
