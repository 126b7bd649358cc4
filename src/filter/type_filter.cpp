#include "src/filter/type_filter.h"

namespace file_explorer {

const std::array<TypeFilter, kTypeFilterCount>& TypeFilters() {
  static constexpr std::array<TypeFilter, kTypeFilterCount> kFilters = {{
      {"Show all files", 0, true},
      {"Show only known file types", 0xFFFF, true},
      {"Show only known 3D object file types", 0x0004, true},
      {"Show only known 2D bitmap file types", 0x0002, true},
      {"Show only known 2D vector file types", 0x0400, false},
      {"Show only known video file types", 0x0008, false},
      {"Show only known audio file types", 0x0010, false},
      {"Show only known archive file types", 0x0020, false},
      {"Show only known text file types", 0x0040, false},
      {"Show only known spreadsheet file types", 0x0080, false},
      {"Show only known database file types", 0x0100, false},
      {"Show only known presentation file types", 0x0200, false},
  }};
  return kFilters;
}

std::vector<const TypeFilter*> OfferedTypeFilters(
    const std::function<bool(std::uint32_t typeBit)>& isRegistered) {
  std::vector<const TypeFilter*> offered;
  for (const TypeFilter& filter : TypeFilters()) {
    if (filter.always || isRegistered(filter.typeMask)) offered.push_back(&filter);
  }
  return offered;
}

std::uint32_t TypeMaskOfPosition(unsigned position) {
  return position < TypeFilters().size() ? TypeFilters()[position].typeMask : 0;
}

}  // namespace file_explorer
