// Files by kind in the running explorer: masks, type filter, groups, colours and patterns.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "src/host/plugin_protocol.h"
#include "src/host/vc64_tx.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace {

using test_support::WaitUntil;
using testing::ElementsAre;
using testing::UnorderedElementsAre;

// One file of each category, in the order of the handlers' type bits, and one of no kind.
constexpr const wchar_t* kTenKinds[] = {L"b.bmp", L"c.3ds", L"d.avi", L"e.wav", L"f.zip", L"g.txt",
                                        L"h.csv", L"i.mdb", L"j.ppt", L"k.svg", L"a.xyz"};

class FileKindsTest : public testing::Test {
 protected:
  void AddFile(const std::wstring& name) { fixture_.directory().AddFile(L"files\\" + name); }
  void AddTenKinds() {
    for (const wchar_t* const name : kTenKinds) AddFile(name);
  }
  void Profile(const std::string& keys) { fixture_.directory().AddFile(L"profile.ini", "[Explore]\n" + keys); }
  void Begin(size_t files) {
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ASSERT_TRUE(fixture_.WaitForFiles(files));
  }
  bool ShowsInOrder(const std::vector<std::string>& names) {
    return WaitUntil([&] { return fixture_.FileNames() == names; });
  }
  void ClickHeader(int column) {
    NMLISTVIEW click = {};
    click.hdr = {fixture_.FileList(), 1, static_cast<UINT>(LVN_COLUMNCLICK)};
    click.iSubItem = column;
    SendMessageA(GetParent(fixture_.FileList()), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&click));
  }
  // The host's colour of a file.
  COLORREF ColorOf(const char* name) {
    float parts[3] = {};
    const std::uint32_t mask =
        Tx_FileFormatHandler_GetHandlerTypesFromFilenameExtension(Tx_Inquire_Token("import_and_viewer"), name, 0);
    Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(mask, &parts[0], &parts[1], &parts[2]);
    const auto byte = [](float part) { return static_cast<BYTE>(part * 255.0F); };
    return RGB(byte(parts[0]), byte(parts[1]), byte(parts[2]));
  }
  // How many pixels of a row's label have a colour, as the list draws it now.
  int PixelsOf(const char* name, COLORREF color) {
    const HWND list = fixture_.FileList();
    UpdateWindow(list);
    RECT label = {};
    label.left = LVIR_LABEL;
    SendMessageA(list, LVM_GETITEMRECT, static_cast<WPARAM>(fixture_.IndexOf(name)), reinterpret_cast<LPARAM>(&label));
    const HDC screen = GetDC(list);
    int count = 0;
    for (LONG y = label.top; y < label.bottom; ++y) {
      for (LONG x = label.left; x < label.right; ++x) count += GetPixel(screen, x, y) == color;
    }
    ReleaseDC(list, screen);
    return count;
  }

  // The colour that most pixels of a row's label have.
  COLORREF GroundOf(const char* name) {
    const HWND list = fixture_.FileList();
    UpdateWindow(list);
    RECT label = {};
    label.left = LVIR_LABEL;
    SendMessageA(list, LVM_GETITEMRECT, static_cast<WPARAM>(fixture_.IndexOf(name)), reinterpret_cast<LPARAM>(&label));
    const HDC screen = GetDC(list);
    std::map<COLORREF, int> counts;
    for (LONG y = label.top; y < label.bottom; ++y) {
      for (LONG x = label.left; x < label.right; ++x) ++counts[GetPixel(screen, x, y)];
    }
    ReleaseDC(list, screen);
    return std::max_element(counts.begin(), counts.end(), [](const auto& a, const auto& b) {
             return a.second < b.second;
           })->first;
  }

  test_support::ExplorerFixture fixture_;
};

int Distance(COLORREF a, COLORREF b) {
  return std::max({std::abs(GetRValue(a) - GetRValue(b)), std::abs(GetGValue(a) - GetGValue(b)),
                   std::abs(GetBValue(a) - GetBValue(b))});
}

TEST_F(FileKindsTest, AMaskHidesHalfOfTheFiles) {
  for (const wchar_t* const name : {L"a.obj", L"b.obj", L"a.txt", L"b.txt"}) AddFile(name);
  Profile("FileInclusionList=*.obj\n");
  Begin(2);
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("a.obj", "b.obj"));
}

TEST_F(FileKindsTest, PatternsAreAskedWithTheNameAlone) {
  // The folder of the test is called "files": a pattern that means the whole path would hide everything.
  for (const wchar_t* const name : {L"test1.3ds", L"a.3ds", L"a.obj"}) AddFile(name);
  Profile("FileInclusionList=*.3ds\nFileExclusionList=test*\n");
  Begin(1);
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("a.3ds"));
}

TEST_F(FileKindsTest, AnExclusionOfEverythingHidesEveryFileAndNoFolder) {
  AddFile(L"a.obj");
  fixture_.directory().AddFolder(L"files\\below.obj");
  Profile("FileExclusionList=*\n");
  Begin(1);
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("below.obj"));
}

TEST_F(FileKindsTest, AnArchiveIsFilteredLikeAFile) {
  for (const wchar_t* const name : {L"a.zip", L"a.obj"}) AddFile(name);
  Profile("FileExclusionList=*.zip\n");
  Begin(1);
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("a.obj"));
}

TEST_F(FileKindsTest, TheTypeFilterShowsOneKindOnly) {
  AddTenKinds();
  Profile("FileExtensionFilteringMethod=2\n");
  Begin(1);
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("c.3ds"));
}

TEST_F(FileKindsTest, TheTypeFilterForKnownFilesHidesTheUnknownOne) {
  AddTenKinds();
  Profile("FileExtensionFilteringMethod=1\n");
  Begin(std::size(kTenKinds) - 1);
  EXPECT_EQ(fixture_.IndexOf("a.xyz"), -1);
}

TEST_F(FileKindsTest, AFileThatComesLaterPassesTheMasksToo) {
  AddFile(L"a.obj");
  Profile("FileInclusionList=*.obj\n");
  Begin(1);
  AddFile(L"b.txt");
  AddFile(L"c.obj");
  ASSERT_TRUE(fixture_.WaitForFile("c.obj"));
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("a.obj", "c.obj"));
}

TEST_F(FileKindsTest, RelatedFilesStandTogetherAndUnknownOnesLast) {
  AddTenKinds();
  fixture_.directory().AddFolder(L"files\\z folder");
  AddFile(L"A.bmp");
  Begin(std::size(kTenKinds) + 2);
  EXPECT_TRUE(ShowsInOrder({"z folder", "A.bmp", "b.bmp", "c.3ds", "d.avi", "e.wav", "f.zip", "g.txt", "h.csv", "i.mdb",
                            "j.ppt", "k.svg", "a.xyz"}));
}

TEST_F(FileKindsTest, ADescendingGroupedListKeepsFoldersInFront) {
  AddFile(L"a.bmp");
  AddFile(L"b.txt");
  fixture_.directory().AddFolder(L"files\\m");
  Begin(3);
  ASSERT_TRUE(ShowsInOrder({"m", "a.bmp", "b.txt"}));
  ClickHeader(0);
  EXPECT_TRUE(ShowsInOrder({"m", "b.txt", "a.bmp"}));
}

TEST_F(FileKindsTest, SortingByAnotherColumnIsTheControls) {
  AddFile(L"a.xyz");
  fixture_.directory().AddFile(L"files\\b.bmp", "123");
  fixture_.directory().AddFile(L"files\\c.3ds", std::string(5000, 'x'));
  Begin(3);
  ASSERT_TRUE(ShowsInOrder({"b.bmp", "c.3ds", "a.xyz"}));
  ClickHeader(1);  // size
  EXPECT_TRUE(ShowsInOrder({"b.bmp", "a.xyz", "c.3ds"}));
}

TEST_F(FileKindsTest, WithoutGroupingNamesDecide) {
  AddTenKinds();
  Profile("GroupRelatedFilesTogetherOnFileView=0\n");
  Begin(std::size(kTenKinds));
  EXPECT_EQ(fixture_.FileNames().front(), "a.xyz");
  EXPECT_EQ(fixture_.FileNames().back(), "k.svg");
}

TEST_F(FileKindsTest, AFileThatComesLaterFindsItsGroup) {
  AddFile(L"a.txt");
  AddFile(L"b.bmp");
  Begin(2);
  ASSERT_TRUE(ShowsInOrder({"b.bmp", "a.txt"}));
  AddFile(L"z.bmp");
  EXPECT_TRUE(ShowsInOrder({"b.bmp", "z.bmp", "a.txt"}));
}

TEST_F(FileKindsTest, FilesOfTenKindsHaveTenColours) {
  AddTenKinds();
  Begin(std::size(kTenKinds));
  std::vector<COLORREF> colors;
  for (const wchar_t* const wide : kTenKinds) {
    const std::string name(wide, wide + wcslen(wide));
    if (name == "a.xyz") continue;
    const COLORREF color = ColorOf(name.c_str());
    EXPECT_EQ(std::count(colors.begin(), colors.end(), color), 0) << name;
    colors.push_back(color);
    EXPECT_TRUE(WaitUntil([&] { return PixelsOf(name.c_str(), color) > 50; })) << name;
  }
  for (const COLORREF color : colors) EXPECT_EQ(PixelsOf("a.xyz", color), 0);
}

TEST_F(FileKindsTest, AColourOfTheProfileIsTheBackgroundToTheByte) {
  AddFile(L"a.txt");
  AddFile(L"b.bmp");
  Profile("default_color_Text_files=1 0 0\ndefault_color_2D_bitmap_files=0.5 0.5 0.5\n");
  Begin(2);
  EXPECT_TRUE(WaitUntil([&] { return PixelsOf("a.txt", RGB(255, 0, 0)) > 50; }));
  EXPECT_TRUE(WaitUntil([&] { return PixelsOf("b.bmp", RGB(127, 127, 127)) > 50; }));
}

TEST_F(FileKindsTest, ASelectedFileIsHighlightedWhateverItsColour) {
  AddFile(L"a.txt");
  Profile("default_color_Text_files=1 0 0\n");
  Begin(1);
  ASSERT_TRUE(WaitUntil([&] { return PixelsOf("a.txt", RGB(255, 0, 0)) > 50; }));
  LVITEMA item = {};
  item.stateMask = item.state = LVIS_SELECTED;
  SetFocus(fixture_.FileList());
  SendMessageA(fixture_.FileList(), LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&item));
  EXPECT_TRUE(WaitUntil([&] { return PixelsOf("a.txt", RGB(255, 0, 0)) == 0; }));
}

TEST_F(FileKindsTest, ASelectionIsSeenWhileTheSelectBoxHasTheFocus) {
  for (const wchar_t* const name : {L"a.txt", L"a.xyz", L"b.txt", L"b.xyz"}) AddFile(name);
  Begin(4);
  SetFocus(fixture_.SelectEdit());
  SendMessageA(fixture_.SelectEdit(), WM_CHAR, 'a', 1);
  ASSERT_THAT(fixture_.SelectedNames(), UnorderedElementsAre("a.txt", "a.xyz"));
  // Both have the same ground, which is neither that of unselected files nor that of a focused selection.
  EXPECT_TRUE(WaitUntil([&] { return Distance(GroundOf("a.xyz"), GroundOf("b.xyz")) >= 48; }))
      << std::hex << GroundOf("a.xyz") << " beside " << GroundOf("b.xyz");
  EXPECT_EQ(GroundOf("a.txt"), GroundOf("a.xyz"));
  EXPECT_GE(Distance(GroundOf("a.txt"), GetSysColor(COLOR_HIGHLIGHT)), 48);
  EXPECT_EQ(GroundOf("b.txt"), ColorOf("b.txt"));
  SetFocus(fixture_.FileList());
  EXPECT_TRUE(WaitUntil([&] { return GroundOf("a.txt") == GetSysColor(COLOR_HIGHLIGHT); }));
}

TEST_F(FileKindsTest, APatternSelectsThree) {
  for (const wchar_t* const name : {L"tree1.obj", L"tree2.obj", L"tree3.obj", L"house.obj"}) AddFile(name);
  Begin(4);
  for (const char letter : std::string("tree")) SendMessageA(fixture_.SelectEdit(), WM_CHAR, static_cast<WPARAM>(letter), 0);
  EXPECT_TRUE(WaitUntil([&] { return fixture_.SelectedNames().size() == 3; }));
  EXPECT_THAT(fixture_.SelectedNames(), UnorderedElementsAre("tree1.obj", "tree2.obj", "tree3.obj"));
}

TEST_F(FileKindsTest, AnotherFolderEmptiesTheSelectBoxAndKnowsTheWayUp) {
  fixture_.directory().AddFile(L"files\\below\\inner.obj");
  Begin(1);
  SendMessageA(fixture_.SelectEdit(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("be"));
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  EXPECT_EQ(test_support::TextOf(fixture_.SelectEdit()), "");
  EXPECT_TRUE(SendMessageA(fixture_.CommandToolbar(), TB_ISBUTTONENABLED, 101, 0));
}

TEST_F(FileKindsTest, ClosingGivesTheListsWindowBack) {
  AddFile(L"a.obj");
  Begin(1);
  const HWND pane = GetParent(fixture_.FileList());
  ASSERT_TRUE(IsWindow(pane));
  fixture_.Close();
  EXPECT_FALSE(IsWindow(pane));
}

}  // namespace
