#include "src/settings/home_directory_browse.h"

#include <shlobj.h>

#include <memory>
#include <string>
#include <utility>

#include "base/text/code_page.h"
#include "src/framework/module_context.h"
#include "src/host/vc64_imp.h"
#include "src/settings/directory_links.h"

namespace file_explorer {
namespace {

constexpr wchar_t kTitle[] = L"Please select the new home directory";
constexpr DWORD kPathSize = 32768;  // characters, with the terminator

// The folder's full path; empty when it is on no file system.
std::wstring FileSystemPath(LPCITEMIDLIST folder) {
  const auto path = std::make_unique<wchar_t[]>(kPathSize);
  if (!SHGetPathFromIDListEx(folder, path.get(), kPathSize, GPFIDL_DEFAULT)) return {};
  return path.get();
}

// By path where there is one: a list that was made earlier need not be the one by which the browser finds the
// folder now, since lists carry dates too.
void Preselect(HWND dialog, LPCITEMIDLIST home) {
  if (home == nullptr) return;
  const std::wstring path = FileSystemPath(home);
  const bool byPath = !path.empty();
  SendMessageA(dialog, BFFM_SETSELECTIONW, byPath,
               byPath ? reinterpret_cast<LPARAM>(path.c_str()) : reinterpret_cast<LPARAM>(home));
}

// The line above the tree says which folder is selected.
void ShowSelectedPath(HWND dialog, LPCITEMIDLIST folder) {
  const std::wstring path = FileSystemPath(folder);
  SendMessageA(dialog, BFFM_SETSTATUSTEXTW, 0, reinterpret_cast<LPARAM>(path.c_str()));
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

// Only shown: the folder itself is found by its list.
void SetHomeName(ExplorerSettings* settings, const std::wstring& name) {
  settings->homeDirectoryName.reset(name.empty() ? nullptr
                                                 : Import_IO_Copy_String(base::DisplayNarrow(name).c_str()));
}

}  // namespace

bool ChooseHomeDirectory(HWND owner, ExplorerSettings* settings) {
  wchar_t name[MAX_PATH] = L"";
  BROWSEINFOW request = {};
  request.hwndOwner = owner;
  request.pszDisplayName = name;
  request.lpszTitle = kTitle;
  request.ulFlags = BIF_RETURNONLYFSDIRS | BIF_STATUSTEXT;
  request.lpfn = OnBrowseEvent;
  // The present list stays in use until the dialog is closed: it is replaced below.
  request.lParam = reinterpret_cast<LPARAM>(settings->homeDirectory.get());
  unique_pidl chosen(SHBrowseForFolderW(&request));
  if (!chosen) return false;
  SetHomeName(settings, name);
  settings->homeDirectory = std::move(chosen);
  const std::wstring path = FileSystemPath(settings->homeDirectory.get());
  if (!path.empty()) SetHomeName(settings, path);
  return true;
}

}  // namespace file_explorer
