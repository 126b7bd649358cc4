#include "workbench/tx/environment_table.h"

#include <utility>

namespace workbench::tx {

bool EnvironmentTable::Set(std::string_view name, std::optional<std::string> value) {
  if (name.empty()) return false;
  values_.insert_or_assign(std::string(name), std::move(value));
  return true;
}

EnvironmentTable::Entry EnvironmentTable::Find(std::string_view name) const {
  const auto found = values_.find(name);
  if (found == values_.end()) return {false, nullptr};
  const std::optional<std::string>& value = found->second;
  return {true, value && !value->empty() ? &*value : nullptr};
}

}  // namespace workbench::tx
