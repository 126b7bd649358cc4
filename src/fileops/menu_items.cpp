#include "src/fileops/menu_items.h"

#include <utility>

namespace file_explorer {
namespace {

constexpr char kItemVerb[] = "Default";
constexpr char kSeparatorVerb[] = "Separator";

}  // namespace

void MenuItems::Build(const char* path, const AddMenuItem& add, const ImportRegistry& registry) {
  add("", kSeparatorVerb);
  move_ = add("Move Files To...", kItemVerb);
  copy_ = add("Copy Files To...", kItemVerb);
  add("", kSeparatorVerb);
  addFavorite_ = add("Add to Halvo Favorites List...", kItemVerb);
  if (path == nullptr || *path == '\0' || registry.importTypes(path) == 0) return;
  std::string handler;
  if (!registry.findHandler(path, &handler)) return;
  importHandler_ = std::move(handler);
  importOptions_ = add("File Import Options...", kItemVerb);
}

MenuCommand MenuItems::Find(std::int64_t identifier) const {
  if (identifier == 0) return MenuCommand::kNone;  // what a control without a menu gives
  const std::pair<std::int64_t, MenuCommand> items[] = {{move_, MenuCommand::kMove},
                                                        {copy_, MenuCommand::kCopy},
                                                        {addFavorite_, MenuCommand::kAddFavorite},
                                                        {importOptions_, MenuCommand::kImportOptions}};
  for (const auto& [item, command] : items) {
    if (item == identifier) return command;
  }
  return MenuCommand::kNone;
}

}  // namespace file_explorer
