#include "src/fileops/shell_operations.h"

#include <array>
#include <cwchar>
#include <string>
#include <utility>

#include "base/text/code_page.h"
#include "base/text/name_insert.h"
#include "base/text/narrow_path.h"
#include "src/fileops/progress_title.h"
#include "src/framework/com/com_ptr.h"
#include "src/framework/unique_handle.h"
#include "src/host/vc64_tx.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/refused_path.h"

namespace file_explorer {
namespace {

constexpr char kBrowserTitle[] = "Please select the destination folder";
constexpr char kErrorCaption[] = "Shell Operation Error";

struct LocalTextTraits {
  using Handle = char*;
  static void Close(Handle text) { LocalFree(text); }
};
using unique_local_text = UniqueHandle<LocalTextTraits>;

// The path of the folder that was chosen last, beside its list. Not in an object: the browser's callback has
// none.
struct ChosenFolder {
  LPARAM list = 0;  // only compared; null when the folder has no path
  std::wstring path;
};
ChosenFolder lastChosen;

// data: the list to preselect, or null.
int CALLBACK OnBrowserEvent(HWND browser, UINT message, LPARAM, LPARAM data) {
  if (message != BFFM_INITIALIZED || data == 0) return 0;
  SendMessageA(browser, BFFM_SETSELECTIONA, FALSE, data);
  // Once more by its path when the browser shows: not every browser finds a list in folders that it has just
  // read.
  if (data == lastChosen.list) {
    PostMessageA(browser, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(lastChosen.path.c_str()));
  }
  return 0;
}

}  // namespace

const ListMemory& HostListMemory() {
  static constexpr ListMemory kMemory = {
      [](std::size_t size) { return Tx_Alloc_Memory(size); },
      [](void* block, std::size_t size) { return Tx_Realloc_Memory(block, size); },
      [](void* block) { Tx_Free_Memory(block); }};
  return kMemory;
}

bool ShellOperations::CopyOrMove(bool move, int count, SourceList sources) {
  // Held during the operation, though the lists are freed by other means.
  ComPtr<IMalloc> allocator;
  if (FAILED(functions_.getMalloc(allocator.ReleaseAndGetAddressOf())) || !allocator) return false;

  std::array<char, MAX_PATH> displayName = {};
  BROWSEINFOA request = {};
  request.hwndOwner = GetForegroundWindow();
  request.pszDisplayName = displayName.data();
  request.lpszTitle = kBrowserTitle;
  request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_EDITBOX | BIF_NEWDIALOGSTYLE;
  request.lpfn = &OnBrowserEvent;
  request.lParam = reinterpret_cast<LPARAM>(lastDestination_);
  const PIDLIST_ABSOLUTE chosen = functions_.browse(&request);
  if (chosen == nullptr) return false;

  const unique_pidl replaced(std::exchange(lastDestination_, chosen));
  if (auto destination = DestinationOf(chosen)) {
    *destination += '\0';  // and the text's own: two zeros end it
    RunOperation(move, count, sources, destination->c_str());
  }
  return true;
}

std::optional<std::string> ShellOperations::DestinationOf(PCIDLIST_ABSOLUTE chosen) {
  std::wstring path(kPathBufferSize, L'\0');
  const bool hasPath = functions_.pathFromList(chosen, path.data(), kPathBufferSize, GPFIDL_DEFAULT) != FALSE;
  path.resize(hasPath ? std::wcslen(path.c_str()) : 0);
  lastChosen.list = hasPath ? reinterpret_cast<LPARAM>(chosen) : 0;
  lastChosen.path = path;
  if (!hasPath) return std::nullopt;
  const auto destination = base::NarrowPath(path);
  if (!destination) {
    RefusePath(GetForegroundWindow(), path);
  } else if (destination->size() >= kPathBufferSize) {
    ReportShellError(ERROR_FILENAME_EXCED_RANGE);
    return std::nullopt;
  }
  return destination;
}

void ShellOperations::RunOperation(bool move, int count, const SourceList& sources, const char* destination) {
  const std::string title = ProgressTitle(move, count);
  SHFILEOPSTRUCTA request = {};
  request.hwnd = GetForegroundWindow();
  request.wFunc = move ? FO_MOVE : FO_COPY;
  request.pFrom = sources.text();
  request.pTo = destination;
  request.fFlags = FOF_ALLOWUNDO;
  request.lpszProgressTitle = title.c_str();
  SetLastError(ERROR_SUCCESS);  // an error of something before is not this operation's
  const int result = functions_.operate(&request);
  const DWORD error = GetLastError();
  if (result != 0 && error != ERROR_SUCCESS) ReportShellError(error);
}

bool ShellOperations::AppendSource(SourceList* sources, const std::string& path) {
  if (!IsLiteralPath(path)) {
    RefusePath(GetForegroundWindow(), base::WideFromNarrow(path), kHasWildcard);
    return false;
  }
  if (sources->Append(path)) return true;
  ReportShellError(path.size() >= kPathBufferSize ? ERROR_FILENAME_EXCED_RANGE : ERROR_NOT_ENOUGH_MEMORY);
  return false;
}

bool ShellOperations::CopyOrMoveSelection(ShellControlHost* fileView, bool move) {
  const base::Hold hold(fileView);
  const LONG count = GetSelectedCount(fileView);
  if (count <= 0) return false;
  SourceList sources(HostListMemory());
  for (ShellItem item = GetFirstSelectedItem(fileView); item; item = GetNextSelectedItem(fileView)) {
    const auto path = PathOrRefusal(GetForegroundWindow(), item);
    if (!path || !AppendSource(&sources, *path)) return false;
  }
  return CopyOrMove(move, static_cast<int>(count), std::move(sources));
}

bool ShellOperations::CopyOrMovePath(const char* path, bool move) {
  if (path == nullptr || *path == '\0') return false;
  SourceList sources(HostListMemory());
  return AppendSource(&sources, path) && CopyOrMove(move, 1, std::move(sources));
}

void ReportShellError(DWORD code, std::string_view name) {
  unique_local_text text;
  FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                 nullptr, code, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                 reinterpret_cast<char*>(text.put()), 0, nullptr);
  const std::string unknown = "Error code " + std::to_string(code) + ".";
  const std::string sentence = text ? base::InsertName(std::string(text.get()), name) : unknown;
  MessageBoxA(GetForegroundWindow(), sentence.c_str(), kErrorCaption,
              MB_OK | MB_ICONERROR);
}

}  // namespace file_explorer
