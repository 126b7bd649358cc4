// The host takes the instance down while a menu, a question or a dialog of the explorer is open.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>
#include <utility>

#include "src/host/plugin_protocol.h"
#include "tests/integration/explorer/running_explorer.h"

namespace explorer_tests {
namespace {

// Acts once, while the next message box of the thread is up and before it is answered.
class DuringMessageBox {
 public:
  explicit DuringMessageBox(std::function<void()> act) {
    act_ = std::move(act);
    hook_ = SetWindowsHookExA(WH_CBT, OnEvent, nullptr, GetCurrentThreadId());
  }
  ~DuringMessageBox() {
    UnhookWindowsHookEx(hook_);
    EXPECT_FALSE(act_) << "no message box came up";
  }
  DuringMessageBox(const DuringMessageBox&) = delete;
  DuringMessageBox& operator=(const DuringMessageBox&) = delete;

 private:
  static LRESULT CALLBACK OnEvent(int code, WPARAM window, LPARAM parameter) {
    if (code == HCBT_ACTIVATE && act_ && GetDlgItem(reinterpret_cast<HWND>(window), 0xFFFF) != nullptr) {
      std::exchange(act_, nullptr)();
    }
    return CallNextHookEx(nullptr, code, window, parameter);
  }

  static inline std::function<void()> act_;
  HHOOK hook_;
};

// Acts once, when the host's main window is told to load a file.
class DuringLoad {
 public:
  DuringLoad(HWND mainWindow, std::function<void()> act) : window_(mainWindow) {
    act_ = std::move(act);
    previous_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(mainWindow, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&DuringLoad::Procedure)));
  }
  ~DuringLoad() {
    SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous_));
    EXPECT_FALSE(act_) << "nothing was loaded";
  }
  DuringLoad(const DuringLoad&) = delete;
  DuringLoad& operator=(const DuringLoad&) = delete;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == host::kAutoloadMessage && act_) std::exchange(act_, nullptr)();
    return CallWindowProcA(previous_, window, message, wParam, lParam);
  }

  static inline std::function<void()> act_;
  static inline WNDPROC previous_ = nullptr;
  HWND window_;
};

class TeardownWhileOpenTest : public RunningExplorer {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\a.txt");
    Begin(1);
  }
  void TakeDown() { EXPECT_EQ(fixture_.SayWithHost({{"destroy_instance", nullptr}}), 0U); }
  // Nothing of it is left, and the next instance is a whole one.
  void ExpectGoneAndStartAgain() {
    EXPECT_EQ(fixture_.ExplorerWindow(), nullptr);
    EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}, {"showfolderviewpanel", nullptr}}), 0U);
    EXPECT_TRUE(fixture_.WaitForFile("a.txt"));
  }
  // As a toolbar tells its owner that a drop-down button was pressed.
  static void DropDown(HWND owner, HWND toolbar, int toolbarId, int command) {
    NMTOOLBARA notification = {};
    notification.hdr.hwndFrom = toolbar;
    notification.hdr.idFrom = static_cast<UINT_PTR>(toolbarId);
    notification.hdr.code = static_cast<UINT>(TBN_DROPDOWN);
    notification.iItem = command;
    SendMessageA(owner, WM_NOTIFY, static_cast<WPARAM>(toolbarId), reinterpret_cast<LPARAM>(&notification));
  }
};

TEST_F(TeardownWhileOpenTest, TheGoToMenu) {
  {
    const ModalVisitor visitor([this](HWND) { TakeDown(); });
    DropDown(fixture_.ExplorerWindow(), Toolbar(kCommandToolbar), kCommandToolbar, 924);
  }
  ExpectGoneAndStartAgain();
}

TEST_F(TeardownWhileOpenTest, TheSortingMenuOfTheHistory) {
  Press(kFoldersToolbar, 107);
  {
    const ModalVisitor visitor([this](HWND) { TakeDown(); });
    DropDown(fixture_.Panel(), Toolbar(kHistoryToolbar), kHistoryToolbar, 134);
  }
  ExpectGoneAndStartAgain();
}

TEST_F(TeardownWhileOpenTest, TheQuestionWhetherToClearTheHistory) {
  Press(kFoldersToolbar, 107);
  fixture_.boxes().AnswerWith(IDYES);
  {
    const DuringMessageBox during([this] { TakeDown(); });
    SendToPanel(133);
  }
  ExpectGoneAndStartAgain();
}

TEST_F(TeardownWhileOpenTest, TheQuestionWhetherToDeleteAFavourite) {
  Press(kFoldersToolbar, 108);
  const HWND tree = fixture_.PanelChild(104);
  SendMessageA(tree, TVM_SELECTITEM, TVGN_CARET, SendMessageA(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
  SendToPanel(129);
  SendMessageA(tree, TVM_ENDEDITLABELNOW, TRUE, 0);
  fixture_.boxes().AnswerWith(IDYES);
  {
    const DuringMessageBox during([this] { TakeDown(); });
    SendToPanel(131);
  }
  ExpectGoneAndStartAgain();
}

TEST_F(TeardownWhileOpenTest, TheRefusalToClose) {
  fixture_.workbench().facts().secondFlags = 0;
  const UINT message = host::Call<host::op::GetNotificationMessage>(fixture_.services().services());
  {
    const DuringMessageBox during([this] { TakeDown(); });
    EXPECT_EQ(SendMessageA(fixture_.ExplorerWindow(), message, host::kNotifyClose, 0), 1);
  }
  ExpectGoneAndStartAgain();
}

TEST_F(TeardownWhileOpenTest, WhatTheHostShowsWhileItLoadsAFileOfTheHistory) {
  std::string path = FilePath("a.txt");
  ASSERT_EQ(fixture_.SayWithHost({{"addpathtohistorylist", path.data()}}), 0U);
  Press(kFoldersToolbar, 107);
  const HWND list = fixture_.PanelChild(32000);
  SendMessageA(list, LB_SETCURSEL, 0, 0);
  {
    const DuringLoad during(fixture_.workbench().window(), [this] { TakeDown(); });
    SendMessageA(fixture_.Panel(), WM_COMMAND, MAKEWPARAM(32000, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
  }
  ExpectGoneAndStartAgain();
}

TEST_F(TeardownWhileOpenTest, WhatTheHostShowsWhileItLoadsTheNextFile) {
  fixture_.directory().AddFile(L"files\\b.txt");
  ASSERT_TRUE(fixture_.WaitForFile("b.txt"));
  Select({"a.txt"});
  {
    const DuringLoad during(fixture_.workbench().window(), [this] { TakeDown(); });
    SendToExplorer(111);
  }
  ExpectGoneAndStartAgain();
}

TEST_F(TeardownWhileOpenTest, TheDialogThatAddsAFavourite) {
  Select({"a.txt"});
  {
    const ModalVisitor visitor([this](HWND dialog) {
      TakeDown();
      const HWND tree = test_support::FindDescendant(dialog, WC_TREEVIEWA);
      SendMessageA(tree, TVM_SELECTITEM, TVGN_CARET, SendMessageA(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
      SendMessageA(dialog, WM_COMMAND, IDOK, 0);
      EXPECT_TRUE(fixture_.boxes().boxes().empty()) << "the favourite is added";
    });
    SendToExplorer(109);
  }
  ExpectGoneAndStartAgain();
}

}  // namespace
}  // namespace explorer_tests
