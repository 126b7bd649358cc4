#include "src/plugin/host_version.h"

namespace file_explorer {

bool IsAcceptedHostVersion(const HostVersion& version) {
  if (version.major != 4) return version.major > 4;
  if (version.minor != 1) return version.minor > 1;
  return version.release >= 6;
}

}  // namespace file_explorer
