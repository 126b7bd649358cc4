#include "workbench/controls/shell/type_cache.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <numeric>

#include "workbench/controls/model/display_text.h"
#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"

namespace controls {
namespace {

constexpr size_t kLongestExtension = 32;  // a longer one is no type

SHFILEINFOW AskByAttributes(const std::wstring& name, DWORD attributes) {
  SHFILEINFOW info = {};
  SHGetFileInfoW(name.c_str(), attributes, &info, sizeof(info),
                 SHGFI_USEFILEATTRIBUTES | SHGFI_SYSICONINDEX | SHGFI_SMALLICON | SHGFI_TYPENAME);
  return info;
}

}  // namespace

TypeCache::TypeCache() {
  entries_.push_back({});  // kFolder
}

uint32_t TypeCache::TypeOf(std::wstring_view name, bool isFolder) {
  if (isFolder) return kFolder;
  std::wstring_view extension = ExtensionOf(name);
  if (extension.size() > kLongestExtension) extension = {};
  wchar_t folded[kLongestExtension];
  std::transform(extension.begin(), extension.end(), folded, FoldCase);
  const std::wstring_view key(folded, extension.size());
  if (const auto known = byExtension_.find(key); known != byExtension_.end()) return known->second;
  const auto type = static_cast<uint32_t>(entries_.size());
  Entry entry;
  entry.extension = key;
  entries_.push_back(std::move(entry));
  byExtension_.emplace(key, type);
  return type;
}

TypeCache::Entry& TypeCache::Resolved(uint32_t type) {
  Entry& entry = entries_[type < entries_.size() ? type : 0];
  if (entry.resolved) return entry;
  entry.resolved = true;
  const bool folder = &entry == &entries_[kFolder];
  const SHFILEINFOW info = folder ? AskByAttributes(L"folder", FILE_ATTRIBUTE_DIRECTORY)
                                  : AskByAttributes(L"file." + entry.extension, FILE_ATTRIBUTE_NORMAL);
  entry.icon = info.iIcon;
  entry.name = info.szTypeName;
  if (folder) {
    if (entry.name.empty()) entry.name = L"Folder";
  } else if (entry.name.empty() || EqualsIgnoringCase(entry.name, entry.extension + L" file") ||
             EqualsIgnoringCase(entry.name, L"." + entry.extension + L" file")) {
    // The shell has only put the extension into words: ours read better.
    entry.name = FallbackTypeName(entry.extension);
  }
  return entry;
}

const std::wstring& TypeCache::NameOf(uint32_t type) {
  return Resolved(type).name;
}
int TypeCache::IconOf(uint32_t type) {
  return Resolved(type).icon;
}

std::vector<uint32_t> TypeCache::Ranks() {
  std::vector<uint32_t> order(entries_.size());
  std::iota(order.begin(), order.end(), 0u);
  for (const uint32_t type : order) Resolved(type);
  std::stable_sort(order.begin(), order.end(), [this](uint32_t a, uint32_t b) {
    return CompareNatural(entries_[a].name, entries_[b].name) < 0;
  });
  std::vector<uint32_t> ranks(order.size());
  for (uint32_t place = 0; place < order.size(); ++place) {
    // Extensions that share a type name share its place.
    const bool same = place > 0 && entries_[order[place]].name == entries_[order[place - 1]].name;
    ranks[order[place]] = same ? ranks[order[place - 1]] : place;
  }
  return ranks;
}

HIMAGELIST SystemImages(bool large) {
  SHFILEINFOW info = {};
  return reinterpret_cast<HIMAGELIST>(SHGetFileInfoW(
      L"folder", FILE_ATTRIBUTE_DIRECTORY, &info, sizeof(info),
      SHGFI_USEFILEATTRIBUTES | SHGFI_SYSICONINDEX | (large ? SHGFI_LARGEICON : SHGFI_SMALLICON)));
}

int IconOfPidl(const ITEMIDLIST* pidl, bool open) {
  SHFILEINFOW info = {};
  if (!pidl) return 0;
  SHGetFileInfoW(reinterpret_cast<LPCWSTR>(pidl), 0, &info, sizeof(info),
                 SHGFI_PIDL | SHGFI_SYSICONINDEX | SHGFI_SMALLICON | (open ? SHGFI_OPENICON : 0u));
  return info.iIcon;
}

}  // namespace controls
