#include "src/history/history_values.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <utility>

namespace file_explorer {
namespace {

constexpr std::size_t kTimeBytes = sizeof(HistoryTime);
constexpr std::string_view kBlanks = " \t\v\f\r\n";
constexpr std::string_view kLineEnds("\r\n\0", 3);

bool IsQuoted(std::string_view text) {
  return text.size() >= 2 && (text[0] == '"' || text[0] == '\'') && text.back() == text[0];
}

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string WithoutLineEnds(std::string_view text) {
  std::string plain(text.substr(0, kLongestHistoryValue));
  std::replace_if(
      plain.begin(), plain.end(), [](char c) { return kLineEnds.find(c) != std::string_view::npos; }, '?');
  return plain;
}

std::string TimeText(const HistoryTime& time) {
  static constexpr char kDigits[] = "0123456789ABCDEF";
  std::string text;
  unsigned sum = 0;
  const auto add = [&text](unsigned byte) {
    text += kDigits[byte >> 4];
    text += kDigits[byte & 15];
  };
  for (const unsigned char byte : std::bit_cast<std::array<unsigned char, kTimeBytes>>(time)) {
    sum += byte;
    add(byte);
  }
  add(sum & 0xFF);
  return text;
}

int DigitOf(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

std::optional<HistoryTime> ParseTime(std::string_view text) {
  if (text.size() != 2 * kTimeBytes + 2) return std::nullopt;
  std::array<unsigned char, kTimeBytes + 1> bytes = {};
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const int high = DigitOf(text[2 * i]);
    const int low = DigitOf(text[2 * i + 1]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes[i] = static_cast<unsigned char>(high * 16 + low);
  }
  std::array<unsigned char, kTimeBytes> time = {};
  std::copy_n(bytes.begin(), kTimeBytes, time.begin());
  unsigned sum = 0;
  for (const unsigned char byte : time) sum += byte;
  if ((sum & 0xFF) != bytes.back()) return std::nullopt;
  return std::bit_cast<HistoryTime>(time);
}

}  // namespace

std::string HistoryKey(char letter, int index) {
  return letter + std::to_string(index);
}

void AddTextValue(HistoryValues* values, std::string key, std::string_view text, Lossy lossy) {
  if (text.empty()) return;
  const bool fits =
      text.size() + 2 <= kLongestHistoryValue && text.find_first_of(kLineEnds) == std::string_view::npos;
  if (!fits && lossy == Lossy::kNo) return;
  std::string value = fits ? std::string(text) : WithoutLineEnds(text);
  if (Trim(value) != value || IsQuoted(value)) value = '"' + value + '"';
  values->push_back({std::move(key), std::move(value), std::nullopt});
}

void AddTimeValue(HistoryValues* values, std::string key, const HistoryTime& time) {
  values->push_back({std::move(key), TimeText(time), time});
}

std::string TextOfHistory(const HistoryValues& values) {
  std::string text = '[' + std::string(kHistorySection) + "]\n";
  for (const HistoryValue& value : values) text += value.key + '=' + value.text + '\n';
  return text;
}

HistoryValues ValuesOfHistory(std::string_view text) {
  HistoryValues values;
  while (!text.empty()) {
    const std::size_t length = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, length);
    text.remove_prefix(std::min(length + 1, text.size()));
    const std::size_t sign = line.find('=');
    if (sign == 0 || sign == std::string_view::npos) continue;
    std::string_view value = line.substr(sign + 1);
    if (value.ends_with('\r')) value.remove_suffix(1);
    values.push_back({std::string(line.substr(0, sign)), std::string(value), std::nullopt});
  }
  return values;
}

std::string ReadFormOf(std::string_view value) {
  std::string_view read = Trim(value);
  if (IsQuoted(read)) read = read.substr(1, read.size() - 2);
  return std::string(read.substr(0, kLongestHistoryValue));
}

HistoryText::HistoryText(std::string_view text) {
  for (HistoryValue& value : ValuesOfHistory(text)) {
    values_.try_emplace(std::move(value.key), std::move(value.text));
  }
}

std::string HistoryText::ReadText(const char* key) {
  const auto found = values_.find(key);
  return found == values_.end() ? std::string() : ReadFormOf(found->second);
}

bool HistoryText::ReadTime(const char* key, HistoryTime* time) {
  const std::optional<HistoryTime> read = ParseTime(ReadText(key));
  if (read) *time = *read;
  return read.has_value();
}

}  // namespace file_explorer
