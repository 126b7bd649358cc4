// Whether a path may keep a window waiting, by what this machine's drives are.
#pragma once

#include <string_view>

namespace base {

// True for paths of other machines and devices, and for those on drives that may take long to answer
// (DriveMayHang). Asks the system what kind of drive it is, never the drive itself. Names that are no paths
// ("::{...}") don't hang.
bool MayHang(std::wstring_view path);
// A path in the 8-bit code page.
bool MayHang(std::string_view path);

}  // namespace base
