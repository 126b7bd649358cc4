// A file that is saved in place, with the recovery around it: whatever happens, its old or its new content is
// there, whole.
#include "base/files/save_recovery.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/unit/save_recovery/fake_disk.h"

namespace base {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;
using Kept = SaveRecovery::Kept;

constexpr char kFile[] = "data";
constexpr char kRecord[] = "data.recovery";
constexpr char kOld[] = "old one\nold two\n";
constexpr char kNew[] = "new one\nnew two\nnew three\n";

class SaveRecoveryTest : public testing::Test {
 protected:
  SaveRecoveryTest() { disk.files[kFile] = kOld; }

  // The save that needs protection: it empties its file.
  bool WriteInPlace(const std::string& text) {
    disk.Step("empty the file");
    disk.files[kFile].clear();
    return disk.WriteBytes(kFile, text);
  }
  SaveRecovery::WriteFile Writer() {
    return [this](const std::string& text, SaveProgress progress) {
      progresses.push_back(progress);
      return WriteInPlace(text);
    };
  }

  Kept Save(const std::string& text = kNew) {
    SaveRecovery recovery(kFile, disk);
    recovery.CompleteCutSave(Writer());
    const Kept kept = recovery.KeepNew(text);
    if (kept != Kept::kKept) return kept;
    if (WriteInPlace(text)) recovery.Finish();
    return kept;
  }
  // What a program that starts now reads.
  std::string Load() {
    SaveRecovery recovery(kFile, disk);
    const auto text = recovery.CompleteCutSave(Writer());
    return text ? *text : disk.files[kFile];
  }

  // Runs the work until it is killed before the step; false when it came to its end.
  template <typename Work>
  bool KilledAt(int step, Work work) {
    disk.Restart();
    disk.killAt = step;
    try {
      work();
    } catch (const Killed&) {
      disk.Restart();
      return true;
    }
    disk.Restart();
    return false;
  }

  FakeDisk disk;
  std::vector<SaveProgress> progresses;
};

TEST_F(SaveRecoveryTest, ASaveLeavesNothingBeside) {
  EXPECT_EQ(Save(), Kept::kKept);
  EXPECT_EQ(Load(), kNew);
  EXPECT_THAT(disk.Names(), ElementsAre(kFile));
  EXPECT_FALSE(disk.isLocked);
}

TEST_F(SaveRecoveryTest, TheRecordIsWholeBeforeTheFirstStep) {
  SaveRecovery recovery(kFile, disk);
  EXPECT_TRUE(disk.isLocked);
  EXPECT_EQ(recovery.KeepNew(kNew), Kept::kKept);
  EXPECT_EQ(disk.files[kFile], kOld);
  const auto record = ParseRecoveryRecord(disk.files[kRecord]);
  ASSERT_TRUE(record);
  EXPECT_EQ(record->text, kNew);
  EXPECT_THAT(disk.Names(), ElementsAre(kFile, kRecord));
}

TEST_F(SaveRecoveryTest, AKillAtAnyStepLosesNothingNorDoesAnotherOneWhileItIsMendedAgain) {
  int steps = 0;
  std::printf("%-44s %s\n", "killed before the step", "a fresh load gives");
  for (;; ++steps) {
    disk.files = {{kFile, kOld}};
    if (!KilledAt(steps, [&] { Save(); })) break;
    const std::string name = disk.lastStep;
    const auto afterKill = disk.files;
    int loads = 0;
    while (KilledAt(loads, [&] { Load(); })) {
      const std::string text = Load();
      EXPECT_TRUE(text == kOld || text == kNew) << name << ", then at step " << loads << " of the load";
      disk.files = afterKill;
      ++loads;
    }
    EXPECT_GE(loads, 2);
    disk.files = afterKill;
    const std::string text = Load();
    std::printf("%-44s all of the %s\n", name.c_str(), text == kOld ? "old" : "new");
    EXPECT_TRUE(text == kOld || text == kNew) << name;
    EXPECT_EQ(Load(), text);
    EXPECT_THAT(disk.Names(), ElementsAre(kFile)) << name;
  }
  EXPECT_GE(steps, 12);
}

TEST_F(SaveRecoveryTest, AFullDiskLosesNothing) {
  for (std::size_t room = 0; room < 300; ++room) {
    disk.files = {{kFile, kOld}};
    disk.room = room;
    Save();
    disk.room = std::string::npos;
    const std::string text = Load();
    EXPECT_TRUE(text == kOld || text == kNew) << room;
    EXPECT_THAT(disk.Names(), ElementsAre(kFile)) << room;
  }
}

TEST_F(SaveRecoveryTest, ASaveThatFailsIsDoneByTheNextLoad) {
  {
    SaveRecovery recovery(kFile, disk);
    ASSERT_EQ(recovery.KeepNew(kNew), Kept::kKept);
    disk.files[kFile] = "new o";  // and no Finish
  }
  EXPECT_EQ(Load(), kNew);
  EXPECT_EQ(disk.files[kFile], kNew);
  EXPECT_THAT(progresses, ElementsAre(SaveProgress::kUnderWay));
}

TEST_F(SaveRecoveryTest, WhatCannotBeCompletedNowIsReadFromTheRecord) {
  ASSERT_TRUE(KilledAt(9, [&] { Save(); }));
  const auto afterKill = disk.files;
  const auto record = disk.files.at(kRecord);
  {
    SaveRecovery recovery(kFile, disk);
    const auto text = recovery.CompleteCutSave([](const std::string&, SaveProgress) { return false; });
    ASSERT_TRUE(text);
    EXPECT_EQ(*text, kNew);
  }
  EXPECT_EQ(disk.files.at(kRecord), record);
  EXPECT_EQ(Load(), kNew);
  EXPECT_THAT(disk.Names(), ElementsAre(kFile));
}

TEST_F(SaveRecoveryTest, ARecordThatIsNotWholeIsIgnoredAndRemoved) {
  disk.files[kRecord] = FormatRecoveryRecord({kNew, Fingerprint(kOld)}).substr(0, 60);
  EXPECT_EQ(Load(), kOld);
  EXPECT_THAT(disk.Names(), ElementsAre(kFile));
}

TEST_F(SaveRecoveryTest, ASaveBringsAnEarlierOneToItsEndFirst) {
  disk.files[kRecord] = FormatRecoveryRecord({kNew, Fingerprint(kOld)});
  EXPECT_EQ(Save("newest\n"), Kept::kKept);
  EXPECT_THAT(progresses, ElementsAre(SaveProgress::kNotBegun));
  EXPECT_EQ(Load(), "newest\n");
}

TEST_F(SaveRecoveryTest, AFileThatSomebodyPutThereMeanwhileIsKeptBeside) {
  disk.files[kRecord] = FormatRecoveryRecord({kNew, Fingerprint(kOld)});
  disk.files[kFile] = "somebody's own\n";
  EXPECT_EQ(Load(), kNew);
  EXPECT_EQ(disk.files["data.replaced"], "somebody's own\n");
  EXPECT_THAT(disk.Names(), UnorderedElementsAre(kFile, "data.replaced"));
}

TEST_F(SaveRecoveryTest, ARecordThatCannotBeRemovedIsMadeWorthless) {
  SaveRecovery recovery(kFile, disk);
  ASSERT_EQ(recovery.KeepNew(kNew), Kept::kKept);
  disk.files[kFile] = kNew;
  class NoRemoving final : public RecoveryCalls {
   public:
    explicit NoRemoving(FakeDisk& disk) : disk_(disk) {}
    Reading Read(const std::string& path, std::string* bytes) override { return disk_.Read(path, bytes); }
    Writing Write(const std::string& path, std::string_view bytes) override {
      return disk_.Write(path, bytes);
    }
    void Flush(const std::string& path) override { disk_.Flush(path); }
    bool Replace(const std::string&, const std::string&) override { return false; }
    bool Remove(const std::string&) override { return false; }
    Locking Lock(const std::string&) override { return Locking::kLocked; }
    void Unlock() override {}
    void Pause() override {}

   private:
    FakeDisk& disk_;
  } calls(disk);
  SaveRecovery(kFile, calls).Finish();
  disk.files[kFile] = "newer";
  EXPECT_EQ(Load(), "newer");
}

TEST_F(SaveRecoveryTest, NoSaveBeginsWhileAnOlderRecordWouldUndoIt) {
  disk.files[kRecord] = FormatRecoveryRecord({kNew, Fingerprint(kOld)});
  disk.refused = {kRecord};
  EXPECT_EQ(Save("newest\n"), Kept::kInTheWay);
  EXPECT_EQ(Load(), kNew);
}

TEST_F(SaveRecoveryTest, WhereNoFileCanBeMadeTheCallerIsTold) {
  disk.refused = {"data.recovery.new"};
  EXPECT_EQ(Save(), Kept::kImpossible);
  disk.refused.clear();
  disk.room = 20;
  EXPECT_EQ(Save(), Kept::kNoRoom);
  EXPECT_THAT(disk.Names(), ElementsAre(kFile));
}

TEST_F(SaveRecoveryTest, ASecondProgramWaitsForItsTurn) {
  disk.locking = RecoveryCalls::Locking::kHeldElsewhere;
  disk.heldFor = 25;
  EXPECT_EQ(Save(), Kept::kKept);
  EXPECT_EQ(disk.pauses, 25);
  EXPECT_EQ(Load(), kNew);
}

TEST_F(SaveRecoveryTest, AProgramThatHangsIsNotWaitedForWithoutEndAndItsRecordIsLeftAlone) {
  disk.locking = RecoveryCalls::Locking::kHeldElsewhere;
  disk.heldFor = 1 << 30;
  disk.files[kRecord] = FormatRecoveryRecord({kNew, Fingerprint(kOld)});
  EXPECT_EQ(Load(), kOld);
  EXPECT_EQ(disk.lockTries, kMostLockTries);
  EXPECT_EQ(disk.pauses, kMostLockTries - 1);
  EXPECT_EQ(Save("newest\n"), Kept::kImpossible);
  EXPECT_TRUE(ParseRecoveryRecord(disk.files[kRecord]));
}

}  // namespace
}  // namespace base
