// What the boxes of a copy or move say where the shell's own can't be used. Pure.
#pragma once

#include <functional>
#include <string>

#include "base/files/transfer.h"

namespace file_explorer {

// The question about something that stands in the way. count: how many of the sources meet something of the
// same kind. Yes replaces (puts folders together), No skips, Cancel ends the operation.
std::wstring ConflictQuestion(const base::Conflict& conflict, size_t count);

// What could not be done, by name and reason, and how much was done; empty when there is nothing to tell. At
// most ten failures are named.
std::wstring ReportOfFailures(const base::TransferReport& report, bool move,
                              const std::function<std::wstring(base::SystemError error)>& systemText);

}  // namespace file_explorer
