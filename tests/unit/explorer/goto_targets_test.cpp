#include "src/explorer/goto_targets.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

TEST(GoToTargets, EachDirectoryHasItsKeyAndDefault) {
  struct Row {
    int command;
    const char* key;
    const char* defaultFolder;
  };
  const Row rows[] = {
      {2002, "Default-Textures-Directory", "textures"},
      {2003, "Default-Halvo-BDF-Directory", "scenes"},
      {2004, "Default-FileImport-Directory", "objects"},
      {2005, "Default-FileExport-Directory", "objects"},
      {2006, "Default-Documents-Directory", "objects"},
      {2007, "Default-Rendered-Images-Directory", "images"},
  };
  ASSERT_EQ(ProfileDirectories().size(), std::size(rows));
  for (const Row& row : rows) {
    const ProfileDirectory* const found = FindProfileDirectory(row.command);
    ASSERT_NE(found, nullptr) << row.command;
    EXPECT_STREQ(found->key, row.key);
    EXPECT_STREQ(found->defaultFolder, row.defaultFolder);
  }
  EXPECT_STREQ(kSearchPathsSection, "Search-Paths");
}

TEST(GoToTargets, OtherCommandsHaveNone) {
  for (const int command : {2000, 2001, 2008, 2009, 2014, 103, 924}) {
    EXPECT_EQ(FindProfileDirectory(command), nullptr) << command;
  }
}

}  // namespace
}  // namespace file_explorer
