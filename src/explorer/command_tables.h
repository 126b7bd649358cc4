// The explorer's five toolbars as tables, and what follows from a command's number alone.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "src/framework/command_ids.h"

namespace file_explorer {

enum class ButtonStyle : std::uint8_t {
  Button = 0,
  Separator = 1,
  Check = 2,
  WholeDropDown = 0x98,  // the whole button drops a menu down, with an arrow; sized to its content
};

struct ToolbarButton {
  std::int32_t image;    // index in the strip "ToolbarBitmaps1"; 0 for a separator
  std::int32_t command;  // 0 for a separator
  ButtonStyle style = ButtonStyle::Button;
};

std::span<const ToolbarButton> CommandToolbarButtons();
std::span<const ToolbarButton> FoldersToolbarButtons();
std::span<const ToolbarButton> HistoryToolbarButtons();
std::span<const ToolbarButton> FavoritesToolbarButtons();
std::span<const ToolbarButton> SelectorToolbarButtons();

// The selector view that a command asks for; none for other commands.
std::optional<SelectorView> SelectorViewOf(int command);

// Display modes of the file view. The explorer's number, the button, the name and the control's own view number all
// differ; a mode outside 0 to 4 has neither button nor name.
inline constexpr int kDefaultDisplayMode = 3;
inline constexpr int kDisplayModeCount = 5;
struct DisplayMode {
  int mode;          // the explorer's number, kept in the profile
  int command;       // its button
  const char* name;  // as SetDisplayMode of the file view takes it
};
std::span<const DisplayMode> DisplayModes();
const DisplayMode* FindDisplayMode(int mode);
const DisplayMode* FindDisplayModeOfCommand(int command);

}  // namespace file_explorer
