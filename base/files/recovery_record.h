// What a save leaves beside its file while it is under way: the file's whole new content, so that a save that
// was cut short can be brought to its end. No Windows in here.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace base {

// Longest text that a record takes. Saves of longer ones go without.
inline constexpr std::size_t kLargestRecoveryText = std::size_t{256} << 20;

struct RecoveryRecord {
  std::string text;                       // what the file is to hold; the line ends do not matter
  std::optional<std::uint64_t> previous;  // fingerprint of what it held before; nothing: there was no file
};

// FNV-1a: finds content that was cut or changed, not content that was made to deceive.
std::uint64_t Fingerprint(std::string_view bytes);

// The record as a file: one line with the format's number, a check sum, the length and `previous`, then the
// text.
std::string FormatRecoveryRecord(const RecoveryRecord& record);
// Nothing unless every byte of the record is there and unchanged.
std::optional<RecoveryRecord> ParseRecoveryRecord(std::string_view bytes);

// How far a save had come, by what its file holds.
enum class SaveProgress {
  kNotBegun,  // the file is what it was before
  kUnderWay,  // the file is missing, empty or a beginning of the new text
  kDone,      // the file has the new text
  kUnknown,   // something else: written in place, damaged, or put there by somebody else
};
// `current`: the file's bytes; nothing when it does not exist.
SaveProgress ProgressOfSave(const RecoveryRecord& record, const std::optional<std::string>& current);

}  // namespace base
