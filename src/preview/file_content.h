// Reading a whole file without being in anybody's way.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

#include "src/preview/work_budget.h"

namespace file_explorer::preview {

// None for what is no ordinary file of the disk, is empty or larger than `limit` bytes, would have to be
// fetched from an archive or a cloud first, or can't be opened at once. Everybody may read, write, rename and
// delete the file meanwhile. remote: files of other machines too.
std::optional<std::string> ReadWholeFile(const wchar_t* path, std::uint64_t limit, bool remote,
                                         WorkBudget& budget);

}  // namespace file_explorer::preview
