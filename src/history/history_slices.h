// A long history in short pieces. A profile call looks for its key from the top of the file, so that reading
// a list through such calls grows with the square of its length; through pieces of a fixed length it does
// not.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace file_explorer {

// What the program itself has saved is never cut.
inline constexpr int kFirstCutEntry = 1000;
inline constexpr int kEntriesPerSlice = 200;

// Cuts the text of a history file. A slice has the entries kFirstCutEntry + i * kEntriesPerSlice and up, and
// every line that is no entry, in the file's order: a key of such an entry has the same value in its slice as
// in the whole file. Entries below the first slice are in none, nor are those with a number above the count
// of all entries' lines: reading ends at the first missing entry. Empty when the text can't be cut without
// changing what it says (16-bit text, lone carriage returns) or is too large for that.
std::vector<std::string> CutHistory(std::string_view text);

// The number in a key of an entry ("d12"), and -1 for any other key.
int EntryOfKey(std::string_view key);

}  // namespace file_explorer
