#include "src/history/history_entry.h"

namespace file_explorer {
namespace {

constexpr unsigned kFirstYear = 1601;  // what the platform's conversion accepts
constexpr unsigned kLastYear = 30827;

bool IsLeapYear(unsigned year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

unsigned DaysInMonth(unsigned year, unsigned month) {
  static constexpr unsigned char kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return kDays[month - 1] + (month == 2 && IsLeapYear(year) ? 1u : 0u);
}

bool IsValid(const HistoryTime& time) {
  return time.year >= kFirstYear && time.year <= kLastYear && time.month >= 1 && time.month <= 12 &&
         time.day >= 1 && time.day <= DaysInMonth(time.year, time.month) && time.hour < 24 &&
         time.minute < 60 && time.second < 60 && time.milliseconds < 1000;
}

std::uint64_t DaysSinceFirstYear(const HistoryTime& time) {
  const std::uint64_t years = time.year - kFirstYear;  // 1601 starts a cycle of 400 years
  std::uint64_t days = years * 365 + years / 4 - years / 100 + years / 400;
  for (unsigned month = 1; month < time.month; ++month) days += DaysInMonth(time.year, month);
  return days + time.day - 1;
}

}  // namespace

std::optional<std::uint64_t> ToFileTime(const HistoryTime& time) {
  if (!IsValid(time)) return std::nullopt;
  const std::uint64_t seconds =
      ((DaysSinceFirstYear(time) * 24 + time.hour) * 60 + time.minute) * 60 + time.second;
  return (seconds * 1000 + time.milliseconds) * 10000;
}

std::string FoldAsciiCase(std::string_view text) {
  std::string folded(text);
  for (char& letter : folded) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return folded;
}

}  // namespace file_explorer
