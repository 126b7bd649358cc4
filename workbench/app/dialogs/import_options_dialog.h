// An import handler of the host's registry.
#pragma once

#include <windows.h>

namespace workbench {

inline constexpr int kHandlerNameEdit = 100;
inline constexpr int kHandlerFileTypesEdit = 101;
inline constexpr int kHandlerTypeEdit = 102;
inline constexpr int kHandlerGuidEdit = 103;
inline constexpr int kHandlerEnabledBox = 104;

// handlerGuid: in registry form, null counts as unknown. An unknown handler is said to be so, with nothing to
// change. OK switches the handler on or off. False when the dialog could not be shown.
bool ShowImportOptionsDialog(HWND owner, const char* handlerGuid);

}  // namespace workbench
