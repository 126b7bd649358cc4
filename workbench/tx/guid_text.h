#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace workbench::tx {

// A GUID's 16 bytes, in the order in which they are written, as "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}".
std::string GuidText(const std::array<uint8_t, 16>& bytes);

}  // namespace workbench::tx
