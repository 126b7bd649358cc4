#include <atomic>
#include <cstdlib>

#include "src/host/vc64_tx.h"

namespace {

std::atomic<size_t> allocatedBlocks{0};

}  // namespace

void* Tx_Alloc_Memory(size_t size) {
  if (size == 0) return nullptr;
  void* block = std::calloc(1, size);
  if (block) ++allocatedBlocks;
  return block;
}

void* Tx_Realloc_Memory(void* block, size_t size) {
  if (size == 0) return nullptr;
  if (!block) return Tx_Alloc_Memory(size);
  return std::realloc(block, size);
}

void Tx_Free_Memory(void* block) {
  if (!block) return;
  std::free(block);
  --allocatedBlocks;
}

size_t Tx_Inquire_Allocated_Blocks(void) {
  return allocatedBlocks;
}
