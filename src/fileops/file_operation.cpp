#include "src/fileops/file_operation.h"

#include <array>
#include <string>
#include <vector>

#include "base/files/paths.h"
#include "base/files/transfer.h"
#include "base/text/code_page.h"
#include "base/text/narrow_path.h"
#include "src/fileops/operation_words.h"

namespace file_explorer {
namespace {

bool ShellIsWine() {
  return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

std::wstring SystemText(base::SystemError error) {
  std::array<wchar_t, 512> text = {};
  const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                                      error, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), text.data(),
                                      static_cast<DWORD>(text.size()), nullptr);
  std::wstring result(text.data(), length);
  while (!result.empty() && (result.back() == L'\n' || result.back() == L'\r')) result.pop_back();
  return result.empty() ? L"Error code " + std::to_wstring(error) + L"." : result;
}

base::TransferRequest TransferOf(const SHFILEOPSTRUCTA& request) {
  base::TransferRequest transfer;
  transfer.kind = request.wFunc == FO_MOVE ? base::TransferKind::kMove : base::TransferKind::kCopy;
  transfer.folder = base::WithLongNames(base::TidyTypedPath(base::WideFromNarrow(request.pTo)));
  for (const char* at = request.pFrom; *at != '\0'; at += std::string_view(at).size() + 1) {
    // By their long names: what is called by a short one, for want of letters in the code page, would arrive under that.
    transfer.sources.push_back(base::WithLongNames(base::TidyTypedPath(base::WideFromNarrow(at))));
  }
  return transfer;
}

// Asks once for all files that are in the way and once for all folders.
class BoxObserver final : public base::TransferObserver {
 public:
  BoxObserver(HWND owner, const base::TransferRequest& transfer) : owner_(owner), transfer_(transfer) {}

  base::ConflictReply OnConflict(const base::Conflict& conflict) override {
    // A file and a folder of one name: nobody can be asked to replace one by the other, so it is reported.
    if (!conflict.mayReplace) return {base::ConflictAnswer::kReplace, false};
    const std::wstring question = ConflictQuestion(conflict, LookAtSources(conflict.folders));
    const wchar_t* const caption = conflict.folders ? L"Confirm Folder Replace" : L"Confirm File Replace";
    switch (
        MessageBoxW(owner_, question.c_str(), caption, MB_YESNOCANCEL | MB_ICONQUESTION | MB_DEFBUTTON2)) {
      case IDYES:
        return {base::ConflictAnswer::kReplace, true};
      case IDNO:
        return {base::ConflictAnswer::kSkip, true};
      default:
        return {base::ConflictAnswer::kCancel, true};
    }
  }
  bool OnProgress(const base::TransferProgress&) override { return true; }

 private:
  InTheWay LookAtSources(bool folders) const {
    base::FileSystem& files = base::MachineFileSystem();
    InTheWay found;
    std::wstring folder = transfer_.folder;
    files.Spell(transfer_.folder, &folder);
    for (const std::wstring& source : transfer_.sources) {
      base::FileStatus from;
      base::FileStatus to;
      files.Status(source, &from);
      files.Status(base::PathInFolder(folder, base::NameOfPath(source)), &to);
      const bool bothThere = from.kind != base::FileKind::kNothing && to.kind != base::FileKind::kNothing;
      const bool bothFolders = from.kind == base::FileKind::kFolder && to.kind == base::FileKind::kFolder;
      const bool anyFolder = from.kind == base::FileKind::kFolder || to.kind == base::FileKind::kFolder;
      if (bothThere && (folders ? bothFolders : !anyFolder)) ++found.count;
      // Where folders are put together, files meet inside of them.
      if (bothFolders && !folders) found.hasMore = true;
    }
    return found;
  }

  HWND owner_;
  const base::TransferRequest& transfer_;
};

int ResultOf(const base::TransferReport& report) {
  if (report.cancelled) return ERROR_CANCELLED;
  if (report.failures.empty()) return 0;
  const base::SystemError error = report.failures.front().error;
  return error == base::kNoError ? ERROR_CAN_NOT_COMPLETE : static_cast<int>(error);
}

int RunWithEngine(SHFILEOPSTRUCTA* request) {
  const base::TransferRequest transfer = TransferOf(*request);
  BoxObserver observer(request->hwnd, transfer);
  const base::TransferReport report = base::RunTransfer(transfer, base::MachineFileSystem(), observer);
  request->fAnyOperationsAborted = report.cancelled || report.skipped > 0;
  const std::wstring failures = ReportOfFailures(report, request->wFunc == FO_MOVE, &SystemText);
  if (!failures.empty()) {
    MessageBoxW(request->hwnd, failures.c_str(), L"Shell Operation Error", MB_OK | MB_ICONERROR);
  }
  SetLastError(ERROR_SUCCESS);
  return ResultOf(report);
}

}  // namespace

int WINAPI RunFileOperation(SHFILEOPSTRUCTA* request) {
  const bool transfers = request->wFunc == FO_MOVE || request->wFunc == FO_COPY;
  return transfers && ShellIsWine() ? RunWithEngine(request) : SHFileOperationA(request);
}

}  // namespace file_explorer
