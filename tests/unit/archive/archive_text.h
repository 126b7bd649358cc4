// Short ways to read archives in tests.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/zip_builder.h"
#include "workbench/controls/archive/zip_directory.h"

namespace archive_test {

inline controls::ZipListing Read(std::string_view bytes) {
  controls::MemorySource source({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
  return controls::ReadZipDirectory(source);
}

inline controls::ZipError ErrorOf(std::string_view bytes) {
  return Read(bytes).error;
}

// The names in a folder, those of folders with "\" behind them, damaged ones with "!".
inline std::vector<std::wstring> Children(const controls::ArchiveTree& tree, std::wstring_view path = L"") {
  std::vector<std::wstring> names;
  const controls::NodeId folder = tree.Find(path);
  if (folder == controls::kNoNode) return {L"no such folder"};
  for (controls::NodeId id = tree.at(folder).firstChild; id != controls::kNoNode;
       id = tree.at(id).nextSibling) {
    names.push_back(std::wstring(tree.name(id)) + (tree.at(id).folder ? L"\\" : L"") +
                    (tree.at(id).damaged ? L"!" : L""));
  }
  return names;
}

}  // namespace archive_test
