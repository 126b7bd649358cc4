// favorites_saver.exe FOLDER HOW …: works on FOLDER\favorites.dat in a process of its own.
//   kill STEP     loads the file, adds two references and saves; ends the process before the step
//   fail STEP     the same; the step fails without having done anything
//   short STEP    the same; the step writes half of its text and fails
//   load STEP     loads the file; ends the process before the step
//   scroll STEP   loads the file, and saves from its last entry on; ends the process before the step
//   race NAME EVENT   tells the semaphore EVENT_ready, and saves 300 references of that name when the event
//   is set
// Steps are the calls that touch the disk; STEP is their number, counted from 0, or a name. The name of the
// step is left in FOLDER\step.txt. The result is 0 when the work came to its end without one.
#include <windows.h>

#include <fstream>
#include <memory>
#include <string>
#include <string_view>

#include "base/handles/unique_handle.h"
#include "base/text/letter_case.h"
#include "src/favorites/favorites_file.h"
#include "src/favorites/favorites_platform.h"
#include "src/favorites/favorites_store.h"
#include "tests/support/stepped_recovery.h"

namespace {

using namespace file_explorer;

constexpr UINT kKilled = 77;
constexpr int kFailed = 78;
constexpr int kRaceEntries = 300;

class Steps {
 public:
  Steps(std::string folder, std::string how, std::string at)
      : folder_(std::move(folder)), how_(std::move(how)), at_(std::move(at)) {}

  FavoritesFileCalls Files() {
    FavoritesFileCalls calls = SystemFileCalls();
    calls.open = [this](const char* path, const char* mode) -> std::FILE* {
      if (mode[0] == 'r') return SystemFileCalls().open(path, mode);
      return Take("open, which empties the file") ? SystemFileCalls().open(path, mode) : nullptr;
    };
    calls.remove = [this](const char* path) {
      if (Take("delete " + NameOf(path))) SystemFileCalls().remove(path);
    };
    calls.rename = [this](const char* from, const char* to) {
      if (Take("rename " + NameOf(from))) SystemFileCalls().rename(from, to);
    };
    calls.write = [this](std::FILE* file, const std::string& text) { return Write(file, text); };
    return calls;
  }

  // False when the step fails.
  bool Take(const std::string& name) {
    if (!isCounting_ || (std::to_string(count_++) != at_ && name != at_)) return true;
    std::ofstream(folder_ + "\\step.txt") << name;
    if (how_ != "fail" && how_ != "short") TerminateProcess(GetCurrentProcess(), kKilled);
    hasFailed_ = true;
    return false;
  }
  void Count(bool isOn) { isCounting_ = isOn; }
  bool hasFailed() const { return hasFailed_; }

 private:
  static std::string NameOf(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

  bool Write(std::FILE* file, const std::string& text) {
    const std::string half = text.substr(0, text.size() / 2);
    if (!Take("write the text")) return how_ == "short" && SystemFileCalls().write(file, half) && false;
    SystemFileCalls().write(file, half);
    std::fflush(file);
    return Take("write the rest of the text") && SystemFileCalls().write(file, text.substr(half.size()));
  }

  const std::string folder_;
  const std::string how_;
  const std::string at_;  // a number or a name
  int count_ = 0;
  bool isCounting_ = false;
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

void Load(FavoriteList& list, const std::string& file, Steps& steps) {
  test_support::SteppedRecoveryCalls calls([&](const std::string& name) { return steps.Take(name); });
  LoadFavorites(file, steps.Files(), calls, list,
                [&](std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent) {
                  return list.Add(std::move(record), parent);
                });
}

void Save(const FavoriteList& list, FavoriteRecord* first, const std::string& file, Steps& steps) {
  test_support::SteppedRecoveryCalls calls([&](const std::string& name) { return steps.Take(name); });
  SaveFavorites(file, steps.Files(), calls, list, first);
}

int Race(const std::string& file, const std::string& name, const char* event) {
  FavoriteList list(base::LowerCaseNarrow);
  for (int i = 0; i < kRaceEntries; ++i) list.Add(Reference(name + std::to_string(i)), nullptr);
  const base::unique_file go(OpenEventA(SYNCHRONIZE, FALSE, event));
  const base::unique_file ready(
      OpenSemaphoreA(SEMAPHORE_MODIFY_STATE, FALSE, (std::string(event) + "_ready").c_str()));
  if (!go || !ReleaseSemaphore(ready.get(), 1, nullptr)) return 4;
  WaitForSingleObject(go.get(), INFINITE);
  Steps steps("", "", "");
  Save(list, list.topLevel().front(), file, steps);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4) return 2;
  const std::string file = std::string(argv[1]) + "\\favorites.dat";
  const std::string_view how = argv[2];
  if (how == "race") return argc > 4 ? Race(file, argv[3], argv[4]) : 2;
  FavoriteList list(base::LowerCaseNarrow);
  Steps steps(argv[1], argv[2], argv[3]);
  steps.Count(how == "load");
  Load(list, file, steps);
  if (list.empty()) return 3;
  FavoriteRecord* const root = list.topLevel().front();
  steps.Count(true);
  if (how == "scroll") {
    Save(list, root->children.back(), file, steps);
  } else if (how != "load") {
    list.Add(Reference("new one.obj"), root);
    list.Add(Reference("new two.obj"), root);
    Save(list, root, file, steps);
  }
  steps.Take("(done)");
  return steps.hasFailed() ? kFailed : 0;
}
