// Reading a whole file without being in anybody's way.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "src/preview/work_budget.h"

namespace file_explorer::preview {

// Whether a file may be opened to be shown, by its attributes alone: an ordinary file of at most `limit` bytes and not
// empty, that is not in an archive or a cloud, from which it would have to be fetched first. remote: files of other
// machines, and of discs that have to be loaded, too.
bool MayBeOpened(const wchar_t* path, std::uint64_t limit, bool remote);

// None for what is no ordinary file of the disk, is empty or larger than `limit` bytes, would have to be
// fetched from an archive or a cloud first, or can't be opened at once. Everybody may read, write, rename and
// delete the file meanwhile. remote: files of other machines too.
std::optional<std::string> ReadWholeFile(const wchar_t* path, std::uint64_t limit, bool remote,
                                         WorkBudget& budget);

}  // namespace file_explorer::preview
