#pragma once

#include <cstring>
#include <string_view>

#include "src/host/vc64_tx.h"
#include "workbench/tx/guarded.h"

namespace workbench::imp {

using tx::Guarded;

// The text in host memory, for the caller to free; null when memory is short.
inline char* CopyToHostMemory(std::string_view text) {
  auto* copy = static_cast<char*>(Tx_Alloc_Memory(text.size() + 1));
  if (copy && !text.empty()) std::memcpy(copy, text.data(), text.size());
  return copy;
}

}  // namespace workbench::imp
