#include "workbench/controls/archive/zip_directory.h"

#include <algorithm>
#include <vector>

#include "workbench/controls/archive/dos_time.h"
#include "workbench/controls/archive/entry_name.h"
#include "workbench/controls/archive/little_endian.h"
#include "workbench/controls/archive/zip_end_record.h"

namespace controls {
namespace {

constexpr uint32_t kEntrySignature = 0x02014B50;
constexpr uint32_t kSignatureSignature = 0x05054B50;  // a signed directory ends in this record
constexpr size_t kEntrySize = 46;
constexpr size_t kLocalHeaderSize = 30;
constexpr size_t kWindowSize = size_t{256} * 1024;  // holds the longest entry
constexpr uint16_t kNameIsUtf8 = 1u << 11;
constexpr uint16_t kWideFields = 0x0001;
constexpr size_t kEntriesBetweenQuestions = 1024;

// The directory, read in large pieces.
class Window {
 public:
  Window(ByteSource& source, uint64_t start, uint64_t size)
      : source_(source), next_(start), end_(start + size) {}

  // The source could not give what it has.
  bool failed() const { return failed_; }
  uint64_t left() const { return end_ - next_ + (filled_ - at_); }
  // The next bytes, at least wanted of them; empty when there are not so many or the source fails.
  std::span<const uint8_t> Peek(size_t wanted) {
    if (filled_ - at_ < wanted && !Fill(wanted)) return {};
    return std::span<const uint8_t>(buffer_).subspan(at_, filled_ - at_);
  }
  void Take(size_t bytes) { at_ += bytes; }

 private:
  bool Fill(size_t wanted) {
    if (left() < wanted) return false;
    buffer_.resize(kWindowSize);
    std::copy(buffer_.begin() + static_cast<std::ptrdiff_t>(at_),
              buffer_.begin() + static_cast<std::ptrdiff_t>(filled_), buffer_.begin());
    filled_ -= at_;
    at_ = 0;
    const auto more = static_cast<size_t>(std::min<uint64_t>(kWindowSize - filled_, end_ - next_));
    if (!source_.Read(next_, std::span(buffer_).subspan(filled_, more))) {
      failed_ = true;
      return false;
    }
    filled_ += more;
    next_ += more;
    return filled_ >= wanted;
  }

  ByteSource& source_;
  uint64_t next_;
  uint64_t end_;
  std::vector<uint8_t> buffer_;
  size_t at_ = 0;
  size_t filled_ = 0;
  bool failed_ = false;
};

struct RawEntry {
  uint64_t packed = 0;
  uint64_t size = 0;
  uint64_t offset = 0;
  uint32_t disk = 0;
  bool wideBroken = false;
};

// Replaces the fields that were too small by those of the wide extra field, which stand there in a fixed
// order.
void ApplyWideFields(std::span<const uint8_t> extra, RawEntry& entry) {
  const bool needs = entry.size == 0xFFFFFFFF || entry.packed == 0xFFFFFFFF || entry.offset == 0xFFFFFFFF;
  while (extra.size() >= 4) {
    const uint16_t id = Read16(extra, 0);
    const size_t length = Read16(extra, 2);
    extra = extra.subspan(4);
    if (length > extra.size()) break;
    std::span<const uint8_t> field = extra.first(length);
    extra = extra.subspan(length);
    if (id != kWideFields) continue;
    for (uint64_t* value : {&entry.size, &entry.packed, &entry.offset}) {
      if (*value != 0xFFFFFFFF) continue;
      if (field.size() < 8) {
        entry.wideBroken = true;
        return;
      }
      *value = Read64(field, 0);
      field = field.subspan(8);
    }
    if (entry.disk == 0xFFFF && field.size() >= 4) entry.disk = Read32(field, 0);
    return;
  }
  entry.wideBroken = needs;
}

RawEntry ReadFields(std::span<const uint8_t> header, std::span<const uint8_t> extra) {
  RawEntry entry;
  entry.packed = Read32(header, 20);
  entry.size = Read32(header, 24);
  entry.disk = Read16(header, 34);
  entry.offset = Read32(header, 42);
  ApplyWideFields(extra, entry);
  return entry;
}

// Archives of systems with these attributes keep them in the low byte.
bool IsHidden(std::span<const uint8_t> header) {
  const uint8_t system = header[5];
  const bool hasAttributes = system == 0 || system == 10 || system == 11 || system == 14;
  return hasAttributes && (Read32(header, 38) & 0x2) != 0;
}

// The part of the file that an entry's data fill.
struct Extent {
  uint64_t begin;
  uint64_t end;
  NodeId node;
};

class DirectoryReader {
 public:
  DirectoryReader(ByteSource& source, const ZipDirectoryPlace& place, const std::function<bool()>& cancelled)
      : place_(place), window_(source, place.start, place.size), cancelled_(cancelled) {}

  ZipListing Read() {
    ZipListing listing;
    uint64_t count = 0;
    while (listing.error == ZipError::kNone && window_.left() >= 4) {
      if (AtSignature()) break;
      listing.error = ReadEntry();
      if (listing.error == ZipError::kNone && ++count % kEntriesBetweenQuestions == 0 && cancelled_ &&
          cancelled_()) {
        listing.error = ZipError::kCancelled;
      }
    }
    if (window_.failed()) listing.error = ZipError::kUnreadable;
    if (listing.error != ZipError::kNone) return listing;
    const bool countHolds = count == place_.count || (place_.shortCount && (count & 0xFFFF) == place_.count);
    if (!countHolds) {
      listing.error = ZipError::kDamaged;
      return listing;
    }
    MarkOverlaps();
    listing.tree = std::move(tree_);
    return listing;
  }

 private:
  bool AtSignature() {
    const std::span<const uint8_t> bytes = window_.Peek(4);
    return bytes.size() >= 4 && Read32(bytes, 0) == kSignatureSignature;
  }

  ZipError ReadEntry() {
    std::span<const uint8_t> bytes = window_.Peek(kEntrySize);
    if (bytes.empty() || Read32(bytes, 0) != kEntrySignature) return ZipError::kDamaged;
    const size_t nameLength = Read16(bytes, 28);
    const size_t extraLength = Read16(bytes, 30);
    const size_t whole = kEntrySize + nameLength + extraLength + Read16(bytes, 32);
    bytes = window_.Peek(whole);
    if (bytes.empty()) return ZipError::kDamaged;
    const RawEntry entry = ReadFields(bytes, bytes.subspan(kEntrySize + nameLength, extraLength));
    if (entry.disk != 0) return ZipError::kSplit;
    const std::span<const uint8_t> name = bytes.subspan(kEntrySize, nameLength);
    const bool utf8 = (Read16(bytes, 8) & kNameIsUtf8) != 0;
    EntryFacts facts;
    facts.size = entry.size;
    facts.modified = TicksOfDosTime(Read16(bytes, 14), Read16(bytes, 12));
    facts.hidden = IsHidden(bytes);
    const NodeId node = tree_.Add(utf8 ? TextOfUtf8(name) : TextOfCodePage437(name), facts);
    if (node == kNoNode) return ZipError::kTooLarge;
    CheckExtent(entry, node);
    window_.Take(whole);
    return ZipError::kNone;
  }

  // The data must lie between what stands before the archive and its directory.
  void CheckExtent(const RawEntry& entry, NodeId node) {
    if (node == kArchiveRoot || tree_.at(node).folder) return;
    const uint64_t room = place_.start - place_.shift;
    if (entry.wideBroken || entry.offset > room || room - entry.offset < kLocalHeaderSize ||
        room - entry.offset - kLocalHeaderSize < entry.packed) {
      tree_.MarkDamaged(node);
      return;
    }
    extents_.push_back({entry.offset, entry.offset + kLocalHeaderSize + entry.packed, node});
  }

  // No two entries can share bytes. Mostly the directory is in the order of the data.
  void MarkOverlaps() {
    const auto before = [](const Extent& a, const Extent& b) { return a.begin < b.begin; };
    if (!std::is_sorted(extents_.begin(), extents_.end(), before)) {
      std::sort(extents_.begin(), extents_.end(), before);
    }
    const Extent* furthest = nullptr;
    for (const Extent& extent : extents_) {
      if (furthest && extent.begin < furthest->end) {
        tree_.MarkDamaged(extent.node);
        tree_.MarkDamaged(furthest->node);
      }
      if (!furthest || extent.end > furthest->end) furthest = &extent;
    }
  }

  ZipDirectoryPlace place_;
  Window window_;
  const std::function<bool()>& cancelled_;
  ArchiveTree tree_;
  std::vector<Extent> extents_;
};

}  // namespace

ZipListing ReadZipDirectory(ByteSource& source, const std::function<bool()>& cancelled) {
  ZipListing first;
  bool ok = true;
  const std::vector<ZipEndCandidate> candidates = FindZipEndRecords(source, ok);
  if (!ok) {
    first.error = ZipError::kUnreadable;
    return first;
  }
  first.error = ZipError::kNotZip;
  bool tried = false;
  for (const ZipEndCandidate& candidate : candidates) {
    ZipListing listing;
    listing.error = candidate.error;
    if (candidate.error == ZipError::kNone)
      listing = DirectoryReader(source, candidate.place, cancelled).Read();
    if (listing.error == ZipError::kNone || listing.error == ZipError::kCancelled) return listing;
    // The likeliest record's trouble is the one to tell.
    if (!tried) first.error = listing.error;
    tried = true;
  }
  return first;
}

}  // namespace controls
