// history_saver.exe FOLDER HOW …: works on FOLDER\history.dat in a process of its own.
//   kill STEP [LAST]      loads the file, adds two paths and saves; ends the process before the step
//   fail STEP [LAST]      the same; the step fails; LAST is a later step before which the process is ended
//   load STEP             loads the file; ends the process before the step
//   race NAME EVENT       tells the semaphore EVENT_ready, and saves 50 paths of that name when the event is
//   set
// Steps are the calls that touch the disk; STEP is their number, counted from 0, or a name. The name of the
// step is left in FOLDER\step.txt. The result is 0 when the work came to its end without one.
#include <windows.h>

#include <fstream>
#include <string>
#include <string_view>

#include "base/text/letter_case.h"
#include "src/history/history_list.h"
#include "src/history/history_platform.h"
#include "src/history/history_store.h"
#include "tests/support/stepped_recovery.h"

namespace {

using namespace file_explorer;

constexpr UINT kKilled = 77;
constexpr int kFailed = 78;

struct Plan {
  std::string folder;
  std::string failAt;  // a number or a name; empty: never
  std::string killAt;
};

class Steps {
 public:
  explicit Steps(Plan plan) : plan_(std::move(plan)) {}

  // False when the step fails.
  bool Take(const std::string& name) {
    if (!isCounting_) return true;
    const std::string number = std::to_string(count_++);
    const auto isIt = [&](const std::string& step) { return step == number || step == name; };
    const bool isKilled = isIt(plan_.killAt);
    if (!isKilled && !isIt(plan_.failAt)) return true;
    std::ofstream(plan_.folder + "\\step.txt", std::ios::app) << name << '\n';
    if (isKilled) TerminateProcess(GetCurrentProcess(), kKilled);
    hasFailed_ = true;
    return false;
  }
  void Count(bool isOn) { isCounting_ = isOn; }
  bool hasFailed() const { return hasFailed_; }

 private:
  const Plan plan_;
  int count_ = 0;
  bool isCounting_ = false;
  bool hasFailed_ = false;
};

class SteppedFile final : public HistoryFile {
 public:
  SteppedFile(const std::string& path, Steps& steps) : file_(path), steps_(steps) {}

  std::string ReadText(const char* key) override { return file_.ReadText(key); }
  bool ReadTime(const char* key, HistoryTime* time) override { return file_.ReadTime(key, time); }
  bool WriteText(const char* key, const std::string& text) override {
    return steps_.Take("write " + std::string(key)) && file_.WriteText(key, text);
  }
  bool WriteTime(const char* key, const HistoryTime& time) override {
    return steps_.Take("write " + std::string(key)) && file_.WriteTime(key, time);
  }
  void Forget() override { file_.Forget(); }
  bool Exists() override {
    steps_.Take("look for the file");
    return file_.Exists();
  }
  void RemoveBackup() override {
    if (steps_.Take("delete the old backup")) file_.RemoveBackup();
  }
  bool MoveToBackup() override { return steps_.Take("rename to the backup") && file_.MoveToBackup(); }
  void Remove() override {
    if (steps_.Take("delete the half-written file")) file_.Remove();
  }
  bool RestoreBackup() override { return steps_.Take("rename the backup back") && file_.RestoreBackup(); }

 private:
  ProfileHistoryFile file_;
  Steps& steps_;
};

void Load(HistoryList& list, const std::string& path, Steps& steps) {
  test_support::SteppedRecoveryCalls calls([&](const std::string& name) { return steps.Take(name); });
  base::SaveRecovery recovery(path, calls);
  SteppedFile file(path, steps);
  LoadHistory(list, file, recovery);
}

void Save(const HistoryList& list, const std::string& path, Steps& steps) {
  test_support::SteppedRecoveryCalls calls([&](const std::string& name) { return steps.Take(name); });
  base::SaveRecovery recovery(path, calls);
  SteppedFile file(path, steps);
  SaveHistory(list, file, recovery);
}

int Race(HistoryList& list, const std::string& path, const std::string& name, const char* event) {
  for (int i = 0; i < kMaximumSavedEntries; ++i) {
    list.Add("X:\\" + name + std::to_string(i) + ".obj");
  }
  const base::unique_file go(OpenEventA(SYNCHRONIZE, FALSE, event));
  const base::unique_file ready(
      OpenSemaphoreA(SEMAPHORE_MODIFY_STATE, FALSE, (std::string(event) + "_ready").c_str()));
  if (!go || !ReleaseSemaphore(ready.get(), 1, nullptr)) return 4;
  WaitForSingleObject(go.get(), INFINITE);
  Steps steps({});
  Save(list, path, steps);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  Plan plan;
  plan.folder = argv[1];
  const std::string_view how = argv[2];
  const std::string path = plan.folder + "\\history.dat";
  ShellHistoryPlatform platform;
  HistoryList list(platform, base::LowerCaseNarrow);
  if (how == "race") return argc > 4 ? Race(list, path, argv[3], argv[4]) : 2;
  (how == "fail" ? plan.failAt : plan.killAt) = argv[3];
  if (argc > 4) plan.killAt = argv[4];
  Steps steps(plan);
  steps.Count(how == "load");
  Load(list, path, steps);
  if (how != "load") {
    list.Add("X:\\new one.obj");
    list.Add("X:\\new two.obj");
    steps.Count(true);
    Save(list, path, steps);
  }
  steps.Take("(done)");
  return steps.hasFailed() ? kFailed : 0;
}
