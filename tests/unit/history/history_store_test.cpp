// The history's file on a disk that is pulled out at any step, full, or lies about it.
#include "src/history/history_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/unit/history/fake_history.h"
#include "tests/unit/save_recovery/fake_disk.h"

namespace file_explorer {
namespace {

using base::FakeDisk;
using base::Killed;
using testing::ElementsAre;

constexpr char kPath[] = "history.dat";
constexpr char kBackup[] = "history.bak";

// Profile calls that write the whole file anew each time, and answer success whatever happens.
class FakeProfile final : public HistoryFile {
 public:
  explicit FakeProfile(FakeDisk& disk) : disk_(disk) {}

  std::string ReadText(const char* key) override { return HistoryText(disk_.files[kPath]).ReadText(key); }
  bool ReadTime(const char* key, HistoryTime* time) override {
    return HistoryText(disk_.files[kPath]).ReadTime(key, time);
  }
  bool WriteText(const char* key, const std::string& text) override { return Write(key, text); }
  bool WriteTime(const char* key, const HistoryTime& time) override {
    HistoryValues values;
    AddTimeValue(&values, key, time);
    return Write(key, values.front().text);
  }
  void Forget() override {}
  bool Exists() override { return disk_.files.contains(kPath); }
  void RemoveBackup() override {
    disk_.Step("delete the old backup");
    disk_.files.erase(kBackup);
  }
  bool MoveToBackup() override {
    disk_.Step("rename to the backup");
    return !isBackupHeld && Move(kPath, kBackup);
  }
  void Remove() override {
    disk_.Step("delete the half-written file");
    disk_.files.erase(kPath);
  }
  bool RestoreBackup() override {
    disk_.Step("rename the backup back");
    return Move(kBackup, kPath);
  }

  bool isBackupHeld = false;
  std::string failingKey;  // answers failure

 private:
  bool Write(const std::string& key, const std::string& text) {
    disk_.Step("write " + key);
    if (key == failingKey) return false;
    HistoryValues values = ValuesOfHistory(disk_.files[kPath]);
    const auto old = std::find_if(values.begin(), values.end(),
                                  [&](const HistoryValue& value) { return value.key == key; });
    if (old != values.end()) {
      old->text = text;
    } else {
      values.push_back({key, text, std::nullopt});
    }
    disk_.WriteBytes(kPath, TextOfHistory(values));
    return true;
  }
  bool Move(const char* from, const char* to) {
    if (!disk_.files.contains(from)) return false;
    disk_.files[to] = disk_.files[from];
    disk_.files.erase(from);
    return true;
  }

  FakeDisk& disk_;
};

class HistoryStoreTest : public testing::Test {
 protected:
  HistoryStoreTest() {
    Save({"older"});
    Save({"a", "b", "c"});
    saved = disk.files;
    disk.Restart();
  }

  void Save(const std::vector<std::string>& names) {
    HistoryList list(platform);
    for (const std::string& name : names) list.Add("X:\\" + name);
    base::SaveRecovery recovery(kPath, disk);
    SaveHistory(list, profile, recovery);
  }
  std::vector<std::string> Load() {
    HistoryList list(platform);
    base::SaveRecovery recovery(kPath, disk);
    LoadHistory(list, profile, recovery);
    return Names(list);
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
  bool IsOldOrNew(const std::vector<std::string>& names) const { return names == kOld || names == kNew; }

  const std::vector<std::string> kOld = {"a", "b", "c"};
  const std::vector<std::string> kNew = {"d", "e", "f", "g"};
  FakePlatform platform;
  FakeDisk disk;
  FakeProfile profile{disk};
  std::map<std::string, std::string> saved;
};

TEST_F(HistoryStoreTest, ASaveLeavesTheFileAndItsBackupOnly) {
  EXPECT_THAT(disk.Names(), ElementsAre(kBackup, kPath));
  EXPECT_EQ(Load(), kOld);
}

TEST_F(HistoryStoreTest, AKillAtAnyStepAndAnotherOneAtAnyStepOfMendingItLoseNothing) {
  std::printf("%-52s %-24s %s\n", "the save is killed before the step", "a fresh load gives",
              "kills of that load that lost something");
  int step = 0;
  for (;; ++step) {
    disk.files = saved;
    if (!KilledAt(step, [&] { Save(kNew); })) break;
    const std::string name = disk.lastStep;
    const auto afterKill = disk.files;
    int losses = 0;
    int second = 0;
    for (; KilledAt(second, [&] { Load(); }); ++second) {
      losses += IsOldOrNew(Load()) ? 0 : 1;
      disk.files = afterKill;
    }
    EXPECT_EQ(losses, 0) << name;
    disk.files = afterKill;
    const std::vector<std::string> names = Load();
    EXPECT_TRUE(IsOldOrNew(names)) << name << testing::PrintToString(names);
    EXPECT_EQ(Load(), names);
    for (const std::string& file : disk.Names()) EXPECT_TRUE(file == kPath || file == kBackup) << file;
    // Never a half-written file: what the next save takes away is whole, too.
    EXPECT_TRUE(disk.files[kBackup] == saved[kBackup] || disk.files[kBackup] == saved[kPath]) << name;
    std::printf("%-52s all %zu of the %s          %d of %d\n", name.c_str(), names.size(),
                names == kOld ? "old" : "new", losses, second);
  }
  EXPECT_GE(step, 40);
  EXPECT_EQ(Load(), kNew);
}

TEST_F(HistoryStoreTest, WrittenInPlaceAKillLosesNothingEither) {
  profile.isBackupHeld = true;
  for (int step = 0;; ++step) {
    disk.files = saved;
    if (!KilledAt(step, [&] { Save(kNew); })) break;
    const std::string name = disk.lastStep;
    EXPECT_TRUE(IsOldOrNew(Load())) << name;
  }
  EXPECT_EQ(Load(), kNew);
}

TEST_F(HistoryStoreTest, AFullDiskThatAnswersSuccessLosesNothing) {
  const std::size_t used = disk.files[kPath].size() + disk.files[kBackup].size();
  int kept = 0;
  for (std::size_t room = used; room < used + 600; ++room) {
    disk.files = saved;
    disk.room = room;
    Save(kNew);
    EXPECT_TRUE(IsOldOrNew(Load())) << room;
    disk.room = std::string::npos;
    const std::vector<std::string> names = Load();
    EXPECT_TRUE(IsOldOrNew(names)) << room;
    kept += names == kOld ? 1 : 0;
    EXPECT_FALSE(disk.files.contains("history.dat.recovery")) << room;
  }
  EXPECT_GT(kept, 0);
  EXPECT_LT(kept, 600);
}

TEST_F(HistoryStoreTest, AFullDiskIsAFailedWriteEvenWithoutARecord) {
  HistoryList list(platform);
  for (const std::string& name : kNew) list.Add("X:\\" + name);
  const std::string old = disk.files[kPath];
  const std::size_t needed = TextOfHistory(list.Values()).size();  // all but its last line end
  for (std::size_t room = old.size(); room + 1 < old.size() + needed; ++room) {
    disk.files = saved;
    disk.room = room;
    EXPECT_EQ(WriteHistory(profile, list.Values()), HistorySaved::kOld) << room;
    EXPECT_EQ(disk.files[kPath], old) << room;
    EXPECT_FALSE(disk.files.contains(kBackup)) << room;
  }
}

TEST_F(HistoryStoreTest, AFailedWritePutsTheOldFileBackAndLeavesNoRecord) {
  for (const char* const key : {"NumEntries", "m0", "d1", "f2", "p3"}) {
    disk.files = saved;
    profile.failingKey = key;
    Save(kNew);
    EXPECT_EQ(disk.files[kPath], saved[kPath]) << key;
    EXPECT_THAT(disk.Names(), ElementsAre(kPath)) << key;
    EXPECT_EQ(Load(), kOld) << key;
  }
}

TEST_F(HistoryStoreTest, AFirstSaveThatFailsIsDoneByTheNextLoad) {
  disk.files.clear();
  profile.failingKey = "d2";
  Save(kNew);
  EXPECT_FALSE(disk.files.contains(kPath));
  profile.failingKey.clear();
  EXPECT_EQ(Load(), kNew);
  EXPECT_THAT(disk.Names(), ElementsAre(kPath));
}

TEST_F(HistoryStoreTest, WhileTheFileCannotBeWrittenTheRecordIsReadInItsPlace) {
  int step = 0;
  while (KilledAt(step, [&] { Save(kNew); }) && disk.lastStep != "write d1") {
    disk.files = saved;
    ++step;
  }
  profile.failingKey = "NumEntries";
  EXPECT_EQ(Load(), kNew);
  EXPECT_EQ(Load(), kNew);
  profile.failingKey.clear();
  EXPECT_EQ(Load(), kNew);
  EXPECT_FALSE(disk.files.contains("history.dat.recovery"));
}

// ---- Entries with odd names

class OddNamesTest : public HistoryStoreTest {
 protected:
  // What the paths' entries are after a save and a load.
  std::vector<std::pair<std::string, std::string>> RoundTrip(const std::vector<std::string>& paths) {
    HistoryList list(platform);
    for (const std::string& path : paths)
      EXPECT_EQ(list.Add(path), HistoryList::AddResult::kAppended) << path;
    {
      base::SaveRecovery recovery(kPath, disk);
      SaveHistory(list, profile, recovery);
    }
    HistoryList loaded(platform);
    base::SaveRecovery recovery(kPath, disk);
    LoadHistory(loaded, profile, recovery);
    std::vector<std::pair<std::string, std::string>> entries;
    for (const auto& entry : loaded.entries()) entries.emplace_back(entry->displayName, entry->fullPath);
    return entries;
  }
};

TEST_F(OddNamesTest, APathWithoutABaseNameIsItsOwnName) {
  const std::vector<std::string> paths = {"C:\\folder\\", "\\\\server\\share\\", "C:\\", "C:", "/",
                                          "X:\\last.obj"};
  const auto entries = RoundTrip(paths);
  ASSERT_EQ(entries.size(), paths.size());
  for (std::size_t i = 0; i + 1 < paths.size(); ++i) {
    EXPECT_EQ(entries[i].first, paths[i]);
    EXPECT_EQ(entries[i].second, paths[i]);
  }
  EXPECT_EQ(entries.back().first, "last.obj");
}

TEST_F(OddNamesTest, AnEmptyPathIsRefused) {
  HistoryList list(platform);
  EXPECT_EQ(list.Add(""), HistoryList::AddResult::kRefused);
  EXPECT_EQ(list.size(), 0u);
}

TEST_F(OddNamesTest, BlanksAndQuotesAtTheEndsComeBack) {
  const std::vector<std::string> paths = {
      "   ",  "X:\\ leading", "X:\\trailing ",   "X:\\\"quoted\"", "\"X:\\all\"", "X:\\'single'",
      "\"\"", "X:\\a=b",      "X:\\;no comment", "X:\\[brackets]", "X:\\last.obj"};
  const auto entries = RoundTrip(paths);
  ASSERT_EQ(entries.size(), paths.size());
  for (std::size_t i = 0; i < paths.size(); ++i) EXPECT_EQ(entries[i].second, paths[i]);
  EXPECT_EQ(entries[0].first, "   ");
  EXPECT_EQ(entries[1].first, " leading");
  EXPECT_EQ(entries[3].first, "\"quoted\"");
}

TEST_F(OddNamesTest, ALineEndNeitherEndsTheListNorBendsThePath) {
  const auto entries = RoundTrip({"X:\\a\nNumEntries=0", "\r\n", "X:\\last.obj"});
  ASSERT_EQ(entries.size(), 3u);
  EXPECT_EQ(entries[0], (std::pair<std::string, std::string>("a?NumEntries=0", "")));
  EXPECT_EQ(entries[1], (std::pair<std::string, std::string>("??", "")));
  EXPECT_EQ(entries[2].second, "X:\\last.obj");
}

TEST_F(OddNamesTest, APathThatWouldComeBackCutHasNoPathInTheFile) {
  const std::string longest(kLongestHistoryValue - 2, 'x');
  const auto entries = RoundTrip({longest, longest + "y", longest + "xyz", "X:\\last.obj"});
  ASSERT_EQ(entries.size(), 4u);
  EXPECT_EQ(entries[0].second, longest);
  EXPECT_EQ(entries[1].second, "");
  EXPECT_EQ(entries[2].second, "");
  EXPECT_FALSE(entries[2].first.empty());
}

}  // namespace
}  // namespace file_explorer
