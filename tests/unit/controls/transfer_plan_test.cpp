#include "workbench/controls/model/transfer_plan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "workbench/controls/model/path_logic.h"

namespace {

using namespace controls;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr PathKind kFile = PathKind::kFile;
constexpr PathKind kFolder = PathKind::kFolder;

// A disk with C:\from and C:\to on it.
class TransferPlanTest : public testing::Test {
 protected:
  TransferPlan Plan(const std::vector<std::wstring>& sources, bool move = true,
                    const std::wstring& folder = L"C:\\to") {
    const DiskLook look = {[this](const std::wstring& path) {
                             const auto found = disk_.find(path);
                             return found == disk_.end() ? PathKind::kNothing : found->second;
                           },
                           [this](const std::wstring& folder) {
                             std::vector<std::wstring> names;
                             for (const auto& [path, kind] : disk_) {
                               if (ParentOfPath(path) == folder) names.emplace_back(NameOfPath(path));
                             }
                             return names;
                           }};
    return PlanTransfer(sources, folder, move, look);
  }
  static std::vector<std::wstring> Pairs(const TransferPlan& plan) {
    std::vector<std::wstring> pairs;
    for (const Transfer& transfer : plan.transfers) {
      pairs.push_back(transfer.source + (transfer.replaces ? L" > " : L" - ") + transfer.target);
    }
    return pairs;
  }

  std::map<std::wstring, PathKind> disk_ = {{L"C:\\from", kFolder},
                                            {L"C:\\to", kFolder},
                                            {L"C:\\from\\a.txt", kFile},
                                            {L"C:\\from\\b.txt", kFile},
                                            {L"C:\\from\\dir", kFolder},
                                            {L"C:\\from\\dir\\x", kFile},
                                            {L"C:\\from\\dir\\inner", kFolder},
                                            {L"C:\\from\\dir\\inner\\y", kFile}};
};

TEST_F(TransferPlanTest, WhatIsNotThereGoesAsAWhole) {
  const TransferPlan plan = Plan({L"C:\\from\\a.txt", L"C:\\from\\dir"});
  EXPECT_THAT(Pairs(plan), ElementsAre(L"C:\\from\\a.txt - C:\\to\\a.txt", L"C:\\from\\dir - C:\\to\\dir"));
  EXPECT_THAT(plan.spreadFolders, IsEmpty());
  const TransferQuestions questions = QuestionsOf(plan, true);
  EXPECT_EQ(questions.share, L"");
  EXPECT_EQ(questions.replace, L"");
}

TEST_F(TransferPlanTest, AFileOfTheSameNameIsAskedAbout) {
  disk_[L"C:\\to\\a.txt"] = kFile;
  TransferPlan plan = Plan({L"C:\\from\\a.txt"});
  EXPECT_THAT(Pairs(plan), ElementsAre(L"C:\\from\\a.txt > C:\\to\\a.txt"));
  EXPECT_EQ(
      QuestionsOf(plan, true).replace,
      L"There is already an item named \u201Ca.txt\u201D in this folder.\n\nDo you want to replace it?");
  EXPECT_FALSE(QuestionsOf(plan, true).others);
  EXPECT_EQ(QuestionsOf(plan, false).replace, L"") << "before a copy the system asks";
  DropReplacements(plan);
  EXPECT_THAT(plan.transfers, IsEmpty());
}

TEST_F(TransferPlanTest, SeveralFilesOfTheSameNamesAreOneQuestion) {
  disk_[L"C:\\to\\a.txt"] = kFile;
  disk_[L"C:\\to\\b.txt"] = kFile;
  TransferPlan plan = Plan({L"C:\\from\\a.txt", L"C:\\from\\b.txt", L"C:\\from\\dir"});
  const TransferQuestions questions = QuestionsOf(plan, true);
  EXPECT_EQ(questions.replace,
            L"There are already 2 items of the same names in this folder, \u201Ca.txt\u201D among them."
            L"\n\nDo you want to replace them?\n\nWith No they stay, and the others are moved.");
  EXPECT_TRUE(questions.others);
  DropReplacements(plan);
  EXPECT_THAT(Pairs(plan), ElementsAre(L"C:\\from\\dir - C:\\to\\dir"));
}

TEST_F(TransferPlanTest, AFolderOntoAFolderPutsTheContentsTogether) {
  disk_[L"C:\\to\\dir"] = kFolder;
  disk_[L"C:\\to\\dir\\x"] = kFile;
  disk_[L"C:\\to\\dir\\z"] = kFile;
  disk_[L"C:\\to\\dir\\inner"] = kFolder;
  const TransferPlan plan = Plan({L"C:\\from\\dir"});
  EXPECT_THAT(Pairs(plan), ElementsAre(L"C:\\from\\dir\\inner\\y - C:\\to\\dir\\inner\\y",
                                       L"C:\\from\\dir\\x > C:\\to\\dir\\x"));
  EXPECT_THAT(plan.sharedFolders, ElementsAre(L"C:\\to\\dir")) << "asked once, not for each folder inside";
  EXPECT_THAT(plan.spreadFolders, ElementsAre(L"C:\\from\\dir\\inner", L"C:\\from\\dir"));
  for (const bool move : {true, false}) {
    EXPECT_EQ(QuestionsOf(plan, move).share,
              L"There is already a folder named \u201Cdir\u201D in this folder.\n\nDo you want to put the "
              L"contents of "
              L"both together?");
  }
}

TEST_F(TransferPlanTest, AFileAndAFolderNeverTakeEachOthersPlace) {
  disk_[L"C:\\to\\a.txt"] = kFolder;
  disk_[L"C:\\to\\dir"] = kFile;
  EXPECT_EQ(Plan({L"C:\\from\\b.txt", L"C:\\from\\a.txt"}).error,
            L"\u201Ca.txt\u201D cannot be moved: there is a folder of this name.");
  EXPECT_THAT(Plan({L"C:\\from\\b.txt", L"C:\\from\\a.txt"}).transfers, IsEmpty())
      << "nothing is done by halves";
  EXPECT_EQ(Plan({L"C:\\from\\dir"}, false).error,
            L"\u201Cdir\u201D cannot be copied: there is a file of this name.");
}

TEST_F(TransferPlanTest, WhatHasGoneIsSaid) {
  EXPECT_EQ(Plan({L"C:\\from\\gone"}).error, L"\u201Cgone\u201D is no longer there.");
  EXPECT_EQ(Plan({L"C:\\from\\a.txt"}, true, L"C:\\gone").error,
            L"The folder \u201Cgone\u201D is no longer there.");
}

TEST_F(TransferPlanTest, NothingGoesIntoItself) {
  for (const bool move : {true, false}) {
    EXPECT_EQ(Plan({L"C:\\from\\dir"}, move, L"C:\\from\\dir").error,
              L"\u201Cdir\u201D cannot be copied or moved into itself.");
    EXPECT_NE(Plan({L"C:\\from"}, move, L"C:\\from\\dir\\inner").error, L"");
  }
}

TEST_F(TransferPlanTest, InItsOwnFolderAMoveIsNothingAndACopyGetsAnotherName) {
  EXPECT_THAT(Plan({L"C:\\from\\a.txt"}, true, L"C:\\from").transfers, IsEmpty());
  disk_[L"C:\\from\\a - Copy.txt"] = kFile;
  EXPECT_THAT(
      Pairs(Plan({L"C:\\from\\a.txt", L"C:\\from\\dir"}, false, L"C:\\from")),
      ElementsAre(L"C:\\from\\a.txt - C:\\from\\a - Copy (2).txt", L"C:\\from\\dir - C:\\from\\dir - Copy"));
}

TEST_F(TransferPlanTest, AnEndlessTreeOfFoldersEndsWithThePathLength) {
  const DiskLook endless = {[](const std::wstring&) { return PathKind::kFolder; },
                            [](const std::wstring&) { return std::vector<std::wstring>{L"deeper"}; }};
  EXPECT_NE(PlanTransfer({L"C:\\from\\dir"}, L"C:\\to", true, endless).error, L"");
}

TEST_F(TransferPlanTest, TheSecondOfTwoFilesOfOneNameTakesThePlaceOfTheFirst) {
  disk_[L"C:\\other"] = kFolder;
  disk_[L"C:\\other\\A.TXT"] = kFile;
  const TransferPlan plan = Plan({L"C:\\from\\a.txt", L"C:\\other\\A.TXT"});
  EXPECT_THAT(Pairs(plan),
              ElementsAre(L"C:\\from\\a.txt - C:\\to\\a.txt", L"C:\\other\\A.TXT > C:\\to\\A.TXT"));
  EXPECT_NE(QuestionsOf(plan, true).replace, L"") << "so the user is asked";
}

TEST_F(TransferPlanTest, PathsThatTheShellWouldMisreadAreRefused) {
  const std::wstring path = L"C:\\from\\name.";
  disk_[path] = kFile;
  EXPECT_THAT(Plan({path}).transfers, IsEmpty());
  EXPECT_NE(Plan({path}).error, L"");
}

}  // namespace
