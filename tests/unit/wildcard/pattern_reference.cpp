#include "tests/unit/wildcard/pattern_reference.h"

#include <cctype>

namespace pattern_reference {
namespace {

// One character of a set's inside: what it is and whether a "\" stood before it.
struct SetCharacter {
  char value;
  bool escaped;
};

// Takes the inside of a set off the text that starts behind "[". escapeFinalBracket says how the last "\]" is
// read.
std::optional<std::vector<SetCharacter>> Inside(const std::string& text, bool escapeFinalBracket,
                                                size_t* used) {
  std::vector<SetCharacter> inside;
  const size_t finalBracket = text.rfind(']');
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] == ']') {
      *used = i + 1;
      return inside;
    }
    if (text[i] == '\\' && (escapeFinalBracket || i + 1 != finalBracket)) {
      if (i + 1 == text.size()) return std::nullopt;
      inside.push_back({text[++i], true});
    } else {
      inside.push_back({text[i], text[i] == '\\'});
    }
  }
  return std::nullopt;
}

// Adds the other case of every letter that is in.
void AddOtherCases(Element& element) {
  for (int lower = 'a'; lower <= 'z'; ++lower) {
    const auto small = static_cast<size_t>(lower);
    const auto capital = static_cast<size_t>(std::toupper(lower));
    const bool either = element.takes[small] || element.takes[capital];
    element.takes[small] = either;
    element.takes[capital] = either;
  }
}

std::optional<Element> SetElement(const std::vector<SetCharacter>& written, bool ignoreCase) {
  std::vector<SetCharacter> inside = written;
  const bool negated = !inside.empty() && inside[0].value == '!' && !inside[0].escaped;
  if (negated) inside.erase(inside.begin());
  if (inside.empty()) return std::nullopt;
  Element element;
  for (size_t i = 0; i < inside.size();) {
    int first = inside[i].value;
    int last = first;
    if (i + 2 < inside.size() && inside[i + 1].value == '-' && !inside[i + 1].escaped) {
      last = inside[i + 2].value;
      i += 3;
    } else {
      i += 1;
    }
    if (last < first) return std::nullopt;
    for (int c = first; c <= last; ++c) element.takes[static_cast<size_t>(c)] = true;
  }
  if (ignoreCase) AddOtherCases(element);
  if (negated) element.takes.flip();
  return element;
}

}  // namespace

std::optional<std::vector<Element>> Parse(const std::string& pattern, bool ignoreCase) {
  std::vector<Element> elements;
  for (size_t i = 0; i < pattern.size(); ++i) {
    Element element;
    if (pattern[i] == '*') {
      element.star = true;
    } else if (pattern[i] == '?') {
      element.takes.set();
    } else if (pattern[i] == '[') {
      const std::string rest = pattern.substr(i + 1);
      size_t used = 0;
      auto inside = Inside(rest, true, &used);
      if (!inside) inside = Inside(rest, false, &used);
      if (!inside) return std::nullopt;
      const auto set = SetElement(*inside, ignoreCase);
      if (!set) return std::nullopt;
      element = *set;
      i += used;
    } else {
      if (pattern[i] == '\\' && ++i == pattern.size()) return std::nullopt;
      element.takes[static_cast<size_t>(pattern[i])] = true;
      if (ignoreCase) AddOtherCases(element);
    }
    elements.push_back(element);
  }
  return elements;
}

bool Matches(const std::optional<std::vector<Element>>& elements, const std::string& name) {
  if (!elements) return false;
  // reachable[i]: the elements so far can take exactly the first i characters of the name.
  std::vector<bool> reachable(name.size() + 1, false);
  reachable[0] = true;
  for (const Element& element : *elements) {
    std::vector<bool> next(name.size() + 1, false);
    for (size_t i = 0; i <= name.size(); ++i) {
      if (element.star) {
        next[i] = reachable[i] || (i > 0 && next[i - 1]);
      } else if (i > 0 && reachable[i - 1]) {
        next[i] = element.takes[static_cast<size_t>(name[i - 1])];
      }
    }
    reachable = next;
  }
  return reachable[name.size()];
}

}  // namespace pattern_reference
