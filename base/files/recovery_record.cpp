#include "base/files/recovery_record.h"

#include <algorithm>
#include <charconv>

namespace base {
namespace {

constexpr std::string_view kFormat = "save-recovery-1 ";
constexpr std::string_view kNoFile = "none";
constexpr std::size_t kFingerprintDigits = 16;
constexpr std::size_t kLongestHead = 128;

std::string Hexadecimal(std::uint64_t value) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text(kFingerprintDigits, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, value >>= 4) *digit = kDigits[value & 15];
  return text;
}

// The whole text is the number, or there is none.
template <typename Number>
std::optional<Number> Parse(std::string_view text, int base) {
  Number value = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value, base);
  if (text.empty() || error != std::errc() || stop != end) return std::nullopt;
  return value;
}

std::optional<std::uint64_t> ParseFingerprint(std::string_view text) {
  return text.size() == kFingerprintDigits ? Parse<std::uint64_t>(text, 16) : std::nullopt;
}

// Takes the first word, and the blank behind it, off the text.
std::string_view TakeWord(std::string_view* text) {
  const std::size_t length = std::min(text->find(' '), text->size());
  const std::string_view word = text->substr(0, length);
  text->remove_prefix(std::min(length + 1, text->size()));
  return word;
}

// The next character of a text in which line ends are "\n" and empty lines do not count; -1 at its end.
class Characters {
 public:
  explicit Characters(std::string_view text) : text_(text) {}
  int Next() {
    while (at_ < text_.size()) {
      const char next = text_[at_++];
      if (next == '\r' || (next == '\n' && last_ == '\n')) continue;
      last_ = next;
      return static_cast<unsigned char>(next);
    }
    return -1;
  }

 private:
  std::string_view text_;
  std::size_t at_ = 0;
  char last_ = '\n';
};

}  // namespace

std::uint64_t Fingerprint(std::string_view bytes) {
  std::uint64_t value = 0xCBF29CE484222325u;
  for (const char byte : bytes) value = (value ^ static_cast<unsigned char>(byte)) * 0x100000001B3u;
  return value;
}

std::string FormatRecoveryRecord(const RecoveryRecord& record) {
  // The sum covers everything that follows it.
  const std::string rest = std::to_string(record.text.size()) + ' ' +
                           (record.previous ? Hexadecimal(*record.previous) : std::string(kNoFile)) + '\n' +
                           record.text;
  return std::string(kFormat) + Hexadecimal(Fingerprint(rest)) + ' ' + rest;
}

std::optional<RecoveryRecord> ParseRecoveryRecord(std::string_view bytes) {
  const std::size_t lineEnd = bytes.substr(0, kLongestHead).find('\n');
  if (!bytes.starts_with(kFormat) || lineEnd == std::string_view::npos) return std::nullopt;
  std::string_view head = bytes.substr(kFormat.size(), lineEnd - kFormat.size());
  const auto sum = ParseFingerprint(TakeWord(&head));
  const std::string_view rest = bytes.substr(lineEnd - head.size());
  const auto length = Parse<std::size_t>(TakeWord(&head), 10);
  const std::string_view text = bytes.substr(lineEnd + 1);
  if (!sum || !length || *length != text.size() || *sum != Fingerprint(rest)) return std::nullopt;
  RecoveryRecord record;
  if (head != kNoFile) {
    record.previous = ParseFingerprint(head);
    if (!record.previous) return std::nullopt;
  }
  record.text = text;
  return record;
}

SaveProgress ProgressOfSave(const RecoveryRecord& record, const std::optional<std::string>& current) {
  Characters wanted(record.text);
  Characters present(current ? std::string_view(*current) : std::string_view());
  int character = present.Next();
  while (character >= 0 && character == wanted.Next()) character = present.Next();
  const bool isBeginning = character < 0;
  if (current && isBeginning && wanted.Next() < 0) return SaveProgress::kDone;
  const bool isPrevious = current ? record.previous == Fingerprint(*current) : !record.previous.has_value();
  if (isPrevious) return SaveProgress::kNotBegun;
  return isBeginning ? SaveProgress::kUnderWay : SaveProgress::kUnknown;
}

}  // namespace base
