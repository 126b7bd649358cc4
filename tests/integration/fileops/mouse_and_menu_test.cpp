// What the mouse, the clipboard and the menus must not do to files that nobody chose.
#include <windows.h>

#include <thread>

#include "tests/integration/fileops/fileops_fixture.h"
#include "workbench/controls/shell/file_commands.h"

namespace fileops_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class MouseAndMenuTest : public FileOpsTest {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\a.txt", "of a");
    fixture_.directory().AddFile(L"files\\b.txt", "of b");
    fixture_.directory().AddFile(L"files\\sub\\c.txt", "of c");
    Start(3);
  }
  LPARAM PointOf(const std::string& name) {
    RECT rect = {};
    rect.left = LVIR_LABEL;
    SendMessageA(list(), LVM_GETITEMRECT, static_cast<WPARAM>(fixture_.IndexOf(name)),
                 reinterpret_cast<LPARAM>(&rect));
    return MAKELPARAM(rect.left + 4, (rect.top + rect.bottom) / 2);
  }
};

TEST_F(MouseAndMenuTest, AMouseThatRestsOnARowSelectsNothing) {
  for (const char letter : std::string("b."))
    SendMessageA(fixture_.SelectEdit(), WM_CHAR, static_cast<WPARAM>(letter), 0);
  ASSERT_TRUE(WaitUntil([this] { return fixture_.SelectedNames() == std::vector<std::string>{"b.txt"}; }));
  ASSERT_TRUE(SendMessageA(list(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_TRACKSELECT)
      << "the pass adds it, deliberately";
  SendMessageA(list(), WM_MOUSEMOVE, 0, PointOf("a.txt"));
  SendMessageA(list(), WM_MOUSEHOVER, 0, PointOf("a.txt"));
  test_support::PumpMessages();
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("b.txt"));
}

TEST_F(MouseAndMenuTest, AClickStillSelects) {
  fixture_.ClickFile("a.txt");
  EXPECT_TRUE(WaitUntil([this] { return fixture_.SelectedNames() == std::vector<std::string>{"a.txt"}; }));
}

// The shell has no menu for a name that it cannot express: there the view's own one comes up.
TEST_F(MouseAndMenuTest, PasteFromAFoldersMenuGoesIntoThatFolder) {
  const std::wstring folder = L"\\\\?\\" + fixture_.directory().Join(std::wstring_view(L"files\\dot."));
  ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
  ASSERT_TRUE(Shows("dot."));
  Select({"a.txt"});
  Command(file_explorer::kCommandCopy);
  POINT point = {LOWORD(PointOf("dot.")), HIWORD(PointOf("dot."))};
  ClientToScreen(list(), &point);
  driver_.ChooseFromMenu("Paste");
  PostMessageA(GetParent(list()), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list()),
               MAKELPARAM(point.x, point.y));
  EXPECT_TRUE(WaitUntil([this] { return !driver_.menus().empty(); }));
  const auto pasted = [&] {
    return GetFileAttributesW((folder + L"\\a.txt").c_str()) != INVALID_FILE_ATTRIBUTES;
  };
  EXPECT_TRUE(WaitUntil(pasted));
  Finish();
  EXPECT_FALSE(Exists(Path("a - Copy.txt"))) << "not beside it";
  // The test's folder could not be removed with it.
  DeleteFileW((folder + L"\\a.txt").c_str());
  RemoveDirectoryW(folder.c_str());
}

// Keeps the clipboard open from another thread, as another program would.
class HeldClipboard {
 public:
  HeldClipboard() : thread_([this] { Hold(); }) { WaitForSingleObject(held_, INFINITE); }
  ~HeldClipboard() {
    Release();
    CloseHandle(held_);
    CloseHandle(release_);
  }
  void Release() {
    SetEvent(release_);
    if (thread_.joinable()) thread_.join();
  }

 private:
  void Hold() {
    EXPECT_TRUE(OpenClipboard(nullptr));
    SetEvent(held_);
    WaitForSingleObject(release_, INFINITE);
    CloseClipboard();
  }
  HANDLE held_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  HANDLE release_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  std::thread thread_;
};

TEST_F(MouseAndMenuTest, AClipboardThatIsInUseForAMomentIsWaitedFor) {
  HeldClipboard other;
  int pauses = 0;
  EXPECT_TRUE(controls::OpenBusyClipboard(list(), [&] {
    if (++pauses == 2) other.Release();
  }));
  CloseClipboard();
  EXPECT_EQ(pauses, 2);
}

TEST_F(MouseAndMenuTest, AClipboardThatStaysInUseIsSaid) {
  Select({"a.txt"});
  {
    HeldClipboard other;
    Command(file_explorer::kCommandCopy);
    EXPECT_THAT(Status(), HasSubstr("The clipboard is in use by another program."));
    Command(file_explorer::kCommandPaste);
    EXPECT_THAT(Status(), HasSubstr("The clipboard is in use by another program."));
  }
  Command(file_explorer::kCommandCopy);
  EXPECT_THAT(Status(), Not(HasSubstr("clipboard")));
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_HDROP));
}

}  // namespace
}  // namespace fileops_test
