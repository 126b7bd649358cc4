#include <windows.h>

#include <algorithm>
#include <thread>
#include <vector>

#include "tests/integration/hostlibs/host_memory.h"

namespace {

using Memory = HostMemoryTest;

TEST_F(Memory, IsZeroedAndCounted) {
  const size_t before = Tx_Inquire_Allocated_Blocks();
  auto* block = static_cast<char*>(Tx_Alloc_Memory(1000));
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(std::count(block, block + 1000, '\0'), 1000);
  EXPECT_EQ(Tx_Inquire_Allocated_Blocks(), before + 1);
  Tx_Free_Memory(block);
}

TEST_F(Memory, NothingIsGivenForSizeZero) {
  EXPECT_EQ(Tx_Alloc_Memory(0), nullptr);
  EXPECT_EQ(Tx_Realloc_Memory(nullptr, 0), nullptr);
}

TEST_F(Memory, TooMuchIsRefusedAndTheBlockStays) {
  EXPECT_EQ(Tx_Alloc_Memory(SIZE_MAX / 2), nullptr);
  auto* block = static_cast<char*>(Tx_Alloc_Memory(4));
  ASSERT_NE(block, nullptr);
  block[0] = 'x';
  EXPECT_EQ(Tx_Realloc_Memory(block, SIZE_MAX / 2), nullptr);
  EXPECT_EQ(Tx_Realloc_Memory(block, 0), nullptr);
  EXPECT_EQ(block[0], 'x');
  Tx_Free_Memory(block);
}

TEST_F(Memory, ReallocationKeepsTheContentAndIsStillOneBlock) {
  const size_t before = Tx_Inquire_Allocated_Blocks();
  auto* block = static_cast<char*>(Tx_Realloc_Memory(nullptr, 3));
  ASSERT_NE(block, nullptr);
  memcpy(block, "ab", 3);
  block = static_cast<char*>(Tx_Realloc_Memory(block, 100000));
  ASSERT_NE(block, nullptr);
  EXPECT_STREQ(block, "ab");
  EXPECT_EQ(Tx_Inquire_Allocated_Blocks(), before + 1);
  Tx_Free_Memory(block);
}

TEST_F(Memory, FreeingNullDoesNothing) {
  const size_t before = Tx_Inquire_Allocated_Blocks();
  Tx_Free_Memory(nullptr);
  EXPECT_EQ(Tx_Inquire_Allocated_Blocks(), before);
}

TEST_F(Memory, ThreadsCanAllocateAtTheSameTime) {
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([] {
      for (int j = 0; j < 2000; ++j) Tx_Free_Memory(Tx_Realloc_Memory(Tx_Alloc_Memory(8), 64));
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
