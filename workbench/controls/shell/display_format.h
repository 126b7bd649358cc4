// Texts that depend on the user's settings.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace controls {

// Local short date and time without seconds; empty for 0.
std::wstring LocalDateTime(uint64_t fileTime);

// The system's sentence for an error code, without the line end; empty when it has none. name: of the file that it is
// about, for the sentences that name it.
std::wstring SystemErrorText(DWORD error, std::wstring_view name);

}  // namespace controls
