// Reads the directory of a ZIP archive; the entries' contents are never touched.
#pragma once

#include <functional>
#include <optional>

#include "workbench/controls/archive/archive_tree.h"
#include "workbench/controls/archive/byte_source.h"

namespace controls {

enum class ZipError {
  kNone,
  kUnreadable,  // the source failed
  kNotZip,      // no end record: something else, or cut off
  kDamaged,     // the directory contradicts itself or the file's size
  kSplit,       // a part of a set of several files
  kTooLarge,    // more entries or a longer directory than is read here
  kCancelled,
};

// A directory that is longer than this is not read.
inline constexpr uint64_t kLongestZipDirectory = 256u << 20;

struct ZipListing {
  ZipError error = ZipError::kNone;
  std::optional<ArchiveTree> tree;  // without an error
};

// Nothing that the archive says of itself is trusted: memory and time are bounded by the size of its
// directory, which lies within the file. Bytes before the archive (a self-extractor) and behind it are
// allowed. cancelled, when given, is asked now and then.
ZipListing ReadZipDirectory(ByteSource& source, const std::function<bool()>& cancelled = {});

}  // namespace controls
