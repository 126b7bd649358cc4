// The names under which the transfer engine makes a file before it gets its own name.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace base {

// ".transfer-<process token>-<number>.part": hidden where a leading dot hides.
std::wstring TemporaryName(std::wstring_view processToken, uint32_t number);

// The process token of such a name; nothing for every other name.
std::optional<std::wstring> TokenOfTemporaryName(std::wstring_view name);

// A process token (FileSystem::ProcessToken) from its three parts.
std::wstring MakeProcessToken(uint32_t machine, uint32_t process, uint32_t started);
struct ProcessTokenParts {
  uint32_t machine = 0;
  uint32_t process = 0;
  uint32_t started = 0;
};
std::optional<ProcessTokenParts> PartsOfProcessToken(std::wstring_view token);

}  // namespace base
