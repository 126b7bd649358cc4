#pragma once

namespace workbench::tx {

// Runs the body of a library's call; what it throws (memory is short) ends as failure and never reaches the
// caller.
template <typename Result, typename Body>
Result Guarded(Result failure, Body body) noexcept {
  try {
    return body();
  } catch (...) {
    return failure;
  }
}

}  // namespace workbench::tx
