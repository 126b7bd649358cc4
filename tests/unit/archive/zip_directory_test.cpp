// What right archives say.
#include "workbench/controls/archive/zip_directory.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/archive/archive_text.h"

namespace {

using namespace controls;
using archive_test::Children;
using archive_test::Read;
using test_support::DosDate;
using test_support::DosTime;
using test_support::ZipBuilder;
using test_support::ZipEntry;
using testing::ElementsAre;

TEST(ZipDirectory, AnEmptyArchiveIsOne) {
  const ZipListing listing = Read(ZipBuilder().Build());
  EXPECT_EQ(listing.error, ZipError::kNone);
  ASSERT_TRUE(listing.tree);
  EXPECT_EQ(listing.tree->size(), 1u);
}

TEST(ZipDirectory, NamesSizesAndDates) {
  ZipEntry entry;
  entry.name = "models/teapot.obj";
  entry.content = "v 0 0 0\n";
  entry.date = DosDate(1999, 12, 31);
  entry.time = DosTime(23, 59, 58);
  const ZipListing listing = Read(ZipBuilder().Add(entry).Add("readme.txt", "hello").Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"models\\", L"readme.txt"));
  const ArchiveNode& teapot = listing.tree->at(listing.tree->Find(L"models\\teapot.obj"));
  EXPECT_EQ(teapot.facts.size, 8u);
  EXPECT_EQ(teapot.facts.modified, 125911583980000000u);
  EXPECT_FALSE(teapot.facts.hidden);
  EXPECT_EQ(listing.tree->at(listing.tree->Find(L"readme.txt")).facts.size, 5u);
}

TEST(ZipDirectory, TheUnpackedSizeCounts) {
  ZipEntry entry;
  entry.name = "a.bin";
  entry.content = "packed";
  entry.size = 4'000'000'000u;
  const ZipListing listing = Read(ZipBuilder().Add(entry).Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_EQ(listing.tree->at(listing.tree->Find(L"a.bin")).facts.size, 4'000'000'000u);
}

TEST(ZipDirectory, AnInvalidDateIsUnknown) {
  ZipEntry entry;
  entry.name = "a";
  entry.date = DosDate(2021, 2, 30);
  const ZipListing listing = Read(ZipBuilder().Add(entry).Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_EQ(listing.tree->at(1).facts.modified, 0u);
}

TEST(ZipDirectory, TheFlagDecidesTheCodePageOfAName) {
  ZipEntry utf8;
  utf8.name = "\xC3\xA9.txt";
  utf8.flags = 0x800;
  ZipEntry old;
  old.name = "\x82.dat";
  const ZipListing listing = Read(ZipBuilder().Add(utf8).Add(old).Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"\u00E9.txt", L"\u00E9.dat"));
}

TEST(ZipDirectory, HiddenEntriesOfSystemsThatHaveThem) {
  ZipEntry hidden;
  hidden.name = "a";
  hidden.attributes = 0x22;
  ZipEntry unix;
  unix.name = "b";
  unix.madeBy = 0x0314;
  unix.attributes = 0x22;
  const ZipListing listing = Read(ZipBuilder().Add(hidden).Add(unix).Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_TRUE(listing.tree->at(1).facts.hidden);
  EXPECT_FALSE(listing.tree->at(2).facts.hidden);
}

TEST(ZipDirectory, ExtraFieldsAndCommentsOfEntriesArePassedOver) {
  ZipEntry entry;
  entry.name = "a.txt";
  entry.extra = std::string("\x55\x54\x05\x00\x01\x00\x00\x00\x00", 9);
  entry.comment = "PK\x01\x02 looks like an entry";
  const ZipListing listing = Read(ZipBuilder().Add(entry).Add("b.txt").Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"a.txt", L"b.txt"));
}

TEST(ZipDirectory, AnArchiveMayHaveAComment) {
  const ZipListing listing = Read(ZipBuilder().Add("a").Comment(std::string(65535, 'c')).Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"a"));
}

TEST(ZipDirectory, AProgramMayStandInFront) {
  const std::string program = std::string("MZ") + std::string(5000, 'x');
  for (const bool wide : {false, true}) {
    ZipBuilder builder;
    builder.Add("setup/a.txt", "content").Prefix(program);
    if (wide) builder.Wide();
    const ZipListing listing = Read(builder.Build());
    ASSERT_TRUE(listing.tree) << wide;
    EXPECT_THAT(Children(*listing.tree, L"setup"), ElementsAre(L"a.txt"))
        << "and its data are where they belong";
  }
}

TEST(ZipDirectory, SomethingMayStandBehind) {
  const ZipListing listing = Read(ZipBuilder().Add("a").Build() + "downloaded with a little too much");
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"a"));
}

TEST(ZipDirectory, AGapMayStandBeforeTheEndRecord) {
  const ZipListing listing = Read(ZipBuilder().Add("a", "xyz").Gap("????").Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"a"));
}

TEST(ZipDirectory, ASignedDirectoryEndsInItsSignature) {
  const ZipBuilder plain = ZipBuilder().Add("a", "xyz");
  const std::string signature("PK\x05\x05\x03\x00xyz", 9);
  const uint32_t directorySize = 46 + 1 + static_cast<uint32_t>(signature.size());
  const ZipListing listing = Read(ZipBuilder(plain).Gap(signature).Lie({.size = directorySize}).Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"a"));
}

TEST(ZipDirectory, TheRecordsForLargeArchives) {
  const ZipListing listing = Read(ZipBuilder().Add("a/b.txt").Add("c.txt").Wide().Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_THAT(Children(*listing.tree), ElementsAre(L"a\\", L"c.txt"));
}

TEST(ZipDirectory, TheFieldsForLargeEntries) {
  ZipEntry entry;
  entry.name = "huge.bin";
  entry.size = 0xFFFFFFFF;
  // Another field first, then the wide sizes.
  entry.extra = std::string("\x09\x00\x02\x00zz", 6);
  ZipBuilder::Put16(entry.extra, 1);
  ZipBuilder::Put16(entry.extra, 8);
  ZipBuilder::Put64(entry.extra, 0x123456789Au);
  const ZipListing listing = Read(ZipBuilder().Add(entry).Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_EQ(listing.tree->at(1).facts.size, 0x123456789Au);
  EXPECT_FALSE(listing.tree->at(1).damaged);
}

TEST(ZipDirectory, MoreEntriesThanTheShortRecordCanCount) {
  ZipBuilder builder;
  for (int i = 0; i < 65536 + 3; ++i) builder.Add("n" + std::to_string(i));
  const ZipListing listing = Read(builder.Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_EQ(listing.tree->size(), 65536u + 3 + 1);
}

TEST(ZipDirectory, TheDirectoryMayBeLongerThanOnePiece) {
  ZipBuilder builder;
  for (int i = 0; i < 9; ++i) {
    ZipEntry entry;
    entry.name = "e" + std::to_string(i);
    entry.comment = std::string(65000, 'c');
    entry.extra = std::string(60000, '\0');
    builder.Add(entry);
  }
  const ZipListing listing = Read(builder.Build());
  ASSERT_TRUE(listing.tree);
  EXPECT_EQ(listing.tree->size(), 10u);
}

TEST(ZipDirectory, ReadingCanBeStopped) {
  ZipBuilder builder;
  for (int i = 0; i < 5000; ++i) builder.Add("n" + std::to_string(i));
  const std::string bytes = builder.Build();
  MemorySource source({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
  int asked = 0;
  EXPECT_EQ(ReadZipDirectory(source, [&] { return ++asked == 2; }).error, ZipError::kCancelled);
  EXPECT_EQ(asked, 2);
}

}  // namespace
