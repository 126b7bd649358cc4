// favorites_saver.exe FOLDER HOW STEP: loads FOLDER\favorites.dat, adds two references and saves again,
// through calls that let something happen at a step of the save. Its steps are the calls that a save makes,
// counted from 0.
//   kill STEP    ends the process before the step
//   fail STEP    the step fails without having done anything
//   half STEP    the step writes half of its text: the process is ended then
//   short STEP   the step writes half of its text and fails
// The name of that step is left in FOLDER\step.txt. The result is 0 when the save came to its end without
// one.
#include <windows.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>

#include "base/text/letter_case.h"
#include "src/favorites/favorites_file.h"
#include "src/favorites/favorites_platform.h"

namespace {

using namespace file_explorer;

constexpr UINT kKilled = 77;
constexpr int kFailed = 78;

class SteppedCalls {
 public:
  SteppedCalls(std::string folder, std::string how, int at)
      : folder_(std::move(folder)), how_(std::move(how)), at_(at) {}

  FavoritesFileCalls Calls() {
    FavoritesFileCalls calls = SystemFileCalls();
    calls.open = [this](const char* path, const char* mode) -> std::FILE* {
      return Step("open, which empties the file") ? SystemFileCalls().open(path, mode) : nullptr;
    };
    calls.remove = [this](const char* path) {
      if (Step("delete " + NameOf(path))) SystemFileCalls().remove(path);
    };
    calls.rename = [this](const char* from, const char* to) {
      if (Step("rename " + NameOf(from))) SystemFileCalls().rename(from, to);
    };
    calls.write = [this](std::FILE* file, const std::string& text) { return Write(file, text); };
    return calls;
  }

  // The end counts as a step too: with everything done.
  void End() { Step("(done)"); }
  bool hasFailed() const { return hasFailed_; }

 private:
  static std::string NameOf(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

  bool Write(std::FILE* file, const std::string& text) {
    if (Step("write the text")) return SystemFileCalls().write(file, text);
    if (how_ == "fail") return false;
    SystemFileCalls().write(file, text.substr(0, text.size() / 2));
    std::fflush(file);
    if (how_ == "half") TerminateProcess(GetCurrentProcess(), kKilled);
    return false;
  }

  // False when the step fails.
  bool Step(const std::string& name) {
    if (count_++ != at_) return true;
    std::ofstream(folder_ + "\\step.txt") << name;
    if (how_ == "kill") TerminateProcess(GetCurrentProcess(), kKilled);
    hasFailed_ = true;
    return false;
  }

  const std::string folder_;
  const std::string how_;
  const int at_;
  int count_ = 0;
  bool hasFailed_ = false;
};

std::unique_ptr<FavoriteRecord> Reference(const std::string& name) {
  auto record = std::make_unique<FavoriteRecord>();
  record->key = "key of " + name;
  record->displayName = name;
  record->path = "X:\\" + name;
  record->flags = kReferenceFlags;
  return record;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  const std::string file = std::string(argv[1]) + "\\favorites.dat";
  FavoriteList list(base::LowerCaseNarrow);
  ReadFavoritesFile(file, SystemFileCalls(), list,
                    [&](std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent) {
                      return list.Add(std::move(record), parent);
                    });
  if (list.empty()) return 3;
  FavoriteRecord* const root = list.topLevel().front();
  list.Add(Reference("new one.obj"), root);
  list.Add(Reference("new two.obj"), root);
  SteppedCalls steps(argv[1], argv[2], std::atoi(argv[3]));
  WriteFavoritesFile(file, steps.Calls(), list, root);
  steps.End();
  return steps.hasFailed() ? kFailed : 0;
}
