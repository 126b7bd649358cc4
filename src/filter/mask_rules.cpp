#include "src/filter/mask_rules.h"

#include "src/filter/type_filter.h"

namespace file_explorer {

bool PassesMasks(const FileMasks& masks, const char* name, const PatternMatcher& matches,
                 const TypeMaskLookup& typeMask) {
  if (masks.inclusion != nullptr && !MatchesPatternList(masks.inclusion, name, matches)) return false;
  if (masks.exclusion != nullptr && MatchesPatternList(masks.exclusion, name, matches)) return false;
  const std::uint32_t wanted = TypeMaskOfPosition(masks.filteringMethod);
  return wanted == 0 || (typeMask(name) & wanted) != 0;
}

}  // namespace file_explorer
