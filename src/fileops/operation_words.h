// What the boxes of a copy or move say where the shell's own can't be used. Pure.
#pragma once

#include <functional>
#include <string>

#include "base/files/transfer.h"

namespace file_explorer {

// What an answer goes for.
struct InTheWay {
  size_t count = 0;      // of the sources that meet something of the same kind
  bool hasMore = false;  // perhaps more below them, which nobody has counted
};

// The question about something that stands in the way, asked once for all of its kind. Yes replaces (puts
// folders together), No skips, Cancel ends the operation.
std::wstring ConflictQuestion(const base::Conflict& conflict, const InTheWay& inTheWay);

// What could not be done, by name and reason, and how much was done; empty when there is nothing to tell. At
// most ten failures are named.
std::wstring ReportOfFailures(const base::TransferReport& report, bool move,
                              const std::function<std::wstring(base::SystemError error)>& systemText);

}  // namespace file_explorer
