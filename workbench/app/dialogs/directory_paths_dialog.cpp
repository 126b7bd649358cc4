#include "workbench/app/dialogs/directory_paths_dialog.h"

#include <shlobj.h>

#include <memory>

#include "src/host/vc64_tx.h"
#include "workbench/app/dialogs/dialog_window.h"
#include "base/text/code_page.h"
#include "workbench/app/dialogs/profile_text.h"
#include "workbench/app/documents/file_facts.h"

namespace workbench {
namespace {

struct PathRow {
  const wchar_t* label;
  const wchar_t* key;
  const wchar_t* fallback;
};

// The fallbacks are those of the readers of these keys.
constexpr PathRow kRows[kPathRows] = {
    {L"&Textures:", L"Default-Textures-Directory", L"textures"},
    {L"&Scenes (.bdf):", L"Default-Halvo-BDF-Directory", L"scenes"},
    {L"&Import of 3D objects:", L"Default-FileImport-Directory", L"objects"},
    {L"&Export of 3D objects:", L"Default-FileExport-Directory", L"objects"},
    {L"&Open documents:", L"Default-Documents-Directory", L"objects"},
    {L"&Rendered images:", L"Default-Rendered-Images-Directory", L"images"},
};

constexpr short kWidth = 330;
constexpr short kHeight = 186;
constexpr wchar_t kTitle[] = L"Directory Paths";

std::wstring WorkingDirectory() {
  const char* value = Tx_Inquire_Environment("TS_WORKING_DIR");
  return value == nullptr ? std::wstring() : base::WideFromNarrow(value);
}

bool IsAbsolute(const std::wstring& path) {
  return !path.empty() && (path[0] == L'\\' || path[0] == L'/' || (path.size() > 1 && path[1] == L':'));
}

int CALLBACK SelectStartFolder(HWND browser, UINT message, LPARAM, LPARAM start) {
  if (message == BFFM_INITIALIZED && *reinterpret_cast<const wchar_t*>(start) != L'\0') {
    SendMessageW(browser, BFFM_SETSELECTIONW, TRUE, start);
  }
  return 0;
}

class DirectoryPathsDialog : private ModalDialog {
 public:
  explicit DirectoryPathsDialog(const std::string& profilePath) : section_(profilePath, L"Search-Paths") {}

  bool Show(HWND owner) {
    DialogTemplate controls(kTitle, kWidth, kHeight);
    controls.AddLabel(
        L"Folders that the \"Go to..\" menu and the file dialogs start from. A folder that begins "
        L"neither with a drive nor with \"\\\" lies in the working directory.",
        {7, 7, kWidth - 14, 18});
    controls.AddLabel(L"Working directory:", {7, 34, 88, 9});
    controls.AddEdit(kWorkingDirectoryEdit, {98, 32, kWidth - 105, 13}, true);
    for (int i = 0; i < kPathRows; ++i) {
      const auto y = static_cast<short>(54 + 17 * i);
      controls.AddLabel(kRows[i].label, {7, static_cast<short>(y + 2), 88, 9});
      controls.AddEdit(static_cast<WORD>(kFirstPathEdit + i), {98, y, kWidth - 164, 13}, false);
      controls.AddButton(static_cast<WORD>(kFirstBrowseButton + i), L"Browse...", {kWidth - 60, y, 53, 13});
    }
    controls.AddButton(IDOK, L"OK", {kWidth - 116, kHeight - 21, 53, 14}, true);
    controls.AddButton(IDCANCEL, L"Cancel", {kWidth - 60, kHeight - 21, 53, 14});
    return Run(owner, controls) > 0;
  }

 private:
  bool OnInitialise() override {
    const std::wstring working = WorkingDirectory();
    SetControlText(kWorkingDirectoryEdit, working.empty() ? L"(not set)" : working);
    for (int i = 0; i < kPathRows; ++i) {
      SendMessageW(Control(kFirstPathEdit + i), EM_LIMITTEXT, kTxPathSize - 1, 0);
      SetControlText(kFirstPathEdit + i, section_.Text(kRows[i].key, kRows[i].fallback));
    }
    SetFocus(Control(kFirstPathEdit));
    SendMessageW(Control(kFirstPathEdit), EM_SETSEL, 0, -1);
    return false;
  }

  void OnPressed(int id) override {
    if (id == IDOK && Save()) Close(IDOK);
    if (id == IDCANCEL) Close(IDCANCEL);
    if (id >= kFirstBrowseButton && id < kFirstBrowseButton + kPathRows) Browse(id - kFirstBrowseButton);
  }

  // Writes what was changed only: a folder that was never chosen follows its reader's default.
  bool Save() {
    for (int i = 0; i < kPathRows; ++i) {
      const std::wstring value = ControlText(kFirstPathEdit + i);
      if (value == section_.Text(kRows[i].key, kRows[i].fallback)) continue;
      if (section_.SetText(kRows[i].key, value)) continue;
      const std::wstring message = L"The paths can't be saved. " + ErrorText(GetLastError());
      MessageBoxW(window(), message.c_str(), L"Error", MB_OK | MB_ICONERROR);
      return false;
    }
    return true;
  }

  void Browse(int row) {
    std::wstring start = ControlText(kFirstPathEdit + row);
    const std::wstring working = WorkingDirectory();
    if (!IsAbsolute(start) && !working.empty()) start = working + L"\\" + start;
    BROWSEINFOW browse = {};
    browse.hwndOwner = window();
    browse.lpszTitle = L"Please select the folder";
    browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    browse.lpfn = SelectStartFolder;
    browse.lParam = reinterpret_cast<LPARAM>(start.c_str());
    const LPITEMIDLIST chosen = SHBrowseForFolderW(&browse);
    if (chosen == nullptr) return;
    // Room for every path: given less, the shell refuses a long one, or cuts it off without a word.
    constexpr DWORD kLongest = 32768;
    const auto path = std::make_unique_for_overwrite<wchar_t[]>(kLongest);
    if (SHGetPathFromIDListEx(chosen, path.get(), kLongest, GPFIDL_DEFAULT)) {
      SetControlText(kFirstPathEdit + row, path.get());
    }
    CoTaskMemFree(chosen);
  }

  ProfileSection section_;
};

}  // namespace

bool ShowDirectoryPathsDialog(HWND owner, const std::string& profilePath) {
  return DirectoryPathsDialog(profilePath).Show(owner);
}

}  // namespace workbench
