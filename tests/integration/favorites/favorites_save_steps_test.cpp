// What is left of the favourites when the process is ended, or a call fails, at each step of a save, and when
// two programs save at the same moment. Prints a table. Deliberate: the file itself is rewritten in place,
// for the backup is tried while it is open; the recovery around the steps makes up for it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "src/favorites/favorites_store.h"
#include "tests/integration/favorites/favorites_fixture.h"
#include "tests/support/child_process.h"

namespace file_explorer {
namespace {

constexpr DWORD kFinished = 0;
constexpr DWORD kKilled = 77;
constexpr DWORD kFailed = 78;
constexpr int kMoreStepsThanASaveHas = 40;

constexpr char kOld[] =
    "K={0}\r\ns=49\r\ni=0\r\nd=Favorites\r\nE\r\n"
    "K={1}\r\ns=4\r\ni=1\r\nd=a.obj\r\nn=X:\\a.obj\r\np={0}\r\n"
    "K={2}\r\ns=4\r\ni=1\r\nd=b.obj\r\nn=X:\\b.obj\r\np={0}\r\n"
    "K={3}\r\ns=4\r\ni=1\r\nd=c.obj\r\nn=X:\\c.obj\r\np={0}\r\n";
constexpr char kAllOld[] = "Favorites(a.obj b.obj c.obj)";
constexpr char kAllNew[] = "Favorites(a.obj b.obj c.obj new one.obj new two.obj)";

class FavoritesSaveStepsTest : public FavoritesFixture {
 protected:
  std::string Path(const char* name) const { return folder.Join(std::string_view(name)); }
  std::string StepName() const { return TextOfFile(Path("step.txt")); }
  bool Exists(const char* name) const {
    return GetFileAttributesA(Path(name).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

  DWORD Run(const std::string& how, int step) const { return Run(how, std::to_string(step)); }
  DWORD Run(const std::string& how, const std::string& step) const {
    return test_support::ResultOf(test_support::StartBeside(
        "favorites_saver.exe", "\"" + folder.narrow() + "\" " + how + " \"" + step + "\""));
  }
  template <typename Step>
  DWORD Save(const std::string& how, const Step& step) const {
    DeleteFileA(Path("favorites.dat.recovery").c_str());
    PutFavorites(kOld);
    return Run(how, step);
  }

  // What a program that starts now shows.
  std::string FreshLoad() {
    Create();
    const std::string shown = Shown();
    pane.reset();
    return shown;
  }

  // Either all old entries are there or all new ones, and nothing is left beside.
  void ExpectWholeAndPrint(const char* what) {
    const size_t bytes = TextOfFile(file()).size();
    const std::string shown = FreshLoad();
    EXPECT_TRUE(shown == kAllOld || shown == kAllNew) << StepName() << ": " << shown;
    std::printf("%-42s %-7s %3zu bytes lie in the file, a fresh load gives all of the %s\n",
                StepName().c_str(), what, bytes, shown == kAllNew ? "new" : "old");
    for (const char* const name : {"favorites.dat.lock", "favorites.dat.recovery",
                                   "favorites.dat.recovery.new", "favorites.dat.replaced"}) {
      EXPECT_FALSE(Exists(name)) << name << " after " << StepName();
    }
  }
};

TEST_F(FavoritesSaveStepsTest, AKillAtAnyStepLosesNothing) {
  int step = 0;
  for (; step < kMoreStepsThanASaveHas; ++step) {
    const DWORD result = Save("kill", step);
    if (result == kFinished) break;
    ASSERT_EQ(result, kKilled);
    ExpectWholeAndPrint("killed");
  }
  EXPECT_GE(step, 16);  // every call of the save and of what lies around it, and the end
  EXPECT_EQ(FreshLoad(), kAllNew);
}

TEST_F(FavoritesSaveStepsTest, AKillWhileACutSaveIsCompletedLosesNothing) {
  ASSERT_EQ(Save("kill", "write the rest of the text"), kKilled);
  const std::string half = TextOfFile(file());
  const std::string record = TextOfFile(Path("favorites.dat.recovery"));
  int step = 0;
  for (; step < kMoreStepsThanASaveHas; ++step) {
    PutFavorites(half);
    std::ofstream(Path("favorites.dat.recovery"), std::ios::binary) << record;
    const DWORD result = Run("load", step);
    if (result == kFinished) break;
    ASSERT_EQ(result, kKilled);
    ExpectWholeAndPrint("killed again");
    EXPECT_EQ(FreshLoad(), kAllNew) << StepName();
  }
  EXPECT_GE(step, 9);
}

TEST_F(FavoritesSaveStepsTest, AFailureOfAnyStepLosesNothing) {
  for (const char* const how : {"fail", "short"}) {
    for (int step = 0; step < kMoreStepsThanASaveHas; ++step) {
      ASSERT_EQ(Save(how, step), kFailed);
      if (StepName() == "(done)") break;
      const bool isOpened = StepName() != "open, which empties the file";
      EXPECT_TRUE(isOpened || TextOfFile(file()) == kOld);
      ExpectWholeAndPrint(how);
    }
  }
}

TEST_F(FavoritesSaveStepsTest, AKillWhileEntriesAreLeftOutLeavesThemInTheFileWithEverything) {
  for (int step = 0; step < kMoreStepsThanASaveHas; ++step) {
    DeleteFileA(AllFavoritesPath(file()).c_str());
    const DWORD result = Save("scroll", step);
    if (result == kFinished) break;
    ASSERT_EQ(result, kKilled);
    const std::string shown = FreshLoad();
    std::printf("%-42s killed  a fresh load gives %s\n", StepName().c_str(), shown.c_str());
    if (shown != kAllOld) {
      EXPECT_EQ(shown, "c.obj") << StepName();
      MoveFileExA(AllFavoritesPath(file()).c_str(), file().c_str(), MOVEFILE_REPLACE_EXISTING);
      EXPECT_EQ(FreshLoad(), kAllOld) << StepName();
    }
  }
}

TEST_F(FavoritesSaveStepsTest, TwoProgramsThatSaveAtTheSameMomentDoSoOneAfterTheOther) {
  constexpr int kRounds = 25;
  const base::unique_file go(CreateEventA(nullptr, TRUE, FALSE, "favorites_saver_go"));
  const base::unique_file ready(CreateSemaphoreA(nullptr, 0, 2, "favorites_saver_go_ready"));
  int wins = 0;
  for (int round = 0; round < kRounds; ++round) {
    PutFavorites(kOld);
    ResetEvent(go.get());
    const std::string arguments = "\"" + folder.narrow() + "\" race ";
    const auto one = test_support::StartBeside("favorites_saver.exe", arguments + "one favorites_saver_go");
    const auto two = test_support::StartBeside("favorites_saver.exe", arguments + "two favorites_saver_go");
    ASSERT_TRUE(test_support::WaitForTwo(ready.get(), one, two));
    SetEvent(go.get());
    ASSERT_EQ(test_support::ResultOf(one), kFinished);
    ASSERT_EQ(test_support::ResultOf(two), kFinished);
    FavoriteList list;
    ReadFavoritesText(TextOfFile(file()), list, [&](auto record, FavoriteRecord* parent) {
      return list.Add(std::move(record), parent);
    });
    ASSERT_EQ(list.records().size(), 300u) << round;
    const std::string winner = list.records().front()->displayName.substr(0, 3);
    for (const auto& record : list.records()) EXPECT_TRUE(record->displayName.starts_with(winner));
    EXPECT_FALSE(Exists("favorites.dat.recovery"));
    wins += winner == "one" ? 1 : 0;
  }
  std::printf("of %d rounds the first program had the last word in %d, the second in %d\n", kRounds, wins,
              kRounds - wins);
}

}  // namespace
}  // namespace file_explorer
