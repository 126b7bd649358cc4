// Patterns, masks and types go by what a name shows, and no letter of a name or a pattern is bent.
#include "src/explorer/item_name.h"
#include "tests/integration/codepages/names_fixture.h"

namespace code_page_test {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAreArray;

class SelectBoxNamesTest : public NamesTest {
 protected:
  std::vector<std::wstring> SelectedBy(const std::wstring& text) {
    const HWND edit = fixture_.SelectEdit();
    SetWindowTextW(edit, text.c_str());
    SendMessageW(edit, WM_CHAR, VK_RETURN, 1);  // does the selection once more
    test_support::PumpMessages();
    return SelectedRows();
  }
};

TEST_F(SelectBoxNamesTest, SelectsTheNameThatIsTypedAndNoOther) {
  Begin();
  EXPECT_THAT(SelectedBy(L"plan"), ElementsAre(L"plan.obj"));
  EXPECT_THAT(SelectedBy(L"pl\u0101n"), ElementsAre(L"pl\u0101n.obj"));
  EXPECT_THAT(SelectedBy(L"PL\u0100N.OBJ"), ElementsAre(L"pl\u0101n.obj"));
  EXPECT_THAT(SelectedBy(L"\"pl\u0101n.obj\""), ElementsAre(L"pl\u0101n.obj"));
  EXPECT_THAT(SelectedBy(L"\"caf\u00C9.obj"), ElementsAre(L"caf\u00E9.obj"));
  EXPECT_THAT(SelectedBy(L"\"a.obj"), ElementsAre(L"a.obj"));
  EXPECT_THAT(SelectedBy(L"\"\uFF41.obj"), ElementsAre(L"\uFF41.obj"));
  EXPECT_THAT(SelectedBy(L"*.obj"), UnorderedElementsAreArray(kNames)) << "none is dropped";
  EXPECT_THAT(SelectedBy(L"pl?n.obj"), UnorderedElementsAreArray({L"plan.obj", L"pl\u0101n.obj"}));
}

// The small form of the first letter takes more bytes than the letter itself.
TEST_F(SelectBoxNamesTest, ALetterWithALongerSmallFormCostsNoEnd) {
  const std::wstring longName = L"\u023A" + std::wstring(100, L'\u023A') + L"lpha.obj";
  fixture_.directory().AddFile(L"files\\\u023Alpha.obj");
  fixture_.directory().AddFile(L"files\\" + longName);
  Start(2);
  EXPECT_THAT(SelectedBy(L"\"\u023Alpha.obj\""), ElementsAre(L"\u023Alpha.obj"));
  EXPECT_THAT(SelectedBy(L"\"\u2C65lpha.obj\""), ElementsAre(L"\u023Alpha.obj"));
  EXPECT_THAT(SelectedBy(L"*lpha.obj"), testing::SizeIs(2));
  EXPECT_THAT(SelectedBy(L"\"" + longName), ElementsAre(longName));
}

TEST_F(SelectBoxNamesTest, TheBoxGives1024Characters) {
  const std::wstring name = std::wstring(250, L'x') + L".obj";
  fixture_.directory().AddFile(L"files\\" + name);
  Start(1);
  // 1024 characters, the last of which decides.
  const std::wstring stars = std::wstring(1024 - 254, L'*');
  EXPECT_THAT(SelectedBy(stars + name), ElementsAre(name));
  const std::wstring other = std::wstring(1024 - 1, L'*') + L"y";
  EXPECT_THAT(SelectedBy(other), testing::IsEmpty()) << "the 1024th character counts";
  EXPECT_THAT(SelectedBy(std::wstring(1024, L'*') + L"y"), ElementsAre(name)) << "the next one does not";
}

class MaskNamesTest : public NamesTest {
 protected:
  void BeginWith(const char* inclusion, const char* exclusion, size_t shown) {
    for (const std::wstring& name : kNames) fixture_.directory().AddFile(L"files\\" + name, ContentFor(name));
    Option("FileInclusionList", inclusion);
    Option("FileExclusionList", exclusion);
    Start(shown);
  }
};

TEST_F(MaskNamesTest, AMaskOfAllShowsAll) {
  BeginWith("*.obj", "", kNames.size());
  for (const std::wstring& name : kNames) EXPECT_GE(RowOf(name), 0) << base::DisplayNarrow(name);
}

TEST_F(MaskNamesTest, AMaskForOneNameShowsThatNameAlone) {
  BeginWith("plan.obj,a.obj", "", 2);
  EXPECT_GE(RowOf(L"plan.obj"), 0);
  EXPECT_GE(RowOf(L"a.obj"), 0);
}

TEST_F(MaskNamesTest, AnExclusionOfOneNameHidesThatNameAlone) {
  BeginWith("*.*", "plan.obj", kNames.size() - 1);
  EXPECT_LT(RowOf(L"plan.obj"), 0);
  EXPECT_GE(RowOf(L"pl\u0101n.obj"), 0);
}

// A full-width extension is none: bent, it would give the file a type and a colour.
TEST(ItemNames, AnExtensionIsNotBentIntoAnother) {
  const HWND list =
      CreateWindowExW(0, WC_LISTVIEWW, L"", LVS_REPORT, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
  ASSERT_NE(list, nullptr);
  std::wstring text = L"x.\uFF4Fbj";
  LVITEMW item = {};
  item.mask = LVIF_TEXT;
  item.pszText = text.data();
  SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
  file_explorer::ItemName name;
  ASSERT_TRUE(name.Read(list, 0));
  EXPECT_STREQ(name.text(), IsUtf8Process() ? "x.\xEF\xBD\x8F"
                                              "bj"
                                            : "x.?bj");
  EXPECT_FALSE(name.Read(list, 1));
  DestroyWindow(list);
}

}  // namespace
}  // namespace code_page_test
