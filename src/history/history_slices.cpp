#include "src/history/history_slices.h"

#include <algorithm>
#include <charconv>

namespace file_explorer {
namespace {

constexpr std::size_t kLargestText = std::size_t{64} << 20;
constexpr std::size_t kLargestSum = std::size_t{128} << 20;  // of all slices
constexpr std::string_view kBlanks = " \t";

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

// The entry that a line belongs to; -1 for any other line.
int EntryOfLine(std::string_view line) {
  const std::size_t sign = line.find('=');
  return sign == std::string_view::npos ? -1 : EntryOfKey(Trim(line.substr(0, sign)));
}

// Ends of lines are the same to everybody, and the text is in bytes.
bool CanBeCut(std::string_view text) {
  if (text.size() > kLargestText) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '\0' || c == '\x1A') return false;
    if (c == '\r' && (i + 1 == text.size() || text[i + 1] != '\n')) return false;
  }
  return !text.starts_with("\xFF\xFE") && !text.starts_with("\xFE\xFF");
}

// Gives each line, with its end, to see.
template <typename See>
void ForEachLine(std::string_view text, See see) {
  while (!text.empty()) {
    const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
    see(text.substr(0, length));
    text.remove_prefix(length);
  }
}

}  // namespace

int EntryOfKey(std::string_view key) {
  constexpr std::string_view kLetters = "dmfpDMFP";
  constexpr std::size_t kMostDigits = 9;
  if (key.size() < 2 || key.size() > kMostDigits + 1 || kLetters.find(key[0]) == std::string_view::npos)
    return -1;
  if (key[1] == '0' && key.size() > 2) return -1;  // the program writes no zeros in front
  int entry = 0;
  const char* const end = key.data() + key.size();
  const auto [stop, error] = std::from_chars(key.data() + 1, end, entry);
  return error == std::errc() && stop == end && entry >= 0 ? entry : -1;
}

std::vector<std::string> CutHistory(std::string_view text) {
  if (!CanBeCut(text)) return {};
  int last = -1;
  int lines = 0;
  std::size_t common = 0;
  ForEachLine(text, [&](std::string_view line) {
    const int entry = EntryOfLine(line);
    if (entry < 0) {
      common += line.size();
    } else {
      ++lines;
      last = std::max(last, entry);
    }
  });
  last = std::min(last, lines);
  if (last < kFirstCutEntry) return {};
  const auto count = static_cast<std::size_t>((last - kFirstCutEntry) / kEntriesPerSlice + 1);
  if (count > kLargestSum / (common + 1)) return {};
  std::vector<std::string> slices(count);
  ForEachLine(text, [&](std::string_view line) {
    const int entry = EntryOfLine(line);
    if (entry < 0) {
      for (std::string& slice : slices) slice += line;
    } else if (entry >= kFirstCutEntry && entry <= last) {
      slices[static_cast<std::size_t>((entry - kFirstCutEntry) / kEntriesPerSlice)] += line;
    }
  });
  return slices;
}

}  // namespace file_explorer
