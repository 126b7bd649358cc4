// What is left of the history when the process is ended, or a call fails, at each step of a save, and when
// two programs save at the same moment. Prints a table.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "base/files/system_recovery_calls.h"
#include "base/text/letter_case.h"
#include "src/history/history_list.h"
#include "src/history/history_platform.h"
#include "src/history/history_store.h"
#include "tests/integration/history/history_test_folder.h"
#include "tests/support/child_process.h"

namespace file_explorer {
namespace {

constexpr DWORD kFinished = 0;
constexpr DWORD kKilled = 77;
constexpr DWORD kFailed = 78;
constexpr int kMoreStepsThanASaveHas = 60;

constexpr char kOld[] =
    "[HistoryList]\r\nNumEntries=3\r\n"
    "m0=EA070B0001001000020005001E00FF0031\r\nd0=a.obj\r\nf0=X:\\a.obj\r\n"
    "m1=EA070B0001001000020005001E00FF0031\r\nd1=b.obj\r\nf1=X:\\b.obj\r\n"
    "m2=EA070B0001001000020005001E00FF0031\r\nd2=c.obj\r\nf2=X:\\c.obj\r\n";
constexpr char kOlderBackup[] = "[HistoryList]\r\nNumEntries=1\r\nd0=older.obj\r\nf0=X:\\older.obj\r\n";
constexpr const char* kBesideNames[] = {"history.dat.lock", "history.dat.recovery",
                                        "history.dat.recovery.new", "history.dat.replaced"};

using Names = std::vector<std::string>;
const Names kOldNames = {"a.obj", "b.obj", "c.obj"};
const Names kNewNames = {"a.obj", "b.obj", "c.obj", "new one.obj", "new two.obj"};

class HistorySaveStepsTest : public testing::Test {
 protected:
  void Prepare() const {
    folder.Put("history.dat", kOld);
    folder.Put("history.bak", kOlderBackup);
    for (const char* const name : {"step.txt", "history.dat.recovery"})
      DeleteFileA(folder.Path(name).c_str());
  }

  // Runs the saver and gives its result.
  DWORD Save(const std::string& how) const {
    return test_support::ResultOf(
        test_support::StartBeside("history_saver.exe", "\"" + folder.Folder() + "\" " + how));
  }

  // The names that a program which starts now finds.
  Names Load(const char* name = "history.dat") const {
    ShellHistoryPlatform platform;
    HistoryList list(platform, base::LowerCaseNarrow);
    base::SystemRecoveryCalls calls;
    base::SaveRecovery recovery(folder.Path(name), calls);
    ProfileHistoryFile file(folder.Path(name));
    file.Forget();
    LoadHistory(list, file, recovery);
    Names names;
    for (const auto& entry : list.entries()) names.push_back(entry->displayName);
    return names;
  }

  // The last line that the saver left.
  std::string StepName() const {
    std::string text = folder.Get("step.txt");
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) text.pop_back();
    return text.substr(text.find_last_of('\n') + 1);
  }

  // Either all old names or all new ones are there, and nothing is left beside.
  void ExpectWholeAndPrint(const char* what) const {
    const std::string atOnce = std::to_string(CountOnDisk());
    const Names names = Load();
    const bool isNew = names == kNewNames;
    EXPECT_TRUE(isNew || names == kOldNames) << StepName() << ": " << testing::PrintToString(names);
    std::printf("%-36s %-7s %s entries lie in the file, a fresh load gives all %zu of the %s\n",
                StepName().c_str(), what, atOnce.c_str(), names.size(), isNew ? "new" : "old");
    for (const char* const name : kBesideNames) EXPECT_FALSE(folder.Exists(name)) << name << StepName();
  }
  // Without recovery.
  size_t CountOnDisk() const {
    ShellHistoryPlatform platform;
    HistoryList list(platform, base::LowerCaseNarrow);
    ProfileHistoryFile file(folder.history());
    file.Forget();
    list.Load(file);
    return list.size();
  }

  HistoryTestFolder folder;
};

TEST_F(HistorySaveStepsTest, AKillAtAnyStepLosesNothing) {
  int step = 0;
  for (; step < kMoreStepsThanASaveHas; ++step) {
    Prepare();
    const DWORD result = Save("kill " + std::to_string(step));
    if (result == kFinished) break;
    ASSERT_EQ(result, kKilled);
    ExpectWholeAndPrint("killed");
    // Never a half-written file: what the next save takes away is whole, too.
    const Names backup = Load("history.bak");
    EXPECT_TRUE(backup == kOldNames || backup == Names{"older.obj"}) << StepName();
  }
  EXPECT_GE(step, 3 + 1 + 5 * 3 + 8);  // every call of the save and of what lies around it, and the end
  EXPECT_EQ(Load(), kNewNames);
}

TEST_F(HistorySaveStepsTest, AKillWhileACutSaveIsCompletedLosesNothing) {
  Prepare();
  ASSERT_EQ(Save("kill \"write d2\""), kKilled);
  const std::string file = folder.Get("history.dat");
  const std::string record = folder.Get("history.dat.recovery");
  int step = 0;
  for (; step < kMoreStepsThanASaveHas; ++step) {
    folder.Put("history.dat", file);
    folder.Put("history.bak", kOld);
    folder.Put("history.dat.recovery", record);
    const DWORD result = Save("load " + std::to_string(step));
    if (result == kFinished) break;
    ASSERT_EQ(result, kKilled);
    ExpectWholeAndPrint("killed again");
    EXPECT_EQ(Load(), kNewNames) << StepName();
    EXPECT_EQ(Load("history.bak"), kOldNames) << StepName();
  }
  EXPECT_GE(step, 1 + 5 * 3 + 5);
  EXPECT_EQ(Load(), kNewNames);
}

TEST_F(HistorySaveStepsTest, AFailedWriteAtAnyStepPutsTheOldFileBack) {
  int failedWrites = 0;
  for (int step = 0; step < kMoreStepsThanASaveHas; ++step) {
    Prepare();
    ASSERT_EQ(Save("fail " + std::to_string(step)), kFailed);
    const std::string name = StepName();
    if (name == "(done)") break;
    if (name.starts_with("write ") && !name.starts_with("write the rest")) {
      ++failedWrites;
      EXPECT_EQ(folder.Get("history.dat"), kOld) << name;
      EXPECT_FALSE(folder.Exists("history.bak")) << name;
    }
    DeleteFileA(folder.Path("history.dat.recovery.new").c_str());  // the step that failed may be its removal
    ExpectWholeAndPrint("failed");
  }
  EXPECT_EQ(failedWrites, 1 + 5 * 3);
}

TEST_F(HistorySaveStepsTest, AKillOnTheWayBackLosesNothing) {
  for (const char* const step : {"delete the half-written file", "rename the backup back",
                                 "flush history.dat", "delete history.dat.recovery", "(done)"}) {
    Prepare();
    ASSERT_EQ(Save("fail \"write d1\" \"" + std::string(step) + "\""), kKilled);
    ASSERT_EQ(StepName(), step);
    ExpectWholeAndPrint("killed");
  }
}

TEST_F(HistorySaveStepsTest, TwoProgramsThatSaveAtTheSameMomentDoSoOneAfterTheOther) {
  constexpr int kRounds = 20;
  const base::unique_file go(CreateEventA(nullptr, TRUE, FALSE, "history_saver_go"));
  const base::unique_file ready(CreateSemaphoreA(nullptr, 0, 2, "history_saver_go_ready"));
  int wins = 0;
  for (int round = 0; round < kRounds; ++round) {
    Prepare();
    ResetEvent(go.get());
    const std::string arguments = "\"" + folder.Folder() + "\" race ";
    const auto one = test_support::StartBeside("history_saver.exe", arguments + "one history_saver_go");
    const auto two = test_support::StartBeside("history_saver.exe", arguments + "two history_saver_go");
    ASSERT_TRUE(test_support::WaitForTwo(ready.get(), one, two));
    SetEvent(go.get());
    ASSERT_EQ(test_support::ResultOf(one), kFinished);
    ASSERT_EQ(test_support::ResultOf(two), kFinished);
    const Names last = Load();
    const Names first = Load("history.bak");
    ASSERT_EQ(last.size(), 50u) << round;
    ASSERT_EQ(first.size(), 50u) << round;
    const auto isOf = [](const Names& names, const char* program) {
      return std::all_of(names.begin(), names.end(),
                         [&](const std::string& name) { return name.starts_with(program); });
    };
    EXPECT_TRUE((isOf(last, "one") && isOf(first, "two")) || (isOf(last, "two") && isOf(first, "one")))
        << "round " << round << ": " << last.front() << " to " << last.back();
    wins += isOf(last, "one") ? 1 : 0;
  }
  std::printf("of %d rounds the first program had the last word in %d, the second in %d\n", kRounds, wins,
              kRounds - wins);
}

TEST_F(HistorySaveStepsTest, ALockOfAKilledProcessHoldsNobodyUp) {
  Prepare();
  ASSERT_EQ(Save("kill 12"), kKilled);
  base::SystemRecoveryCalls calls;
  EXPECT_EQ(calls.Lock(folder.Path("history.dat.lock")), base::RecoveryCalls::Locking::kLocked);
  base::SystemRecoveryCalls others;
  EXPECT_EQ(others.Lock(folder.Path("history.dat.lock")), base::RecoveryCalls::Locking::kHeldElsewhere);
  calls.Unlock();
  EXPECT_FALSE(folder.Exists("history.dat.lock"));
}

}  // namespace
}  // namespace file_explorer
