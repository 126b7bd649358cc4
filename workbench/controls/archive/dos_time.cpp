#include "workbench/controls/archive/dos_time.h"

namespace controls {
namespace {

constexpr uint64_t kTicksPerSecond = 10'000'000;

bool IsLeapYear(int year) {
  return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
}

int DaysInMonth(int year, int month) {
  static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

// Days from the first of January 1601 to the first of January of a year.
int DaysBeforeYear(int year) {
  const int years = year - 1601;
  return years * 365 + years / 4 - years / 100 + years / 400;
}

}  // namespace

uint64_t TicksOfDosTime(uint16_t date, uint16_t time) {
  const int year = 1980 + (date >> 9);
  const int month = (date >> 5) & 15;
  const int day = date & 31;
  const int hour = time >> 11;
  const int minute = (time >> 5) & 63;
  const int second = (time & 31) * 2;
  if (month < 1 || month > 12 || day < 1 || day > DaysInMonth(year, month)) return 0;
  if (hour > 23 || minute > 59 || second > 59) return 0;
  int days = DaysBeforeYear(year) + day - 1;
  for (int before = 1; before < month; ++before) days += DaysInMonth(year, before);
  const uint64_t seconds = ((static_cast<uint64_t>(days) * 24 + static_cast<uint64_t>(hour)) * 60 +
                            static_cast<uint64_t>(minute)) *
                               60 +
                           static_cast<uint64_t>(second);
  return seconds * kTicksPerSecond;
}

}  // namespace controls
