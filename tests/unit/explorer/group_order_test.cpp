#include "src/explorer/group_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace file_explorer {
namespace {

GroupedItem File(std::string_view name, std::int32_t key) { return {name, false, key}; }
GroupedItem Folder(std::string_view name) { return {name, true, kNoHandlerKey}; }

TEST(GroupKey, IsTheTypeMaskOfFilesWithAUsableHandler) {
  EXPECT_EQ(GroupKeyOf(0x0002), 0x0002);
  EXPECT_EQ(GroupKeyOf(0x0004), 0x0004);
  EXPECT_EQ(GroupKeyOf(0x0406), 0x0406);
}

TEST(GroupKey, PutsFilesWithoutAUsableHandlerLast) {
  EXPECT_EQ(GroupKeyOf(0), 32767);
  EXPECT_EQ(GroupKeyOf(1), 32767) << "the bit that belongs to no category";
}

TEST(GroupOrder, FoldersStandBeforeFiles) {
  EXPECT_EQ(CompareGrouped(Folder("c:\\z"), File("c:\\a.obj", 2)), -1);
  EXPECT_EQ(CompareGrouped(File("c:\\a.obj", 2), Folder("c:\\z")), 1);
}

TEST(GroupOrder, FoldersStandByNameWhateverTheirKey) {
  GroupedItem late = Folder("c:\\b");
  late.sortKey = 1;
  EXPECT_EQ(CompareGrouped(Folder("c:\\a"), late), -1);
  EXPECT_EQ(CompareGrouped(late, Folder("c:\\a")), 1);
  EXPECT_EQ(CompareGrouped(Folder("c:\\A"), Folder("c:\\a")), 0);
}

TEST(GroupOrder, FilesStandByKeyBeforeName) {
  EXPECT_EQ(CompareGrouped(File("c:\\z.bmp", 2), File("c:\\a.obj", 4)), -1);
  EXPECT_EQ(CompareGrouped(File("c:\\a.obj", 4), File("c:\\z.bmp", 2)), 1);
  EXPECT_EQ(CompareGrouped(File("c:\\a.xyz", kNoHandlerKey), File("c:\\z.ppt", 0x200)), 1);
}

TEST(GroupOrder, FilesOfOneKeyStandByNameIgnoringCase) {
  EXPECT_EQ(CompareGrouped(File("c:\\Alpha.obj", 4), File("c:\\beta.obj", 4)), -1);
  EXPECT_EQ(CompareGrouped(File("c:\\alpha.obj", 4), File("c:\\Beta.obj", 4)), -1);
  EXPECT_EQ(CompareGrouped(File("c:\\ALPHA.OBJ", 4), File("c:\\alpha.obj", 4)), 0);
}

TEST(GroupOrder, AnArchiveIsAFileThoughTheShellCallsItAFolder) {
  EXPECT_FALSE(CountsAsFolder(true, "c:\\a.zip"));
  EXPECT_FALSE(CountsAsFolder(true, "c:\\A.ZiP"));
  EXPECT_TRUE(CountsAsFolder(true, "c:\\azip"));
  EXPECT_TRUE(CountsAsFolder(true, "zip"));
  EXPECT_FALSE(CountsAsFolder(false, "c:\\a.obj"));
}

TEST(NameOrder, TakesBytesAsTheyAreExceptForLetters) {
  EXPECT_EQ(CompareNames("", ""), 0);
  EXPECT_EQ(CompareNames("", "a"), -1);
  EXPECT_EQ(CompareNames("ab", "a"), 1);
  EXPECT_EQ(CompareNames("a_b", "aXb"), -1) << "'_' stands before the small letters";
  EXPECT_EQ(CompareNames("\xE9", "z"), 1) << "bytes beyond ASCII count as they are";
  EXPECT_EQ(CompareNames("\xC9", "\xE9"), -1) << "and are not folded";
  EXPECT_EQ(CompareNames("file10", "file9"), -1) << "digits are letters like others";
}

TEST(GroupOrder, IsAnOrder) {
  std::mt19937 random(7);
  std::vector<std::string> names;
  std::vector<GroupedItem> items;
  names.reserve(300);
  for (int i = 0; i < 300; ++i) {
    std::string name;
    for (unsigned length = random() % 4 + 1; length > 0; --length) name += "aAbB._1z"[random() % 8];
    names.push_back(name);
    items.push_back({names.back(), random() % 4 == 0, static_cast<std::int32_t>(random() % 3)});
  }
  const auto less = [](const GroupedItem& a, const GroupedItem& b) { return CompareGrouped(a, b) < 0; };
  std::sort(items.begin(), items.end(), less);
  for (size_t i = 0; i < items.size(); ++i) {
    for (size_t j = 0; j < items.size(); ++j) {
      EXPECT_EQ(CompareGrouped(items[i], items[j]), -CompareGrouped(items[j], items[i]));
      if (i < j) {
        EXPECT_LE(CompareGrouped(items[i], items[j]), 0);
      }
    }
  }
}

// Names as a folder may hold them: bytes of any value, in both cases, with the placeholder of a name that the code page
// lacks, empty ones, beginnings of each other.
std::vector<std::string> AnyNames(std::mt19937& random, size_t count) {
  constexpr std::string_view kBytes = "aAbBzZ_?.\\ 09[`{\x80\xC4\xE4\xDF\xFF";
  std::vector<std::string> names;
  for (size_t i = 0; i < count; ++i) {
    std::string name(random() % 12, '\0');
    for (char& letter : name) letter = kBytes[random() % kBytes.size()];
    if (!names.empty() && random() % 4 == 0) name = names[random() % names.size()] + name;
    if (random() % 5 == 0) name += ".zip";
    names.push_back(name);
  }
  return names;
}

std::vector<GroupedItem> AnyItems(std::mt19937& random, const std::vector<std::string>& names) {
  constexpr std::int32_t kKeys[] = {2, 4, 0x0406, kNoHandlerKey, -1};
  std::vector<GroupedItem> items;
  for (const std::string& name : names) {
    items.push_back({name, CountsAsFolder(random() % 3 == 0, name), kKeys[random() % std::size(kKeys)]});
  }
  return items;
}

// What every sort relies on: a strict weak order.
TEST(GroupOrder, NeverContradictsItself) {
  std::mt19937 random(20261121);
  for (int round = 0; round < 20; ++round) {
    const std::vector<std::string> names = AnyNames(random, 40);
    const std::vector<GroupedItem> items = AnyItems(random, names);
    for (const GroupedItem& a : items) {
      ASSERT_EQ(CompareGrouped(a, a), 0) << a.name;
      for (const GroupedItem& b : items) {
        const int order = CompareGrouped(a, b);
        ASSERT_EQ(CompareGrouped(b, a), -order) << a.name << " and " << b.name;
        for (const GroupedItem& c : items) {
          // What stands before or beside b stands before or beside c when b does, and before it when one of the two is
          // before.
          const int further = CompareGrouped(b, c);
          if (order > 0 || further > 0) continue;
          ASSERT_EQ(CompareGrouped(a, c), std::min(order, further)) << a.name << ", " << b.name << ", " << c.name;
        }
      }
    }
  }
}

}  // namespace
}  // namespace file_explorer
