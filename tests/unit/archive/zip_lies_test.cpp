// Archives that lie, and files that are none.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/unit/archive/archive_text.h"

namespace {

using namespace controls;
using archive_test::Children;
using archive_test::ErrorOf;
using archive_test::Read;
using test_support::ZipBuilder;
using test_support::ZipEntry;
using test_support::ZipLies;
using testing::ElementsAre;

ZipBuilder Two() {
  return ZipBuilder().Add("a.txt", "first").Add("b.txt", "second");
}

TEST(ZipLies, OtherFilesAreNoArchives) {
  EXPECT_EQ(ErrorOf(""), ZipError::kNotZip);
  EXPECT_EQ(ErrorOf("PK\x05\x06"), ZipError::kNotZip);
  EXPECT_EQ(ErrorOf(std::string(100000, 'x')), ZipError::kNotZip);
  EXPECT_EQ(ErrorOf(std::string("PK\x03\x04") + std::string(500, '\0')), ZipError::kNotZip);
}

TEST(ZipLies, EveryCutIsNoticed) {
  const std::string whole = Two().Comment("a comment").Build();
  ASSERT_EQ(ErrorOf(whole), ZipError::kNone);
  for (size_t length = 0; length < whole.size(); ++length) {
    EXPECT_NE(ErrorOf(std::string_view(whole).substr(0, length)), ZipError::kNone) << length;
  }
}

TEST(ZipLies, EveryMissingBeginningIsNoticed) {
  const std::string whole = Two().Build();
  for (size_t from = 1; from < whole.size(); ++from) {
    EXPECT_NE(ErrorOf(std::string_view(whole).substr(from)), ZipError::kNone) << from;
  }
}

TEST(ZipLies, CountsMustHold) {
  EXPECT_EQ(ErrorOf(Two().Lie({.countHere = 1, .count = 1}).Build()), ZipError::kDamaged);
  EXPECT_EQ(ErrorOf(Two().Lie({.countHere = 3, .count = 3}).Build()), ZipError::kDamaged)
      << "too many for the bytes";
  EXPECT_EQ(ErrorOf(Two().Lie({.countHere = 0, .count = 0}).Build()), ZipError::kDamaged);
  EXPECT_EQ(ErrorOf(Two().Lie({.countHere = 65534, .count = 65534}).Build()), ZipError::kDamaged);
}

TEST(ZipLies, TheDirectoryMustLieInTheFile) {
  EXPECT_EQ(ErrorOf(Two().Lie({.start = 0x7FFFFFFF}).Build()), ZipError::kDamaged);
  EXPECT_EQ(ErrorOf(Two().Lie({.size = 0x7FFFFFFF}).Build()), ZipError::kDamaged);
  EXPECT_EQ(ErrorOf(Two().Lie({.size = 0xFFFFFFFF, .start = 0xFFFFFFFF}).Build()), ZipError::kDamaged)
      << "the wide record is missing";
  EXPECT_EQ(ErrorOf(Two().Lie({.size = 10}).Build()), ZipError::kDamaged);
  EXPECT_EQ(ErrorOf(Two().Lie({.size = 0}).Build()), ZipError::kDamaged);
}

TEST(ZipLies, TheDirectoryMustNotReachIntoTheEndRecord) {
  const std::string whole = Two().Build();
  const uint32_t directory = 2 * (46 + 5);
  EXPECT_EQ(ErrorOf(Two().Lie({.size = directory + 1}).Build()), ZipError::kDamaged);
  EXPECT_EQ(ErrorOf(Two().Lie({.size = directory + 22}).Build()), ZipError::kDamaged);
  EXPECT_EQ(ErrorOf(Two().Lie({.start = static_cast<uint32_t>(whole.size() - 30)}).Build()),
            ZipError::kDamaged);
}

TEST(ZipLies, AnEntryMustEndInTheDirectory) {
  std::string bytes = Two().Build();
  const size_t second = bytes.rfind("PK\x01\x02");
  bytes[second + 28] = '\xFF';  // the name's length
  EXPECT_EQ(ErrorOf(bytes), ZipError::kDamaged);
  bytes = Two().Build();
  bytes[second] = 'Q';
  EXPECT_EQ(ErrorOf(bytes), ZipError::kDamaged);
}

TEST(ZipLies, ACommentMayLookLikeAnEndRecord) {
  const std::string fakeEmpty = ZipBuilder().Build();
  const std::string fake = ZipBuilder().Add("fake.txt").Build();
  for (const std::string& comment : {fakeEmpty, fake, "text " + fake, fake + fakeEmpty}) {
    const ZipListing listing = Read(Two().Comment(comment).Build());
    ASSERT_TRUE(listing.tree);
    EXPECT_THAT(Children(*listing.tree), ElementsAre(L"a.txt", L"b.txt"));
  }
}

TEST(ZipLies, AnArchiveInAnArchiveIsNotTakenForIt) {
  const std::string inner = ZipBuilder().Add("inner.txt").Build();
  const ZipListing listing = Read(ZipBuilder().Add("inner.zip", inner).Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"inner.zip"));
}

TEST(ZipLies, ACommentThatIsLongerThanTheFileIsNone) {
  EXPECT_EQ(ErrorOf(Two().Lie({.commentLength = 500}).Build()), ZipError::kNotZip);
}

TEST(ZipLies, PartsOfASetAreRefused) {
  EXPECT_EQ(ErrorOf(Two().Lie({.disk = 1}).Build()), ZipError::kSplit);
  EXPECT_EQ(ErrorOf(Two().Lie({.directoryDisk = 1}).Build()), ZipError::kSplit);
  EXPECT_EQ(ErrorOf(Two().Lie({.countHere = 1}).Build()), ZipError::kSplit);
  EXPECT_EQ(ErrorOf(Two().Wide(2).Build()), ZipError::kSplit);
  EXPECT_EQ(ErrorOf(Two().Wide(1, 1).Build()), ZipError::kSplit);
  ZipEntry elsewhere;
  elsewhere.name = "c";
  elsewhere.disk = 3;
  EXPECT_EQ(ErrorOf(Two().Add(elsewhere).Build()), ZipError::kSplit);
}

// The wide end record of an archive, changed at a place.
std::string WideWith(size_t at, uint64_t value) {
  std::string bytes = Two().Wide().Build();
  std::string number;
  ZipBuilder::Put64(number, value);
  bytes.replace(bytes.find("PK\x06\x06") + at, 8, number);
  return bytes;
}

TEST(ZipLies, TheWideRecordMustHoldToo) {
  constexpr uint64_t kHuge = std::numeric_limits<uint64_t>::max();
  ASSERT_EQ(ErrorOf(WideWith(24, 2)), ZipError::kNone);
  for (const uint64_t lie :
       {kHuge, kHuge - 45, uint64_t{1} << 62, uint64_t{1} << 32, uint64_t{3}, uint64_t{0}}) {
    EXPECT_NE(ErrorOf(WideWith(24, lie)), ZipError::kNone) << lie;
    EXPECT_NE(ErrorOf(WideWith(32, lie)), ZipError::kNone) << lie;
    EXPECT_NE(ErrorOf(WideWith(40, lie)), ZipError::kNone) << lie;
  }
  for (const uint64_t lie : {kHuge, kHuge - 45, uint64_t{1} << 62, uint64_t{1} << 32}) {
    EXPECT_NE(ErrorOf(WideWith(48, lie)), ZipError::kNone) << lie;
  }
}

TEST(ZipLies, TheLocatorMayPointAnywhere) {
  for (const uint64_t lie :
       {std::numeric_limits<uint64_t>::max(), uint64_t{1} << 40, uint64_t{0}, uint64_t{50}}) {
    std::string bytes = Two().Wide().Build();
    std::string number;
    ZipBuilder::Put64(number, lie);
    bytes.replace(bytes.find("PK\x06\x07") + 8, 8, number);
    EXPECT_EQ(ErrorOf(bytes), ZipError::kNone) << "the record before the locator is taken";
    bytes[bytes.find("PK\x06\x06")] = 'Q';
    EXPECT_EQ(ErrorOf(bytes), ZipError::kDamaged);
  }
}

TEST(ZipLies, HugeCountsCostNothing) {
  // The count is compared with what the directory has room for, before anything is set aside for it.
  EXPECT_EQ(ErrorOf(WideWith(32, 0xFFFFFFFFFFu)), ZipError::kSplit) << "the other count contradicts";
  std::string bytes = WideWith(32, 0xFFFFFFFFFFu);
  std::string number;
  ZipBuilder::Put64(number, 0xFFFFFFFFFFu);
  bytes.replace(bytes.find("PK\x06\x06") + 24, 8, number);
  EXPECT_EQ(ErrorOf(bytes), ZipError::kDamaged);
}

// A source that claims to be as large as it likes and has nothing in it but the end.
class HollowSource final : public ByteSource {
 public:
  HollowSource(uint64_t size, std::string end) : size_(size), end_(std::move(end)) {}
  uint64_t size() const override { return size_; }
  bool Read(uint64_t offset, std::span<uint8_t> to) override {
    if (offset > size_ || to.size() > size_ - offset) return false;
    largest = std::max(largest, to.size());
    const uint64_t endAt = size_ - end_.size();
    for (size_t i = 0; i < to.size(); ++i) {
      const uint64_t at = offset + i;
      to[i] = at >= endAt ? static_cast<uint8_t>(end_[static_cast<size_t>(at - endAt)]) : uint8_t{0};
    }
    return true;
  }
  size_t largest = 0;

 private:
  uint64_t size_;
  std::string end_;
};

TEST(ZipLies, AFileOfHugeSizeIsNeverReadAsAWhole) {
  for (const uint64_t value : {uint64_t{1} << 30, uint64_t{1} << 29}) {
    const std::string bytes = WideWith(40, value);  // the directory's size
    HollowSource source(uint64_t{1} << 45, bytes.substr(bytes.find("PK\x06\x06")));
    const ZipError error = ReadZipDirectory(source).error;
    EXPECT_NE(error, ZipError::kNone);
    EXPECT_LE(source.largest, size_t{512} * 1024);
  }
}

TEST(ZipLies, ADirectoryThatIsTooLongIsRefused) {
  std::string end;
  ZipBuilder::Put32(end, 0x06054B50);
  ZipBuilder::Put32(end, 0);
  ZipBuilder::Put16(end, 10);
  ZipBuilder::Put16(end, 10);
  ZipBuilder::Put32(end, static_cast<uint32_t>(kLongestZipDirectory + 1));
  ZipBuilder::Put32(end, 0);
  ZipBuilder::Put16(end, 0);
  HollowSource source(uint64_t{1} << 31, end);
  EXPECT_EQ(ReadZipDirectory(source).error, ZipError::kTooLarge);
}

// A source whose bytes cannot be had.
class BrokenSource final : public ByteSource {
 public:
  BrokenSource(std::string bytes, uint64_t readable) : bytes_(std::move(bytes)), readable_(readable) {}
  uint64_t size() const override { return bytes_.size(); }
  bool Read(uint64_t offset, std::span<uint8_t> to) override {
    if (offset < bytes_.size() - readable_) return false;
    return MemorySource({reinterpret_cast<const uint8_t*>(bytes_.data()), bytes_.size()}).Read(offset, to);
  }

 private:
  std::string bytes_;
  uint64_t readable_;
};

TEST(ZipLies, AFailingSourceIsToldApartFromADamagedArchive) {
  BrokenSource nothing(Two().Build(), 0);
  EXPECT_EQ(ReadZipDirectory(nothing).error, ZipError::kUnreadable);
  // The end can be read, the directory cannot.
  ZipBuilder large;
  for (int i = 0; i < 3000; ++i) large.Add("a name that is long enough " + std::to_string(i));
  BrokenSource end(large.Build(), 70000);
  EXPECT_NE(ReadZipDirectory(end).error, ZipError::kNone);
}

TEST(ZipLies, DataThatCannotBeThereIsMarked) {
  ZipEntry beyond;
  beyond.name = "beyond";
  beyond.offset = 0x7FFFFFFF;
  ZipEntry inDirectory;
  inDirectory.name = "too long";
  inDirectory.packed = 4000;
  ZipEntry missing;
  missing.name = "no wide field";
  missing.packed = 0xFFFFFFFF;
  const ZipListing listing =
      Read(ZipBuilder().Add("good", "x").Add(beyond).Add(inDirectory).Add(missing).Build());
  ASSERT_TRUE(listing.tree) << "they are still shown";
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"good", L"beyond!", L"too long!", L"no wide field!"));
}

TEST(ZipLies, EntriesThatShareTheirDataAreMarked) {
  ZipEntry second;
  second.name = "second";
  second.content = "content";
  second.offset = 0;
  const ZipListing listing =
      Read(ZipBuilder().Add("first", "content").Add("between", "y").Add(second).Add("last", "z").Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"first!", L"between", L"second!", L"last"));
}

TEST(ZipLies, ExtraFieldsMayEndAnywhere) {
  for (size_t length = 0; length < 14; ++length) {
    ZipEntry entry;
    entry.name = "a";
    entry.size = 0xFFFFFFFF;
    ZipBuilder::Put16(entry.extra, 1);
    ZipBuilder::Put16(entry.extra, 40);
    ZipBuilder::Put64(entry.extra, 77);
    entry.extra.resize(length);
    const ZipListing listing = Read(ZipBuilder().Add(entry).Build());
    ASSERT_TRUE(listing.tree) << length;
    EXPECT_TRUE(listing.tree->at(1).damaged) << length;
  }
}

TEST(ZipLies, DangerousNamesAreShownHarmless) {
  const ZipListing listing = Read(ZipBuilder()
                                      .Add("../up.txt")
                                      .Add("/absolute.txt")
                                      .Add("d:/drive.txt")
                                      .Add("con")
                                      .Add("nul.obj")
                                      .Add("a\\b.txt")
                                      .Add("same")
                                      .Add("same")
                                      .Add("")
                                      .Add("bell\x07.txt")
                                      .Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree),
              ElementsAre(L"__ (unsafe name)\\", L"absolute (unsafe name).txt", L"d_ (unsafe name)\\",
                          L"_con (unsafe name)", L"_nul (unsafe name).obj", L"a\\", L"same", L"same (2)",
                          L"(no name)", L"bell_ (unsafe name).txt"));
}

TEST(ZipLies, DeepNestingIsBounded) {
  ZipBuilder builder;
  std::string path;
  for (int i = 0; i < 32000; ++i) path += "a/";
  builder.Add(path + "b").Add(path + "c");
  const ZipListing listing = Read(builder.Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_EQ(listing.tree->size(), static_cast<size_t>(ArchiveTree::kDeepest) + 3);
}

}  // namespace
