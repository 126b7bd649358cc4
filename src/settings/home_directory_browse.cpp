#include "src/settings/home_directory_browse.h"

#include <shlobj.h>

#include <memory>
#include <string>
#include <utility>

#include "src/framework/module_context.h"
#include "src/host/vc64_imp.h"
#include "src/settings/directory_links.h"

namespace file_explorer {
namespace {

constexpr char kTitle[] = "Please select the new home directory";
constexpr DWORD kPathSize = 32768;  // characters, with the terminator

// The folder's full path; empty when it is on no file system.
std::string FileSystemPath(LPCITEMIDLIST folder) {
  const auto wide = std::make_unique<wchar_t[]>(kPathSize);
  if (!SHGetPathFromIDListEx(folder, wide.get(), kPathSize, GPFIDL_DEFAULT)) return {};
  const int size = WideCharToMultiByte(CP_ACP, 0, wide.get(), -1, nullptr, 0, nullptr, nullptr);
  if (size <= 1) return {};
  std::string path(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.get(), -1, path.data(), size, nullptr, nullptr);
  path.pop_back();
  return path;
}

// By path where there is one: a list that was made earlier need not be the one by which the browser finds the
// folder now, since lists carry dates too.
void Preselect(HWND dialog, LPCITEMIDLIST home) {
  if (home == nullptr) return;
  const std::string path = FileSystemPath(home);
  const bool byPath = !path.empty();
  SendMessageA(dialog, BFFM_SETSELECTIONA, byPath,
               byPath ? reinterpret_cast<LPARAM>(path.c_str()) : reinterpret_cast<LPARAM>(home));
}

// The line above the tree says which folder is selected.
void ShowSelectedPath(HWND dialog, LPCITEMIDLIST folder) {
  const std::string path = FileSystemPath(folder);
  SendMessageA(dialog, BFFM_SETSTATUSTEXTA, 0, reinterpret_cast<LPARAM>(path.c_str()));
}

int CALLBACK OnBrowseEvent(HWND dialog, UINT event, LPARAM value, LPARAM home) {
  const ModuleContext context;
  try {
    if (event == BFFM_INITIALIZED) Preselect(dialog, reinterpret_cast<LPCITEMIDLIST>(home));
    if (event == BFFM_SELCHANGED) ShowSelectedPath(dialog, reinterpret_cast<LPCITEMIDLIST>(value));
  } catch (...) {
    // The dialog goes on without the text.
  }
  return 0;
}

void SetHomeName(ExplorerSettings* settings, const char* name) {
  settings->homeDirectoryName.reset(*name == '\0' ? nullptr : Import_IO_Copy_String(name));
}

}  // namespace

bool ChooseHomeDirectory(HWND owner, ExplorerSettings* settings) {
  char name[MAX_PATH] = "";
  BROWSEINFOA request = {};
  request.hwndOwner = owner;
  request.pszDisplayName = name;
  request.lpszTitle = kTitle;
  request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_STATUSTEXT;
  request.lpfn = OnBrowseEvent;
  // The present list stays in use until the dialog is closed: it is replaced below.
  request.lParam = reinterpret_cast<LPARAM>(settings->homeDirectory.get());
  unique_pidl chosen(SHBrowseForFolderA(&request));
  if (!chosen) return false;
  SetHomeName(settings, name);
  settings->homeDirectory = std::move(chosen);
  const std::string path = FileSystemPath(settings->homeDirectory.get());
  if (!path.empty()) SetHomeName(settings, path.c_str());
  return true;
}

}  // namespace file_explorer
