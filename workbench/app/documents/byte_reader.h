// Numbers in the bytes of a file, in either byte order. What lies outside the bytes reads as 0.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace workbench {

class ByteReader {
 public:
  ByteReader(std::string_view bytes, bool bigEndian) : bytes_(bytes), bigEndian_(bigEndian) {}

  std::size_t size() const { return bytes_.size(); }
  unsigned Byte(std::size_t at) const {
    return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0;
  }
  unsigned Short(std::size_t at) const {
    return bigEndian_ ? Byte(at) * 256 + Byte(at + 1) : Byte(at + 1) * 256 + Byte(at);
  }
  std::uint32_t Long(std::size_t at) const {
    const std::uint32_t first = Short(at);
    const std::uint32_t second = Short(at + 2);
    return bigEndian_ ? first * 65536 + second : second * 65536 + first;
  }

 private:
  std::string_view bytes_;
  bool bigEndian_;
};

}  // namespace workbench
