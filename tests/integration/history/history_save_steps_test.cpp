// What is left of the history when the process is ended, or a call fails, at each step of a save. Prints a
// table.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "base/text/letter_case.h"
#include "src/history/history_platform.h"
#include "tests/integration/history/history_test_folder.h"
#include "tests/support/wait_until.h"

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

using Names = std::vector<std::string>;
const Names kOldNames = {"a.obj", "b.obj", "c.obj"};
const Names kNewNames = {"a.obj", "b.obj", "c.obj", "new one.obj", "new two.obj"};

class HistorySaveStepsTest : public testing::Test {
 protected:
  void SetUp() override {
    std::printf("%-34s %-6s %-24s %-16s %s\n", "step", "what", "a fresh load gives", "the backup has", "");
  }

  void Prepare() const {
    folder.Put("history.dat", kOld);
    folder.Put("history.bak", kOlderBackup);
    DeleteFileA(folder.Path("step.txt").c_str());
  }

  // Runs the saver and gives its result.
  DWORD Save(const std::string& how) const {
    char program[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, program, MAX_PATH);
    std::string command(program);
    command = "\"" + command.substr(0, command.rfind('\\')) + "\\history_saver.exe\" \"" + folder.Folder() +
              "\" " + how;
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    // A busy machine may refuse a start for the moment.
    const bool isStarted = test_support::WaitUntil([&] {
      return CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                            &process) != FALSE;
    });
    if (!isStarted) {
      ADD_FAILURE() << command << " does not start: error " << GetLastError();
      return ERROR_FILE_NOT_FOUND;
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD result = 0;
    GetExitCodeProcess(process.hProcess, &result);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return result;
  }

  // The names that a program which starts now finds.
  Names Load(const char* name) const {
    ShellHistoryPlatform platform;
    HistoryList list(platform, base::LowerCaseNarrow);
    WritePrivateProfileStringA(nullptr, nullptr, nullptr, folder.Path(name).c_str());
    ProfileHistoryFile file(folder.Path(name));
    list.Load(file);
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

  void PrintRow(const char* what, const char* note) const {
    std::printf("%-34s %-6s %zu of 3 old, %zu of 2 new   %zu of 3 old       %s\n", StepName().c_str(), what,
                Count(Load("history.dat"), 0), Count(Load("history.dat"), 3), Count(Load("history.bak"), 0),
                note);
  }
  // How many of the old (from 0) or the new (from 3) names are there.
  static size_t Count(const Names& names, size_t from) {
    const auto first = kNewNames.begin() + static_cast<std::ptrdiff_t>(from);
    const auto last = from == 0 ? kNewNames.begin() + 3 : kNewNames.end();
    return static_cast<size_t>(std::count_if(first, last, [&](const std::string& name) {
      return std::find(names.begin(), names.end(), name) != names.end();
    }));
  }

  HistoryTestFolder folder;
};

TEST_F(HistorySaveStepsTest, AKillAtAnyStepLeavesEveryOldEntryInTheFileOrItsBackup) {
  int step = 0;
  for (; step < kMoreStepsThanASaveHas; ++step) {
    Prepare();
    const DWORD result = Save("kill " + std::to_string(step));
    if (result == kFinished) break;
    ASSERT_EQ(result, kKilled);
    const Names loaded = Load("history.dat");
    const bool isRenamed = StepName().starts_with("write") || StepName() == "(done)";
    PrintRow("killed",
             isRenamed && loaded.size() < 3 ? "allowed: the old file is the backup" : "nothing is lost");
    if (!isRenamed) {
      EXPECT_EQ(folder.Get("history.dat"), kOld) << StepName();
      continue;
    }
    EXPECT_EQ(folder.Get("history.bak"), kOld) << StepName();
    // What the file has is the beginning of the new list.
    ASSERT_LE(loaded.size(), kNewNames.size());
    EXPECT_TRUE(std::equal(loaded.begin(), loaded.end(), kNewNames.begin())) << StepName();
  }
  EXPECT_EQ(step, 3 + 1 + 5 * 3 + 1);  // every call, and the end
  EXPECT_EQ(Load("history.dat"), kNewNames);
}

TEST_F(HistorySaveStepsTest, AFailedWriteAtAnyStepPutsTheOldFileBack) {
  constexpr int kFirstWrite = 3;
  int step = kFirstWrite;
  for (; step < kMoreStepsThanASaveHas; ++step) {
    Prepare();
    ASSERT_EQ(Save("fail " + std::to_string(step)), kFailed);
    if (StepName() == "(done)") break;
    PrintRow("failed", "nothing is lost: the old file is back");
    EXPECT_EQ(folder.Get("history.dat"), kOld) << StepName();
    EXPECT_FALSE(folder.Exists("history.bak")) << StepName();
  }
  EXPECT_EQ(step, kFirstWrite + 1 + 5 * 3);
}

TEST_F(HistorySaveStepsTest, AStepBeforeTheWritesThatFailsDoesNotStopTheSave) {
  for (const int step : {1, 2}) {
    Prepare();
    ASSERT_EQ(Save("fail " + std::to_string(step)), kFailed);
    PrintRow("failed", "nothing is lost: written in place");
    EXPECT_EQ(Load("history.dat"), kNewNames) << StepName();
  }
}

// The way back after a failed write (the fifth) has two steps more.
TEST_F(HistorySaveStepsTest, AKillOnTheWayBackLeavesTheBackup) {
  constexpr int kFailingWrite = 8;
  for (int later = 1; later <= 3; ++later) {
    Prepare();
    ASSERT_EQ(Save("fail " + std::to_string(kFailingWrite) + " " + std::to_string(kFailingWrite + later)),
              kKilled);
    const bool isBack = StepName() == "(done)";
    PrintRow("killed",
             isBack ? "nothing is lost: the old file is back" : "allowed: the old file is the backup");
    EXPECT_EQ(folder.Get(isBack ? "history.dat" : "history.bak"), kOld) << StepName();
  }
}

}  // namespace
}  // namespace file_explorer
