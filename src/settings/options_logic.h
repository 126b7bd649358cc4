// What the options dialog's controls stand for: lists and their values, check boxes and their options, the
// categories that its colour list offers.
#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <vector>

#include "src/settings/settings_values.h"

namespace file_explorer {

// Numbers of the dialog's controls.
enum OptionsControl : int {
  kOptionsOk = 1,
  kOptionsHelp = 901,
  kOptionsIdleHelp = 916,  // a button without an action
  kOptionsDockingPosition = 917,
  kOptionsCreationMethod = 918,
  kOptionsReset = 919,
  kOptionsCategory = 920,
  kOptionsColor = 921,
  kOptionsSetToCurrent = 923,
  kOptionsTreeShowsHiddenFiles = 911,
  kOptionsHomeDirectory = 1000,
  kOptionsBrowse = 1001,
  kOptionsDragDropConfirmations = 1015,
};

// The entries of a list, from the top.
std::span<const char* const> CreationMethodEntries();
std::span<const char* const> DockingPositionEntries();

// The entry that stands for a creation method, and the method that an entry stands for: the dialog produces 0
// and 5 only, and shows any other value as the first entry.
int CreationMethodIndex(std::uint16_t method);
std::uint16_t CreationMethodOf(int index);

// One check box and the option that it edits.
struct OptionsCheckBox {
  int id;
  std::int32_t SettingsValues::*flag;
};
std::span<const OptionsCheckBox> OptionsCheckBoxes();
// The check box of a control number; null for any other control.
const OptionsCheckBox* FindOptionsCheckBox(int id);
// Inverts an option: on becomes 0, 0 becomes 1.
void FlipOption(SettingsValues* values, const OptionsCheckBox& box);

// The categories that the colour list offers, in list order: 3D objects and bitmaps always, any other one
// only when isRegistered says so of its type bit. Each keeps its own number whatever is left out in front of
// it.
std::vector<FileCategory> OfferedCategories(const std::function<bool(std::uint32_t typeBit)>& isRegistered);

}  // namespace file_explorer
