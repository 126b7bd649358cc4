// The host's environment variables: what the host has set or removed. Names in any case.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

#include "workbench/tx/text.h"

namespace workbench::tx {

class EnvironmentTable {
 public:
  // Sets the variable, or removes it for good when value is empty (nullopt): a removed one has no value, even
  // if the process's environment has one of its name.
  bool Set(std::string_view name, std::optional<std::string> value);

  struct Entry {
    bool known;                // set or removed by Set; otherwise the process's environment counts
    const std::string* value;  // null when it has none; valid until the next Set
  };
  Entry Find(std::string_view name) const;

 private:
  std::map<std::string, std::optional<std::string>, LessIgnoringCase> values_;
};

}  // namespace workbench::tx
