// What the host's registry of formats says of importers.
#pragma once

#include "src/fileops/menu_items.h"

namespace file_explorer {

// Asks the host's core library.
ImportRegistry HostImportRegistry();

}  // namespace file_explorer
