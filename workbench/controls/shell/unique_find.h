#pragma once

#include <windows.h>

namespace controls {

// Owns a search handle.
class UniqueFind {
 public:
  explicit UniqueFind(HANDLE find) : find_(find) {}
  ~UniqueFind() {
    if (find_ != INVALID_HANDLE_VALUE) FindClose(find_);
  }
  UniqueFind(const UniqueFind&) = delete;
  UniqueFind& operator=(const UniqueFind&) = delete;
  explicit operator bool() const { return find_ != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return find_; }

 private:
  HANDLE find_;
};

}  // namespace controls
