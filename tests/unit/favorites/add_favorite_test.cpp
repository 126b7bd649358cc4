#include "src/favorites/add_favorite.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

class AddFavoriteTest : public testing::Test {
 protected:
  AddFavoriteTest() {
    sources.folderTreePath = [this] { return treePath; };
    sources.fileViewSelectionCount = [this] { return selected; };
    sources.fileViewPath = [this] { return viewPath; };
    sources.fileViewItemIsVirtual = [this] { return isVirtual; };
  }

  std::optional<std::string> treePath = "C:\\tree";
  std::optional<std::string> viewPath = "C:\\view";
  int selected = 1;
  bool isVirtual = false;
  AddFavoriteSources sources;
};

TEST_F(AddFavoriteTest, AnItemThatIsNamedGoesBeforeAllOthers) {
  sources.explicitPath = "C:\\named";
  sources.fromFolderTree = true;
  selected = 5;
  EXPECT_EQ(ChooseFavoritePath(sources).path, "C:\\named");
}

TEST_F(AddFavoriteTest, TheFolderTreeGoesFirstWhenItIsAskedFor) {
  selected = 5;
  sources.fromFolderTree = true;
  EXPECT_EQ(ChooseFavoritePath(sources).path, "C:\\tree");
}

TEST_F(AddFavoriteTest, AnEmptyFolderTreeLeavesItToTheFileView) {
  sources.fromFolderTree = true;
  treePath = "";
  EXPECT_EQ(ChooseFavoritePath(sources).path, "C:\\view");
}

// The user has been told by then: neither another path is taken in its place, nor a second message shown.
TEST_F(AddFavoriteTest, APathThatCantBeExpressedEndsTheCommand) {
  viewPath = std::nullopt;
  EXPECT_EQ(ChooseFavoritePath(sources).path, "");
  EXPECT_EQ(ChooseFavoritePath(sources).message, nullptr);
  viewPath = "C:\\view";
  treePath = std::nullopt;
  EXPECT_EQ(ChooseFavoritePath(sources).path, "C:\\view");
  sources.fromFolderTree = true;
  EXPECT_EQ(ChooseFavoritePath(sources).path, "");
  EXPECT_EQ(ChooseFavoritePath(sources).message, nullptr);
  sources.fromFolderTree = false;
  viewPath = "";
  EXPECT_EQ(ChooseFavoritePath(sources).path, "");
  EXPECT_EQ(ChooseFavoritePath(sources).message, nullptr);
}

TEST_F(AddFavoriteTest, SeveralSelectedItemsAreRefused) {
  selected = 2;
  const AddFavoriteChoice choice = ChooseFavoritePath(sources);
  EXPECT_EQ(choice.path, "");
  EXPECT_STREQ(choice.caption, "Error");
  EXPECT_STREQ(
      choice.message,
      "Please select one, and only one, file or folder from the 'File Explorer' file list window or the "
      "'File "
      "Folders Tree View' window.\n\nAlso, you cannot add a file from inside a ZIP file to the Favorites "
      "list.");
}

TEST_F(AddFavoriteTest, AVirtualItemIsRefused) {
  viewPath = "";
  isVirtual = true;
  const AddFavoriteChoice choice = ChooseFavoritePath(sources);
  EXPECT_STREQ(choice.caption, "Warning");
  EXPECT_STREQ(
      choice.message,
      "You have selected a file or folder in a virtual file system (which can include files in a ZIP file "
      "archive). This is disallowed.\n\nNothing added to the Favorites list.");
}

TEST_F(AddFavoriteTest, WithoutAFileTheFolderTreeIsTheLastResort) {
  viewPath = "";
  selected = 0;
  EXPECT_EQ(ChooseFavoritePath(sources).path, "C:\\tree");
  treePath = "";
  EXPECT_STREQ(ChooseFavoritePath(sources).caption, "Warning");
}

TEST_F(AddFavoriteTest, SourcesThatDoNotExistHaveNothing) {
  EXPECT_EQ(ChooseFavoritePath(AddFavoriteSources()).path, "");
}

TEST_F(AddFavoriteTest, LongPathsEndAtTheBuffersSize) {
  viewPath = std::string(3000, 'x');
  EXPECT_EQ(ChooseFavoritePath(sources).path.size(), kFavoritePathSize - 1);
}

TEST(AddFavoriteNoteTest, NamesTheProduct) {
  EXPECT_EQ(AddFavoriteNote(32), "Teskar will add this file reference to your Favorites list.");
  EXPECT_EQ(AddFavoriteNote(64 | 1), "Teskar will add this file reference to your Favorites list.");
  EXPECT_EQ(AddFavoriteNote(0x100), "Corvalent will add this file reference to your Favorites list.");
}

}  // namespace
}  // namespace file_explorer
