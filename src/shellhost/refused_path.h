// Files and folders whose paths can't be handed on: the module's paths are texts of the 8-bit code page, and
// a path that was bent into it would name another file.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "src/shellhost/shell_item.h"

namespace file_explorer {

// Why a path is refused, for a sentence that begins with it.
inline constexpr wchar_t kLacksLetters[] =
    L"cannot be named in the code page of this program: a letter of its name, or of a folder above it, is missing there, "
    L"and there is no short name to use instead";
inline constexpr wchar_t kHasWildcard[] =
    L"has a '?' or '*' in its name, or in that of a folder above it, which would stand for other files as "
    L"well";

// Tells the user, in a message box that names the file, that nothing is done with it.
void RefusePath(HWND owner, std::wstring_view path, const wchar_t* reason = kLacksLetters);

// For an item whose path was not given: refuses it when it has one that can't be expressed. False when it has
// none.
bool RefuseInexpressible(HWND owner, const ShellItem& item);

// The item's file-system path for 8-bit calls; empty for an item on no file system: a virtual one, or one
// inside an archive. Nothing when the path can't be expressed: then the user has been told.
std::optional<std::string> PathOrRefusal(HWND owner, const ShellItem& item);

}  // namespace file_explorer
