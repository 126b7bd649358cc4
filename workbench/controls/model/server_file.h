// The file that a class is registered to.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace controls {

// The files that a registered server's text may mean, the likeliest first: what stands in quotes, else all of
// it, then what is left when arguments are cut off blank by blank. Empty for a text of blanks. Environment
// variables must be expanded before.
std::vector<std::wstring> ServerFileCandidates(std::wstring_view text);

}  // namespace controls
