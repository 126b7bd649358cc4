#include "src/filter/file_filter.h"

#include "src/filter/category_lookup.h"

namespace file_explorer {

bool FileFilter::ShouldShowFile(host::HostServices* services, const FileMasks& masks, const char* name) {
  if (name == nullptr) return true;
  const auto matches = [services](const char* pattern, const char* text) {
    return host::Call<host::op::MatchPattern>(services, pattern, text, host::kMatchIgnoreCase) != 0;
  };
  rules_.Assign(masks);
  return rules_.Pass(name, matches, CategoryTypeMask);
}

}  // namespace file_explorer
