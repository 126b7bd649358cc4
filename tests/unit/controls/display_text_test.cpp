#include "workbench/controls/model/display_text.h"

#include <gtest/gtest.h>

namespace controls {
namespace {

TEST(SizeText, KilobytesAreRoundedUp) {
  EXPECT_EQ(SizeInKilobytes(0), L"0 KB");
  EXPECT_EQ(SizeInKilobytes(1), L"1 KB");
  EXPECT_EQ(SizeInKilobytes(1024), L"1 KB");
  EXPECT_EQ(SizeInKilobytes(1025), L"2 KB");
  EXPECT_EQ(SizeInKilobytes(12 * 1024), L"12 KB");
  EXPECT_EQ(SizeInKilobytes(1234567890), L"1,205,633 KB");
  EXPECT_EQ(SizeInKilobytes(~0ull), L"18,014,398,509,481,984 KB");
}

TEST(SizeText, ShortSizesChooseTheUnit) {
  EXPECT_EQ(ShortSize(0), L"0 bytes");
  EXPECT_EQ(ShortSize(1), L"1 byte");
  EXPECT_EQ(ShortSize(1023), L"1023 bytes");
  EXPECT_EQ(ShortSize(1536), L"1.5 KB");
  EXPECT_EQ(ShortSize(1024 * 1024), L"1 MB");
  EXPECT_EQ(ShortSize(200ull * 1024 * 1024 + 512 * 1024), L"200 MB");
  EXPECT_EQ(ShortSize(~0ull), L"15.9 EB");
}

TEST(TypeText, UnknownExtensionsGetAName) {
  EXPECT_EQ(FallbackTypeName(L"obj"), L"OBJ File");
  EXPECT_EQ(FallbackTypeName(L""), L"File");
}

TEST(StatusLine, CountsItemsAndSelection) {
  StatusFacts facts;
  EXPECT_EQ(StatusText(facts), L"0 items");
  facts.items = 1;
  EXPECT_EQ(StatusText(facts), L"1 item");
  facts.items = 100000;
  facts.reading = true;
  EXPECT_EQ(StatusText(facts), L"100,000 items, reading\u2026");
  facts.reading = false;
  facts.selected = 3;
  EXPECT_EQ(StatusText(facts), L"100,000 items, 3 selected");
  facts.selectionHasFiles = true;
  facts.selectedBytes = 2048;
  EXPECT_EQ(StatusText(facts), L"100,000 items, 3 selected, 2 KB");
}

TEST(StatusLine, SaysWhyAFolderCannotBeOpened) {
  EXPECT_EQ(FolderErrorText(5, L"C:\\x", L""), L"You do not have permission to open \u201CC:\\x\u201D.");
  EXPECT_EQ(FolderErrorText(3, L"C:\\x", L""), L"\u201CC:\\x\u201D cannot be found.");
  EXPECT_EQ(FolderErrorText(267, L"C:\\x", L""), L"\u201CC:\\x\u201D is not a folder.");
  EXPECT_EQ(FolderErrorText(999, L"C:\\x", L"Odd."), L"\u201CC:\\x\u201D cannot be opened: Odd.");
  EXPECT_EQ(FolderErrorText(999, L"C:\\x", L""), L"\u201CC:\\x\u201D cannot be opened (error 999).");
}

}  // namespace
}  // namespace controls
