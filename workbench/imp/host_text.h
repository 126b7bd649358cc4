#pragma once

#include <cstring>
#include <string_view>

#include "src/host/vc64_tx.h"

namespace workbench::imp {

// The text in host memory, for the caller to free; null when memory is short.
inline char* CopyToHostMemory(std::string_view text) {
  auto* copy = static_cast<char*>(Tx_Alloc_Memory(text.size() + 1));
  if (copy && !text.empty()) std::memcpy(copy, text.data(), text.size());
  return copy;
}

// Runs a call's body; what it throws (memory is short) ends as failure.
template <typename Result, typename Body>
Result Guarded(Result failure, Body body) noexcept {
  try {
    return body();
  } catch (...) {
    return failure;
  }
}

}  // namespace workbench::imp
