// Paths as text: no function here asks the disk.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace base {

// The text after the last dot of a name, without the dot; empty for "name", "name." and ".name".
std::wstring_view ExtensionOf(std::wstring_view name);

// The last part of a path. A root ("C:\", "\\server\share") is its own name.
std::wstring_view NameOfPath(std::wstring_view path);

// folder + separator + name; a root keeps its own separator.
std::wstring JoinPath(std::wstring_view folder, std::wstring_view name);

// The folder that contains path; empty for a root.
std::wstring ParentOfPath(std::wstring_view path);

// "C:\" or "\\server\share": a path without a parent folder.
bool IsRootPath(std::wstring_view path);

// Starts with a drive and a separator, or with a server and share.
bool IsAbsolutePath(std::wstring_view path);

// The folders from the root down to path, path included: "C:\a\b" gives "C:\", "C:\a", "C:\a\b".
std::vector<std::wstring> PathChain(std::wstring_view path);

// True when path is folder or lies somewhere below it.
bool IsWithin(std::wstring_view path, std::wstring_view folder);

bool SamePath(std::wstring_view first, std::wstring_view second);

// The form that Windows takes literally: no length limit, no stripping of trailing dots and blanks, no device
// names.
std::wstring ExtendedPath(std::wstring_view path);

// What a user typed or pasted as a folder, tidied: quotes and blanks around it go, "/" becomes "\",
// "file:///" goes, "C:" becomes "C:\", separators at the end go (but not a root's). Names with a trailing dot
// keep it.
std::wstring TidyTypedPath(std::wstring_view typed);

// Stands for a backslash that is part of a name (files of the machine below Wine may have one): a path with a
// plain one would name another file.
inline constexpr wchar_t kBackslashInName = L'\uF05C';

// folder + separator + name, where the name, as a listing gives it, may contain a backslash.
std::wstring PathInFolder(std::wstring_view folder, std::wstring_view name);

// A name for a copy beside its source: "name - Copy.ext", "name - Copy (2).ext".
std::wstring NameOfCopy(std::wstring_view name, int number);

// A name that Windows takes for a device wherever it stands ("con", "nul.txt").
bool IsDeviceName(std::wstring_view name);

// A device name, or a name that Windows shortens silently ("name.", "name ").
bool NeedsExtendedPath(std::wstring_view name);

// Whether the shell's item lists and file operations take this path for exactly the file that it names: short
// enough, no part that Windows would read as another name, no wildcards or other characters that names cannot
// have.
bool ShellCanExpress(std::wstring_view path);

// Why a name cannot be given to a file or folder, as a sentence; empty when it can.
std::wstring ReasonAgainstName(std::wstring_view name);

}  // namespace base
