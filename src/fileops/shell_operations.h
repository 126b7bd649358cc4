// Copying and moving files with the shell's own operation, after asking for the destination with the shell's
// folder browser.
#pragma once

#include <windows.h>

#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

#include <optional>
#include <string>

#include "src/fileops/file_operation.h"
#include "src/fileops/source_list.h"
#include "src/shellhost/shell_control_host.h"

namespace file_explorer {

// The functions of the system that the operations stand on; a test puts others in their place.
struct ShellFunctions {
  HRESULT(WINAPI* getMalloc)(IMalloc** allocator) = &SHGetMalloc;
  PIDLIST_ABSOLUTE(WINAPI* browse)(BROWSEINFOA* request) = &SHBrowseForFolderA;
  // The wide form of the call: the path is narrowed by our own rules, which bend no letter.
  BOOL(WINAPI* pathFromList)
  (PCIDLIST_ABSOLUTE list, LPWSTR path, DWORD size, GPFIDL_FLAGS options) = &SHGetPathFromIDListEx;
  int(WINAPI* operate)(SHFILEOPSTRUCTA* request) = &RunFileOperation;
};

// The host's memory, for source lists.
const ListMemory& HostListMemory();

class ShellOperations {
 public:
  explicit ShellOperations(const ShellFunctions& functions = ShellFunctions()) : functions_(functions) {}
  ShellOperations(const ShellOperations&) = delete;
  ShellOperations& operator=(const ShellOperations&) = delete;
  // The last destination is not released: it is kept as long as the module is loaded.
  ~ShellOperations() = default;

  // Asks for a folder and copies or moves the sources into it. count: the number of selected items. The list
  // is freed on every way out. False when the user cancelled or the shell's allocator can't be had.
  bool CopyOrMove(bool move, int count, SourceList sources);

  // All selected items of the file view. Gives what CopyOrMove gives; false without a selection. What fails
  // before anything is asked (a name that can't be expressed, memory) is reported.
  bool CopyOrMoveSelection(ShellControlHost* fileView, bool move);

  // One file or folder; a null or empty path does nothing.
  bool CopyOrMovePath(const char* path, bool move);

  // The folder that was chosen last, preselected by the next browser; null before the first.
  PCIDLIST_ABSOLUTE lastDestination() const { return lastDestination_; }

 private:
  // Nothing for a folder on no file system, and for one whose path can't be expressed: the user is told of
  // that.
  std::optional<std::string> DestinationOf(PCIDLIST_ABSOLUTE chosen);
  static bool AppendSource(SourceList* sources, const std::string& path);
  void RunOperation(bool move, int count, const SourceList& sources, const char* destination);

  ShellFunctions functions_;
  PIDLIST_ABSOLUTE lastDestination_ = nullptr;
};

// Shows the system's text for an error code.
// name: of the file that it is about, for the texts that name it.
void ReportShellError(DWORD code, std::string_view name = {});

}  // namespace file_explorer
