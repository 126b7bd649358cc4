// The question what becomes of a file or folder of a name that is there already.
#pragma once

#include <windows.h>

#include "base/files/transfer.h"
#include "workbench/controls/operations/operation_text.h"

namespace controls {

inline constexpr int kConflictReplaceButton = 101;
inline constexpr int kConflictSkipButton = 102;
inline constexpr int kConflictKeepBothButton = 103;
inline constexpr int kConflictForAllBox = 104;
inline constexpr int kConflictHeading = 105;
inline constexpr int kConflictIncoming = 106;
inline constexpr int kConflictPresent = 107;

// Modal to owner. Closing it cancels.
base::ConflictReply AskConflict(HWND owner, const wchar_t* caption, const ConflictText& text,
                                bool mayReplace);

}  // namespace controls
