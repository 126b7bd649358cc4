// Texts that depend on the user's settings.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace controls {

// Local short date and time without seconds; empty for 0.
std::wstring LocalDateTime(uint64_t fileTime);

// The system's sentence for an error code, without the line end; empty when it has none.
std::wstring SystemErrorText(DWORD error);

}  // namespace controls
