// history_saver.exe FOLDER HOW STEP [LAST]: loads FOLDER\history.dat, adds two paths and saves again, through
// a file that lets something happen at a step of the save. Its steps are the calls that a save makes, counted
// from 0.
//   kill STEP        ends the process before the step
//   fail STEP        the step fails; LAST, when given, is a later step before which the process is ended
// The name of that step is left in FOLDER\step.txt. The result is 0 when the save came to its end without
// one.
#include <windows.h>

#include <cstdlib>
#include <fstream>
#include <string>
#include <string_view>

#include "base/text/letter_case.h"
#include "src/history/history_platform.h"

namespace {

using namespace file_explorer;

constexpr int kNever = -1;
constexpr UINT kKilled = 77;
constexpr int kFailed = 78;

struct Plan {
  std::string folder;
  int failAt = kNever;
  int killAt = kNever;
};

class SteppedFile final : public HistoryFile {
 public:
  explicit SteppedFile(Plan plan) : plan_(std::move(plan)), file_(plan_.folder + "\\history.dat") {}

  std::string ReadText(const char* key) override { return file_.ReadText(key); }
  bool ReadTime(const char* key, HistoryTime* time) override { return file_.ReadTime(key, time); }
  bool WriteText(const char* key, const std::string& text) override {
    return Step("write " + std::string(key)) && file_.WriteText(key, text);
  }
  bool WriteTime(const char* key, const HistoryTime& time) override {
    return Step("write " + std::string(key)) && file_.WriteTime(key, time);
  }
  bool Exists() override {
    Step("look for the file");
    return file_.Exists();
  }
  void RemoveBackup() override {
    if (Step("delete the old backup")) file_.RemoveBackup();
  }
  bool MoveToBackup() override { return Step("rename to the backup") && file_.MoveToBackup(); }
  void Remove() override {
    if (Step("delete the half-written file")) file_.Remove();
  }
  void RestoreBackup() override {
    if (Step("rename the backup back")) file_.RestoreBackup();
  }

  // The end counts as a step too: with everything done.
  void End() { Step("(done)"); }
  bool hasFailed() const { return hasFailed_; }

 private:
  // False when the step fails.
  bool Step(const std::string& name) {
    const int step = count_++;
    if (step != plan_.killAt && step != plan_.failAt) return true;
    std::ofstream(plan_.folder + "\\step.txt", std::ios::app) << name << '\n';
    if (step == plan_.killAt) TerminateProcess(GetCurrentProcess(), kKilled);
    hasFailed_ = true;
    return false;
  }

  const Plan plan_;
  ProfileHistoryFile file_;
  int count_ = 0;
  bool hasFailed_ = false;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  Plan plan;
  plan.folder = argv[1];
  (std::string_view(argv[2]) == "kill" ? plan.killAt : plan.failAt) = std::atoi(argv[3]);
  if (argc > 4) plan.killAt = std::atoi(argv[4]);
  ShellHistoryPlatform platform;
  HistoryList list(platform, base::LowerCaseNarrow);
  SteppedFile file(plan);
  list.Load(file);
  list.Add("X:\\new one.obj");
  list.Add("X:\\new two.obj");
  list.Save(file);
  file.End();
  return file.hasFailed() ? kFailed : 0;
}
