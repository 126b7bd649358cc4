// Writes ZIP archives for tests, right ones and lying ones.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace test_support {

constexpr uint16_t DosDate(int year, int month, int day) {
  return static_cast<uint16_t>(((year - 1980) << 9) | (month << 5) | day);
}
constexpr uint16_t DosTime(int hour, int minute, int second) {
  return static_cast<uint16_t>((hour << 11) | (minute << 5) | (second / 2));
}

struct ZipEntry {
  std::string name;  // the bytes as they stand in the archive
  std::string content = {};
  uint16_t date = DosDate(2021, 3, 4);
  uint16_t time = DosTime(5, 6, 8);
  uint16_t flags = 0;    // 0x800: the name is UTF-8
  uint16_t madeBy = 20;  // high byte: the system
  uint32_t attributes = 0;
  std::string extra = {};
  std::string comment = {};
  // What the directory says instead of the truth.
  std::optional<uint32_t> size = {};
  std::optional<uint32_t> packed = {};
  std::optional<uint32_t> offset = {};
  uint16_t disk = 0;
};

// What the end record says instead of the truth.
struct ZipLies {
  std::optional<uint16_t> disk = {};
  std::optional<uint16_t> directoryDisk = {};
  std::optional<uint16_t> countHere = {};
  std::optional<uint16_t> count = {};
  std::optional<uint32_t> size = {};
  std::optional<uint32_t> start = {};
  std::optional<uint16_t> commentLength = {};
};

class ZipBuilder {
 public:
  ZipBuilder& Add(ZipEntry entry) {
    entries_.push_back(std::move(entry));
    return *this;
  }
  ZipBuilder& Add(std::string name, std::string content = {}) {
    ZipEntry entry;
    entry.name = std::move(name);
    entry.content = std::move(content);
    return Add(std::move(entry));
  }
  ZipBuilder& Comment(std::string comment) {
    comment_ = std::move(comment);
    return *this;
  }
  // Bytes before the archive that its offsets do not count.
  ZipBuilder& Prefix(std::string prefix) {
    prefix_ = std::move(prefix);
    return *this;
  }
  // With the records for large archives; the short end record then says nothing.
  ZipBuilder& Wide(uint32_t disks = 1, uint32_t locatorDisk = 0) {
    wide_ = true;
    disks_ = disks;
    locatorDisk_ = locatorDisk;
    return *this;
  }
  ZipBuilder& Lie(const ZipLies& lies) {
    lies_ = lies;
    return *this;
  }
  // Bytes between the directory and the end records.
  ZipBuilder& Gap(std::string gap) {
    gap_ = std::move(gap);
    return *this;
  }

  std::string Build() const {
    std::string archive;
    std::vector<uint32_t> offsets;
    for (const ZipEntry& entry : entries_) {
      offsets.push_back(static_cast<uint32_t>(archive.size()));
      Put32(archive, 0x04034B50);
      PutCommon(archive, entry, static_cast<uint32_t>(entry.content.size()),
                static_cast<uint32_t>(entry.content.size()));
      Put16(archive, 0);
      archive += entry.name + entry.content;
    }
    const uint64_t start = archive.size();
    for (size_t i = 0; i < entries_.size(); ++i) PutDirectoryEntry(archive, entries_[i], offsets[i]);
    const uint64_t size = archive.size() - start;
    archive += gap_;
    PutEnd(archive, start, size);
    return prefix_ + archive;
  }

  static void Put16(std::string& to, uint32_t value) {
    to += static_cast<char>(value & 0xFF);
    to += static_cast<char>((value >> 8) & 0xFF);
  }
  static void Put32(std::string& to, uint32_t value) {
    Put16(to, value & 0xFFFF);
    Put16(to, value >> 16);
  }
  static void Put64(std::string& to, uint64_t value) {
    Put32(to, static_cast<uint32_t>(value));
    Put32(to, static_cast<uint32_t>(value >> 32));
  }
  static uint32_t Checksum(std::string_view bytes) {
    uint32_t sum = 0xFFFFFFFFu;
    for (const char byte : bytes) {
      sum ^= static_cast<uint8_t>(byte);
      for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) ? 0xEDB88320u : 0u);
    }
    return ~sum;
  }

 private:
  // The fields that a local header and a directory entry share, up to the length of the name.
  static void PutCommon(std::string& to, const ZipEntry& entry, uint32_t packed, uint32_t size) {
    Put16(to, 20);
    Put16(to, entry.flags);
    Put16(to, 0);  // stored
    Put16(to, entry.time);
    Put16(to, entry.date);
    Put32(to, Checksum(entry.content));
    Put32(to, packed);
    Put32(to, size);
    Put16(to, static_cast<uint32_t>(entry.name.size()));
  }

  static void PutDirectoryEntry(std::string& to, const ZipEntry& entry, uint32_t offset) {
    const auto truth = static_cast<uint32_t>(entry.content.size());
    Put32(to, 0x02014B50);
    Put16(to, entry.madeBy);
    PutCommon(to, entry, entry.packed.value_or(truth), entry.size.value_or(truth));
    Put16(to, static_cast<uint32_t>(entry.extra.size()));
    Put16(to, static_cast<uint32_t>(entry.comment.size()));
    Put16(to, entry.disk);
    Put16(to, 0);
    Put32(to, entry.attributes);
    Put32(to, entry.offset.value_or(offset));
    to += entry.name + entry.extra + entry.comment;
  }

  void PutEnd(std::string& to, uint64_t start, uint64_t size) const {
    if (wide_) {
      const uint64_t at = to.size();
      Put32(to, 0x06064B50);
      Put64(to, 44);
      Put16(to, 45);
      Put16(to, 45);
      Put32(to, 0);
      Put32(to, 0);
      Put64(to, entries_.size());
      Put64(to, entries_.size());
      Put64(to, size);
      Put64(to, start);
      Put32(to, 0x07064B50);
      Put32(to, locatorDisk_);
      Put64(to, at);
      Put32(to, disks_);
    }
    const uint32_t count = wide_ ? 0xFFFF : static_cast<uint32_t>(entries_.size());
    Put32(to, 0x06054B50);
    Put16(to, lies_.disk.value_or(0));
    Put16(to, lies_.directoryDisk.value_or(0));
    Put16(to, lies_.countHere ? *lies_.countHere : count);
    Put16(to, lies_.count ? *lies_.count : count);
    Put32(to, lies_.size.value_or(wide_ ? 0xFFFFFFFF : static_cast<uint32_t>(size)));
    Put32(to, lies_.start.value_or(wide_ ? 0xFFFFFFFF : static_cast<uint32_t>(start)));
    Put16(to, lies_.commentLength ? *lies_.commentLength : static_cast<uint32_t>(comment_.size()));
    to += comment_;
  }

  std::vector<ZipEntry> entries_;
  std::string comment_;
  std::string prefix_;
  std::string gap_;
  ZipLies lies_;
  bool wide_ = false;
  uint32_t disks_ = 1;
  uint32_t locatorDisk_ = 0;
};

}  // namespace test_support
