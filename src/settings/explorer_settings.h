// The explorer's options with the texts and the folder that belong to them.
#pragma once

#include "src/framework/unique_handle.h"
#include "src/settings/settings_values.h"

namespace file_explorer {

struct ExplorerSettings : SettingsValues {
  unique_host_text homeDirectoryName;  // display name; none when the folder has none
  unique_pidl homeDirectory;
  unique_host_text fileInclusionList;  // stored form of a pattern list with its history; none: everything
  unique_host_text fileExclusionList;  // none: nothing
};

}  // namespace file_explorer
