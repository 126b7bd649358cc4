#include "tests/support/files/torture_check.h"

#include <algorithm>

#include "base/files/temporary_name.h"
#include "base/files/wine_names.h"

namespace test_support {
namespace {

std::string InSmallLetters(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
  });
  return text;
}

bool IsTemporary(const std::string& path) {
  const std::string name = path.substr(path.rfind('/') + 1);
  return base::TokenOfTemporaryName(base::wine::WideFromName(name)).has_value();
}

std::string Short(const std::string& text) {
  return text.size() > 60 ? text.substr(0, 60) + "..." : text;
}

// Whether a temporary file of that name stood anywhere: what a killed operation left may be copied and moved,
// too.
bool WasThere(const std::string& temporary, const FolderContents& before) {
  const std::string name = temporary.substr(temporary.rfind('/'));
  return std::any_of(before.begin(), before.end(),
                     [&](const auto& item) { return item.first.ends_with(name); });
}

class Check {
 public:
  Check(const TortureOperation& operation, const FolderContents& before, const FolderContents& after)
      : operation_(operation), before_(before), after_(after) {
    for (const auto& [path, contents] : before_) {
      if (IsBelow(path, operation_.sources)) named_.insert(contents);
    }
  }

  std::string Run() {
    for (const auto& [path, contents] : before_) LookAtOld(path, contents);
    for (const auto& [path, contents] : after_) LookAtNew(path, contents);
    LookForLost();
    LookForLostFolders();
    if (!operation_.killed && problem_.empty()) LookAtReport();
    return problem_;
  }

 private:
  void Say(const std::string& problem) {
    if (problem_.empty()) problem_ = problem;
  }

  // One that was refused for a reason of its own stands there like any other file.
  bool IsSourceInPlace(const std::string& path) const {
    return operation_.sources.contains(path) && path.substr(0, path.rfind('/')) == operation_.folder &&
           operation_.vanished.empty() && !operation_.killed && operation_.report.failures.empty();
  }

  void LookAtOld(const std::string& path, const std::string& contents) {
    const auto now = after_.find(path);
    if (now != after_.end() && now->second == contents) {
      // Another file of the same contents may have come to this place.
      const bool mayBeAnother = operation_.replaceable.contains(path) || operation_.vanished.contains(path);
      if (mayBeAnother && named_.contains(contents)) arrived_.insert(contents);
      return;
    }
    if (IsTemporary(path)) return;
    if (IsBelow(path, operation_.vanished)) {
      if (now != after_.end()) arrived_.insert(now->second);  // its place was free
      return;
    }
    if (now != after_.end()) {
      const bool whole = named_.contains(now->second);
      if (!operation_.replaceable.contains(path)) {
        Say("changed without leave: " + path);
      } else if (!whole) {
        Say("replaced by something that is not whole: " + path + " = " + Short(now->second));
      }
      if (IsSourceInPlace(path)) Say("a source was replaced: " + path);
      arrived_.insert(now->second);
      return;
    }
    if (operation_.kind == base::TransferKind::kCopy || !IsBelow(path, operation_.sources)) {
      Say("gone though nobody named it: " + path);
    }
    if (contents == "folder") {
      goneFolders_.insert(path);
    } else {
      gone_.insert(contents);
    }
  }

  void LookAtNew(const std::string& path, const std::string& contents) {
    if (before_.contains(path)) return;
    if (IsTemporary(path)) {
      if (!operation_.killed && !WasThere(path, before_)) Say("a temporary file stayed: " + path);
      arrived_.insert(contents);
      return;
    }
    if (operation_.kind == base::TransferKind::kDelete || !IsBelow(path, {operation_.folder})) {
      Say("made in the wrong place: " + path);
    }
    if (contents != "folder" && !named_.contains(contents)) {
      Say("not whole: " + path + " = " + Short(contents));
    }
    arrived_.insert(contents);
  }

  // Each file that left its place has come to another one.
  void LookForLost() {
    if (operation_.kind != base::TransferKind::kMove) return;
    std::multiset<std::string> arrived = arrived_;
    for (const std::string& contents : gone_) {
      if (operation_.vanishedContents.contains(contents)) continue;
      const auto found = arrived.find(contents);
      if (found == arrived.end()) {
        Say("lost: " + Short(contents));
        return;
      }
      arrived.erase(found);
    }
  }

  // Empty ones too. It may have come under another name, which begins with its own, or into a folder whose
  // name differs in letter case.
  void LookForLostFolders() {
    if (operation_.kind != base::TransferKind::kMove) return;
    for (const std::string& gone : goneFolders_) {
      const std::string name = gone.substr(gone.rfind('/') + 1);
      const std::string stem = name.substr(0, std::max<size_t>(name.rfind('.'), 1));
      const bool stands = std::any_of(after_.begin(), after_.end(), [&](const auto& entry) {
        const std::string& path = entry.first;
        return entry.second == "folder" && IsBelow(path, {operation_.folder}) &&
               InSmallLetters(path.substr(path.rfind('/') + 1)).starts_with(InSmallLetters(stem));
      });
      if (!stands) Say("a folder was lost: " + gone);
    }
  }

  bool StaysInPlace(const std::string& source) const {
    return operation_.kind == base::TransferKind::kMove &&
           source.substr(0, source.rfind('/')) == operation_.folder;
  }

  // What was not done has been said.
  void LookAtReport() {
    const base::TransferReport& report = operation_.report;
    if (report.cancelled || !report.failures.empty() || report.skipped > 0 || !operation_.vanished.empty())
      return;
    for (const std::string& source : operation_.sources) {
      const auto old = before_.find(source);
      if (old == before_.end() || StaysInPlace(source) || IsTemporary(source)) continue;
      if (operation_.replaceable.contains(source))
        continue;  // another one of the same contents may stand there
      if (operation_.kind == base::TransferKind::kCopy) {
        if (!arrived_.contains(old->second) && !operation_.replaceable.contains(operation_.folder) &&
            old->second != "folder") {
          Say("not copied, and nothing said: " + source);
        }
      } else if (after_.contains(source) && after_.at(source) == old->second && old->second != "folder") {
        Say("still there, and nothing said: " + source);
      }
    }
  }

  const TortureOperation& operation_;
  const FolderContents& before_;
  const FolderContents& after_;
  std::set<std::string> named_;
  std::multiset<std::string> gone_;
  std::set<std::string> goneFolders_;
  std::multiset<std::string> arrived_;
  std::string problem_;
};

}  // namespace

bool IsBelow(const std::string& path, const std::set<std::string>& roots) {
  if (roots.contains(path)) return true;
  for (size_t slash = path.rfind('/'); slash != std::string::npos && slash > 0;
       slash = path.rfind('/', slash - 1)) {
    if (roots.contains(path.substr(0, slash))) return true;
  }
  return false;
}

FolderContents WithoutTemporaries(FolderContents contents) {
  std::erase_if(contents, [](const auto& item) { return IsTemporary(item.first); });
  return contents;
}

std::string ProblemAfter(const TortureOperation& operation, const FolderContents& before,
                         const FolderContents& after) {
  return Check(operation, before, after).Run();
}

std::string ProblemAfterUndo(const TortureUndo& undo, const FolderContents& before,
                             const FolderContents& after) {
  std::set<std::string> moved;
  std::multiset<std::string> gone;
  for (const auto& [path, contents] : before) {
    const bool wasMoved = contents != "folder" && IsBelow(path, undo.mustCome);
    if (wasMoved) moved.insert(contents);
    const auto now = after.find(path);
    if (now != after.end() && now->second == contents) continue;
    if (IsTemporary(path)) continue;
    if (now != after.end()) return "undo changed " + path;
    if (!IsBelow(path, undo.mayGo)) return "undo took " + path;
    if (wasMoved) gone.insert(contents);
  }
  for (const auto& [path, contents] : after) {
    if (before.contains(path)) continue;
    if (IsTemporary(path)) {
      if (!undo.killed && !WasThere(path, before)) return "undo left " + path;
      continue;
    }
    if (!IsBelow(path, undo.mayCome)) return "undo made " + path;
    if (contents != "folder" && !moved.contains(contents))
      return "undo made something that is not whole: " + path;
    const auto found = gone.find(contents);
    if (found != gone.end()) gone.erase(found);
  }
  return gone.empty() ? std::string() : "undo lost " + Short(*gone.begin());
}

}  // namespace test_support
