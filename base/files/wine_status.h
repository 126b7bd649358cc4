// Only for Wine: what the machine below says, in the terms of FileSystem.
#pragma once

#include <string>

#include "base/files/file_system.h"

namespace base::wine {

// From a negated errno; 0 and more is kNoError.
SystemError ErrorOf(int result);

SystemError StatusOfPath(const std::string& path, bool follow, FileStatus* status);

std::wstring TokenOfThisProcess();
bool ProcessOfTokenHasEnded(const std::wstring& token);

}  // namespace base::wine
