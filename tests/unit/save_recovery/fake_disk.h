// A disk in memory that a test fills up, locks files on, and pulls the plug of at any step of any call.
#pragma once

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "base/files/save_recovery.h"

namespace base {

// Thrown in place of the end of the process.
struct Killed {};

class FakeDisk final : public RecoveryCalls {
 public:
  static constexpr int kNever = -1;

  Reading Read(const std::string& path, std::string* bytes) override {
    Step("read " + path);
    bytes->clear();
    const auto found = files.find(path);
    if (found == files.end()) return Reading::kMissing;
    if (unreadable.contains(path)) return Reading::kFailed;
    *bytes = found->second;
    return Reading::kRead;
  }

  Writing Write(const std::string& path, std::string_view bytes) override {
    Step("create " + path);
    if (refused.contains(path)) return Writing::kRefused;
    files[path].clear();
    const bool isWhole = WriteBytes(path, bytes);
    Step("flush " + path);
    return isWhole ? Writing::kWritten : Writing::kNoRoom;
  }

  void Flush(const std::string& path) override { Step("flush " + path); }

  bool Replace(const std::string& from, const std::string& to) override {
    Step("rename " + from + " to " + to);
    if (refused.contains(to) || refused.contains(from) || !files.contains(from)) return false;
    files[to] = files[from];
    files.erase(from);
    return true;
  }

  bool Remove(const std::string& path) override {
    Step("delete " + path);
    if (refused.contains(path) && files.contains(path)) return false;
    files.erase(path);
    return true;
  }

  Locking Lock(const std::string& path) override {
    Step("lock " + path);
    ++lockTries;
    if (locking == Locking::kHeldElsewhere && lockTries > heldFor) locking = Locking::kLocked;
    isLocked = locking == Locking::kLocked;
    return locking;
  }
  void Unlock() override { isLocked = false; }
  void Pause() override { ++pauses; }

  // Empties the file's place, then writes in two pieces, as far as there is room. False when there was not.
  bool WriteBytes(const std::string& path, std::string_view bytes) {
    const std::size_t fits = std::min(bytes.size(), RoomBeside(path));
    files[path] = bytes.substr(0, std::min(fits, bytes.size() / 2));
    Step("write the rest of " + path);
    files[path] = bytes.substr(0, fits);
    return fits == bytes.size();
  }

  void Step(const std::string& name) {
    lastStep = name;
    if (step++ == killAt) throw Killed();
  }

  // The machine starts again: what is on the disk is still there.
  void Restart() {
    killAt = kNever;
    step = 0;
    isLocked = false;
    lockTries = 0;
  }

  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : files) names.push_back(name);
    return names;
  }

  std::map<std::string, std::string> files;
  std::set<std::string> unreadable;  // held open by somebody: reading fails
  std::set<std::string> refused;     // held open by somebody: nothing may be done to them
  std::size_t room = std::string::npos;
  Locking locking = Locking::kLocked;
  int heldFor = 0;  // tries that another program holds the lock for
  int lockTries = 0;
  int pauses = 0;
  bool isLocked = false;
  int killAt = kNever;
  int step = 0;
  std::string lastStep;

 private:
  std::size_t RoomBeside(const std::string& path) const {
    if (room == std::string::npos) return room;
    std::size_t used = 0;
    for (const auto& [name, bytes] : files) used += name == path ? 0 : bytes.size();
    return room - std::min(room, used);
  }
};

}  // namespace base
