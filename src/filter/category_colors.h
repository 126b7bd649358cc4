// The host's colours of the categories.
#pragma once

#include "src/filter/file_category.h"

namespace file_explorer {

// Puts the host's colours back to its factory defaults and reads them into *colors. A category for which the
// host gives no colour keeps the one it has.
void ResetAndFetchCategoryColors(CategoryColors* colors);

// Hands all ten colours to the host, in category order.
void PushCategoryColorsToHost(const CategoryColors& colors);

}  // namespace file_explorer
