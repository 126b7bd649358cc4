// How a camera was held: photographs say so, and are turned upright for showing.
#pragma once

#include <string_view>

#include "workbench/app/documents/picture_pixels.h"

namespace workbench {

// The orientation that a JPEG file states, 1 (upright) to 8; 1 for other files and for one that states none.
int StatedOrientation(std::string_view file);

// The picture upright. Orientations: 2 mirrored, 3 upside down, 4 mirrored upside down, 5 mirrored and
// turned, 6 to be turned right, 7 mirrored and turned the other way, 8 to be turned left; all others leave
// it.
PixelGrid Upright(PixelGrid picture, int orientation);

}  // namespace workbench
