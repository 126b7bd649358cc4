// What an archive's directory is read from: bytes at any place, checked.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

namespace controls {

class ByteSource {
 public:
  virtual ~ByteSource() = default;
  virtual uint64_t size() const = 0;
  // Fills the whole of to with the bytes from offset on; false when they are not all there or cannot be read.
  virtual bool Read(uint64_t offset, std::span<uint8_t> to) = 0;
};

// Bytes in memory; they must outlive the source.
class MemorySource final : public ByteSource {
 public:
  explicit MemorySource(std::span<const uint8_t> bytes) : bytes_(bytes) {}
  uint64_t size() const override { return bytes_.size(); }
  bool Read(uint64_t offset, std::span<uint8_t> to) override {
    if (offset > bytes_.size() || to.size() > bytes_.size() - offset) return false;
    std::copy_n(bytes_.begin() + static_cast<std::ptrdiff_t>(offset), to.size(), to.begin());
    return true;
  }

 private:
  std::span<const uint8_t> bytes_;
};

}  // namespace controls
