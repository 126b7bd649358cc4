// The record of a save that was cut short: any bytes are refused or are exactly one record, and a history or
// a tree of favorites is made of any text in it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "base/files/recovery_record.h"
#include "src/favorites/favorites_file.h"
#include "src/favorites/favorites_store.h"
#include "src/history/history_values.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

void CheckHistory(std::string_view text) {
  const file_explorer::HistoryValues values = file_explorer::ValuesOfHistory(text);
  const std::string written = file_explorer::TextOfHistory(values);
  file_explorer::HistoryText first(text);
  file_explorer::HistoryText again(written);
  for (const auto& value : values) {
    Require(first.ReadText(value.key.c_str()) == again.ReadText(value.key.c_str()) ||
            value.key.find('\0') != std::string::npos || value.key.find('[') != std::string::npos);
  }
}

void CheckFavorites(std::string_view text) {
  file_explorer::FavoriteList list;
  file_explorer::ReadFavoritesText(
      text, list,
      [&](std::unique_ptr<file_explorer::FavoriteRecord> record, file_explorer::FavoriteRecord* parent) {
        return list.Add(std::move(record), parent);
      });
  const std::string merged = file_explorer::MergeFavorites(text, list, file_explorer::FoldAsciiLetters);
  file_explorer::FavoriteList both;
  file_explorer::ReadFavoritesText(
      merged, both,
      [&](std::unique_ptr<file_explorer::FavoriteRecord> record, file_explorer::FavoriteRecord* parent) {
        return both.Add(std::move(record), parent);
      });
  Require(both.records().size() == list.records().size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto record = base::ParseRecoveryRecord(bytes);
  if (record) {
    const auto again = base::ParseRecoveryRecord(base::FormatRecoveryRecord(*record));
    Require(again && again->text == record->text && again->previous == record->previous);
    base::ProgressOfSave(*record, std::string(bytes));
  }
  // What a record of this text would bring back.
  const auto own = base::ParseRecoveryRecord(base::FormatRecoveryRecord({std::string(bytes), std::nullopt}));
  Require(own && own->text == bytes);
  Require(base::ProgressOfSave(*own, std::string(bytes)) == base::SaveProgress::kDone);
  const std::string beginning(bytes.substr(0, size / 2));
  Require(base::ProgressOfSave(*own, beginning) != base::SaveProgress::kUnknown);
  CheckHistory(bytes);
  CheckFavorites(bytes);
  return 0;
}
