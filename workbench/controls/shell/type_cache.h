// Type names and icons by extension: the shell is asked once for each extension, and only when it is shown.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace controls {

class TypeCache {
 public:
  static constexpr uint32_t kFolder = 0;

  TypeCache();

  // The type of an item. Costs one look-up in a table.
  uint32_t TypeOf(std::wstring_view name, bool isFolder);
  const std::wstring& NameOf(uint32_t type);
  // Index into the system's image lists, the same in the large and the small one.
  int IconOf(uint32_t type);
  // For each type its place among all types in the order of the type names.
  std::vector<uint32_t> Ranks();

 private:
  struct Entry {
    std::wstring extension;
    std::wstring name;
    int icon = 0;
    bool resolved = false;
  };
  struct Hash {
    using is_transparent = void;
    size_t operator()(std::wstring_view text) const { return std::hash<std::wstring_view>()(text); }
  };
  Entry& Resolved(uint32_t type);

  std::vector<Entry> entries_;
  std::unordered_map<std::wstring, uint32_t, Hash, std::equal_to<>> byExtension_;
};

// The system's image list. It belongs to the shell.
HIMAGELIST SystemImages(bool large);
// The icon of a shell item by its list; for places that are few.
int IconOfPidl(const struct _ITEMIDLIST* pidl, bool open = false);

}  // namespace controls
