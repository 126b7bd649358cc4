// Random trees for the torture of the transfer engine.
#pragma once

#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "tests/support/files/machine_folder.h"

namespace test_support {

class Chance {
 public:
  explicit Chance(uint64_t seed) : engine_(seed) {}
  size_t Below(size_t limit) { return static_cast<size_t>(engine_() % limit); }
  bool Percent(size_t percent) { return Below(100) < percent; }
  template <typename Value>
  const Value& Of(const std::vector<Value>& values) {
    return values[Below(values.size())];
  }

 private:
  std::mt19937_64 engine_;
};

// "c" and "d" are what operations work in, "keep" lies outside and is pointed at.
void MakeTortureTree(const MachineFolder& folder, Chance& chance, bool links, bool oddNames);

}  // namespace test_support
