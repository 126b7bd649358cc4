// Tables of file-format handlers and their registration with the host.
#pragma once

#include <cstdint>

#include "src/host/vc64_tx.h"

namespace file_explorer {

struct HandlerRow {
  const char* guid;  // null ends a table
  const char* fileTypes;
  const char* descriptiveName;
  std::int64_t type;  // read during the registration
};

// Registers each row as an enabled viewer with these callbacks.
void RegisterViewers(const HandlerRow* rows, TxVerifyHeaderCallback verifyHeader, TxExecuteCallback execute);

}  // namespace file_explorer
