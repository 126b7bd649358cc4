#include "workbench/tx/token_table.h"

namespace workbench::tx {
namespace {

// Well above the marks 0 and 1 of argument lists, so that a mark out of place is never taken for a keyword.
constexpr int32_t kFirstToken = 0x1000;

}  // namespace

int32_t TokenTable::Token(std::string_view keyword) {
  if (keyword.empty()) return 0;
  const auto found = tokens_.find(keyword);
  if (found != tokens_.end()) return found->second;
  const int32_t token = kFirstToken + static_cast<int32_t>(tokens_.size());
  tokens_.emplace(keyword, token);
  return token;
}

}  // namespace workbench::tx
