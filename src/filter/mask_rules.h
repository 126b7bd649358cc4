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

// Inclusion, then exclusion, then the file's type: the first that hides the file decides, and the later ones
// are not asked. An inclusion list without a current pattern hides every file.
bool PassesMasks(const FileMasks& masks, const char* name, const PatternMatcher& matches,
                 const TypeMaskLookup& typeMask);

}  // namespace file_explorer
