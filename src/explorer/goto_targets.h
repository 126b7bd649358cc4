// Where the entries of the go-to menu that lead to the host's own directories find them: in the host's
// profile.
#pragma once

#include <span>

#include "src/framework/command_ids.h"

namespace file_explorer {

inline constexpr char kSearchPathsSection[] = "Search-Paths";
// Bytes of a directory that are read, with the terminator; what a profile has beyond is cut off.
inline constexpr int kSearchPathSize = 2048;

struct ProfileDirectory {
  int command;
  const char* key;  // in kSearchPathsSection
  const char*
      defaultFolder;  // when the profile does not have the key; relative to the host's working directory
};

std::span<const ProfileDirectory> ProfileDirectories();
// Null for a command that is none of them.
const ProfileDirectory* FindProfileDirectory(int command);

}  // namespace file_explorer
