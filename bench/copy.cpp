// Copying 5,000 small files with the transfer engine against `cp -r` of the machine itself, in the same run.
#include <algorithm>
#include <cstdio>
#include <exception>
#include <string>

#include "base/files/transfer.h"
#include "bench/measure.h"
#include "tests/support/files/machine_folder.h"
#include "tests/support/machine_below.h"

namespace {

constexpr int kFiles = 5000;
constexpr int kRuns = 5;

class Silent final : public base::TransferObserver {
 public:
  base::ConflictReply OnConflict(const base::Conflict&) override { return {}; }
  bool OnProgress(const base::TransferProgress&) override { return true; }
};

// By the machine's own clock, so that starting a program from here does not count.
double SecondsOfCp(const test_support::MachineFolder& folder, int run) {
  const std::string at = "'" + folder.path() + "/";
  test_support::RunBelow("date +%s%N > " + at + "begin' ; cp -r " + at + "from' " + at + "reference/" +
                         std::to_string(run) + "' ; date +%s%N > " + at + "end'");
  return (std::stod(folder.Read("end")) - std::stod(folder.Read("begin"))) / 1e9;
}

void Measure() {
  const test_support::MachineFolder folder("/tmp/");  // on the disk
  for (int i = 0; i < kFiles; ++i) {
    folder.Write("from/file " + std::to_string(i) + ".obj",
                 std::string(200 + static_cast<size_t>(i) % 800, 'v'));
  }
  folder.Folder("reference");
  double reference = 1e300;
  for (int run = 0; run < kRuns; ++run) reference = std::min(reference, SecondsOfCp(folder, run));
  Silent observer;
  size_t done = 0;
  // Into the same folder again and again: each copy gets a name of its own.
  const double engine = bench::BestSeconds(kRuns, [&] {
    done = base::RunTransfer({base::TransferKind::kCopy, {folder.Windows("from")}, folder.Windows("")},
                             base::MachineFileSystem(), observer)
               .done;
  });
  if (done != kFiles + 1) std::printf("copy: the copying went wrong\n");
  bench::PrintRatio("copying 5,000 small files", engine, "cp -r", reference);
}

}  // namespace

int main() {
  try {
    Measure();
  } catch (const std::exception& problem) {
    std::printf("copy: %s\n", problem.what());
    return 1;
  }
}
