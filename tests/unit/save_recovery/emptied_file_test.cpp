// A file that was cut while it was rewritten in place.
#include "base/files/emptied_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/unit/save_recovery/fake_disk.h"

namespace base {
namespace {

using testing::ElementsAre;

class EmptiedFileTest : public testing::Test {
 protected:
  void Start() { RestoreEmptiedFile("host.ini", disk); }
  FakeDisk disk;
};

TEST_F(EmptiedFileTest, GetsTheContentOfTheLastStartBack) {
  disk.files["host.ini"] = "[Explore]\na=1\n";
  Start();
  disk.files["host.ini"] = "[Explore]\na=2\n";
  Start();
  disk.files["host.ini"] = "";
  Start();
  EXPECT_EQ(disk.files["host.ini"], "[Explore]\na=2\n");
  EXPECT_THAT(disk.Names(), ElementsAre("host.ini", "host.ini.last"));
}

TEST_F(EmptiedFileTest, AMissingOrAlwaysEmptyFileStaysWhatItIs) {
  Start();
  EXPECT_TRUE(disk.files.empty());
  disk.files["host.ini"] = "";
  Start();
  EXPECT_THAT(disk.Names(), ElementsAre("host.ini"));
  disk.files = {{"host.ini.last", "old"}};
  Start();
  EXPECT_THAT(disk.Names(), ElementsAre("host.ini.last"));
}

TEST_F(EmptiedFileTest, WhatCannotBeReadOrWrittenIsLeftAlone) {
  disk.files = {{"host.ini", "new"}, {"host.ini.last", "old"}};
  disk.unreadable = {"host.ini"};
  Start();
  EXPECT_EQ(disk.files["host.ini.last"], "old");
  disk.unreadable.clear();
  disk.room = 6;
  Start();
  EXPECT_EQ(disk.files["host.ini.last"], "old");
  EXPECT_THAT(disk.Names(), ElementsAre("host.ini", "host.ini.last"));
}

TEST_F(EmptiedFileTest, AKillAtAnyStepLeavesOneOfThemWhole) {
  for (int step = 0;; ++step) {
    disk.files = {{"host.ini", ""}, {"host.ini.last", "old"}};
    disk.Restart();
    disk.killAt = step;
    try {
      Start();
      break;
    } catch (const Killed&) {
    }
    disk.Restart();
    Start();
    EXPECT_EQ(disk.files["host.ini"], "old") << step;
    EXPECT_EQ(disk.files["host.ini.last"], "old") << step;
  }
}

}  // namespace
}  // namespace base
