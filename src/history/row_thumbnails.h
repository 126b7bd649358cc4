// The thumbnails of history rows: made when a row is first painted and kept. No Windows in here.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

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

  // A new painting begins. What all rows of one painting take together is limited: when it is used up, the
  // other rows have to wait for the next painting.
  void BeginPainting() { spent_ = 0; }

  struct Answer {
    const preview::Preview* preview =
        nullptr;           // stays valid until the next call of a function that is not const
    bool isLater = false;  // ask again in another painting
  };
  Answer Of(const HistoryEntry& entry);

  // Of entries that are gone.
  void Clear() { kept_.clear(); }

  // The thumbnail that was not asked for for the longest time goes when there are more.
  static constexpr std::size_t kMostKept = 256;
  static constexpr std::uint64_t kPaintingMs = 120;
  static constexpr std::uint64_t kLookEveryMs = 1000;  // whether a file has changed

 private:
  struct Kept {
    std::optional<preview::Preview> preview;  // none where none could be made
    std::uint64_t stamp = 0;
    std::uint64_t lookedAt = 0;
    std::uint64_t used = 0;
  };
  void DropOldest();

  Source source_;
  CaseFolder foldCase_;
  std::map<std::string, Kept> kept_;  // by path
  std::uint64_t spent_ = 0;           // milliseconds of this painting
  std::uint64_t uses_ = 0;
};

}  // namespace file_explorer
