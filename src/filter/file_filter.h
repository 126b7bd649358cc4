// The filter of the file view.
#pragma once

#include "src/filter/mask_rules.h"
#include "src/host/host_services.h"

namespace file_explorer {

class FileFilter {
 public:
  // True when the masks let a file of this name through. Patterns are matched by the host (services), types
  // looked up in its registry of formats. Allocates only when the masks changed since the last call. A null name
  // is shown.
  bool ShouldShowFile(host::HostServices* services, const FileMasks& masks, const char* name);

 private:
  MaskRules rules_;
};

}  // namespace file_explorer
