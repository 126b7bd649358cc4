// Counts what a plug-in could leave behind in its host's process.
#pragma once

#include <cstddef>
#include <ostream>

namespace test_support {

struct LeakCount {
  int windows = 0;            // of this thread, at every depth, hidden ones and message-only ones too
  int gdiObjects = 0;         // of this process
  size_t hostAllocations = 0; // of the host's memory functions
  int taskAllocations = 0;    // of the COM task allocator, since the first count
  int registeredClass = 0;    // 1 while the explorer's window class is registered by its module

  bool operator==(const LeakCount&) const = default;
};

// Counts now. The first call installs what watches the task allocator, so that the number is relative to it.
LeakCount CountLeaks();

std::ostream& operator<<(std::ostream& stream, const LeakCount& count);

}  // namespace test_support
