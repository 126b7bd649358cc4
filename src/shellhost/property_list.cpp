#include "src/shellhost/property_list.h"

#include <cwchar>

#include "src/framework/com/com_dispatch.h"
#include "src/framework/com/com_text.h"

namespace file_explorer {

PropertyList::PropertyList(const PropertyList& other) {
  entries_.reserve(other.entries_.size());
  for (const Entry& entry : other.entries_) Append(entry.name.get(), entry.value.get());
}

PropertyList& PropertyList::operator=(const PropertyList& other) {
  PropertyList copy(other);
  entries_.swap(copy.entries_);
  return *this;
}

void PropertyList::Append(const wchar_t* name, const VARIANT& value) {
  Entry entry;
  entry.name = MakeBstr(std::wstring_view(name ? name : L""));
  const HRESULT copied = entry.value.CopyFrom(value);
  if (FAILED(copied)) throw _com_error(copied);
  entries_.push_back(std::move(entry));
}

PropertyList::Entry* PropertyList::Find(const wchar_t* name) noexcept {
  for (Entry& entry : entries_) {
    if (_wcsicmp(entry.name.get(), name) == 0) return &entry;
  }
  return nullptr;
}

}  // namespace file_explorer
