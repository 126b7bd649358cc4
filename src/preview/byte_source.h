// Reading numbers out of a file's bytes: nothing is read behind the end, whatever the file says of itself.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace file_explorer::preview {

class ByteSource {
 public:
  explicit ByteSource(std::string_view bytes, bool bigEndian = false)
      : bytes_(bytes), bigEndian_(bigEndian) {}

  std::size_t left() const { return bytes_.size() - at_; }
  std::size_t at() const { return at_; }

  bool Skip(std::uint64_t count) {
    if (count > left()) return false;
    at_ += static_cast<std::size_t>(count);
    return true;
  }
  // The next bytes; false when there are not so many.
  bool Take(std::uint64_t count, std::string_view* part) {
    const std::size_t start = at_;
    if (!Skip(count)) return false;
    *part = bytes_.substr(start, static_cast<std::size_t>(count));
    return true;
  }

  // An unsigned number of 1, 2, 4 or 8 bytes.
  template <typename Number>
  bool Read(Number* value) {
    if (left() < sizeof(Number)) return false;
    Number result = 0;
    std::memcpy(&result, bytes_.data() + at_, sizeof(Number));
    if (bigEndian_ != (std::endian::native == std::endian::big)) result = Turned(result);
    at_ += sizeof(Number);
    *value = result;
    return true;
  }
  bool Read(float* value) {
    std::uint32_t bits = 0;
    if (!Read(&bits)) return false;
    *value = std::bit_cast<float>(bits);
    return true;
  }
  bool Read(double* value) {
    std::uint64_t bits = 0;
    if (!Read(&bits)) return false;
    *value = std::bit_cast<double>(bits);
    return true;
  }

 private:
  // With its bytes in the other order.
  template <typename Number>
  static Number Turned(Number value) {
    if constexpr (sizeof(Number) == 2) return __builtin_bswap16(value);
    if constexpr (sizeof(Number) == 4) return __builtin_bswap32(value);
    if constexpr (sizeof(Number) == 8) return __builtin_bswap64(value);
    return value;
  }

  std::string_view bytes_;
  std::size_t at_ = 0;
  bool bigEndian_;
};

}  // namespace file_explorer::preview
