// The machine that Wine runs on; on Windows there is none.
#pragma once

#include <string>

namespace test_support {

// The machine's own path of a file or folder; empty where there is none.
std::string PathBelow(const std::wstring& path);

// Runs a command in a shell of the machine and waits until it has ended, for some minutes at most. False when
// it could not be run or failed.
bool RunBelow(const std::string& command);

}  // namespace test_support
