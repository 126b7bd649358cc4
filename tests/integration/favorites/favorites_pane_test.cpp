// The pane's file and commands.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/framework/command_ids.h"
#include "tests/integration/favorites/favorites_fixture.h"
#include "tests/support/message_box_recorder.h"

namespace file_explorer {
namespace {

using test_support::MessageBoxRecorder;
using testing::ElementsAre;
using testing::IsEmpty;

class FavoritesPaneTest : public FavoritesFixture {
 protected:
  void ExpectRefusal(int command, const char* text) {
    const std::string before = Shown();
    const MessageBoxRecorder boxes;
    EXPECT_TRUE(pane->HandleCommand(command));
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].text, text);
    EXPECT_EQ(boxes.boxes()[0].caption, "Error");
    EXPECT_EQ(Shown(), before);
    ExpectOkBox(boxes.boxes()[0]);
  }
  void ExpectOkBox(const test_support::RecordedMessageBox& box) const {
    EXPECT_THAT(box.buttons, ElementsAre(IDOK));
    EXPECT_EQ(box.icon, 0u);
    EXPECT_EQ(box.owner, panel);
  }
};

TEST_F(FavoritesPaneTest, WithoutAFileThereIsTheProtectedRoot) {
  Create();
  EXPECT_EQ(Shown(), "Favorites");
  EXPECT_EQ(tree().list().records()[0]->flags, 49);
  EXPECT_EQ(tree().list().records()[0]->imageIndex, 0);
}

TEST_F(FavoritesPaneTest, TheTreeHasANameForThoseWhoReadAloud) {
  Create();
  char name[32] = "";
  GetWindowTextA(tree().window(), name, sizeof name);
  EXPECT_STREQ(name, "Favorites");
}

TEST_F(FavoritesPaneTest, AFileWithoutAClosedRecordGivesTheRootToo) {
  PutFavorites("K={0}\ns=49\nd=never closed\n");
  Create();
  EXPECT_EQ(Shown(), "Favorites");
}

TEST_F(FavoritesPaneTest, FavouritesAreKeptFromRunToRun) {
  CreateWithSample();
  const std::string before = Shown();
  pane->Save();
  pane.reset();
  Create();
  EXPECT_EQ(Shown(), before);
}

TEST_F(FavoritesPaneTest, WithoutASelectionEveryCommandSaysWhatItNeeds) {
  CreateWithSample();
  tree().Select(nullptr);
  ExpectRefusal(kCommandNewFavoritesFolder,
                "Please select a folder which will become the parent of the new folder to be created");
  ExpectRefusal(kCommandRenameFavorite, "Please select a folder or item to rename.");
  ExpectRefusal(kCommandDeleteFavorite, "Please select a folder or item to delete.");
}

TEST_F(FavoritesPaneTest, TheRootIsNeitherRenamedNorDeleted) {
  CreateWithSample();
  Select("{0}");
  ExpectRefusal(kCommandRenameFavorite, "This item cannot be renamed");
  ExpectRefusal(kCommandDeleteFavorite, "This item cannot be deleted");
}

TEST_F(FavoritesPaneTest, ANewFolderIsSelectedAndItsLabelEdited) {
  CreateWithSample();
  Show();
  Select("{3}");
  EXPECT_TRUE(pane->HandleCommand(kCommandNewFavoritesFolder));
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures(New Folder) wood.png)");
  EXPECT_EQ(tree().current()->displayName, "New Folder");
  EXPECT_EQ(tree().current()->flags, 21);
  EXPECT_NE(SendMessageA(tree().window(), TVM_GETEDITCONTROL, 0, 0), 0);
}

TEST_F(FavoritesPaneTest, ANewFolderBesideAReferenceGoesToItsFolder) {
  CreateWithSample();
  Show();
  Select("{2}");
  pane->HandleCommand(kCommandNewFavoritesFolder);
  EXPECT_EQ(Shown(), "Favorites(Models(New Folder cube.obj) Textures wood.png)");
}

TEST_F(FavoritesPaneTest, DeletingAsksFirst) {
  CreateWithSample();
  Select("{1}");
  {
    MessageBoxRecorder boxes;
    boxes.AnswerWith(IDNO);
    pane->HandleCommand(kCommandDeleteFavorite);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].caption, "Confirmation Request");
    EXPECT_EQ(boxes.boxes()[0].text, "Are you sure you want to delete this item?");
    EXPECT_THAT(boxes.boxes()[0].buttons, ElementsAre(IDYES, IDNO));
    EXPECT_EQ(boxes.boxes()[0].icon, static_cast<UINT>(MB_ICONQUESTION));
    EXPECT_EQ(boxes.boxes()[0].owner, panel);
  }
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures wood.png)");
  MessageBoxRecorder boxes;
  boxes.AnswerWith(IDYES);
  pane->HandleCommand(kCommandDeleteFavorite);
  EXPECT_EQ(Shown(), "Favorites(Textures wood.png)");
}

TEST_F(FavoritesPaneTest, KeysRenameAndDelete) {
  CreateWithSample();
  Show();
  Select("{4}");
  SendMessageA(tree().window(), WM_KEYDOWN, VK_F2, 0);
  EXPECT_NE(SendMessageA(tree().window(), TVM_GETEDITCONTROL, 0, 0), 0);
  SendMessageA(tree().window(), TVM_ENDEDITLABELNOW, TRUE, 0);
  MessageBoxRecorder boxes;
  boxes.AnswerWith(IDYES);
  SendMessageA(tree().window(), WM_KEYDOWN, VK_DELETE, 0);
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures)");
}

TEST_F(FavoritesPaneTest, OtherCommandsAreNotThePanes) {
  Create();
  EXPECT_FALSE(pane->HandleCommand(106));
}

TEST_F(FavoritesPaneTest, APathThatIsListedIsRefused) {
  CreateWithSample();
  AddFavoriteSources sources;
  sources.explicitPath = "x:\\MODELS\\Cube.OBJ";
  const MessageBoxRecorder boxes;
  pane->AddFavorite(panel, sources);
  ASSERT_EQ(boxes.boxes().size(), 1u);
  EXPECT_EQ(boxes.boxes()[0].text, "The directory path is already contained within the Favorites list.");
  EXPECT_EQ(boxes.boxes()[0].caption, "Error");
  ExpectOkBox(boxes.boxes()[0]);
}

TEST_F(FavoritesPaneTest, SeveralSelectedFilesAreRefused) {
  CreateWithSample();
  AddFavoriteSources sources;
  sources.fileViewSelectionCount = [] { return 2; };
  const MessageBoxRecorder boxes;
  pane->AddFavorite(panel, sources);
  ASSERT_EQ(boxes.boxes().size(), 1u);
  EXPECT_EQ(boxes.boxes()[0].text, kSelectOnlyOneText);
  EXPECT_EQ(boxes.boxes()[0].caption, "Error");
  ExpectOkBox(boxes.boxes()[0]);
}

TEST_F(FavoritesPaneTest, WithoutAPathTheCommandSaysWhy) {
  CreateWithSample();
  const MessageBoxRecorder boxes;
  pane->AddFavorite(panel, AddFavoriteSources());
  ASSERT_EQ(boxes.boxes().size(), 1u);
  EXPECT_EQ(boxes.boxes()[0].text, kVirtualItemText);
  EXPECT_EQ(boxes.boxes()[0].caption, "Warning");
  ExpectOkBox(boxes.boxes()[0]);
}

}  // namespace
}  // namespace file_explorer
