// The form of a path in which file functions take it as it is written.
#pragma once

#include <string>

namespace workbench {

// An absolute path that the plain form would cut, change or take for a device (260 characters and more, a
// part that ends in a dot or blank, a part named like a device) in the extended form, "\\?\". Other paths
// stay as they are.
std::wstring ExtendedPath(const std::wstring& path);

}  // namespace workbench
