// The dialog "Add Favorite", driven while it is open.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>

#include "src/favorites/add_favorite_dialog.h"
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
  static void ExpectOkBox(const test_support::RecordedMessageBox& box, HWND owner) {
    EXPECT_EQ(box.owner, owner);
    EXPECT_THAT(box.buttons, ElementsAre(IDOK));
    EXPECT_EQ(box.icon, 0u);
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
    ExpectOkBox(boxes.boxes()[0], dialog);
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
    EXPECT_EQ(boxes.boxes()[0].caption, "Error");
    ExpectOkBox(boxes.boxes()[0], dialog);
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
      EXPECT_EQ(box.caption, "Error");
      ExpectOkBox(box, dialog);
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
  pane->Save();  // the pane's own arrangement goes over it
  other.LoadFavorites(file());
  EXPECT_EQ(OutlineOf(other.window()), "Favorites(Models(cube.obj) Textures wood.png)");
}

TEST_F(AddFavoriteDialogTest, DeletingInTheDialogAsksWithTheDialogAsOwner) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    MessageBoxRecorder boxes;
    boxes.AnswerWith(IDNO);
    TreeControl(TreeOf(dialog)).Select(ItemNamed(TreeOf(dialog), "wood.png"));
    Press(dialog, 106);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].owner, dialog);
    EXPECT_EQ(boxes.boxes()[0].caption, "Confirmation Request");
    EXPECT_EQ(boxes.boxes()[0].text, "Are you sure you want to delete this item?");
    EXPECT_THAT(boxes.boxes()[0].buttons, ElementsAre(IDYES, IDNO));
    EXPECT_EQ(boxes.boxes()[0].icon, static_cast<UINT>(MB_ICONQUESTION));
  });
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures wood.png)");
}

TEST_F(AddFavoriteDialogTest, AChangeOfAnEntryThatThePaneDoesNotHaveIsDropped) {
  CreateWithSample();
  Open("X:\\new.obj", [this](HWND dialog) {
    const HWND treeWindow = TreeOf(dialog);
    tree().DeleteEntry(Record("{1}"));
    TreeControl(treeWindow).Select(ItemNamed(treeWindow, "cube.obj"));
    Press(dialog, 101);
    SetWindowTextA(TreeControl(treeWindow).LabelEdit(), "renamed");
    SendMessageA(treeWindow, TVM_ENDEDITLABELNOW, FALSE, 0);
    MessageBoxRecorder boxes;
    boxes.AnswerWith(IDYES);
    Press(dialog, 106);
    EXPECT_EQ(OutlineOf(treeWindow), "Favorites(Models Textures wood.png)");
  });
  EXPECT_EQ(Shown(), "Favorites(Textures wood.png)");
}

// Tree controls can't be made while one exists.
class TreeRefusal {
 public:
  TreeRefusal() : hook_(SetWindowsHookExA(WH_CBT, OnWindowEvent, nullptr, GetCurrentThreadId())) {}
  ~TreeRefusal() { UnhookWindowsHookEx(hook_); }
  TreeRefusal(const TreeRefusal&) = delete;
  TreeRefusal& operator=(const TreeRefusal&) = delete;

 private:
  static LRESULT CALLBACK OnWindowEvent(int code, WPARAM window, LPARAM details) {
    char name[32] = "";
    if (code == HCBT_CREATEWND && GetClassNameA(reinterpret_cast<HWND>(window), name, sizeof name) > 0 &&
        lstrcmpiA(name, WC_TREEVIEWA) == 0) {
      return 1;
    }
    return CallNextHookEx(nullptr, code, window, details);
  }
  HHOOK hook_;
};

TEST_F(AddFavoriteDialogTest, WithoutATreeControlTheDialogEndsAtOnce) {
  CreateWithSample();
  const std::string before = TextOfFile(file());
  AddFavoriteDialog dialog;
  dialog.instance = GetModuleHandleA(nullptr);
  dialog.path = "X:\\new.obj";
  dialog.favoritesFile = file();
  const TreeRefusal refusal;
  EXPECT_FALSE(ShowAddFavoriteDialog(panel, dialog));
  EXPECT_EQ(FindDialog(), nullptr);
  EXPECT_EQ(TextOfFile(file()), before);
}

// The way of the Tab key, and what each field is called by those who read it aloud: the text before it.
TEST_F(AddFavoriteDialogTest, TabLeadsFromFieldToFieldAndEachHasAName) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    std::vector<int> ids;
    HWND at = GetDlgItem(dialog, 103);
    do {
      ids.push_back(GetDlgCtrlID(at));
      at = GetNextDlgTabItem(dialog, at, FALSE);
    } while (at != GetDlgItem(dialog, 103) && ids.size() < 20);
    EXPECT_THAT(ids, ElementsAre(103, 104, IDOK, IDCANCEL, 100, 101, 106));
    const auto textBefore = [&](int id) {
      HWND before = GetWindow(GetDlgItem(dialog, id), GW_HWNDPREV);
      if (GetDlgCtrlID(before) == 102) before = GetWindow(before, GW_HWNDPREV);  // the hidden placeholder
      char text[64] = "";
      GetWindowTextA(before, text, sizeof text);
      return std::string(text);
    };
    EXPECT_EQ(textBefore(103), "N&ame:");
    EXPECT_EQ(textBefore(104), "Create &In:");
    EXPECT_EQ(LOWORD(SendMessageA(dialog, DM_GETDEFID, 0, 0)), IDOK);
  });
}

void TypeKey(HWND dialog, WPARAM key) {
  for (const UINT event : {static_cast<UINT>(WM_KEYDOWN), static_cast<UINT>(WM_KEYUP)}) {
    MSG message = {GetFocus(), event, key, event == WM_KEYUP ? static_cast<LPARAM>(0xC0000001u) : 1,
                   0,          {0, 0}};
    if (!IsDialogMessageA(dialog, &message)) DispatchMessageA(&message);
  }
}

TEST_F(AddFavoriteDialogTest, AnEntryIsAddedWithTheKeyboardAlone) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, 103));
    SendMessageA(GetFocus(), EM_SETSEL, 0, -1);
    SendMessageA(GetFocus(), EM_REPLACESEL, FALSE, reinterpret_cast<LPARAM>("by keys"));
    TypeKey(dialog, VK_TAB);
    ASSERT_EQ(GetFocus(), TreeOf(dialog));
    TypeKey(dialog, VK_DOWN);  // Models
    TypeKey(dialog, VK_F2);
    const HWND edit = TreeControl(TreeOf(dialog)).LabelEdit();
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(GetFocus(), edit);
    SetWindowTextA(edit, "Renamed");
    TypeKey(dialog, VK_RETURN);
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(OutlineOf(TreeOf(dialog)), "Favorites(Renamed(cube.obj) Textures wood.png)");
    SetFocus(TreeOf(dialog));
    TypeKey(dialog, VK_RETURN);  // the default button
  });
  EXPECT_EQ(Shown(), "Favorites(Renamed(by keys cube.obj) Textures wood.png)");
  EXPECT_NE(TextOfFile(file()).find("d=by keys\r\n"), std::string::npos);
}

TEST_F(AddFavoriteDialogTest, EscapeInALabelLeavesTheDialogOpenAndAnotherOneClosesIt) {
  CreateWithSample();
  Open("X:\\new.obj", [](HWND dialog) {
    SetFocus(TreeOf(dialog));
    TypeKey(dialog, VK_DOWN);
    TypeKey(dialog, VK_F2);
    const HWND edit = TreeControl(TreeOf(dialog)).LabelEdit();
    ASSERT_NE(edit, nullptr);
    SetWindowTextA(edit, "never");
    TypeKey(dialog, VK_ESCAPE);
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(OutlineOf(TreeOf(dialog)), "Favorites(Models(cube.obj) Textures wood.png)");
    SetFocus(TreeOf(dialog));
    TypeKey(dialog, VK_ESCAPE);
    EXPECT_FALSE(IsWindowVisible(dialog));
  });
  EXPECT_EQ(Shown(), "Favorites(Models(cube.obj) Textures wood.png)");
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
