// Initial properties of a hosted control: an ordered list of names and values.
#pragma once

#include <string_view>
#include <vector>

#include "src/framework/com/com_owners.h"

namespace file_explorer {

// Owns its names and values. Who gets a list by value consumes it. Copying and adding throw std::bad_alloc
// when memory is short and _com_error when a value can't be copied; the list is then unchanged.
class PropertyList {
 public:
  struct Entry {
    UniqueBstr name;
    OwnedVariant value;
  };

  PropertyList() = default;
  PropertyList(const PropertyList& other);
  PropertyList& operator=(const PropertyList& other);
  PropertyList(PropertyList&&) noexcept = default;
  PropertyList& operator=(PropertyList&&) noexcept = default;
  ~PropertyList() = default;

  // Adds an entry at the end, copying both; a null name counts as empty.
  void Append(const wchar_t* name, const VARIANT& value);
  // Frees every name and value.
  void Clear() noexcept { entries_.clear(); }

  bool empty() const noexcept { return entries_.empty(); }
  const std::vector<Entry>& entries() const noexcept { return entries_; }
  // The first entry whose name equals name, letters of any case; null when there is none.
  Entry* Find(const wchar_t* name) noexcept;

 private:
  std::vector<Entry> entries_;
};

}  // namespace file_explorer
