#include "workbench/controls/shell/file_transfer.h"

#include <algorithm>

#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/model/transfer_plan.h"
#include "workbench/controls/shell/unique_find.h"

namespace controls {
namespace {

PathKind KindOf(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(ExtendedPath(path).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return PathKind::kNothing;
  const bool link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  return (attributes & FILE_ATTRIBUTE_DIRECTORY) && !link ? PathKind::kFolder : PathKind::kFile;
}

bool Exists(const std::wstring& path) {
  return GetFileAttributesW(ExtendedPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::vector<std::wstring> NamesIn(const std::wstring& folder) {
  std::vector<std::wstring> names;
  WIN32_FIND_DATAW found = {};
  const UniqueFind find(FindFirstFileW(ExtendedPath(JoinPath(folder, L"*")).c_str(), &found));
  if (!find) return names;
  do {
    const std::wstring_view name = found.cFileName;
    if (name != L"." && name != L"..") names.emplace_back(name);
  } while (FindNextFileW(find.get(), &found));
  return names;
}

const DiskLook& Disk() {
  static const DiskLook disk = {&KindOf, &NamesIn};
  return disk;
}

int Ask(HWND owner, const std::wstring& question, bool move, UINT buttons) {
  return MessageBoxW(owner, question.c_str(), move ? L"Move" : L"Copy",
                     buttons | MB_ICONEXCLAMATION | MB_DEFBUTTON2);
}

enum class Answer { kGoOn, kReplaced, kStop };

// The system does not ask everywhere before a moved item takes the place of another one, so the questions are
// put here.
Answer AskForPlan(HWND owner, TransferPlan& plan, bool move) {
  const TransferQuestions questions = QuestionsOf(plan, move);
  if (!questions.share.empty() && Ask(owner, questions.share, move, MB_YESNO) != IDYES) return Answer::kStop;
  if (questions.replace.empty()) return Answer::kGoOn;
  const int answer = Ask(owner, questions.replace, move, questions.others ? MB_YESNOCANCEL : MB_YESNO);
  if (answer == IDYES) return Answer::kReplaced;
  if (answer != IDNO || !questions.others) return Answer::kStop;
  DropReplacements(plan);
  return Answer::kGoOn;
}

bool HasArrived(const Transfer& transfer, bool move) {
  return Exists(transfer.target) && (!move || !Exists(transfer.source));
}

std::wstring Sentence(const Transfer& transfer, bool move, DWORD error) {
  return Failure(L"\u201C" + std::wstring(NameOfPath(transfer.source)) + L"\u201D cannot be " +
                     (move ? L"moved" : L"copied"),
                 error)
      .error;
}

// Why a file or folder cannot be read or taken away; ERROR_SUCCESS when it can.
DWORD ReasonAgainst(const std::wstring& source, bool move) {
  const HANDLE file = CreateFileW(ExtendedPath(source).c_str(), move ? DELETE : GENERIC_READ,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) return GetLastError();
  CloseHandle(file);
  return ERROR_SUCCESS;
}

// True when everything that lies in source lies in target as well, files with their sizes.
bool IsWholeCopy(const std::wstring& source, const std::wstring& target) {
  WIN32_FILE_ATTRIBUTE_DATA from = {};
  WIN32_FILE_ATTRIBUTE_DATA to = {};
  if (!GetFileAttributesExW(ExtendedPath(source).c_str(), GetFileExInfoStandard, &from) ||
      !GetFileAttributesExW(ExtendedPath(target).c_str(), GetFileExInfoStandard, &to) ||
      KindOf(source) != KindOf(target)) {
    return false;
  }
  if (KindOf(source) == PathKind::kFile) {
    return from.nFileSizeHigh == to.nFileSizeHigh && from.nFileSizeLow == to.nFileSizeLow;
  }
  const std::vector<std::wstring> names = NamesIn(source);
  return std::all_of(names.begin(), names.end(), [&](const std::wstring& name) {
    return IsWholeCopy(JoinPath(source, name), JoinPath(target, name));
  });
}

// A folder that goes to another drive is copied and, when all of it is there, deleted.
OperationResult MoveToOtherDrive(HWND owner, const Transfer& transfer) {
  constexpr FILEOP_FLAGS kQuiet = FOF_NOCONFIRMATION | FOF_NOCONFIRMMKDIR;
  ShellOutcome outcome =
      RunShellOperation(owner, FO_COPY, {transfer.source}, {transfer.target}, FOF_MULTIDESTFILES | kQuiet);
  if (!outcome.result.error.empty()) return outcome.result;
  if (!IsWholeCopy(transfer.source, transfer.target)) {
    outcome.result.done = false;
    outcome.result.error =
        L"\u201C" + std::wstring(NameOfPath(transfer.source)) +
        L"\u201D could not be copied as a whole to the other drive; it is still where it was.";
    return outcome.result;
  }
  return RunShellOperation(owner, FO_DELETE, {transfer.source}, {}, kQuiet | FOF_SILENT).result;
}

// What the system left behind without a word is tried once more, for the reason.
OperationResult MoveLeftover(HWND owner, const Transfer& transfer) {
  OperationResult result;
  const DWORD flags = transfer.replaces ? MOVEFILE_REPLACE_EXISTING : 0u;
  result.done = MoveFileExW(ExtendedPath(transfer.source).c_str(), ExtendedPath(transfer.target).c_str(),
                            flags) != FALSE;
  const DWORD error = GetLastError();
  if (result.done) return result;
  if (error == ERROR_NOT_SAME_DEVICE && !Exists(transfer.target)) return MoveToOtherDrive(owner, transfer);
  result.error = Sentence(transfer, true, error);
  return result;
}

// Looks at what has arrived. An operation that says that all went well may have left something behind, and
// one that says that it was aborted may have met a file that nobody can read.
OperationResult Verify(HWND owner, const TransferPlan& plan, bool move, const ShellOutcome& outcome) {
  OperationResult result = outcome.result;
  for (const Transfer& transfer : plan.transfers) {
    if (HasArrived(transfer, move)) continue;
    result.done = false;
    if (!result.error.empty()) return result;
    if (move && !outcome.aborted) {
      result = MoveLeftover(owner, transfer);
      if (!result.done) return result;
      continue;
    }
    const DWORD reason = ReasonAgainst(transfer.source, move);
    if (reason != ERROR_SUCCESS) {
      result.error = Sentence(transfer, move, reason);
      return result;
    }
  }
  return result;
}

}  // namespace

OperationResult CopyInto(HWND owner, const std::vector<std::wstring>& paths, const std::wstring& folder,
                         bool move) {
  OperationResult result;
  TransferPlan plan = PlanTransfer(paths, folder, move, Disk());
  result.error = plan.error;
  if (!result.error.empty()) return result;
  const Answer answer = AskForPlan(owner, plan, move);
  if (answer == Answer::kStop) return result;
  if (!plan.transfers.empty()) {
    std::vector<std::wstring> from;
    std::vector<std::wstring> to;
    for (const Transfer& transfer : plan.transfers) {
      from.push_back(transfer.source);
      to.push_back(transfer.target);
    }
    const FILEOP_FLAGS answered = answer == Answer::kReplaced ? FOF_NOCONFIRMATION : 0;
    const ShellOutcome outcome =
        RunShellOperation(owner, move ? FO_MOVE : FO_COPY, from, to,
                          FOF_ALLOWUNDO | FOF_NOCONFIRMMKDIR | FOF_MULTIDESTFILES | answered);
    result = Verify(owner, plan, move, outcome);
  } else {
    result.done = !plan.spreadFolders.empty();  // an empty folder onto one that is there
  }
  // A folder in which something was kept stays.
  if (move) {
    for (const std::wstring& spread : plan.spreadFolders) RemoveDirectoryW(ExtendedPath(spread).c_str());
  }
  return result;
}

}  // namespace controls
