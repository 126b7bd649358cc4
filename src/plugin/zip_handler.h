// The module as the host's viewer of ZIP archives.
#pragma once

namespace file_explorer {

// Registers the handler with the host's file-format handler registry. The registration stays when the instance is torn
// down; a call without an instance does nothing.
void RegisterZipHandler();

}  // namespace file_explorer
