// The history's file as keys and values: how an entry becomes values, and how a text of them is read.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "src/history/history_entry.h"

namespace file_explorer {

// The keys of the file's section.
inline constexpr char kHistorySection[] = "HistoryList";
inline constexpr char kEntryCountKey[] = "NumEntries";
// 'd' display name, 'm' last access, 'f' full path, 'p' parsing name of the item.
std::string HistoryKey(char letter, int index);

// Longest value that comes back whole.
inline constexpr std::size_t kLongestHistoryValue = 8191;

// One key with its value as it stands behind the "=".
struct HistoryValue {
  std::string key;
  std::string text;
  std::optional<HistoryTime>
      time;  // for a value that is written as a structure; text is its form in the file
};
using HistoryValues = std::vector<HistoryValue>;

// Adds a value that reads back as `text`: in quotes when the profile calls would take blanks or quotes off
// its ends. An empty text has no key.
enum class Lossy {
  kNo,   // a text that the file can't hold (line ends, too long) gets no key: cut, a path names another file
  kYes,  // such a text is cut, its line ends become "?"
};
void AddTextValue(HistoryValues* values, std::string key, std::string_view text, Lossy lossy);
void AddTimeValue(HistoryValues* values, std::string key, const HistoryTime& time);

// The whole file, and the values in such a text in their order. Lines that are no value are left out.
std::string TextOfHistory(const HistoryValues& values);
HistoryValues ValuesOfHistory(std::string_view text);

// What reading a value gives: without blanks and one pair of quotes around it.
std::string ReadFormOf(std::string_view value);

// Where a history is read from.
class HistorySource {
 public:
  virtual ~HistorySource() = default;
  // Empty when the key is missing.
  virtual std::string ReadText(const char* key) = 0;
  // False, with *time unchanged, when the key is missing or its value is no well-formed time.
  virtual bool ReadTime(const char* key, HistoryTime* time) = 0;
};

// A text of values, read as the profile calls read a file of it.
class HistoryText final : public HistorySource {
 public:
  explicit HistoryText(std::string_view text);
  std::string ReadText(const char* key) override;
  bool ReadTime(const char* key, HistoryTime* time) override;

 private:
  std::unordered_map<std::string, std::string> values_;  // the first of several with the same key
};

}  // namespace file_explorer
