// The explorer's items in the context menu of one shell control: which they are, and what a chosen one means.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace file_explorer {

enum class MenuCommand { kNone, kMove, kCopy, kAddFavorite, kImportOptions };

// Adds an item to the menu that is being built and gives its command identifier. The verb "Separator" adds a
// separator.
using AddMenuItem = std::function<std::int64_t(const char* caption, const char* verb)>;

// What the host knows of importers.
struct ImportRegistry {
  std::function<std::uint32_t(const char* path)>
      importTypes;  // type bits of the importers of the path's extension
  std::function<bool(const char* path, std::string* handler)> findHandler;  // an enabled importer's name
};

class MenuItems {
 public:
  // Adds the items to a menu that is about to show. path: of the item under the cursor; null or empty for
  // none.
  void Build(const char* path, const AddMenuItem& add, const ImportRegistry& registry);

  // The command of an identifier; kNone for one that is not ours.
  MenuCommand Find(std::int64_t identifier) const;

  // The import handler that was found last; empty before the first.
  const std::string& importHandler() const { return importHandler_; }

 private:
  std::int64_t move_ = 0;
  std::int64_t copy_ = 0;
  std::int64_t addFavorite_ = 0;
  // Of the last menu that had the item. Not cleared by a later menu without it, and neither is the handler: a
  // command that still carries the identifier opens the dialog for that handler.
  std::int64_t importOptions_ = 0;
  std::string importHandler_;
};

}  // namespace file_explorer
