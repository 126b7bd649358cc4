// The transfer engine over real files, with calls that fail and answers that a test gives.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/files/paths.h"
#include "base/files/temporary_name.h"
#include "base/files/transfer.h"
#include "base/files/undo.h"
#include "base/files/wine_file_system.h"
#include "tests/support/files/machine_folder.h"
#include "tests/support/files/test_files.h"

namespace transfer_test {

using namespace base;
using test_support::FileCall;
using test_support::FolderContents;

class Answers final : public TransferObserver {
 public:
  ConflictReply OnConflict(const Conflict& conflict) override {
    conflicts.push_back(conflict);
    if (script < 0) return reply;
    const auto answer = static_cast<ConflictAnswer>(script % 4);
    script /= 4;
    replaced = replaced || answer == ConflictAnswer::kReplace;
    return {answer, false};
  }
  bool OnProgress(const TransferProgress& progress) override {
    last = progress;
    return calls++ != cancelAt;
  }

  int script = -1;  // the answers in a row, four to a digit; below zero: reply
  bool replaced = false;
  ConflictReply reply = {ConflictAnswer::kReplace, false};
  std::vector<Conflict> conflicts;
  TransferProgress last;
  size_t calls = 0;
  size_t cancelAt = static_cast<size_t>(-1);
};

class TransferTest : public testing::Test {
 protected:
  TransferTest() { files_.otherVolume = folder_.Windows("other"); }

  TransferReport Run(TransferKind kind, const std::vector<std::string>& sources,
                     const std::string& folder = {}) {
    TransferRequest request;
    request.kind = kind;
    for (const std::string& source : sources) request.sources.push_back(folder_.Windows(source));
    if (kind != TransferKind::kDelete) request.folder = folder_.Windows(folder);
    return RunTransfer(request, files_, answers_);
  }
  TransferReport Copy(const std::vector<std::string>& sources, const std::string& folder) {
    return Run(TransferKind::kCopy, sources, folder);
  }
  TransferReport Move(const std::vector<std::string>& sources, const std::string& folder) {
    return Run(TransferKind::kMove, sources, folder);
  }
  TransferReport Undo(const TransferReport& report) { return RunUndo(report.undo, files_, answers_); }
  static std::vector<FailureReason> Reasons(const TransferReport& report) {
    std::vector<FailureReason> reasons;
    for (const TransferFailure& failure : report.failures) reasons.push_back(failure.reason);
    return reasons;
  }
  // A call of that name, on the time it comes, gets this error.
  void FailOnce(const std::string& name, SystemError error) {
    files_.before = [this, name, error](const FileCall& call) {
      if (call.name != name || failed_) return kNoError;
      failed_ = true;
      return error;
    };
  }

  test_support::MachineFolder folder_;
  wine::WineFileSystem machine_{{[](const std::wstring&) { return std::string("/."); }, nullptr}};
  test_support::TestFiles files_{machine_};
  Answers answers_;
  bool failed_ = false;
};

}  // namespace transfer_test
