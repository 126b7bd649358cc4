// The favorites' file on a disk that is pulled out at any step or full, and the file that keeps what a save
// leaves out.
#include "src/favorites/favorites_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/unit/favorites/sample_favorites.h"
#include "tests/unit/save_recovery/fake_disk.h"

namespace file_explorer {
namespace {

using base::FakeDisk;
using base::Killed;
using testing::ElementsAre;

constexpr char kPath[] = "favorites.dat";
constexpr char kAll[] = "favorites.all.dat";

class FavoritesStoreTest : public testing::Test {
 protected:
  FavoritesStoreTest() {
    files.open = [this](const char* path, const char* mode) { return Open(path, mode[0] == 'w'); };
    files.exists = [](const char*) { return true; };
    files.remove = [this](const char* path) { disk.Step(std::string("delete ") + path); };  // it is open
    files.rename = [this](const char* from, const char*) { disk.Step(std::string("rename ") + from); };
    files.backupName = [](const std::string&) { return std::string("favorites.bak"); };
    files.write = [this](std::FILE*, const std::string& text) { return disk.WriteBytes(kPath, text); };
  }

  std::FILE* Open(const char* path, bool toWrite) {
    disk.Step(std::string("open ") + path);
    if (!toWrite && !disk.files.contains(path)) return nullptr;
    if (toWrite && isHeldOpen) return nullptr;
    std::FILE* const file = std::tmpfile();
    if (toWrite) {
      disk.files[path].clear();
    } else {
      std::fwrite(disk.files[path].data(), 1, disk.files[path].size(), file);
      std::rewind(file);
    }
    return file;
  }

  // A fresh program's tree.
  void Load(FavoriteList& list) { LoadFavorites(kPath, files, disk, list, PlaceIn(list)); }
  std::string Load() {
    FavoriteList list;
    Load(list);
    return Outline(list.topLevel());
  }
  void Save(const FavoriteList& list, FavoriteRecord* first = nullptr) {
    SaveFavorites(kPath, files, disk, list, first != nullptr ? first : list.topLevel().front());
  }
  std::string OutlineOfAll() {
    FavoriteList list;
    ReadFavoritesText(disk.files.at(kAll), list, PlaceIn(list));
    return Outline(list.topLevel());
  }
  template <typename Work>
  bool KilledAt(int step, Work work) {
    disk.Restart();
    disk.killAt = step;
    bool isKilled = false;
    try {
      work();
    } catch (const Killed&) {
      isKilled = true;
    }
    disk.Restart();
    return isKilled;
  }

  // root(Models(m1 m2) Textures(t1) a b)
  void Fill(FavoriteList& list) {
    FavoriteRecord* const root = list.Add(Folder("root"), nullptr);
    FavoriteRecord* const models = list.Add(Folder("Models"), root);
    list.Add(Reference("m1"), models);
    list.Add(Reference("m2"), models);
    list.Add(Reference("t1"), list.Add(Folder("Textures"), root));
    list.Add(Reference("a"), root);
    list.Add(Reference("b"), root);
  }
  static FavoriteRecord* Find(const FavoriteList& list, const char* name) {
    for (const auto& record : list.records()) {
      if (record->displayName == name && !record->isDeleted) return record.get();
    }
    return nullptr;
  }

  bool isHeldOpen = false;
  FakeDisk disk;
  FavoritesFileCalls files;
};

constexpr char kWhole[] = "root(Models(m1 m2) Textures(t1) a b)";
constexpr char kWithNew[] = "root(Models(m1 m2) Textures(t1) a b new)";

TEST_F(FavoritesStoreTest, AKillAtAnyStepAndAnotherOneAtAnyStepOfMendingItLoseNothing) {
  FavoriteList old;
  Fill(old);
  Save(old);
  const auto saved = disk.files;
  FavoriteList changed;
  Fill(changed);
  changed.Add(Reference("new"), Find(changed, "root"));
  std::printf("%-56s %-20s %s\n", "the save is killed before the step", "a fresh load gives",
              "kills of that load that lost something");
  int step = 0;
  for (;; ++step) {
    disk.files = saved;
    if (!KilledAt(step, [&] { Save(changed); })) break;
    const std::string name = disk.lastStep;
    const auto afterKill = disk.files;
    const auto isWhole = [](const std::string& outline) { return outline == kWhole || outline == kWithNew; };
    int losses = 0;
    int second = 0;
    for (; KilledAt(second, [&] { Load(); }); ++second) {
      losses += isWhole(Load()) ? 0 : 1;
      disk.files = afterKill;
    }
    EXPECT_EQ(losses, 0) << name;
    disk.files = afterKill;
    const std::string outline = Load();
    EXPECT_TRUE(isWhole(outline)) << name << ": " << outline;
    EXPECT_THAT(disk.Names(), ElementsAre(kPath)) << name;
    std::printf("%-56s all of the %s       %d of %d\n", name.c_str(), outline == kWhole ? "old" : "new",
                losses, second);
  }
  EXPECT_GE(step, 15);
  EXPECT_EQ(Load(), kWithNew);
}

TEST_F(FavoritesStoreTest, AFullDiskLosesNothing) {
  FavoriteList old;
  Fill(old);
  FavoriteList changed;
  Fill(changed);
  changed.Add(Reference("new"), Find(changed, "root"));
  for (std::size_t room = 0; room < 2000; room += 7) {
    disk.room = std::string::npos;
    disk.files.clear();
    Save(old);
    disk.room = room;
    Save(changed);
    disk.room = std::string::npos;
    const std::string outline = Load();
    EXPECT_TRUE(outline == kWhole || outline == kWithNew) << room << ": " << outline;
    EXPECT_THAT(disk.Names(), ElementsAre(kPath)) << room;
  }
}

TEST_F(FavoritesStoreTest, AFileThatIsHeldOpenStaysAsItIs) {
  FavoriteList list;
  Fill(list);
  Save(list);
  const auto saved = disk.files;
  list.Add(Reference("new"), Find(list, "root"));
  isHeldOpen = true;
  Save(list);
  EXPECT_EQ(disk.files, saved);
}

TEST_F(FavoritesStoreTest, WhileTheFileCannotBeWrittenTheRecordIsReadInItsPlace) {
  FavoriteList list;
  Fill(list);
  int step = 0;
  while (KilledAt(step, [&] { Save(list); }) && disk.lastStep != "write the rest of favorites.dat") ++step;
  isHeldOpen = true;
  EXPECT_EQ(Load(), kWhole);
  EXPECT_EQ(Load(), kWhole);
  isHeldOpen = false;
  EXPECT_EQ(Load(), kWhole);
  EXPECT_THAT(disk.Names(), ElementsAre(kPath));
}

// ---- What a save leaves out

TEST_F(FavoritesStoreTest, ASaveFromTheTopWritesNoSecondFile) {
  FavoriteList list;
  Fill(list);
  Save(list);
  EXPECT_THAT(disk.Names(), ElementsAre(kPath));
}

TEST_F(FavoritesStoreTest, WhatASaveLeavesOutStandsInTheFileWithEverything) {
  FavoriteList list;
  Fill(list);
  Save(list, Find(list, "m2"));
  EXPECT_EQ(Load(), "m2");  // deliberate: from the first visible entry on
  EXPECT_EQ(OutlineOfAll(), kWhole);
}

TEST_F(FavoritesStoreTest, TheFileWithEverythingIsInTheSameFormat) {
  FavoriteList list;
  Fill(list);
  Save(list);
  const std::string whole = disk.files[kPath];
  Save(list, Find(list, "a"));
  std::string all = disk.files[kAll];
  std::erase(all, '\r');
  EXPECT_EQ(all, whole);
}

// What the manual tells the user to do: end the program, give the file with everything the other one's name,
// start again.
TEST_F(FavoritesStoreTest, RenamedItBringsEverythingBackAlsoAfterSeveralSaves) {
  {
    FavoriteList first;
    Fill(first);
    Save(first, Find(first, "a"));
  }
  {
    FavoriteList second;
    Load(second);
    EXPECT_EQ(Outline(second.topLevel()), "a b");
    second.Add(Reference("later"), nullptr);
    Save(second);  // from the top: leaves nothing out
  }
  {
    FavoriteList third;
    Load(third);
    EXPECT_EQ(Outline(third.topLevel()), "a b later");
    Save(third, Find(third, "later"));  // poorer again
  }
  EXPECT_EQ(Load(), "later");
  disk.files[kPath] = disk.files[kAll];
  disk.files.erase(kAll);
  EXPECT_EQ(Load(), "root(Models(m1 m2) Textures(t1) a b) later");
}

TEST_F(FavoritesStoreTest, RenamedMovedAndDeletedEntriesAreUpToDateInIt) {
  FavoriteList list;
  Fill(list);
  Save(list, Find(list, "a"));
  list.SetDisplayName(*Find(list, "a"), "A renamed");
  list.Move(*Find(list, "m1"), *Find(list, "Textures"));
  list.MarkDeleted(*Find(list, "m2"));
  list.Add(Folder("empty"), Find(list, "root"));
  Save(list);
  EXPECT_EQ(OutlineOfAll(), "root(empty Models Textures(m1 t1) A renamed b)");
}

TEST_F(FavoritesStoreTest, ADeletedFolderStaysInItAsLongAsSomethingElseLiesBelow) {
  {
    FavoriteList list;
    Fill(list);
    Save(list, Find(list, "Models"));  // writes Models, Textures, a and b without their folder
  }
  FavoriteList list;
  Load(list);
  EXPECT_EQ(Outline(list.topLevel()), "Models(m1 m2) Textures(t1) a b");
  disk.files[kPath] = "K=key of Models\ns=21\ni=0\nd=Models\nE\n";
  FavoriteList poor;
  Load(poor);
  poor.MarkDeleted(*Find(poor, "Models"));
  poor.Add(Reference("x"), nullptr);
  Save(poor);
  EXPECT_EQ(OutlineOfAll(), "root(Models(m1 m2) Textures(t1) a b) x");
}

TEST_F(FavoritesStoreTest, TwoRecordsOfOneKeyNeitherVanishNorMultiply) {
  const std::string twins =
      "K={A}\ns=1\ni=0\nd=first\nE\nK={A}\ns=4\ni=1\nd=second\nE\nK={B}\ns=4\ni=1\nd=b\nE\n";
  FavoriteList list;
  ReadFavoritesText(twins, list, PlaceIn(list));
  for (int i = 0; i < 3; ++i) Save(list, Find(list, "b"));
  EXPECT_EQ(OutlineOfAll(), "first second b");
}

TEST_F(FavoritesStoreTest, WhereEverythingCannotBeKeptNothingIsLeftOut) {
  FavoriteList list;
  Fill(list);
  Save(list);
  const auto saved = disk.files;
  disk.refused = {"favorites.all.dat.new"};
  Save(list, Find(list, "a"));
  EXPECT_EQ(disk.files, saved);
  disk.refused.clear();
  disk.files[kAll] = "unreadable";
  disk.unreadable = {kAll};
  Save(list, Find(list, "a"));
  EXPECT_EQ(disk.files[kAll], "unreadable");
  EXPECT_EQ(Load(), kWhole);
}

TEST_F(FavoritesStoreTest, AKillWhileEntriesAreLeftOutLosesNothing) {
  FavoriteList list;
  Fill(list);
  Save(list);
  const auto saved = disk.files;
  for (int step = 0;; ++step) {
    disk.files = saved;
    if (!KilledAt(step, [&] { Save(list, Find(list, "a")); })) break;
    const std::string name = disk.lastStep;
    const std::string outline = Load();
    if (outline == kWhole) continue;
    EXPECT_EQ(outline + " " + OutlineOfAll(), std::string("a b ") + kWhole) << name;
  }
}

TEST(AllFavoritesPath, StandsBesideTheFile) {
  EXPECT_EQ(AllFavoritesPath("C:\\user.dir\\favorites.dat"), "C:\\user.dir\\favorites.all.dat");
  EXPECT_EQ(AllFavoritesPath("C:\\user.dir\\favorites"), "C:\\user.dir\\favorites.all");
  EXPECT_EQ(AllFavoritesPath("favorites.dat"), "favorites.all.dat");
}

TEST(FavoriteLines, ALineEndNeitherBreaksTheFileNorBendsThePath) {
  FavoriteRecord record;
  record.key = "k";
  record.displayName = "a\nE";
  record.path = "X:\\a\nb";
  EXPECT_EQ(FavoriteLines(record, nullptr), "K=k\ns=0\ni=0\nd=a?E\nE\n");
}

}  // namespace
}  // namespace file_explorer
