#include "workbench/controls/archive/archive_tree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace controls;
using testing::ElementsAre;

std::vector<std::wstring> Children(const ArchiveTree& tree, std::wstring_view path) {
  std::vector<std::wstring> names;
  const NodeId folder = tree.Find(path);
  if (folder == kNoNode) return {L"no such folder"};
  for (NodeId id = tree.at(folder).firstChild; id != kNoNode; id = tree.at(id).nextSibling) {
    names.push_back(std::wstring(tree.name(id)) + (tree.at(id).folder ? L"\\" : L""));
  }
  return names;
}

EntryFacts Facts(uint64_t size, uint64_t modified = 0) {
  EntryFacts facts;
  facts.size = size;
  facts.modified = modified;
  return facts;
}

TEST(ArchiveTree, AnEmptyOneHasARoot) {
  const ArchiveTree tree;
  EXPECT_EQ(tree.size(), 1u);
  EXPECT_TRUE(tree.at(kArchiveRoot).folder);
  EXPECT_EQ(tree.Find(L""), kArchiveRoot);
  EXPECT_EQ(tree.Find(L"a"), kNoNode);
}

TEST(ArchiveTree, FoldersComeFromEntriesAndFromPaths) {
  ArchiveTree tree;
  tree.Add(L"models/", Facts(7, 11));
  tree.Add(L"models/teapot.obj", Facts(1));
  tree.Add(L"textures/wood/oak.png", Facts(2));
  tree.Add(L"readme.txt", Facts(3));
  EXPECT_THAT(Children(tree, L""), ElementsAre(L"models\\", L"textures\\", L"readme.txt"));
  EXPECT_THAT(Children(tree, L"models"), ElementsAre(L"teapot.obj"));
  EXPECT_THAT(Children(tree, L"textures\\wood"), ElementsAre(L"oak.png"));
  const ArchiveNode& models = tree.at(tree.Find(L"models"));
  EXPECT_TRUE(models.listed);
  EXPECT_EQ(models.facts.size, 0u) << "a folder has no size";
  EXPECT_EQ(models.facts.modified, 11u);
  EXPECT_FALSE(tree.at(tree.Find(L"textures")).listed);
  EXPECT_EQ(tree.at(tree.Find(L"textures\\wood\\oak.png")).facts.size, 2u);
}

TEST(ArchiveTree, AFoldersOwnEntryMayComeAfterItsContents) {
  ArchiveTree tree;
  tree.Add(L"a/b.txt", Facts(1));
  tree.Add(L"a/", Facts(0, 5));
  tree.Add(L"a/", Facts(0, 6));
  EXPECT_THAT(Children(tree, L""), ElementsAre(L"a\\"));
  EXPECT_EQ(tree.at(tree.Find(L"a")).facts.modified, 5u);
}

TEST(ArchiveTree, BackslashesPartNamesToo) {
  ArchiveTree tree;
  tree.Add(L"a\\b\\c.txt", Facts(1));
  tree.Add(L"a/d\\", Facts(0));
  EXPECT_THAT(Children(tree, L"a"), ElementsAre(L"b\\", L"d\\"));
  EXPECT_THAT(Children(tree, L"a\\b"), ElementsAre(L"c.txt"));
}

TEST(ArchiveTree, PartsThatLeadNowhereAreLeftOut) {
  ArchiveTree tree;
  EXPECT_EQ(tree.Add(L"./", Facts(0)), kArchiveRoot);
  EXPECT_EQ(tree.Add(L"/", Facts(0)), kArchiveRoot);
  tree.Add(L"./a.txt", Facts(1));
  tree.Add(L"b//.///c.txt", Facts(1));
  EXPECT_THAT(Children(tree, L""), ElementsAre(L"a.txt", L"b\\"));
  EXPECT_THAT(Children(tree, L"b"), ElementsAre(L"c.txt"));
}

TEST(ArchiveTree, NoPathLeadsOutAndEachSaysThatItIsUnsafe) {
  ArchiveTree tree;
  tree.Add(L"../../evil.exe", Facts(1));
  tree.Add(L"a/../../b.txt", Facts(1));
  tree.Add(L"/etc/passwd", Facts(1));
  tree.Add(L"\\\\server\\share\\x", Facts(1));
  tree.Add(L"C:\\windows\\y.dll", Facts(1));
  tree.Add(L"..", Facts(1));
  tree.Add(L".", Facts(1));
  EXPECT_THAT(Children(tree, L""),
              ElementsAre(L"__ (unsafe name)\\", L"a\\", L"etc (unsafe name)\\", L"server (unsafe name)\\",
                          L"C_ (unsafe name)\\", L"__ (unsafe name) (2)", L"_ (unsafe name)"));
  EXPECT_NE(tree.Find(L"__ (unsafe name)\\__ (unsafe name)\\evil.exe"), kNoNode);
  EXPECT_NE(tree.Find(L"a\\__ (unsafe name)\\__ (unsafe name)\\b.txt"), kNoNode);
  EXPECT_NE(tree.Find(L"C_ (unsafe name)\\windows\\y.dll"), kNoNode);
}

TEST(ArchiveTree, NamelessEntriesAreShown) {
  ArchiveTree tree;
  tree.Add(L"", Facts(1));
  tree.Add(L"", Facts(1));
  EXPECT_THAT(Children(tree, L""), ElementsAre(L"(no name)", L"(no name) (2)"));
}

TEST(ArchiveTree, FilesOfOneNameGetNumbers) {
  ArchiveTree tree;
  tree.Add(L"a (2).txt", Facts(1));
  for (int i = 0; i < 3; ++i) tree.Add(L"a.txt", Facts(1));
  tree.Add(L"A.txt", Facts(1));
  EXPECT_THAT(Children(tree, L""), ElementsAre(L"a (2).txt", L"a.txt", L"a (3).txt", L"a (4).txt", L"A.txt"));
}

TEST(ArchiveTree, AFileAndAFolderOfOneNameAreBothReachable) {
  ArchiveTree tree;
  tree.Add(L"a", Facts(5));
  tree.Add(L"a/b.txt", Facts(1));
  tree.Add(L"a/c.txt", Facts(1));
  tree.Add(L"d/e.txt", Facts(1));
  tree.Add(L"d", Facts(6));
  EXPECT_THAT(Children(tree, L""), ElementsAre(L"a", L"a (2)\\", L"d\\", L"d (2)"));
  EXPECT_THAT(Children(tree, L"a (2)"), ElementsAre(L"b.txt", L"c.txt"));
}

TEST(ArchiveTree, PathsAreFoundExactlyOrWithoutRegardToCase) {
  ArchiveTree tree;
  tree.Add(L"Dir/One.txt", Facts(1));
  tree.Add(L"dir/two.txt", Facts(2));
  EXPECT_EQ(tree.at(tree.Find(L"dir\\TWO.TXT")).facts.size, 2u);
  EXPECT_EQ(tree.at(tree.Find(L"DIR\\one.txt")).facts.size, 1u) << "the first that is equal but for case";
  EXPECT_EQ(tree.Find(L"Dir\\One.txt\\x"), kNoNode);
}

TEST(ArchiveTree, WhatLiesTooDeepIsOneName) {
  ArchiveTree tree;
  std::wstring path;
  for (int i = 0; i < 30000; ++i) path += L"d/";
  const NodeId file = tree.Add(path + L"x.obj", Facts(9));
  EXPECT_EQ(tree.size(), static_cast<size_t>(ArchiveTree::kDeepest) + 2);
  EXPECT_EQ(tree.at(file).facts.size, 9u);
  EXPECT_TRUE(tree.name(file).ends_with(L" (unsafe name).obj"));
  const NodeId folder = tree.Add(path, Facts(0));
  EXPECT_TRUE(tree.at(folder).folder);
}

TEST(ArchiveTree, AFullTreeTakesNothingMore) {
  ArchiveTree tree(1000);
  NodeId last = kArchiveRoot;
  for (size_t number = 0; last != kNoNode; ++number) last = tree.Add(std::to_wstring(number) + L"/x", Facts(1));
  EXPECT_EQ(tree.size(), 1000u);
  EXPECT_EQ(tree.Add(L"more/", Facts(0)), kNoNode);
}

TEST(ArchiveTree, ManyEntriesOfOneNameStayQuick) {
  ArchiveTree tree;
  for (int i = 0; i < 100000; ++i) tree.Add(L"same.txt", Facts(1));
  EXPECT_NE(tree.Find(L"same (100000).txt"), kNoNode);
}

}  // namespace
