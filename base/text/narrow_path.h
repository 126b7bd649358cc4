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

// The path with the long name of each part that is a short one: what NarrowPath gave leads back to the names
// that people see. Parts that don't exist stay as they are.
std::wstring WithLongNames(std::wstring_view path);

// Whether both paths lead to one object, judged by volume and file index. False when either can't be opened.
bool IsSameObject(const std::wstring& first, const std::wstring& second);

}  // namespace base
