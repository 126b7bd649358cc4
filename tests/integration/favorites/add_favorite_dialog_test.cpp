// The dialog "Add Favorite", driven while it is open.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "tests/integration/favorites/favorites_fixture.h"
#include "tests/support/message_box_recorder.h"

namespace file_explorer {
namespace {

using test_support::MessageBoxRecorder;
using testing::ElementsAre;

std::function<void(HWND)> visit;

HWND FindDialog() {
  return FindWindowA("#32770", "Add Favorite");
}

void CALLBACK VisitDialog(HWND, UINT, UINT_PTR id, DWORD) {
  const HWND dialog = FindDialog();
  if (dialog == nullptr || !IsWindowVisible(dialog)) return;
  KillTimer(nullptr, id);
  visit(dialog);
  if (IsWindow(dialog)) PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
}

class AddFavoriteDialogTest : public FavoritesFixture {
 protected:
  // Opens the dialog for the path; `actions` runs while it is open. What it does not close is cancelled.
  void Open(const char* path, std::function<void(HWND dialog)> actions) {
    AddFavoriteSources sources;
    sources.explicitPath = path;
    visit = std::move(actions);
    SetTimer(nullptr, 0, 20, VisitDialog);
    pane->AddFavorite(panel, sources);
    visit = nullptr;
  }
  static HWND TreeOf(HWND dialog) { return GetDlgItem(dialog, 104); }
  static std::string TextOf(HWND dialog, int id) {
    char text[512] = "";
    GetDlgItemTextA(dialog, id, text, sizeof(text));
    return text;
  }
  static void Press(HWND dialog, int id) {
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
  }
  static HTREEITEM ItemNamed(HWND treeWindow, const std::string& name, HTREEITEM parent = nullptr) {
    auto item = reinterpret_cast<HTREEITEM>(SendMessageA(
        treeWindow, TVM_GETNEXTITEM, parent ? TVGN_CHILD : TVGN_ROOT, reinterpret_cast<LPARAM>(parent)));
    while (item != nullptr) {
      if (TreeControl(treeWindow).RecordOf(item)->displayName == name) return item;
      if (const HTREEITEM below = ItemNamed(treeWindow, name, item)) return below;
      item = reinterpret_cast<HTREEITEM>(
          SendMessageA(treeWindow, TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(item)));
    }
    return nullptr;
  }
};

TEST_F(AddFavoriteDialogTest, ShowsThePathTheNoteAndTheFavourites) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, 103), "X:\\new.obj");
    EXPECT_EQ(TextOf(dialog, 105), "Teskar will add this file reference to your Favorites list.");
    EXPECT_EQ(OutlineOf(TreeOf(dialog)), "Favorites(Models(cube.obj) Textures wood.png)");
    EXPECT_TRUE(IsWindowVisible(TreeOf(dialog)));
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, 102)));
    EXPECT_EQ(TreeControl(TreeOf(dialog)).RecordOf(TreeControl(TreeOf(dialog)).Selected())->key, "{0}");
  });
}

TEST_F(AddFavoriteDialogTest, NamesTheOtherProductWithoutItsFlags) {
  hostFlags = 0;
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    EXPECT_EQ(TextOf(dialog, 105), "Corvalent will add this file reference to your Favorites list.");
  });
}

TEST_F(AddFavoriteDialogTest, OkAddsTheReferenceToFileAndPane) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    TreeControl(TreeOf(dialog)).Select(ItemNamed(TreeOf(dialog), "Models"));
    SetDlgItemTextA(dialog, 103, "  a new one \t");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Shown(), "Favorites(Models(a new one cube.obj) Textures wood.png)");
  const std::string text = TextOfFile(file());
  EXPECT_NE(text.find("s=4\r\ni=1\r\nd=a new one\r\nn=X:\\new.obj\r\np={1}\r\n"), std::string::npos) << text;
}

TEST_F(AddFavoriteDialogTest, ASelectedReferenceLendsItsFolder) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    TreeControl(TreeOf(dialog)).Select(ItemNamed(TreeOf(dialog), "cube.obj"));
    SetDlgItemTextA(dialog, 103, "beside");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Shown(), "Favorites(Models(beside cube.obj) Textures wood.png)");
}

TEST_F(AddFavoriteDialogTest, ANameIsNeeded) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    const MessageBoxRecorder boxes;
    SetDlgItemTextA(dialog, 103, " \t ");
    Press(dialog, IDOK);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].text, "Please enter a valid 'Name' string.");
    EXPECT_EQ(boxes.boxes()[0].caption, "Error");
    EXPECT_EQ(boxes.boxes()[0].owner, dialog);
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, 103));
    EXPECT_TRUE(IsWindowVisible(dialog));
  });
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures wood.png)");
}

TEST_F(AddFavoriteDialogTest, AFolderIsNeeded) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    const MessageBoxRecorder boxes;
    TreeControl(TreeOf(dialog)).Select(nullptr);
    Press(dialog, IDOK);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].text,
              "Please select a folder which will become the parent of the new item to be created");
    EXPECT_TRUE(IsWindowVisible(dialog));
  });
}

TEST_F(AddFavoriteDialogTest, CancelKeepsWhatWasDoneToFolders) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    const HWND treeWindow = TreeOf(dialog);
    Press(dialog, 100);
    const auto edit = reinterpret_cast<HWND>(SendMessageA(treeWindow, TVM_GETEDITCONTROL, 0, 0));
    ASSERT_NE(edit, nullptr);
    SetWindowTextA(edit, "Scenes");
    SendMessageA(treeWindow, TVM_ENDEDITLABELNOW, FALSE, 0);
    MessageBoxRecorder boxes;
    boxes.AnswerWith(IDYES);
    TreeControl(treeWindow).Select(ItemNamed(treeWindow, "wood.png"));
    Press(dialog, 106);
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Scenes Textures)");
  const std::string text = TextOfFile(file());
  EXPECT_NE(text.find("d=Scenes\r\n"), std::string::npos);
  EXPECT_EQ(text.find("wood"), std::string::npos);
}

TEST_F(AddFavoriteDialogTest, ItsButtonsRefuseLikeThePane) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    const MessageBoxRecorder boxes;
    Press(dialog, 101);
    Press(dialog, 106);
    TreeControl(TreeOf(dialog)).Select(nullptr);
    Press(dialog, 100);
    std::vector<std::string> texts;
    for (const auto& box : boxes.boxes()) {
      texts.push_back(box.text);
      EXPECT_EQ(box.owner, dialog);
    }
    EXPECT_THAT(texts,
                ElementsAre("This item cannot be renamed", "This item cannot be deleted",
                            "Please select a folder which will become the parent of the new folder to be "
                            "created"));
  });
}

TEST_F(AddFavoriteDialogTest, EnterAndEscapeEndTheLabelAndNotTheDialog) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    const HWND treeWindow = TreeOf(dialog);
    for (const auto& [key, expected] : {std::pair<WPARAM, const char*>{VK_RETURN, "Scenes"},
                                        std::pair<WPARAM, const char*>{VK_ESCAPE, "New Folder"}}) {
      TreeControl(treeWindow).Select(ItemNamed(treeWindow, "Textures"));
      Press(dialog, 100);
      const auto edit = reinterpret_cast<HWND>(SendMessageA(treeWindow, TVM_GETEDITCONTROL, 0, 0));
      ASSERT_NE(edit, nullptr);
      SetWindowTextA(edit, "Scenes");
      MSG message = {edit, WM_KEYDOWN, key, 0, 0, {0, 0}};
      IsDialogMessageA(dialog, &message);
      EXPECT_TRUE(IsWindow(dialog));
      EXPECT_EQ(TreeControl(treeWindow).RecordOf(TreeControl(treeWindow).Selected())->displayName, expected);
    }
  });
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures(New Folder Scenes) wood.png)");
}

TEST_F(AddFavoriteDialogTest, Deliberate_AMoveInTheDialogReachesTheFileButNotThePane) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    const HWND treeWindow = TreeOf(dialog);
    auto* const view = reinterpret_cast<CHalvoTreeView*>(GetWindowLongPtrA(treeWindow, GWLP_USERDATA));
    RECT rect = {};
    TreeControl(treeWindow).ItemRect(ItemNamed(treeWindow, "Models"), &rect);
    view->BeginDrag(ItemNamed(treeWindow, "wood.png"), {0, 0});
    view->ButtonUp({(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2});
    EXPECT_EQ(OutlineOf(treeWindow), "Favorites(Models(cube.obj wood.png) Textures)");
  });
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures wood.png)");
  CHalvoTreeView other(GetModuleHandleA(nullptr), panel, nullptr, 105, WS_CHILD);
  ASSERT_TRUE(other.CreateTreeWindow());
  other.LoadFavorites(file());
  EXPECT_EQ(OutlineOf(other.window()), "Favorites(Models(cube.obj wood.png) Textures)");
}

TEST_F(AddFavoriteDialogTest, ThePaneIsSavedBeforeTheDialogOpens) {
  Create();
  auto record = std::make_unique<FavoriteRecord>();
  record->displayName = "only in the pane";
  tree().AddFavorite(std::move(record), nullptr);
  Open("X:\\new.obj",
       [](HWND dialog) { EXPECT_EQ(OutlineOf(TreeOf(dialog)), "Favorites only in the pane"); });
}

}  // namespace
}  // namespace file_explorer
