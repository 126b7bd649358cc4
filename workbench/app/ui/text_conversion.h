// Pointers to 8-bit text from outside (in the process's ANSI code page, UTF-8 in workbench.exe); null counts as empty.
#pragma once

#include <string>

#include "base/text/code_page.h"

namespace workbench {

inline std::string TextOrEmpty(const char* text) { return text == nullptr ? std::string() : std::string(text); }
inline std::wstring WidenOrEmpty(const char* text) { return base::WideFromNarrow(TextOrEmpty(text)); }

}  // namespace workbench
