#include "workbench/controls/operations/undo_entry.h"

#include <gtest/gtest.h>

namespace controls {
namespace {

UndoEntry FullEntry() {
  UndoEntry entry;
  entry.name = L"Move";
  entry.record.kind = base::UndoKind::kMove;
  base::FileStatus status;
  status.kind = base::FileKind::kFileLink;
  status.size = 5'000'000'000;
  status.modified = -7;
  status.attributes = 0x21;
  status.identity = {0xFFFFFFFFFFFFFFFF, 1};
  entry.record.made.push_back({L"C:\\made \u00FC\u4E16", status});
  entry.record.moved.push_back({L"C:\\from", L"D:\\to", {2, 3}});
  entry.record.emptied = {L"C:\\e1", L""};
  entry.record.replaced = {L"C:\\r"};
  entry.binned.push_back({L"C:\\gone", std::string("\0\x01\xFF", 3)});
  return entry;
}

TEST(UndoEntry, ComesBackAsItWas) {
  const UndoEntry entry = FullEntry();
  const std::optional<UndoEntry> back = UndoEntryFrom(BytesOf(entry));
  ASSERT_TRUE(back);
  EXPECT_EQ(back->name, L"Move");
  EXPECT_EQ(back->record.kind, base::UndoKind::kMove);
  ASSERT_EQ(back->record.made.size(), 1U);
  EXPECT_EQ(back->record.made[0].path, entry.record.made[0].path);
  EXPECT_EQ(back->record.made[0].status, entry.record.made[0].status);
  ASSERT_EQ(back->record.moved.size(), 1U);
  EXPECT_EQ(back->record.moved[0].from, L"C:\\from");
  EXPECT_EQ(back->record.moved[0].to, L"D:\\to");
  EXPECT_EQ(back->record.moved[0].identity, (base::FileIdentity{2, 3}));
  EXPECT_EQ(back->record.emptied, entry.record.emptied);
  EXPECT_EQ(back->record.replaced, entry.record.replaced);
  ASSERT_EQ(back->binned.size(), 1U);
  EXPECT_EQ(back->binned[0].path, L"C:\\gone");
  EXPECT_EQ(back->binned[0].binId, entry.binned[0].binId);
  EXPECT_EQ(UndoNameFrom(BytesOf(entry)), L"Move");
}

TEST(UndoEntry, AnEmptyOneIsEmptyAgain) {
  const std::optional<UndoEntry> back = UndoEntryFrom(BytesOf(UndoEntry()));
  ASSERT_TRUE(back);
  EXPECT_TRUE(back->empty());
}

TEST(UndoEntry, CutOffOrLongerBytesAreRefused) {
  const std::string bytes = BytesOf(FullEntry());
  for (size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_FALSE(UndoEntryFrom(std::string_view(bytes).substr(0, size))) << size;
  }
  EXPECT_FALSE(UndoEntryFrom(bytes + "x"));
}

TEST(UndoEntry, ChangedBytesNeverHurt) {
  const std::string bytes = BytesOf(FullEntry());
  for (size_t at = 0; at < bytes.size(); ++at) {
    std::string changed = bytes;
    changed[at] = static_cast<char>(changed[at] ^ 0xFF);
    UndoEntryFrom(changed);  // the sanitizers look on
    UndoNameFrom(changed);
  }
  SUCCEED();
}

}  // namespace
}  // namespace controls
