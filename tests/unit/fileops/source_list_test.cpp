#include "src/fileops/source_list.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>

namespace file_explorer {
namespace {

int allocations = 0;
int reallocations = 0;
int frees = 0;
int allowed = 0;  // how often memory is given

const ListMemory kCountingMemory = {[](std::size_t size) -> void* {
                                      ++allocations;
                                      return allowed-- > 0 ? std::malloc(size) : nullptr;
                                    },
                                    [](void* block, std::size_t size) -> void* {
                                      ++reallocations;
                                      return allowed-- > 0 ? std::realloc(block, size) : nullptr;
                                    },
                                    [](void* block) {
                                      ++frees;
                                      std::free(block);
                                    }};

class SourceListTest : public testing::Test {
 protected:
  void SetUp() override {
    allocations = reallocations = frees = 0;
    allowed = 1000;
  }
  static std::string Bytes(const SourceList& list) { return {list.text(), list.size()}; }
};

TEST_F(SourceListTest, OnePathEndsWithTwoZeros) {
  SourceList list(kCountingMemory);
  ASSERT_TRUE(list.Append("c:\\a.txt"));
  EXPECT_EQ(Bytes(list), std::string("c:\\a.txt\0\0", 10));
  EXPECT_EQ(list.size(), 8U + 2U) << "length plus two bytes";
}

TEST_F(SourceListTest, EachPathEndsWithAZeroAndTheListWithAFurtherOne) {
  SourceList list(kCountingMemory);
  ASSERT_TRUE(list.Append("c:\\b"));
  ASSERT_TRUE(list.Append("c:\\a"));
  ASSERT_TRUE(list.Append("d:\\folder"));
  EXPECT_EQ(Bytes(list), std::string("c:\\b\0c:\\a\0d:\\folder\0\0", 21));
}

TEST_F(SourceListTest, TheFirstPathAllocatesAndTheOthersGrowTheBlock) {
  {
    SourceList list(kCountingMemory);
    for (const char* const path : {"c:\\1", "c:\\2", "c:\\3"}) ASSERT_TRUE(list.Append(path));
    EXPECT_EQ(allocations, 1);
    EXPECT_EQ(reallocations, 2);
    EXPECT_EQ(frees, 0);
  }
  EXPECT_EQ(frees, 1);
}

TEST_F(SourceListTest, ItemsWithoutAPathAreSkipped) {
  SourceList list(kCountingMemory);
  EXPECT_TRUE(list.Append(""));
  EXPECT_TRUE(list.Append("c:\\a"));
  EXPECT_TRUE(list.Append(""));
  EXPECT_EQ(Bytes(list), std::string("c:\\a\0\0", 6));
}

TEST_F(SourceListTest, AListOfNothingReadsAsAnEmptyListAndOwnsNothing) {
  {
    const SourceList list(kCountingMemory);
    EXPECT_EQ(list.size(), 0U);
    EXPECT_EQ(std::string(list.text(), 2), std::string("\0\0", 2));
  }
  EXPECT_EQ(allocations + frees, 0);
}

TEST_F(SourceListTest, APathThatFillsTheBufferIsTakenAndALongerOneRefused) {
  SourceList list(kCountingMemory);
  EXPECT_TRUE(list.Append(std::string(kPathBufferSize - 1, 'a')));
  const std::size_t before = list.size();
  EXPECT_FALSE(list.Append(std::string(kPathBufferSize, 'b'))) << "cut off it would name another file";
  EXPECT_EQ(list.size(), before);
}

TEST_F(SourceListTest, ShortMemoryLeavesTheListAsItWas) {
  {
    allowed = 1;
    SourceList list(kCountingMemory);
    ASSERT_TRUE(list.Append("c:\\a"));
    EXPECT_FALSE(list.Append("c:\\b"));
    EXPECT_EQ(Bytes(list), std::string("c:\\a\0\0", 6));
    allowed = 1;
    EXPECT_TRUE(list.Append("c:\\c"));
    EXPECT_EQ(Bytes(list), std::string("c:\\a\0c:\\c\0\0", 11));
  }
  EXPECT_EQ(frees, 1);
  allowed = 0;
  SourceList list(kCountingMemory);
  EXPECT_FALSE(list.Append("c:\\a"));
  EXPECT_EQ(list.size(), 0U);
}

TEST_F(SourceListTest, MovingHandsTheBlockOver) {
  {
    SourceList first(kCountingMemory);
    ASSERT_TRUE(first.Append("c:\\a"));
    SourceList second(std::move(first));
    EXPECT_EQ(Bytes(second), std::string("c:\\a\0\0", 6));
    SourceList third(kCountingMemory);
    third = std::move(second);
    EXPECT_EQ(Bytes(third), std::string("c:\\a\0\0", 6));
  }
  EXPECT_EQ(frees, 1);
}

TEST(LiteralPath, HasNoWildcard) {
  EXPECT_TRUE(IsLiteralPath("c:\\a b\\[c] & (d).txt"));
  EXPECT_FALSE(IsLiteralPath("c:\\???.txt")) << "letters that the code page does not have";
  EXPECT_FALSE(IsLiteralPath("c:\\*"));
}

}  // namespace
}  // namespace file_explorer
