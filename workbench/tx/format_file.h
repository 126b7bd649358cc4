// The file of formats that the registry starts with. A line is a comment (#), or a format of five fields:
//   {GUID} | importer, viewer or exporter | types | extensions | descriptive name
// Types are one or more of 3d bitmap vector text archive video audio spreadsheet database presentation
// unknown, separated by blanks. Lines that don't read like this are skipped.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "workbench/tx/handler_registry.h"

namespace workbench::tx {

inline constexpr size_t kFormatFileSize = size_t{1024} * 1024;  // bytes that are read at most
inline constexpr size_t kFormatLimit = 4096;            // formats that are taken at most

// The formats in the order of their lines, all enabled. skippedLines (may be null) counts lines that are
// neither a comment nor blank nor a format.
std::vector<Handler> ParseFormatFile(std::string_view content, size_t* skippedLines = nullptr);

}  // namespace workbench::tx
