// Links are objects of their own, and names that only the machine below allows are taken exactly: whatever is
// done to them in the window, nothing else is touched. All of it holds for Wine on a machine with symbolic
// links.
#include <windows.h>

#include "tests/integration/fileops/fileops_fixture.h"
#include "tests/integration/fileops/machine_files.h"

namespace fileops_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class LinksTest : public FileOpsTest {
 protected:
  void SetUp() override {
    ASSERT_TRUE(base::wine::CanCallKernel()) << "these tests need the machine below Wine";
    fixture_.directory().AddFile(L"outside\\kept.txt", "kept");
    fixture_.directory().AddFile(L"outside\\deep\\too.txt", "too");
    fixture_.directory().AddFile(L"files\\plain.txt", "plain");
    fixture_.directory().AddFolder(L"files\\dir");
    fixture_.boxes().AnswerWith(IDYES);
  }
  std::wstring Folder(const wchar_t* name) { return fixture_.directory().Join(std::wstring_view(name)); }
  std::string OutsideOnMachine() { return MachinePath(Folder(L"outside")); }
  void ExpectOutsideUntouched() {
    EXPECT_EQ(Content(fixture_.directory().Join(std::string_view("outside\\kept.txt"))), "kept");
    EXPECT_EQ(Content(fixture_.directory().Join(std::string_view("outside\\deep\\too.txt"))), "too");
  }
  void Delete(bool forGood) {
    if (forGood) {
      PressWith(list(), VK_DELETE, {VK_SHIFT});
    } else {
      Command(file_explorer::kCommandDelete);
    }
    Finish();
  }
};

TEST_F(LinksTest, DeletingALinkLeavesWhatItLeadsTo) {
  for (const bool forGood : {true, false}) {
    fixture_.Close();
    ASSERT_TRUE(MakeLink(Folder(L"files"), "tofolder", OutsideOnMachine()));
    ASSERT_TRUE(MakeLink(Folder(L"files"), "tofile", OutsideOnMachine() + "/kept.txt"));
    Start(4);
    Select({"tofolder", "tofile"});
    Delete(forGood);
    EXPECT_THAT(LastBox(), HasSubstr("permanently?"));
    EXPECT_EQ(LastBox().find("it is a link; what it leads to stays") == std::string::npos, forGood);
    EXPECT_FALSE(Stands(Folder(L"files"), "tofolder"));
    EXPECT_FALSE(Stands(Folder(L"files"), "tofile"));
    ExpectOutsideUntouched();
  }
}

TEST_F(LinksTest, DeletingAFolderWithALinkInsideLeavesWhatItLeadsTo) {
  for (const bool forGood : {true, false}) {
    fixture_.Close();
    fixture_.directory().AddFile(L"files\\dir\\inner\\own.txt", "own");
    ASSERT_TRUE(MakeLink(Folder(L"files\\dir\\inner"), "link", OutsideOnMachine()));
    Start(2);
    Select({"dir"});
    Delete(forGood);
    EXPECT_THAT(LastBox(), HasSubstr("permanently?"));
    EXPECT_FALSE(Exists(Path("dir")));
    ExpectOutsideUntouched();
  }
}

TEST_F(LinksTest, CutAndPasteMovesTheLink) {
  ASSERT_TRUE(MakeLink(Folder(L"files"), "tofolder", OutsideOnMachine()));
  ASSERT_TRUE(MakeLink(Folder(L"files"), "tofile", OutsideOnMachine() + "/kept.txt"));
  Start(4);
  Select({"tofolder", "tofile"});
  Command(file_explorer::kCommandCut);
  ASSERT_TRUE(GoTo("dir", 0));
  Paste();
  EXPECT_TRUE(IsLink(Folder(L"files\\dir"), "tofolder"));
  EXPECT_TRUE(IsLink(Folder(L"files\\dir"), "tofile"));
  EXPECT_FALSE(Stands(Folder(L"files"), "tofolder"));
  EXPECT_FALSE(Stands(Folder(L"files"), "tofile"));
  ExpectOutsideUntouched();
}

TEST_F(LinksTest, CopiesOfLinksAreLinks) {
  ASSERT_TRUE(MakeLink(Folder(L"files"), "tofolder", OutsideOnMachine()));
  Start(3);
  Select({"tofolder"});
  Command(file_explorer::kCommandCopy);
  ASSERT_TRUE(GoTo("dir", 0));
  Paste();
  EXPECT_TRUE(IsLink(Folder(L"files\\dir"), "tofolder"));
  EXPECT_TRUE(IsLink(Folder(L"files"), "tofolder"));
  ExpectOutsideUntouched();
}

TEST_F(LinksTest, PastingIntoALinkThatIsOnShowPutsTheFilesWhereItLeads) {
  ASSERT_TRUE(MakeLink(Folder(L"files"), "tofolder", OutsideOnMachine()));
  Start(3);
  Select({"plain.txt"});
  Command(file_explorer::kCommandCopy);
  ASSERT_TRUE(GoTo("tofolder", 2));
  Paste();
  EXPECT_THAT(fixture_.boxes().boxes(), IsEmpty());
  EXPECT_EQ(Content(fixture_.directory().Join(std::string_view("outside\\plain.txt"))), "plain");
  EXPECT_TRUE(Shows("plain.txt"));
}

TEST_F(LinksTest, ANameWithWildcardsIsDeletedExactly) {
  for (const char* const name : {"img?.png", "im*"}) {
    fixture_.Close();
    for (const wchar_t* const other : {L"files\\img1.png", L"files\\img2.png"})
      fixture_.directory().AddFile(other);
    ASSERT_TRUE(MakeOddFile(Folder(L"files"), name, "odd"));
    Start(5);
    Select({name});
    Delete(false);
    EXPECT_THAT(LastBox(), HasSubstr("the bin cannot keep its name"));
    EXPECT_FALSE(Stands(Folder(L"files"), name)) << name;
    EXPECT_TRUE(Exists(Path("img1.png")));
    EXPECT_TRUE(Exists(Path("img2.png")));
  }
}

TEST_F(LinksTest, ANameWithABackslashIsDeletedExactly) {
  fixture_.directory().AddFile(L"files\\tex\\wood.png", "of the folder");
  ASSERT_TRUE(MakeOddFile(Folder(L"files"), "tex\\wood.png", "odd"));
  Start(4);
  Select({"tex\\wood.png"});
  Delete(false);
  EXPECT_FALSE(Stands(Folder(L"files"), "tex\\wood.png"));
  EXPECT_EQ(Content(Path("tex\\wood.png")), "of the folder");
}

TEST_F(LinksTest, AFolderWithSuchANameInsideTakesNothingElseAlong) {
  fixture_.directory().AddFile(L"files\\dir\\img1.png");
  ASSERT_TRUE(MakeOddFile(Folder(L"files\\dir"), "img?.png", "odd"));
  ASSERT_TRUE(MakeOddFile(Folder(L"files\\dir"), "..\\plain.txt", "odd"));
  Start(2);
  Select({"dir"});
  Delete(false);
  EXPECT_THAT(LastBox(), HasSubstr("it holds links, or names that the bin cannot keep"));
  EXPECT_FALSE(Exists(Path("dir")));
  EXPECT_EQ(Content(Path("plain.txt")), "plain");
}

}  // namespace
}  // namespace fileops_test
