// The conversation with the host.
#pragma once

#include <cstdint>

namespace file_explorer {

class CMainApp;

// Walks the pairs in order up to a null or empty keyword. Keywords are compared whole and by case; unknown ones are
// passed over. values is parallel to keywords; only the values that a keyword's action reads or writes are touched.
void WalkKeywords(CMainApp& app, const char* const* keywords, void** values, std::uint32_t* status);

}  // namespace file_explorer
