// Moving and copying take the very files that were chosen, to the very folder.
#include <shlobj.h>

#include "tests/integration/codepages/names_fixture.h"

namespace code_page_test {
namespace {

class MoveTest : public NamesTest {
 protected:
  void SetUp() override {
    fixture_.directory().AddFolder(L"target");
    right_ = fixture_.directory().AddFolder(L"t\u0101rget");
    Begin();
    driver_.OnDialog([this](const fileops_test::SeenDialog& dialog) {
      SendMessageW(dialog.window, BFFM_SETSELECTIONW, TRUE, reinterpret_cast<LPARAM>(right_.c_str()));
      PostMessageW(dialog.window, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED),
                   reinterpret_cast<LPARAM>(GetDlgItem(dialog.window, IDOK)));
    });
  }
  // The files in a folder of the test, each by the name that its content says.
  std::vector<std::wstring> FilesIn(const std::wstring& folder) {
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW data = {};
    const HANDLE find = FindFirstFileW((fixture_.directory().Join(folder) + L"\\*.obj").c_str(), &data);
    for (BOOL more = find != INVALID_HANDLE_VALUE; more; more = FindNextFileW(find, &data)) {
      std::array<char, 64> content = {};
      const std::wstring path = fixture_.directory().Join(folder) + L"\\" + data.cFileName;
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

  std::wstring right_;
};

const std::vector<std::wstring> kChosen = {kNames[1], kNames[3], kNames[5], kNames[7]};
const std::vector<std::wstring> kOthers = {kNames[0], kNames[2], kNames[4], kNames[6]};

TEST_F(MoveTest, TakesTheChosenFilesAndNoOthers) {
  SelectRows(kChosen);
  Command(file_explorer::kCommandMoveTo);
  EXPECT_THAT(FilesIn(L"t\u0101rget"), testing::UnorderedElementsAreArray(kChosen));
  EXPECT_THAT(FilesIn(L"files"), testing::UnorderedElementsAreArray(kOthers));
  EXPECT_THAT(FilesIn(L"target"), testing::IsEmpty());
}

TEST_F(MoveTest, CopiesTheChosenFilesAndNoOthers) {
  SelectRows(kChosen);
  Command(file_explorer::kCommandCopyTo);
  EXPECT_THAT(FilesIn(L"t\u0101rget"), testing::UnorderedElementsAreArray(kChosen));
  EXPECT_THAT(FilesIn(L"files"), testing::UnorderedElementsAreArray(kNames));
  EXPECT_THAT(FilesIn(L"target"), testing::IsEmpty());
}

}  // namespace
}  // namespace code_page_test
