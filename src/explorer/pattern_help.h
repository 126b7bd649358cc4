// Help of the "Select:" box, shown as its balloon tooltip.
#pragma once

namespace file_explorer {

// The text ends in the middle of its last example, after one backslash; kept so on purpose.
extern const char kPatternHelpText[];

// Longest tooltip text, in bytes with its terminator.
inline constexpr int kTooltipTextSize = 1024;

}  // namespace file_explorer
