// Paths on their way into 8-bit calls.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace base {

// The path of a file or folder in the process's code page: itself where the code page has all of its letters,
// else the short (8.3) form that the file system keeps, which is asked to name the very same object. Nothing
// when there is neither: then no 8-bit call can reach the object, and the caller says so by its name. A link
// is not followed. Touches the disk only when the path itself can't be expressed.
std::optional<std::string> NarrowPath(std::wstring_view path);

// The path with the long name in place of a short one at its end: what NarrowPath gave leads back to the name that people
// see. The path as it is when nothing exists there.
std::wstring WithLongName(const std::wstring& path);

// Whether both paths lead to one object, judged by volume and file index. False when either can't be opened.
bool IsSameObject(const std::wstring& first, const std::wstring& second);

}  // namespace base
