// Measuring for the benchmarks: each figure is printed on a line of its own beside a reference of the same run.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>

namespace bench {

// Seconds that one call of work takes: the best of several runs, which other programs of the machine disturb least.
template <typename Work>
double BestSeconds(int runs, Work&& work) {
  double best = 1e300;
  for (int run = 0; run < runs; ++run) {
    const auto start = std::chrono::steady_clock::now();
    work();
    best = std::min(best, std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  return best;
}

// Keeps the compiler from dropping a result that nobody reads.
template <typename Value>
void Keep(const Value& value) {
  asm volatile("" : : "m"(value) : "memory");
}

// "name: 1.23 x reference (4.5 us against 3.7 us)", times in the unit that reads best.
void PrintRatio(const std::string& name, double seconds, const std::string& reference, double referenceSeconds);

// A time on its own, for example each of several sizes.
void PrintTime(const std::string& name, double seconds);

// "12.3 us"
std::string TimeText(double seconds);

}  // namespace bench
