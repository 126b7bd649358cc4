// What the plug-in and a host say to each other outside the services tables: the entry point, its keywords and
// statuses, and the hand-over of a file.
#pragma once

#include <cstdint>

namespace host {

// The one export of a plug-in. keywords: array of NUL-terminated texts, ended by a null pointer or an empty text;
// values: parallel array of pointer-sized values; status: gets one of the statuses below. UI thread only.
using PluginEntryPoint = void (*)(const char* const* keywords, void** values, std::uint32_t* status);
inline constexpr char kEntryPointName[] = "Teskar_Plugin_EntryPoint";

inline constexpr std::uint32_t kStatusDone = 0;
inline constexpr std::uint32_t kStatusMenuItemClicked = 1;
inline constexpr std::uint32_t kStatusHostTooOld = 2;

// GUIDs in registry form, as they travel through the contract.
inline constexpr char kPanelGuid[] = "{ECA27FF8-F0C2-4d3c-AA22-C933EDBD0E5B}";           // page in the utility panel
inline constexpr char kExplorerWindowGuid[] = "{059BC39E-3113-453e-B539-A2AD04DD259E}";  // the docked window
inline constexpr char kInitialRectangleGuid[] = "{D7B2E549-0DDC-47e7-81D5-B21C30B4943A}";  // GetStoredRectangle
inline constexpr char kFileSelectionPluginGuid[] = "{AE746F62-4369-4ba3-9D31-F94B194CC317}";

// Sent (both parameters 0) to the host's main window after the path of the file to load was written to
// kAutoloadFileName in the temporary directory. The file's whole content is the path, in 8-bit text.
inline constexpr unsigned kAutoloadMessage = 0x42E;
inline constexpr char kAutoloadFileName[] = "WM_HALVO_AUTOLOAD_FILE.txt";

// Keywords of host dialogs (op::ShowHostDialog).
inline constexpr char kDirectoryPathsDialog[] = "EnvVariablesDialog-DirectoryPaths-Tab";
inline constexpr char kImportOptionsDialog[] = "ImportConverterOptionsDialogBox";
inline constexpr char kDragDropDialog[] = "StartupPreferencesOptionsDialogBox-DragDropTab";

}  // namespace host
