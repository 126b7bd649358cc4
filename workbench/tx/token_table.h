// Keywords as numbers.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace workbench::tx {

class TokenTable {
 public:
  // The keyword's token, given out at its first use; equal keywords (exact) have equal tokens. 0 for an empty
  // one.
  int32_t Token(std::string_view keyword);

 private:
  struct Hash {
    using is_transparent = void;
    size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };
  std::unordered_map<std::string, int32_t, Hash, std::equal_to<>> tokens_;
};

}  // namespace workbench::tx
