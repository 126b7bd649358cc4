// An example of a site's own integration tests: the running explorer, a scripted control and single classes.
#include <gmock/gmock.h>

#include <string>

#include "base/text/code_page.h"
#include "src/explorer/group_sort.h"
#include "src/favorites/favorite_list.h"
#include "src/fileops/source_list.h"
#include "src/filter/mask_rules.h"
#include "src/history/history_platform.h"
#include "src/settings/directory_links.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/scripted_control.h"

namespace {

using file_explorer::ComPtr;
using test_support::ScriptedItem;

TEST(Site, ShowsOurFolder) {
  test_support::ExplorerFixture fixture;
  fixture.directory().AddFile(L"files\\model.obj");
  fixture.Start();
  ASSERT_TRUE(fixture.LoadExplorer());
  EXPECT_TRUE(fixture.WaitForFile("model.obj"));
}

TEST(Site, SortsItemsOfOurControl) {
  const auto first = file_explorer::CComObject<ScriptedItem>::New();
  const auto second = file_explorer::CComObject<ScriptedItem>::New();
  first->name = L"c:\\b.obj";
  second->name = L"c:\\a.obj";
  file_explorer::GroupSort sort;
  LONG order = 0;
  sort.Compare(first.Get(), second.Get(), &order);
  EXPECT_EQ(order, 1);
}

TEST(Site, UsesTheClassesBehindTheViews) {
  file_explorer::ShellHistoryPlatform platform;
  EXPECT_EQ(platform.BaseName("c:\\objects\\tree.obj"), "tree.obj");
  file_explorer::FavoriteList favorites(file_explorer::FoldAsciiLetters);
  EXPECT_TRUE(favorites.empty());
  const auto everything = [](const char*, const char*) { return true; };
  const file_explorer::MaskRules masks({nullptr, "*.obj", 0});
  EXPECT_FALSE(masks.Pass("tree.obj", everything, nullptr));
  EXPECT_TRUE(file_explorer::IsLiteralPath("c:\\objects"));
  EXPECT_FALSE(file_explorer::ParsePath(""));
  EXPECT_EQ(base::WideFromNarrow("tree"), L"tree");
}

}  // namespace
