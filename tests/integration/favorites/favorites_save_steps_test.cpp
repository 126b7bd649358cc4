// What is left of the favourites when the process is ended, or a call fails, at each step of a save. Prints a
// table. Deliberate: the file is rewritten in place, for the backup is tried while it is open; so what a save
// has not written yet is gone. All of it goes out in one block, which keeps that moment short.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

#include "tests/integration/favorites/favorites_fixture.h"
#include "tests/support/wait_until.h"

namespace file_explorer {
namespace {

constexpr DWORD kFinished = 0;
constexpr DWORD kKilled = 77;
constexpr DWORD kFailed = 78;
constexpr int kOpen = 0;
constexpr int kWrite = 3;  // behind the deleting and the renaming of the backup
constexpr int kSteps = 5;  // with the end

constexpr char kOld[] =
    "K={0}\r\ns=49\r\ni=0\r\nd=Favorites\r\nE\r\n"
    "K={1}\r\ns=4\r\ni=1\r\nd=a.obj\r\nn=X:\\a.obj\r\np={0}\r\n"
    "K={2}\r\ns=4\r\ni=1\r\nd=b.obj\r\nn=X:\\b.obj\r\np={0}\r\n"
    "K={3}\r\ns=4\r\ni=1\r\nd=c.obj\r\nn=X:\\c.obj\r\np={0}\r\n";

class FavoritesSaveStepsTest : public FavoritesFixture {
 protected:
  void SetUp() override { std::printf("%-30s %-7s %-24s %s\n", "step", "what", "a fresh load gives", ""); }

  std::string backup() const { return folder.Join(std::string_view("favorites.bak")); }
  std::string StepName() const { return TextOfFile(folder.Join(std::string_view("step.txt"))); }

  DWORD Save(const char* how, int step) const {
    PutFavorites(kOld);
    char program[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, program, MAX_PATH);
    std::string command(program);
    command = "\"" + command.substr(0, command.rfind('\\')) + "\\favorites_saver.exe\" \"" + folder.narrow() +
              "\" " + how + " " + std::to_string(step);
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

  // What a program that starts now shows.
  std::string FreshLoad() {
    Create();
    const std::string shown = Shown();
    pane.reset();
    return shown;
  }

  void ExpectAndPrint(const char* what, const std::string& expected, const char* note) {
    const std::string shown = FreshLoad();
    EXPECT_EQ(shown, expected) << StepName();
    const auto count = [&](std::initializer_list<const char*> names) {
      return std::count_if(names.begin(), names.end(),
                           [&](const char* name) { return shown.find(name) != std::string::npos; });
    };
    std::printf("%-30s %-7s %d of 3 old, %d of 2 new   %s\n", StepName().c_str(), what,
                static_cast<int>(count({"a.obj", "b.obj", "c.obj"})),
                static_cast<int>(count({"new one.obj", "new two.obj"})), note);
  }
};

constexpr char kAllOld[] = "Favorites(a.obj b.obj c.obj)";
constexpr char kAllNew[] = "Favorites(a.obj b.obj c.obj new one.obj new two.obj)";
constexpr char kNothing[] = "Favorites";
constexpr char kInPlace[] = "deliberate: rewritten in place, no backup";

TEST_F(FavoritesSaveStepsTest, AKillBeforeTheFileIsOpenedLosesNothing) {
  ASSERT_EQ(Save("kill", kOpen), kKilled);
  ExpectAndPrint("killed", kAllOld, "nothing is lost");
  EXPECT_EQ(TextOfFile(file()), kOld);
}

TEST_F(FavoritesSaveStepsTest, Deliberate_AKillWhileTheFileIsRewrittenLosesWhatIsNotWrittenYet) {
  for (int step = kOpen + 1; step <= kWrite; ++step) {
    ASSERT_EQ(Save("kill", step), kKilled);
    ExpectAndPrint("killed", kNothing, kInPlace);
  }
  ASSERT_EQ(Save("half", kWrite), kKilled);
  // The half ends inside a record, which is dropped; what stands before it is whole.
  ExpectAndPrint("half", "Favorites(a.obj b.obj)", kInPlace);
}

TEST_F(FavoritesSaveStepsTest, AKillWhenAllIsDoneLosesNothing) {
  ASSERT_EQ(Save("kill", kSteps - 1), kKilled);
  ExpectAndPrint("killed", kAllNew, "nothing is lost");
  EXPECT_EQ(Save("kill", kSteps), kFinished);
}

TEST_F(FavoritesSaveStepsTest, AFileThatIsNotOpenedStaysAsItIs) {
  ASSERT_EQ(Save("fail", kOpen), kFailed);
  ExpectAndPrint("failed", kAllOld, "nothing is lost");
  EXPECT_EQ(TextOfFile(file()), kOld);
}

TEST_F(FavoritesSaveStepsTest, AFailedStepOfTheBackupDoesNotStopTheSave) {
  for (int step = kOpen + 1; step < kWrite; ++step) {
    ASSERT_EQ(Save("fail", step), kFailed);
    ExpectAndPrint("failed", kAllNew, "nothing is lost");
  }
}

TEST_F(FavoritesSaveStepsTest, Deliberate_AFailedWriteLosesWhatIsNotWritten) {
  ASSERT_EQ(Save("fail", kWrite), kFailed);
  ExpectAndPrint("failed", kNothing, kInPlace);
  ASSERT_EQ(Save("short", kWrite), kFailed);
  ExpectAndPrint("short", "Favorites(a.obj b.obj)", kInPlace);
  EXPECT_EQ(GetFileAttributesA(backup().c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace file_explorer
