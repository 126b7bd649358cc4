// The time stamps of archives.
#pragma once

#include <cstdint>

namespace controls {

// A DOS date and time (wall clock of whoever made the archive, steps of two seconds) as 100 ns units since
// 1601, still wall clock. 0 for a date or time that does not exist.
uint64_t TicksOfDosTime(uint16_t date, uint16_t time);

}  // namespace controls
