// Texts of the libraries that are the caller's, and a check that none is left.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "src/host/vc64_tx.h"

struct HostMemoryFree {
  void operator()(void* block) const { Tx_Free_Memory(block); }
};
using unique_host_text = std::unique_ptr<char, HostMemoryFree>;

// Every test that derives from it must leave no block of the libraries behind.
class HostMemoryTest : public testing::Test {
 protected:
  void TearDown() override { EXPECT_EQ(Tx_Inquire_Allocated_Blocks(), blocksBefore_); }

 private:
  size_t blocksBefore_ = Tx_Inquire_Allocated_Blocks();
};
