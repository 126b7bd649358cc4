// "Selective file type display": the choices, and the type bits that each position of the list tests.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <vector>

namespace file_explorer {

struct TypeFilter {
  const char* text;        // as the list shows it
  std::uint32_t typeMask;  // bits of the host registry, one of which a file needs; 0: every file passes
  bool always;             // offered even when the host has no format of the type
};

inline constexpr int kTypeFilterCount = 12;

// The fixed table, in order of its positions.
const std::array<TypeFilter, kTypeFilterCount>& TypeFilters();

// The choices that the list shows, in order: those that stand there always, and those of which the host has a
// format.
std::vector<const TypeFilter*> OfferedTypeFilters(
    const std::function<bool(std::uint32_t typeBit)>& isRegistered);

// The type bits that a stored position tests; 0 (no test) for position 0 and outside the table. A stored
// position is one of the list as it was shown, and is read through the fixed table all the same: where a
// choice was left out, the ones behind it test the row of the place that they moved up to. Kept on purpose.
std::uint32_t TypeMaskOfPosition(unsigned position);

}  // namespace file_explorer
