// An archive that changes while it is shown.
#include "tests/integration/archive/archive_fixture.h"

namespace controls_test {
namespace {

class ArchiveChanges : public ArchiveFixture {
 protected:
  void SetUp() override {
    ArchiveFixture::SetUp();
    ASSERT_TRUE(view_.GoAndWait(Archive()));
  }
};

TEST_F(ArchiveChanges, TheListFollowsTheArchive) {
  folder_.AddFile(L"box.zip", SampleArchive().Add("new.txt", "new").Build());
  EXPECT_TRUE(WaitForNames({L"models", L"new.txt", L"readme.txt"}));
  EXPECT_EQ(ViewPath(), Archive());
}

TEST_F(ArchiveChanges, SelectionSurvives) {
  SelectOnly(view_.RowOf(L"readme.txt"));
  folder_.AddFile(L"box.zip", SampleArchive().Add("new.txt", "new").Build());
  ASSERT_TRUE(WaitForNames({L"models", L"new.txt", L"readme.txt"}));
  EXPECT_EQ(GetText(GetObject(view_.dispatch(), 48).get(), 23), L"readme.txt");
}

TEST_F(ArchiveChanges, OtherFilesOfTheFolderDoNotMatter) {
  view_.log().Clear();
  folder_.AddFile(L"other.obj", "x");
  folder_.AddFile(L"box.zip", SampleArchive().Add("new.txt", "new").Build());
  ASSERT_TRUE(WaitForNames({L"models", L"new.txt", L"readme.txt"}));
  EXPECT_LT(view_.RowOf(L"other.obj"), 0);
}

TEST_F(ArchiveChanges, ADeletedArchiveLeavesAnEmptyListAndTheWayOut) {
  ASSERT_TRUE(DeleteFileW(Archive().c_str())) << "nobody holds the file";
  EXPECT_TRUE(WaitForNames({}));
  EXPECT_EQ(ViewPath(), Archive());
  ASSERT_EQ(CallMethod(view_.dispatch(), 44), S_OK);
  EXPECT_TRUE(WaitForNames({L"sub", L"plain.obj"}));
}

TEST_F(ArchiveChanges, AnArchiveThatComesBackIsShownAgain) {
  ASSERT_TRUE(MoveFileW(Archive().c_str(), folder_.Join(L"away.zip").c_str()));
  ASSERT_TRUE(WaitForNames({}));
  ASSERT_TRUE(MoveFileW(folder_.Join(L"away.zip").c_str(), Archive().c_str()));
  EXPECT_TRUE(WaitForNames({L"models", L"readme.txt"}));
}

TEST_F(ArchiveChanges, AnArchiveThatIsWrittenOverIsEmptyUntilItIsOneAgain) {
  folder_.AddFile(L"box.zip", SampleArchive().Build().substr(0, 100));
  EXPECT_TRUE(WaitForNames({}));
  folder_.AddFile(L"box.zip", SampleArchive().Build());
  EXPECT_TRUE(WaitForNames({L"models", L"readme.txt"}));
}

TEST_F(ArchiveChanges, AFolderThatVanishesFromTheArchiveIsEmpty) {
  Enter(L"models");
  ASSERT_TRUE(WaitForNames({L"parts", L"teapot.obj"}));
  folder_.AddFile(L"box.zip", ZipBuilder().Add("only.txt").Build());
  EXPECT_TRUE(WaitForNames({}));
  ASSERT_EQ(CallMethod(view_.dispatch(), 44), S_OK);
  EXPECT_TRUE(WaitForNames({L"only.txt"}));
}

TEST_F(ArchiveChanges, RefreshReadsTheArchiveAgain) {
  view_.log().Clear();
  ASSERT_EQ(CallMethod(view_.dispatch(), 56), S_OK);
  EXPECT_TRUE(WaitUntil([&] { return view_.log().Count(17) == 1; }));
  EXPECT_THAT(view_.Names(), ElementsAre(L"models", L"readme.txt"));
}

}  // namespace
}  // namespace controls_test
