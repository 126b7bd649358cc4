#include "workbench/controls/operations/delete_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "base/files/paths.h"
#include "tests/unit/controls/listed_files.h"

namespace controls {
namespace {

using base::FileKind;
using testing::ElementsAre;

class DeletePlanTest : public testing::Test {
 protected:
  DeletePlan Plan(std::vector<std::wstring> paths, bool permanently = false) {
    return PlanDelete({std::move(paths), permanently, [this](const std::wstring&) { return hasBin_; },
                       [this] { return ++asked_ <= patience_; }},
                      files_);
  }
  BinRefusal RefusalOf(const std::wstring& path) {
    const DeletePlan plan = Plan({path});
    return plan.items.size() == 1 ? plan.items[0].refusal : BinRefusal::kAsked;
  }

  ListedFiles files_;
  bool hasBin_ = true;
  int asked_ = 0;
  int patience_ = 1000;
};

TEST_F(DeletePlanTest, FilesAndFoldersOfOrdinaryFilesGoToTheBin) {
  files_.Add(L"C:\\a.txt", FileKind::kFile);
  files_.Add(L"C:\\dir", FileKind::kFolder);
  files_.Add(L"C:\\dir\\b.txt", FileKind::kFile);
  files_.Add(L"C:\\dir\\inner", FileKind::kFolder);
  files_.Add(L"C:\\dir\\inner\\c.txt", FileKind::kFile);
  const DeletePlan plan = Plan({L"C:\\a.txt", L"C:\\dir"});
  EXPECT_EQ(plan.inBin, 2U);
  EXPECT_FALSE(plan.stopped);
}

TEST_F(DeletePlanTest, LinksNeverDoAndAreNotLookedThrough) {
  for (const FileKind kind : {FileKind::kFileLink, FileKind::kFolderLink, FileKind::kMountPoint}) {
    files_.Add(L"C:\\link", kind);
    files_.Add(L"C:\\link\\inside.txt", FileKind::kFile);
    EXPECT_EQ(RefusalOf(L"C:\\link"), BinRefusal::kLink);
  }
  EXPECT_THAT(files_.listed, ElementsAre());
}

TEST_F(DeletePlanTest, AFolderIsLookedThroughToTheGround) {
  struct Row {
    const wchar_t* name;
    FileKind kind;
  };
  const Row rows[] = {{L"link", FileKind::kFileLink},      {L"link", FileKind::kFolderLink},
                      {L"mount", FileKind::kMountPoint},   {L"pipe", FileKind::kOther},
                      {L"img?.png", FileKind::kFile},      {L"all*", FileKind::kFolder},
                      {L"tex\\wood.png", FileKind::kFile}, {L"trail.", FileKind::kFile},
                      {L"nul.txt", FileKind::kFile}};
  for (const Row& row : rows) {
    files_.Clear();
    files_.Add(L"C:\\dir", FileKind::kFolder);
    files_.Add(L"C:\\dir\\plain.txt", FileKind::kFile);
    files_.Add(L"C:\\dir\\inner", FileKind::kFolder);
    files_.AddNamed(L"C:\\dir\\inner", row.name, row.kind);
    EXPECT_EQ(RefusalOf(L"C:\\dir"), BinRefusal::kContents)
        << std::string(row.name, row.name + wcslen(row.name));
  }
}

TEST_F(DeletePlanTest, NamesThatTheShellTakesForOthersNeverGoToIt) {
  for (const wchar_t* const name : {L"img?.png", L"a*", L"trail. ", L"nul"}) {
    const std::wstring path = base::PathInFolder(L"C:\\dir", name);
    files_.Add(path, FileKind::kFile);
    EXPECT_EQ(RefusalOf(path), BinRefusal::kName);
  }
  const std::wstring backslash = base::PathInFolder(L"C:\\dir", L"tex\\wood.png");
  files_.Add(backslash, FileKind::kFile);
  EXPECT_EQ(RefusalOf(backslash), BinRefusal::kName);
}

TEST_F(DeletePlanTest, WithoutABinOrAtTheUsersWishItIsForGood) {
  files_.Add(L"C:\\a.txt", FileKind::kFile);
  hasBin_ = false;
  EXPECT_EQ(RefusalOf(L"C:\\a.txt"), BinRefusal::kNoBin);
  EXPECT_EQ(Plan({L"C:\\a.txt"}, true).items[0].refusal, BinRefusal::kAsked);
}

TEST_F(DeletePlanTest, AFolderThatCannotBeLookedThroughDoesNotGo) {
  files_.Add(L"C:\\dir", FileKind::kFolder);
  files_.Add(L"C:\\dir\\shut", FileKind::kFolder);
  files_.unreadable = L"C:\\dir\\shut";
  EXPECT_EQ(RefusalOf(L"C:\\dir"), BinRefusal::kUnreadable);
  EXPECT_EQ(RefusalOf(L"C:\\gone"), BinRefusal::kUnreadable);
}

TEST_F(DeletePlanTest, TheLookEndsWhenTheUserCancels) {
  files_.Add(L"C:\\dir", FileKind::kFolder);
  files_.Add(L"C:\\dir\\inner", FileKind::kFolder);
  files_.Add(L"C:\\a.txt", FileKind::kFile);
  patience_ = 1;
  const DeletePlan plan = Plan({L"C:\\dir", L"C:\\a.txt"});
  EXPECT_TRUE(plan.stopped);
  EXPECT_THAT(files_.listed, ElementsAre(L"C:\\dir"));
}

}  // namespace
}  // namespace controls
