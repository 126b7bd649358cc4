// How values travel to and from the shell controls: PIDLs in doubles, display modes, event numbers,
// coordinates.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace file_explorer {

// A PIDL's address as a control takes it: the pointer's 64 bits as a double, without conversion.
double PidlBitsAsDouble(std::uint64_t address) noexcept;
// The address in a value that a control gave: the number itself, truncated. The two directions differ on
// purpose. 0 for what no 64-bit integer holds.
std::uint64_t AddressFromNumber(double number) noexcept;

// The control's view value of a display mode's name ("LargeIcon" 0, "Report" 1, "SmallIcon" 2, "List" 3,
// "Thumbnails" 4); names are compared exactly. Nothing for any other name.
std::optional<std::int32_t> ViewValueOfDisplayMode(std::string_view name) noexcept;

// An event's 32-bit number as the callback gets it: its low 16 bits, sign-extended. Deliberate: all values
// that the controls send fit.
std::int64_t EventNumber(std::int32_t value) noexcept;
// An event's truth value as the callback gets it: 0 or -1.
std::int64_t EventFlag(std::int16_t value) noexcept;

// Whether a control's events know a dispatch id. What they don't know is "member not found".
bool IsFileViewEvent(std::int32_t id) noexcept;
bool IsFolderViewEvent(std::int32_t id) noexcept;
bool IsComboViewEvent(std::int32_t id) noexcept;

// Between pixels and HIMETRIC (0.01 mm) at a number of pixels per inch, rounded to the nearest; 0 when there
// is none.
std::int32_t PixelsToHimetric(double pixels, int pixelsPerInch) noexcept;
double HimetricToPixels(std::int32_t himetric, int pixelsPerInch) noexcept;

}  // namespace file_explorer
