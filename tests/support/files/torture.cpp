#include "tests/support/files/torture.h"

#include <algorithm>
#include <cstdlib>

#include "base/files/paths.h"
#include "base/files/temporary_name.h"
#include "base/files/undo.h"
#include "base/files/wine_names.h"
#include "tests/support/files/test_files.h"
#include "tests/support/files/torture_check.h"
#include "tests/support/files/torture_tree.h"

namespace test_support {
namespace {

using base::ConflictAnswer;
using base::SystemError;
using base::TransferKind;

constexpr size_t kNever = static_cast<size_t>(-1);
constexpr size_t kOperationsOfATree = 12;

// What goes wrong in an operation.
struct Trouble {
  size_t killAt = kNever;  // the number of a call
  bool killAfter = false;  // when it is done, or half done
  size_t failAt = kNever;
  SystemError error = base::kNoError;
  size_t cancelAt = kNever;  // the number of a question for progress
  size_t vanishAt = kNever;
};

class Observer final : public base::TransferObserver {
 public:
  Observer(Chance& chance, size_t cancelAt) : chance_(chance), cancelAt_(cancelAt) {}

  base::ConflictReply OnConflict(const base::Conflict& conflict) override {
    static const std::vector<ConflictAnswer> answers = {ConflictAnswer::kReplace,  ConflictAnswer::kReplace,
                                                        ConflictAnswer::kReplace,  ConflictAnswer::kSkip,
                                                        ConflictAnswer::kSkip,     ConflictAnswer::kKeepBoth,
                                                        ConflictAnswer::kKeepBoth, ConflictAnswer::kCancel};
    const base::ConflictReply reply = {chance_.Of(answers), chance_.Percent(30)};
    conflicts.push_back(conflict.target);
    if (reply.answer == ConflictAnswer::kReplace) replaces = true;
    return reply;
  }
  bool OnProgress(const base::TransferProgress&) override { return count_++ != cancelAt_; }

  std::vector<std::wstring> conflicts;
  bool replaces = false;

 private:
  Chance& chance_;
  size_t cancelAt_;
  size_t count_ = 0;
};

class Torture {
 public:
  Torture(const TortureOptions& options, base::FileSystem& inner)
      : options_(options), chance_(options.seed), files_(inner) {
    files_.otherVolume = folder_.Windows("d");
    files_.before = [this](const FileCall& call) { return Before(call); };
    files_.after = [this](const FileCall& call) { return After(call); };
  }

  TortureResult Run() {
    while (result_.operations < options_.operations && result_.problems.empty()) {
      if (result_.operations % kOperationsOfATree == 0) {
        MakeTortureTree(folder_, chance_, options_.links, options_.oddNames);
        now_ = folder_.Contents();
      }
      Operate();
      ++result_.operations;
    }
    return result_;
  }

 private:
  // The hooks.

  SystemError Before(const FileCall& call) {
    if (calls_++ == trouble_.vanishAt) Vanish();
    if (calls_ == trouble_.killAt && !trouble_.killAfter) throw Killed();
    // A temporary file that can't be removed may stay: that is another story.
    const bool clearing =
        base::TokenOfTemporaryName(base::NameOfPath(call.path)) && call.name == "RemoveFile";
    // What is said to be gone already need not be reported.
    const bool gone = base::IsNotFound(trouble_.error) && call.name.starts_with("Remove");
    if (calls_ != trouble_.failAt || clearing || gone) return base::kNoError;
    if (call.name == "CopyBytes" && trouble_.error == base::kDiskFull) return base::kNoError;  // after it
    return trouble_.error;
  }

  SystemError After(const FileCall& call) {
    const bool kill = calls_ == trouble_.killAt;
    const bool full = calls_ == trouble_.failAt && trouble_.error == base::kDiskFull;
    if (call.name == "CopyBytes" && (kill || full)) CutOff(call.other);
    if (kill) throw Killed();
    // Every other time the system says nothing of the lack of space.
    return full && chance_.Percent(50) ? base::kDiskFull : base::kNoError;
  }

  // The copy ends half-way.
  void CutOff(const std::wstring& path) {
    const std::string name = Relative(path);
    const std::string contents = folder_.Read(name);
    folder_.Remove(name);
    folder_.Write(name, contents.substr(0, chance_.Below(contents.size() + 1)));
  }

  void Vanish() {
    for (const auto& [path, contents] : now_) {
      if (!contents.starts_with("file:") || !IsBelow(path, operation_.sources) || !folder_.Exists(path))
        continue;
      // Something that came may stand there by now.
      operation_.vanishedContents.insert(folder_.Contents().at(path));
      folder_.Remove(path);
      operation_.vanished.insert(path);
      return;
    }
  }

  // Names.

  std::string Relative(const std::wstring& path) const {
    const std::wstring root = folder_.Windows("");
    std::string relative;
    std::wstring_view rest = std::wstring_view(path).substr(std::min(path.size(), root.size() + 1));
    while (!rest.empty()) {
      const size_t end = std::min(rest.find(L'\\'), rest.size());
      if (!relative.empty()) relative += '/';
      relative += base::wine::NameFromWide(rest.substr(0, end)).value_or("?");
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    // A destination that a link led to.
    if (!via_.empty() && (relative == via_ || relative.starts_with(via_ + "/"))) {
      relative = operation_.folder + relative.substr(via_.size());
    }
    return relative;
  }

  std::vector<std::string> Paths(bool folders) const {
    std::vector<std::string> paths;
    for (const auto& [path, contents] : now_) {
      if (path == "c" || path == "d" || path.starts_with("keep")) {
        if (folders && path != "keep" && !path.starts_with("keep/")) paths.push_back(path);
        continue;
      }
      if (!folders || contents == "folder") paths.push_back(path);
    }
    return paths;
  }

  // The operation.

  void Operate() {
    const std::vector<std::string> all = Paths(false);
    if (all.empty()) return;
    operation_ = {};
    via_.clear();
    const size_t dice = chance_.Below(100);
    operation_.kind = dice < 45   ? TransferKind::kCopy
                      : dice < 85 ? TransferKind::kMove
                                  : TransferKind::kDelete;
    base::TransferRequest request;
    request.kind = operation_.kind;
    for (size_t count = 1 + chance_.Below(4); count > 0; --count) {
      const std::string& source = chance_.Of(all);
      operation_.sources.insert(source);
      request.sources.push_back(folder_.Windows(source));
    }
    ChooseDestination(&request);
    ChooseTrouble();
    base::TransferReport report;
    Observer observer(chance_, trouble_.cancelAt);
    const bool killed = Guarded([&] { operation_.report = base::RunTransfer(request, files_, observer); });
    operation_.killed = killed;
    NotePermissions(observer);
    const FolderContents after = folder_.Contents();
    Judge(ProblemAfter(operation_, now_, after), after);
    result_.cancels += operation_.report.cancelled;
    result_.failures += operation_.report.failures.size();
    result_.done += operation_.report.done;
    const FolderContents before = std::move(now_);
    now_ = after;
    if (!killed && result_.problems.empty() && chance_.Percent(30)) Undo(before);
  }

  void ChooseDestination(base::TransferRequest* request) {
    if (operation_.kind == TransferKind::kDelete) return;
    operation_.folder = chance_.Of(Paths(true));
    std::string name = operation_.folder;
    // Links to the roots of the tree lead to their contents. Those from the other volume are left out: what
    // is only said to be another volume would look like two folders.
    for (const auto& [path, contents] : now_) {
      if (contents != "link:" + folder_.path() + "/" + operation_.folder || !chance_.Percent(50)) continue;
      if (path.front() != operation_.folder.front()) continue;
      name = via_ = path;
      break;
    }
    request->folder = folder_.Windows(name);
  }

  void ChooseTrouble() {
    static const std::vector<SystemError> errors = {
        base::kDiskFull,     base::kDiskFull,      base::kAccessDenied, base::kSharingViolation,
        base::kFileNotFound, base::kAlreadyExists, base::kNotSupported};
    trouble_ = {};
    calls_ = 0;
    if (chance_.Percent(25)) trouble_.killAt = 1 + chance_.Below(1 + chance_.Below(80));
    trouble_.killAfter = chance_.Percent(60);
    if (chance_.Percent(25)) trouble_.failAt = 1 + chance_.Below(1 + chance_.Below(80));
    trouble_.error = chance_.Of(errors);
    if (chance_.Percent(15)) trouble_.cancelAt = chance_.Below(1 + chance_.Below(40));
    if (chance_.Percent(10)) trouble_.vanishAt = chance_.Below(30);
  }

  // True when the process ended in it.
  template <typename Deed>
  bool Guarded(Deed&& deed) {
    try {
      deed();
      trouble_ = {};
      return false;
    } catch (const Killed&) {
      trouble_ = {};
      ++result_.kills;
      files_.endedTokens.insert(files_.token);
      files_.token = base::MakeProcessToken(0xAAAA, static_cast<uint32_t>(result_.kills), 1);
      return true;
    }
  }

  void NotePermissions(const Observer& observer) {
    if (!observer.replaces) return;
    for (const std::wstring& target : observer.conflicts) operation_.replaceable.insert(Relative(target));
    // With "for all" the answer stands for names that were not asked about.
    for (const auto& [path, contents] : now_) {
      if (IsBelow(path, {operation_.folder}) && contents != "folder") operation_.replaceable.insert(path);
    }
  }

  void Judge(const std::string& problem, const FolderContents& after) {
    if (problem.empty()) return;
    std::string text = "operation " + std::to_string(result_.operations) + " (" +
                       std::to_string(static_cast<int>(operation_.kind)) + ") to \"" + operation_.folder +
                       "\" via \"" + via_ + "\"" + (operation_.killed ? ", killed" : "") + ": " + problem;
    for (const std::string& source : operation_.sources) text += "\n  source " + source;
    for (const base::TransferFailure& failure : operation_.report.failures) {
      text += "\n  failure " + std::to_string(static_cast<int>(failure.reason)) + "/" +
              std::to_string(failure.error) + " " + Relative(failure.path);
    }
    for (const auto& [path, contents] : now_) text += "\n  before " + path + " = " + contents.substr(0, 40);
    for (const auto& [path, contents] : after) text += "\n  after  " + path + " = " + contents.substr(0, 40);
    result_.problems.push_back(text);
  }

  void Undo(const FolderContents& before) {
    const base::UndoRecord& record = operation_.report.undo;
    TortureUndo undo;
    for (const base::UndoRecord::Made& made : record.made) {
      undo.mayGo.insert(Relative(made.path));
    }
    for (const base::UndoRecord::Moved& moved : record.moved) {
      undo.mayGo.insert(Relative(moved.to));
      undo.mustCome.insert(Relative(moved.to));
      undo.mayCome.insert(Relative(moved.from));
    }
    for (const std::wstring& emptied : record.emptied) undo.mayCome.insert(Relative(emptied));
    ChooseTrouble();
    trouble_.vanishAt = kNever;
    const bool troubled =
        trouble_.killAt != kNever || trouble_.failAt != kNever || trouble_.cancelAt != kNever;
    Observer observer(chance_, trouble_.cancelAt);
    base::TransferReport report;
    undo.killed = Guarded([&] { report = base::RunUndo(record, files_, observer); });
    ++result_.undos;
    const FolderContents after = folder_.Contents();
    std::string problem = ProblemAfterUndo(undo, now_, after);
    const bool shouldBeWhole = !troubled && record.replaced.empty() && operation_.vanished.empty() &&
                               operation_.kind != TransferKind::kDelete;
    if (problem.empty() && shouldBeWhole) {
      if (WithoutTemporaries(after) != WithoutTemporaries(before))
        problem = "undo did not bring back what was";
      ++result_.wholeUndos;
    }
    Judge(problem, after);
    now_ = after;
  }

  TortureOptions options_;
  Chance chance_;
  MachineFolder folder_;
  TestFiles files_;
  Trouble trouble_;
  size_t calls_ = 0;
  TortureOperation operation_;
  std::string via_;  // the link that leads to the destination
  FolderContents now_;
  TortureResult result_;
};

}  // namespace

void TortureOptions::TakeFromEnvironment() {
  if (const char* text = std::getenv("TRANSFER_TORTURE_SEED")) seed = std::strtoull(text, nullptr, 10);
  if (const char* text = std::getenv("TRANSFER_TORTURE_OPERATIONS"))
    operations = std::strtoull(text, nullptr, 10);
}

std::string TortureResult::Summary() const {
  const auto part = [](const char* name, size_t count) { return std::to_string(count) + " " + name + ", "; };
  return part("operations", operations) + part("objects done", done) + part("failures reported", failures) +
         part("kills", kills) + part("cancels", cancels) + part("undos", undos) + std::to_string(wholeUndos) +
         " of them whole";
}

TortureResult RunTorture(const TortureOptions& options, base::FileSystem& files) {
  return Torture(options, files).Run();
}

}  // namespace test_support
