// Which profile key holds which option, and in which order the store reads and writes them.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string>

#include "src/settings/settings_values.h"

namespace file_explorer {

inline constexpr char kExploreSection[] = "Explore";
inline constexpr char kHomeDirectoryNameKey[] = "CurrHomeDirectoryDisplayNameInAscii";
inline constexpr char kInclusionListKey[] = "FileInclusionList";
inline constexpr char kExclusionListKey[] = "FileExclusionList";

// One option that the profile keeps as a whole number. Exactly one of the two members is set.
struct IntegerSetting {
  const char* key;
  std::uint16_t SettingsValues::*word;
  std::int32_t SettingsValues::*flag;
  int loadDefault;
  int resetDefault;  // kNoReset: Reset leaves the option alone
};
inline constexpr int kNoReset = -1;

// The eighteen whole numbers in the order in which they are saved: the filtering method is the last. Loading reads the
// filtering method first and then the others in this order.
std::span<const IntegerSetting> IntegerSettings();

// Value of an option as the number that goes to the profile: a signed 16-bit one, whatever the field's width.
int ProfileNumber(const SettingsValues& values, const IntegerSetting& setting);
// Stores a number read from the profile as it comes.
void SetFromProfile(SettingsValues* values, const IntegerSetting& setting, unsigned number);

// The order in which the colours are saved. It differs from the load order (category order) on purpose: 2D vector
// stands before 2D bitmap.
const std::array<FileCategory, kFileCategoryCount>& ColorSaveOrder();

// Puts the options that Reset covers to their reset defaults; colours, texts, home directory and filtering method stay.
void ResetOptions(SettingsValues* values);

}  // namespace file_explorer
