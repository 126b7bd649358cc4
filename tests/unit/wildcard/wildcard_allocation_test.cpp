// Matching allocates nothing: every allocation of this program is counted.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>
#include <string>

#include "workbench/app/text/wildcard.h"

namespace {
std::size_t allocations = 0;
}  // namespace

// Not inlined: GCC would see the pair of malloc and free through one half of it and give a false alarm.
[[gnu::noinline]] void* operator new(std::size_t size) {
  ++allocations;
  if (void* const memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace workbench {
namespace {

TEST(MatchPattern, AllocatesNothing) {
  const std::string name(1024, 'x');
  const std::string patterns[] = {"*.obj",    std::string(1024, '?'), "*x*x*x*", "*[a-z]?[!b]\\x",
                                  "\xC3\xA4", std::string(1024, '*'), "*[",      name};
  const std::size_t before = allocations;
  for (const std::string& pattern : patterns) {
    for (const bool ignoreCase : {false, true}) MatchPattern(pattern, name, ignoreCase);
    ValidatePattern(pattern, nullptr);
  }
  EXPECT_EQ(allocations, before);
  EXPECT_FALSE(MatchPattern(std::string(100, 'a'), name, true));
  EXPECT_GT(allocations, before) << "the counter counts";
}

}  // namespace
}  // namespace workbench
