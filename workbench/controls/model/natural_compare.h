// The order in which people expect names: digits by value, letters without regard to case.
#pragma once

#include <string_view>

#include "base/files/name_case.h"

namespace controls {

using base::EqualsIgnoringCase;
using base::FoldCase;

// Negative, zero or positive as first stands before, with or after second. "file9" stands before "file10".
// Names that differ only in case or in leading zeros get a stable order too, so zero means equal texts.
int CompareNatural(std::wstring_view first, std::wstring_view second);

}  // namespace controls
