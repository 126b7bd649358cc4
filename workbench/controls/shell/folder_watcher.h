// Follows the changes of a folder on a thread of its own.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "workbench/controls/model/item_store.h"

namespace controls {

// What became of one name.
struct ItemChange {
  std::wstring name;
  bool exists = false;
  ItemFacts facts;
};

struct ChangeSet {
  std::vector<ItemChange> changes;
  bool tooMany = false;  // the folder must be read again
  bool ended = false;    // the folder is gone or cannot be followed
};

class FolderWatcher {
 public:
  FolderWatcher() = default;
  ~FolderWatcher() { Stop(); }
  FolderWatcher(const FolderWatcher&) = delete;
  FolderWatcher& operator=(const FolderWatcher&) = delete;

  // Follows path from now on; window gets message (posted) when there is something to take. Changes that come
  // close together are delivered together. A folder that cannot be followed just stays silent.
  void Start(const std::wstring& path, HWND window, UINT message);
  // No message comes after it. Never waits.
  void Stop();
  // To be called at the start of handling the message. False when there is nothing.
  bool Take(ChangeSet& changes);

 private:
  struct State;
  static void Follow(const std::shared_ptr<State>& state);
  std::shared_ptr<State> state_;
};

}  // namespace controls
