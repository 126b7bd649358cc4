// Moving and copying take the very files that were chosen, to the very folder.
#include <shlobj.h>

#include "tests/integration/codepages/names_fixture.h"

namespace code_page_test {
namespace {

class MoveTest : public NamesTest {
 protected:
  void SetUp() override {
    targets_.AddFolder(L"target");
    right_ = targets_.AddFolder(L"t\u0101rget");
    Begin();
    driver_.OnDialog([this](const fileops_test::SeenDialog& dialog) {
      EXPECT_TRUE(WaitUntil([&] {
        SendMessageW(dialog.window, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(right_.c_str()));
        return SelectionOf(dialog.window) == L"t\u0101rget";
      }));
      PostMessageW(dialog.window, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                   reinterpret_cast<LPARAM>(GetDlgItem(dialog.window, IDOK)));
    });
  }
  static std::wstring SelectionOf(HWND browser) {
    const HWND tree = test_support::FindDescendant(browser, WC_TREEVIEWA);
    std::array<wchar_t, 512> text = {};
    TVITEMW item = {};
    item.mask = TVIF_TEXT | TVIF_HANDLE;
    item.hItem = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return item.pszText;
  }
  std::vector<std::wstring> FilesInTarget(const std::wstring& name) { return FilesIn(targets_.Join(name)); }
  std::vector<std::wstring> FilesInSource() { return FilesIn(fixture_.directory().Join(std::wstring_view(L"files"))); }
  // The files in a folder, each by the name that its content says.
  static std::vector<std::wstring> FilesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW data = {};
    const HANDLE find = FindFirstFileW((folder + L"\\*.obj").c_str(), &data);
    for (BOOL more = find != INVALID_HANDLE_VALUE; more; more = FindNextFileW(find, &data)) {
      std::array<char, 64> content = {};
      const std::wstring path = folder + L"\\" + data.cFileName;
      const HANDLE file =
          CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
      DWORD read = 0;
      ReadFile(file, content.data(), static_cast<DWORD>(content.size()), &read, nullptr);
      CloseHandle(file);
      names.emplace_back(reinterpret_cast<const wchar_t*>(content.data()), read / sizeof(wchar_t));
      EXPECT_EQ(names.back(), data.cFileName) << "it keeps its name";
    }
    if (find != INVALID_HANDLE_VALUE) FindClose(find);
    return names;
  }

  // The browser finds a folder by the lists that it read before: nothing above these may change meanwhile.
  test_support::TempDirectory targets_{test_support::TempDirectory::Place::kDriveRoot};
  std::wstring right_;
};

const std::vector<std::wstring> kChosen = {kNames[1], kNames[3], kNames[5], kNames[7]};
const std::vector<std::wstring> kOthers = {kNames[0], kNames[2], kNames[4], kNames[6]};

TEST_F(MoveTest, TakesTheChosenFilesAndNoOthers) {
  SelectRows(kChosen);
  Command(file_explorer::kCommandMoveTo);
  EXPECT_THAT(FilesInTarget(L"t\u0101rget"), testing::UnorderedElementsAreArray(kChosen));
  EXPECT_THAT(FilesInSource(), testing::UnorderedElementsAreArray(kOthers));
  EXPECT_THAT(FilesInTarget(L"target"), testing::IsEmpty());
}

TEST_F(MoveTest, CopiesTheChosenFilesAndNoOthers) {
  SelectRows(kChosen);
  Command(file_explorer::kCommandCopyTo);
  EXPECT_THAT(FilesInTarget(L"t\u0101rget"), testing::UnorderedElementsAreArray(kChosen));
  EXPECT_THAT(FilesInSource(), testing::UnorderedElementsAreArray(kNames));
  EXPECT_THAT(FilesInTarget(L"target"), testing::IsEmpty());
}

}  // namespace
}  // namespace code_page_test
