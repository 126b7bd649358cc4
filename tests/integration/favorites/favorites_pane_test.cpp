// The pane's file and commands.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/framework/command_ids.h"
#include "src/host/vc64_tx.h"
#include "tests/integration/favorites/favorites_fixture.h"
#include "tests/support/import_hook.h"
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

std::vector<std::wstring> asked;  // of the disk

DWORD WINAPI RecordAttributes(const wchar_t* path) {
  asked.emplace_back(path);
  return INVALID_FILE_ATTRIBUTES;
}

// The thread would wait for a machine that is gone.
TEST_F(FavoritesPaneTest, AReferenceToAnotherMachineIsJudgedByItsName) {
  PutFavorites(
      "K={0}\ns=49\nd=Favorites\nE\n"
      "K={1}\ns=4\ni=1\nd=models\nn=\\\\dead\\share\\models\np={0}\n"
      "K={2}\ns=4\ni=1\nd=a.known\nn=\\\\dead\\share\\a.known\np={0}\n"
      "K={3}\ns=4\ni=1\nd=b.obj\nn=X:\\b.obj\np={0}\n");
  constexpr char kGuid[] = "{5D1B7A10-2C44-4E0E-9A61-0B771F28D358}";
  const std::int64_t types = kTxTypeText;
  ASSERT_TRUE(Tx_FileFormatHandler(kGuid, Tx_Inquire_Token("function"), Tx_Inquire_Token("viewer"), 1,
                                   Tx_Inquire_Token("type"), &types, 1, Tx_Inquire_Token("filetypes"), ".known", 1, 0));
  Create();
  asked.clear();
  const test_support::ImportHook hook(GetModuleHandleW(nullptr), "GetFileAttributesW", &RecordAttributes);
  ASSERT_TRUE(hook.installed());
  const auto open = [this](const char* key) {
    Select(key);
    NMHDR enter = {tree().window(), 104, static_cast<UINT>(NM_RETURN)};
    SendMessageA(panel, WM_NOTIFY, 104, reinterpret_cast<LPARAM>(&enter));
  };
  open("{1}");
  open("{2}");
  Tx_Remove_FileFormatHandler(kGuid);
  EXPECT_THAT(opened, ElementsAre("\\\\dead\\share\\models"));
  EXPECT_THAT(loaded, ElementsAre("\\\\dead\\share\\a.known"));
  EXPECT_THAT(asked, IsEmpty());
  open("{3}");
  EXPECT_THAT(asked, ElementsAre(L"X:\\b.obj")) << "a drive of this machine is asked";
}

TEST_F(FavoritesPaneTest, AFolderWithALongPathIsStillAFolder) {
  const std::wstring outer = folder.AddFolder(std::wstring(120, L'o'));
  const std::wstring inner = outer + L"\\" + std::wstring(160, L'i');
  ASSERT_GT(inner.size(), 260u);
  ASSERT_TRUE(CreateDirectoryW((L"\\\\?\\" + inner).c_str(), nullptr));
  const std::string path(inner.begin(), inner.end());
  PutFavorites("K={0}\ns=49\nd=Favorites\nE\nK={1}\ns=4\ni=1\nd=deep\nn=" + path + "\np={0}\n");
  Create();
  Select("{1}");
  NMHDR enter = {tree().window(), 104, static_cast<UINT>(NM_RETURN)};
  SendMessageA(panel, WM_NOTIFY, 104, reinterpret_cast<LPARAM>(&enter));
  EXPECT_THAT(opened, ElementsAre(path));
  EXPECT_THAT(loaded, IsEmpty());
  RemoveDirectoryW((L"\\\\?\\" + inner).c_str());
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
