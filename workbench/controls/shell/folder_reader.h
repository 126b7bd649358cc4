// Reads a folder's contents on a thread of its own.
#pragma once

#include <windows.h>

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/controls/model/item_store.h"
#include "workbench/controls/shell/archive_file.h"

namespace controls {

// A handful of items, with all names in one block.
struct ItemBatch {
  struct Entry {
    uint32_t nameOffset;
    uint32_t nameLength;
    ItemFacts facts;
  };
  std::vector<wchar_t> names;
  std::vector<Entry> entries;

  void Add(std::wstring_view name, const ItemFacts& facts);
  std::wstring_view name(const Entry& entry) const {
    return {names.data() + entry.nameOffset, entry.nameLength};
  }
};

ItemFacts FactsOf(const WIN32_FIND_DATAW& data);

// How a reading treats ZIP archives.
struct ArchiveWish {
  bool asFolders = false;
  ArchivePointer known;  // used again when it is the archive that path leads into and its file did not change
};

// One reading of one folder. All functions are for the window's thread.
class FolderReader {
 public:
  enum class Progress { kOpening, kReading, kFinished, kFailed };

  FolderReader() = default;
  ~FolderReader() { Cancel(); }
  FolderReader(const FolderReader&) = delete;
  FolderReader& operator=(const FolderReader&) = delete;

  // Starts reading path; window gets message (posted) whenever there is something new. A reading that runs is
  // cancelled.
  void Start(const std::wstring& path, bool foldersOnly, HWND window, UINT message,
             const ArchiveWish& archives = {});
  // Ends the reading; no message comes after it. Never waits for the disk.
  void Cancel();
  bool active() const { return state_ != nullptr; }

  // To be called at the start of handling the message.
  void Received();
  // Waits until it is known whether the folder can be read, but not longer than the given time.
  void WaitUntilOpened(DWORD milliseconds) const;

  // kFinished and kFailed may be seen while batches are still waiting.
  Progress progress() const;
  DWORD error() const;  // why it failed
  // The folder could be opened, whatever happened then.
  bool opened() const;
  // After it was opened: how many characters of the path name the archive that it leads into, 0 when it is a
  // folder on disk; and what stands in the archive, null when that cannot be read.
  size_t archiveLength() const;
  ArchivePointer archive() const;
  // The next batch; false when none is waiting now.
  bool TakeBatch(ItemBatch& batch);

 private:
  struct State;
  static void Read(const std::shared_ptr<State>& state);
  static bool ReadArchive(const std::shared_ptr<State>& state);
  std::shared_ptr<State> state_;
};

}  // namespace controls
