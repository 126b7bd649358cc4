#include "workbench/controls/archive/zip_end_record.h"

#include <algorithm>
#include <array>

#include "workbench/controls/archive/little_endian.h"

namespace controls {
namespace {

constexpr uint32_t kEndSignature = 0x06054B50;
constexpr uint32_t kLocatorSignature = 0x07064B50;
constexpr uint32_t kWideEndSignature = 0x06064B50;
constexpr uint32_t kEntrySignature = 0x02014B50;
constexpr uint64_t kEndSize = 22;
constexpr uint64_t kLocatorSize = 20;
constexpr uint64_t kWideEndSize = 56;
constexpr uint64_t kSmallestEntry = 46;
constexpr uint64_t kLongestComment = 0xFFFF;
// Signatures in a comment can be many; the right one is among the first that make sense.
constexpr size_t kMostCandidates = 4;

// What both kinds of end record say.
struct EndRecord {
  uint64_t at = 0;  // where the directory must have ended
  uint64_t disk = 0;
  uint64_t directoryDisk = 0;
  uint64_t countHere = 0;
  uint64_t count = 0;
  uint64_t size = 0;
  uint64_t start = 0;
  bool wide = false;
};

EndRecord ReadShort(std::span<const uint8_t> bytes, uint64_t at) {
  EndRecord record;
  record.at = at;
  record.disk = Read16(bytes, 4);
  record.directoryDisk = Read16(bytes, 6);
  record.countHere = Read16(bytes, 8);
  record.count = Read16(bytes, 10);
  record.size = Read32(bytes, 12);
  record.start = Read32(bytes, 16);
  return record;
}

bool ReadWideAt(ByteSource& source, uint64_t at, EndRecord& record) {
  std::array<uint8_t, kWideEndSize> bytes;
  if (!source.Read(at, bytes) || Read32(bytes, 0) != kWideEndSignature) return false;
  record.at = at;
  record.disk = Read32(bytes, 16);
  record.directoryDisk = Read32(bytes, 20);
  record.countHere = Read64(bytes, 24);
  record.count = Read64(bytes, 32);
  record.size = Read64(bytes, 40);
  record.start = Read64(bytes, 48);
  record.wide = true;
  return true;
}

enum class Wide { kNone, kFound, kSplit, kBroken };

// The wide record that belongs to a short one whose fields are too small.
Wide FindWide(ByteSource& source, uint64_t endAt, EndRecord& record) {
  std::array<uint8_t, kLocatorSize> locator;
  if (endAt < kLocatorSize || !source.Read(endAt - kLocatorSize, locator) ||
      Read32(locator, 0) != kLocatorSignature) {
    return Wide::kNone;
  }
  if (Read32(locator, 16) > 1 || Read32(locator, 4) != 0) return Wide::kSplit;
  const uint64_t locatorAt = endAt - kLocatorSize;
  const uint64_t said = Read64(locator, 8);
  if (said <= locatorAt && locatorAt - said >= kWideEndSize && ReadWideAt(source, said, record))
    return Wide::kFound;
  // With something in front of the archive the place is wrong; the record mostly stands right before the
  // locator.
  if (locatorAt >= kWideEndSize && ReadWideAt(source, locatorAt - kWideEndSize, record)) return Wide::kFound;
  return Wide::kBroken;
}

bool NeedsWide(const EndRecord& record) {
  return record.disk == 0xFFFF || record.directoryDisk == 0xFFFF || record.countHere == 0xFFFF ||
         record.count == 0xFFFF || record.size == 0xFFFFFFFF || record.start == 0xFFFFFFFF;
}

bool BeginsWithEntry(ByteSource& source, uint64_t at) {
  std::array<uint8_t, 4> signature;
  return source.Read(at, signature) && Read32(signature, 0) == kEntrySignature;
}

ZipEndCandidate Judge(ByteSource& source, const EndRecord& record) {
  ZipEndCandidate candidate;
  const auto fail = [&](ZipError error) {
    candidate.error = error;
    return candidate;
  };
  if (record.disk != 0 || record.directoryDisk != 0 || record.countHere != record.count)
    return fail(ZipError::kSplit);
  if (record.size > record.at) return fail(ZipError::kDamaged);
  if (record.count > record.size / kSmallestEntry) return fail(ZipError::kDamaged);
  if (record.size > kLongestZipDirectory) return fail(ZipError::kTooLarge);
  ZipDirectoryPlace& place = candidate.place;
  place.size = record.size;
  place.count = record.count;
  place.shortCount = !record.wide;
  // The directory ends where the end record begins; what it says of its start tells how much stands before
  // the archive.
  place.start = record.at - record.size;
  if (place.start < record.start) return fail(ZipError::kDamaged);
  place.shift = place.start - record.start;
  if (record.size == 0 || BeginsWithEntry(source, place.start)) return candidate;
  // Or there is a gap behind it, and nothing before the archive.
  place.start = record.start;
  place.shift = 0;
  return BeginsWithEntry(source, place.start) ? candidate : fail(ZipError::kDamaged);
}

ZipEndCandidate CandidateAt(ByteSource& source, std::span<const uint8_t> bytes, uint64_t at) {
  EndRecord record = ReadShort(bytes, at);
  if (!NeedsWide(record)) return Judge(source, record);
  switch (FindWide(source, at, record)) {
    case Wide::kSplit:
      return {ZipError::kSplit, {}};
    case Wide::kBroken:
      return {ZipError::kDamaged, {}};
    case Wide::kNone:
    case Wide::kFound:
      break;
  }
  return Judge(source, record);
}

}  // namespace

std::vector<ZipEndCandidate> FindZipEndRecords(ByteSource& source, bool& ok) {
  std::vector<ZipEndCandidate> found;
  const uint64_t size = source.size();
  ok = true;
  if (size < kEndSize) return found;
  std::vector<uint8_t> tail(static_cast<size_t>(std::min(size, kEndSize + kLongestComment)));
  const uint64_t tailAt = size - tail.size();
  if (!source.Read(tailAt, tail)) {
    ok = false;
    return found;
  }
  std::vector<size_t> exact;
  std::vector<size_t> others;
  for (size_t at = 0; at + kEndSize <= tail.size(); ++at) {
    if (tail[at] != 'P' || Read32(std::span(tail).subspan(at), 0) != kEndSignature) continue;
    const uint64_t end = at + kEndSize + Read16(tail, at + 20);
    if (end == tail.size()) {
      exact.push_back(at);
    } else if (end < tail.size()) {
      others.push_back(at);
    }
  }
  // Something behind the archive: the last record counts.
  std::reverse(others.begin(), others.end());
  exact.insert(exact.end(), others.begin(), others.end());
  if (exact.size() > kMostCandidates) exact.resize(kMostCandidates);
  for (const size_t at : exact)
    found.push_back(CandidateAt(source, std::span(tail).subspan(at), tailAt + at));
  return found;
}

}  // namespace controls
