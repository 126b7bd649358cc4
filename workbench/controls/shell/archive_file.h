// ZIP archives on disk. The file is open only while its directory is read, so nobody is kept from changing
// it.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "workbench/controls/archive/archive_tree.h"
#include "workbench/controls/model/item_store.h"

namespace controls {

struct ArchiveContents {
  std::wstring path;
  // Of the file when it was read.
  uint64_t fileSize = 0;
  uint64_t written = 0;
  ArchiveTree tree;
};
// Contents never change once they are read: everybody who shows them shares them.
using ArchivePointer = std::shared_ptr<const ArchiveContents>;

struct ArchiveReading {
  DWORD error = 0;  // the system's, or one of display_text.h
  ArchivePointer archive;
};

// How many characters of path name a file whose name ends in ".zip": the first such part of the path that is
// a file. 0 when there is none. Asks the disk, only about parts with that ending.
size_t ArchiveLengthOnDisk(std::wstring_view path);

// Any thread. known (may be null) is given back when it is this archive and the file is still the same by
// size and time. cancelled ends the reading with ERROR_CANCELLED.
ArchiveReading OpenArchive(const std::wstring& path, const ArchivePointer& known,
                           const std::function<bool()>& cancelled);

// What a list shows of an entry; its time is taken for one of this machine's time zone, as archives name
// none.
ItemFacts FactsOfNode(const ArchiveNode& node);

}  // namespace controls
