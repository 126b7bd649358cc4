// Ids that the three type libraries share.
#pragma once

#include <windows.h>

namespace controls {

// {09570533-9D5A-499F-82F1-BB7070051930}: the dispatch interface of item objects.
inline constexpr IID kIidShellItemDispatch = {
    0x09570533, 0x9D5A, 0x499F, {0x82, 0xF1, 0xBB, 0x70, 0x70, 0x05, 0x19, 0x30}};

}  // namespace controls
