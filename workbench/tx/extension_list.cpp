#include "workbench/tx/extension_list.h"

#include <algorithm>

#include "workbench/tx/text.h"

namespace workbench::tx {
namespace {

constexpr std::string_view kEntryEnds = ";, \t\r\n";

}  // namespace

bool NextExtension(std::string_view& list, std::string_view& extension) {
  for (;;) {
    list.remove_prefix(std::min(list.find_first_not_of(kEntryEnds), list.size()));
    if (list.empty()) return false;
    std::string_view entry = list.substr(0, list.find_first_of(kEntryEnds));
    list.remove_prefix(entry.size());
    if (entry.front() == '*') entry.remove_prefix(1);
    if (!entry.empty() && entry.front() == '.') entry.remove_prefix(1);
    if (entry.empty() || entry == "*") continue;
    extension = entry;
    return true;
  }
}

bool HasExtension(std::string_view name, std::string_view extension) {
  return name.size() > extension.size() && name[name.size() - extension.size() - 1] == '.' &&
         EndsIgnoringCase(name, extension);
}

bool HasExtensionOfList(std::string_view name, std::string_view list) {
  std::string_view extension;
  while (NextExtension(list, extension)) {
    if (HasExtension(name, extension)) return true;
  }
  return false;
}

}  // namespace workbench::tx
