// Which files the masks let through.
#pragma once

#include <cstdint>
#include <functional>

#include "src/filter/pattern_list.h"

namespace file_explorer {

// The three masks, as the settings keep them. The texts are the caller's.
struct FileMasks {
  const char* inclusion = nullptr;  // stored form of a pattern list; null: every file
  const char* exclusion = nullptr;  // null: no file
  unsigned filteringMethod = 0;     // position in the list of type filters
};

// The type bits of a name's handlers.
using TypeMaskLookup = std::function<std::uint32_t(const char* name)>;

// The masks, made ready for many names.
class MaskRules {
 public:
  MaskRules() = default;
  explicit MaskRules(const FileMasks& masks) { Assign(masks); }

  // Copies what it needs. Costs next to nothing when the masks are still the same.
  void Assign(const FileMasks& masks);

  // Whether the masks let a file of this name through. Inclusion, then exclusion, then the file's type: the
  // first that hides the file decides, and the later ones are not asked. An inclusion list without a current
  // pattern hides every file. Allocates nothing.
  bool Pass(const char* name, const PatternMatcher& matches, const TypeMaskLookup& typeMask) const;

 private:
  PatternList inclusion_;
  PatternList exclusion_;
  std::uint32_t wantedTypes_ = 0;
};

}  // namespace file_explorer
