// A second, plain matcher, written for comparison: splits the pattern into elements and fills a table. For
// ASCII texts.
#pragma once

#include <bitset>
#include <optional>
#include <string>
#include <vector>

namespace pattern_reference {

struct Element {
  bool star = false;
  std::bitset<128> takes;  // by character, when it is no star
};

// The elements of a pattern; nothing for an ill-formed one.
std::optional<std::vector<Element>> Parse(const std::string& pattern, bool ignoreCase);

// An ill-formed pattern (no elements) matches nothing.
bool Matches(const std::optional<std::vector<Element>>& elements, const std::string& name);

}  // namespace pattern_reference
