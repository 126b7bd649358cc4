// Which hosts the module works with.
#pragma once

#include <cstdint>

namespace file_explorer {

struct HostVersion {
  std::int16_t major = 0;
  std::int16_t minor = 0;
  std::int16_t release = 0;
};

// True for version 4.1.6 and newer.
bool IsAcceptedHostVersion(const HostVersion& version);

}  // namespace file_explorer
