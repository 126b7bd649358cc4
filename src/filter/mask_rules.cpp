#include "src/filter/mask_rules.h"

#include "src/filter/type_filter.h"

namespace file_explorer {

void MaskRules::Assign(const FileMasks& masks) {
  inclusion_.Assign(masks.inclusion);
  exclusion_.Assign(masks.exclusion);
  wantedTypes_ = TypeMaskOfPosition(masks.filteringMethod);
}

bool MaskRules::Pass(const char* name, const PatternMatcher& matches, const TypeMaskLookup& typeMask) const {
  if (inclusion_.exists() && !inclusion_.Matches(name, matches)) return false;
  if (exclusion_.Matches(name, matches)) return false;
  return wantedTypes_ == 0 || (typeMask(name) & wantedTypes_) != 0;
}

}  // namespace file_explorer
