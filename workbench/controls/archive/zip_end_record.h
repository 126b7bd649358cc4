// Finds the end record of a ZIP archive, which says where its directory lies.
#pragma once

#include <cstdint>
#include <vector>

#include "workbench/controls/archive/byte_source.h"
#include "workbench/controls/archive/zip_directory.h"

namespace controls {

// Where a directory lies.
struct ZipDirectoryPlace {
  uint64_t start = 0;
  uint64_t size = 0;        // start + size lies within the file
  uint64_t count = 0;       // of entries
  bool shortCount = false;  // only the low 16 bits of the count are known
  uint64_t shift = 0;       // bytes before the archive: offsets in the directory count from there
};

// A look at one possible end record.
struct ZipEndCandidate {
  ZipError error = ZipError::kNone;
  ZipDirectoryPlace place;  // without an error
};

// All possible end records that are worth a try, the likeliest first, a few at most. Comments may hold
// anything, also something that looks like an end record: a record whose comment reaches exactly to the
// file's end comes before all others, and of several such the first in the file, as the others lie in its
// comment. Empty when there is none; ok becomes false when the source fails.
std::vector<ZipEndCandidate> FindZipEndRecords(ByteSource& source, bool& ok);

}  // namespace controls
