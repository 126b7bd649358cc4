// What goes to the bin, what cannot, and how it comes back.
#include <windows.h>

#include "base/files/wine_calls.h"
#include "tests/integration/fileops/fileops_fixture.h"
#include "tests/integration/fileops/machine_files.h"
#include "tests/support/files/machine_folder.h"
#include "tests/support/only_wine.h"

namespace fileops_test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class RecycleBinTest : public FileOpsTest {
 protected:
  void Begin(size_t files) {
    fixture_.boxes().AnswerWith(IDYES);
    Start(files);
  }
  void DeleteSelected() {
    Command(file_explorer::kCommandDelete);
    Finish();
  }
  std::wstring Files() { return fixture_.directory().Join(std::wstring_view(L"files")); }
};

TEST_F(RecycleBinTest, NamesThatDifferInLetterCaseTakeNothingFromEachOther) {
  EXPLORER_ONLY_WINE("its machine tells such names apart") {
    fixture_.directory().AddFolder(L"files");
    ASSERT_TRUE(MakeOddFile(Files(), "README", "large"));
    ASSERT_TRUE(MakeOddFile(Files(), "readme", "small"));
    Begin(2);
    PressWith(list(), 'A', {VK_CONTROL});
    DeleteSelected();
    EXPECT_EQ(fixture_.boxes().boxes().size(), 1U) << LastBox();
    EXPECT_FALSE(Stands(Files(), "README"));
    EXPECT_FALSE(Stands(Files(), "readme"));
    Undo();
    // The bin gives nothing back beside a name that differs in letter case only; nothing may be replaced
    // either.
    EXPECT_EQ(fixture_.boxes().boxes().size(), 2U) << LastBox();
    EXPECT_THAT(LastBox(), HasSubstr("Something else stands at its old place"));
    EXPECT_NE(Stands(Files(), "README"), Stands(Files(), "readme"));
    EXPECT_EQ(Content(Path("README")), Stands(Files(), "README") ? "large" : "small");
  }
}

TEST_F(RecycleBinTest, AnotherFileSystemThanTheBinsHasNone) {
  EXPLORER_ONLY_WINE("its one bin cannot take files of other file systems") {
    const test_support::MachineFolder other;  // in /dev/shm
    other.Write("a.txt", "a");
    other.Write("dir/b.txt", "b");
    fixture_.directory().AddFile(L"files\\own.txt");
    base::wine::Status here;
    base::wine::Status there;
    ASSERT_EQ(base::wine::GetStatus(MachinePath(Files()), true, &here), 0);
    ASSERT_EQ(base::wine::GetStatus(other.path(), true, &there), 0);
    const bool another = here.device != there.device;
    Begin(1);
    TypePath("Z:" + other.path());
    ASSERT_TRUE(fixture_.WaitForFiles(2));
    PressWith(list(), 'A', {VK_CONTROL});
    DeleteSelected();
    ASSERT_EQ(fixture_.boxes().boxes().size(), 1U);
    EXPECT_THAT(LastBox(), HasSubstr(another ? "There is no recycle bin here" : "to the recycle bin?"));
    EXPECT_THAT(other.Contents(), IsEmpty());
  }
}

// While the question is open, others go on working in the folder.
TEST_F(RecycleBinTest, ALinkThatTookTheFilesPlaceMeanwhileIsNotFollowed) {
  EXPLORER_ONLY_WINE("links of its machine") {
    fixture_.directory().AddFile(L"files\\a.txt", "a");
    fixture_.directory().AddFile(L"outside\\kept.txt", "kept");
    Begin(1);
    Select({"a.txt"});
    fixture_.boxes().BeforeAnswering([this] {
      const std::string path = MachinePath(Files()) + "/a.txt";
      base::wine::Unlink(path);
      base::wine::MakeLink("../outside/kept.txt", path);
    });
    DeleteSelected();
    EXPECT_TRUE(IsLink(Files(), "a.txt"));
    EXPECT_EQ(Content(fixture_.directory().Join(std::string_view("outside\\kept.txt"))), "kept");
    EXPECT_THAT(LastBox(), HasSubstr("Somebody changed it meanwhile"));
  }
}

TEST_F(RecycleBinTest, AFileThatVanishedMeanwhileDrawsNoOtherOneAlong) {
  EXPLORER_ONLY_WINE("its machine tells such names apart") {
    fixture_.directory().AddFolder(L"files");
    ASSERT_TRUE(MakeOddFile(Files(), "README", "large"));
    ASSERT_TRUE(MakeOddFile(Files(), "readme", "small"));
    Begin(2);
    Select({"README"});
    fixture_.boxes().BeforeAnswering([this] { base::wine::Unlink(MachinePath(Files()) + "/README"); });
    DeleteSelected();
    EXPECT_TRUE(Stands(Files(), "readme"));
  }
}

}  // namespace
}  // namespace fileops_test
