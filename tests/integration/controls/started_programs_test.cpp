// Files that are opened with their program, rows that are found by what is typed, folders with long paths.
#include <windows.h>

#include <commctrl.h>
#include <shellapi.h>

#include <gtest/gtest.h>

#include <string>

#include "tests/integration/controls/control_container.h"
#include "tests/support/import_hook.h"
#include "tests/support/temp_directory.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/pidl.h"

namespace controls_test {
namespace {

using test_support::ImportHook;
using test_support::TempDirectory;

std::wstring startedFile;
std::wstring startedIn;

BOOL WINAPI RecordStart(SHELLEXECUTEINFOW* request) {
  startedFile = request->lpFile != nullptr ? request->lpFile : L"";
  startedIn = request->lpDirectory != nullptr ? request->lpDirectory : L"<none>";
  return TRUE;
}

constexpr DISPID kFirstSelected = 48;
constexpr DISPID kDefaultAction = 19;

TEST(StartedPrograms, StartInTheFolderOfTheirFile) {
  TempDirectory folder;
  const std::wstring file = folder.AddFile(L"a.txt");
  Hosted view(kFileView);
  ASSERT_TRUE(view.GoAndWait(folder.path()));
  const ImportHook hook(ModuleOf(kFileView), "ShellExecuteExW", &RecordStart);
  ASSERT_TRUE(hook.installed());
  LVITEMW item = {};
  item.state = item.stateMask = LVIS_SELECTED;
  SendMessageW(view.list(), LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&item));
  const ComRef<IDispatch> selected = GetObject(view.dispatch(), kFirstSelected);
  ASSERT_TRUE(selected);
  EXPECT_EQ(CallMethod(selected.get(), kDefaultAction), S_OK);
  EXPECT_EQ(startedFile, file);
  EXPECT_EQ(startedIn, folder.path());
}

class TypedNames : public testing::TestWithParam<UINT> {};

// A list asks its parent for the row that begins with what was typed, in either of two words for it.
TEST_P(TypedNames, FindTheRowThatBeginsWithThem) {
  TempDirectory folder;
  folder.AddFile(L"alpha.txt");
  folder.AddFile(L"beta.txt");
  Hosted view(kFileView);
  ASSERT_TRUE(view.GoAndWait(folder.path()));
  NMLVFINDITEMW find = {};
  find.hdr = {view.list(), static_cast<UINT_PTR>(GetDlgCtrlID(view.list())),
              static_cast<UINT>(LVN_ODFINDITEMW)};
  find.lvfi.flags = GetParam();
  find.lvfi.psz = L"be";
  const auto ask = [&] {
    return SendMessageW(GetParent(view.list()), WM_NOTIFY, find.hdr.idFrom, reinterpret_cast<LPARAM>(&find));
  };
  EXPECT_EQ(ask(), 1);
  find.lvfi.psz = L"beat";
  EXPECT_EQ(ask(), -1);
}

constexpr UINT kSubstring = 0x0004;  // LVFI_SUBSTRING
INSTANTIATE_TEST_SUITE_P(BothWords, TypedNames,
                         testing::Values(LVFI_PARTIAL, LVFI_STRING | LVFI_PARTIAL, kSubstring,
                                         LVFI_STRING | kSubstring));

TEST(LongPaths, AFolderWithALongPathIsAFolderOfTheDisk) {
  TempDirectory folder;
  const std::wstring outer = folder.AddFolder(std::wstring(120, L'o'));
  const std::wstring name(160, L'i');
  const std::wstring inner = outer + L"\\" + name;
  ASSERT_GT(inner.size(), 260u);
  ASSERT_TRUE(CreateDirectoryW(controls::ExtendedPath(inner).c_str(), nullptr));
  const controls::UniquePidl outerPidl = controls::PidlFromPath(outer);
  ASSERT_TRUE(outerPidl);
  ComRef<IShellFolder> desktop;
  ComRef<IShellFolder> parent;
  ASSERT_EQ(SHGetDesktopFolder(desktop.put()), S_OK);
  ASSERT_EQ(desktop->BindToObject(outerPidl.get(), nullptr, IID_IShellFolder, parent.put_void()), S_OK);
  ComRef<IEnumIDList> children;
  ASSERT_EQ(parent->EnumObjects(nullptr, SHCONTF_FOLDERS, children.put()), S_OK);
  LPITEMIDLIST child = nullptr;
  ASSERT_EQ(children->Next(1, &child, nullptr), S_OK);
  const controls::UniquePidl childPidl(child);
  const controls::UniquePidl whole(ILCombine(outerPidl.get(), child));
  EXPECT_EQ(controls::PathFromPidl(whole.get()), inner);
}

}  // namespace
}  // namespace controls_test
