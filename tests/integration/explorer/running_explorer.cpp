#include "tests/integration/explorer/running_explorer.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>

#include "tests/support/wait_until.h"

namespace explorer_tests {
namespace {

constexpr UINT kMenuOfWindow = 0x1E1;  // MN_GETHMENU
ModalVisitor* active = nullptr;

std::string ClassOf(HWND window) {
  std::array<char, 64> name = {};
  GetClassNameA(window, name.data(), static_cast<int>(name.size()));
  return name.data();
}

BOOL CALLBACK FindModal(HWND window, LPARAM found) {
  const std::string name = ClassOf(window);
  // Message boxes are the recorder's.
  const bool isDialog = name == "#32770" && GetDlgItem(window, 0xFFFF) == nullptr;
  if (!IsWindowVisible(window) || (name != "#32768" && !isDialog)) return TRUE;
  *reinterpret_cast<HWND*>(found) = window;
  return FALSE;
}

HWND OpenModal() {
  HWND found = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), FindModal, reinterpret_cast<LPARAM>(&found));
  // Menu windows belong to no thread's list of windows.
  if (found == nullptr) found = FindWindowA("#32768", nullptr);
  return found != nullptr && IsWindowVisible(found) ? found : nullptr;
}

}  // namespace

void RunningExplorer::Begin(size_t files) {
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  ASSERT_TRUE(fixture_.WaitForFiles(files));
  test_support::PumpMessages();
  fixture_.services().ClearCalls();
}

HWND RunningExplorer::Toolbar(int id) const {
  return id == kCommandToolbar ? fixture_.CommandToolbar() : fixture_.PanelChild(id);
}

void RunningExplorer::Press(int toolbar, int command) {
  const HWND window = Toolbar(toolbar);
  ASSERT_TRUE(IsEnabled(toolbar, command)) << command;
  RECT button = {};
  ASSERT_TRUE(
      SendMessageA(window, TB_GETRECT, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(&button)))
      << "no button " << command;
  const LPARAM point = MAKELPARAM((button.left + button.right) / 2, (button.top + button.bottom) / 2);
  SendMessageA(window, WM_LBUTTONDOWN, MK_LBUTTON, point);
  SendMessageA(window, WM_LBUTTONUP, 0, point);
}

bool RunningExplorer::IsEnabled(int toolbar, int command) const {
  return SendMessageA(Toolbar(toolbar), TB_ISBUTTONENABLED, static_cast<WPARAM>(command), 0) != 0;
}
bool RunningExplorer::IsChecked(int toolbar, int command) const {
  return SendMessageA(Toolbar(toolbar), TB_ISBUTTONCHECKED, static_cast<WPARAM>(command), 0) != 0;
}
bool RunningExplorer::IsPressed(int toolbar, int command) const {
  return SendMessageA(Toolbar(toolbar), TB_ISBUTTONPRESSED, static_cast<WPARAM>(command), 0) != 0;
}

void RunningExplorer::Type(WPARAM key) {
  SendMessageA(GetFocus(), WM_KEYDOWN, key, 1);
  test_support::PumpMessages();
}

void RunningExplorer::TypeWith(int modifier, WPARAM key) {
  std::array<BYTE, 256> keys = {};
  GetKeyboardState(keys.data());
  std::array<BYTE, 256> before = keys;
  keys[static_cast<size_t>(modifier)] = 0x80;
  SetKeyboardState(keys.data());
  SendMessageA(GetFocus(), WM_KEYDOWN, key, 1);
  SetKeyboardState(before.data());
  test_support::PumpMessages();
}

int RunningExplorer::HotCommand(int toolbar) const {
  const LRESULT index = SendMessageA(Toolbar(toolbar), TB_GETHOTITEM, 0, 0);
  TBBUTTON button = {};
  if (index < 0 || !SendMessageA(Toolbar(toolbar), TB_GETBUTTON, static_cast<WPARAM>(index),
                                 reinterpret_cast<LPARAM>(&button))) {
    return -1;
  }
  return button.idCommand;
}

void RunningExplorer::GoTo(int toolbar, int command) const {
  for (int i = 0; i < 40 && HotCommand(toolbar) != command; ++i) Type(VK_RIGHT);
  EXPECT_EQ(HotCommand(toolbar), command);
}

LRESULT RunningExplorer::SendToExplorer(int command) const {
  return SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, static_cast<WPARAM>(command), 0);
}
LRESULT RunningExplorer::SendToPanel(int command) const {
  return SendMessageA(fixture_.Panel(), WM_COMMAND, static_cast<WPARAM>(command), 0);
}

void RunningExplorer::Select(const std::vector<std::string>& names) const {
  const HWND list = fixture_.FileList();
  const std::vector<std::string> shown = fixture_.FileNames();
  for (size_t row = 0; row < shown.size(); ++row) {
    const bool wanted = std::find(names.begin(), names.end(), shown[row]) != names.end();
    LVITEMA item = {};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    item.state = wanted ? item.stateMask : 0;
    SendMessageA(list, LVM_SETITEMSTATE, row, reinterpret_cast<LPARAM>(&item));
  }
  test_support::PumpMessages();
  EXPECT_EQ(fixture_.SelectedNames().size(), names.size());
}

std::string RunningExplorer::ShownPath() const {
  const HWND box = test_support::FindDescendant(fixture_.ExplorerWindow(), WC_COMBOBOXEXA);
  const HWND edit = test_support::FindDescendant(box, "Edit");
  return test_support::TextOf(edit != nullptr ? edit : box);
}

bool RunningExplorer::WaitForPath(const std::string& path) const {
  return test_support::WaitUntil([&] { return lstrcmpiA(ShownPath().c_str(), path.c_str()) == 0; });
}

std::string RunningExplorer::HandOver() {
  std::array<char, MAX_PATH> temp = {};
  GetTempPathA(MAX_PATH, temp.data());
  std::ifstream file(std::string(temp.data()) + "WM_HALVO_AUTOLOAD_FILE.txt", std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

ModalVisitor::ModalVisitor(std::function<void(HWND)> visit)
    : visit_(std::move(visit)), timer_(SetTimer(nullptr, 0, 20, OnTimer)) {
  active = this;
}

ModalVisitor::~ModalVisitor() {
  KillTimer(nullptr, timer_);
  active = nullptr;
  EXPECT_TRUE(visited_) << "no menu or dialog came up";
}

void CALLBACK ModalVisitor::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
  if (active != nullptr) active->Poll();
}

void ModalVisitor::Poll() {
  const HWND window = OpenModal();
  if (window == nullptr) return;
  if (!visited_) {
    visited_ = true;
    visit_(window);
    return;  // what the visit has posted comes before the next look
  }
  if (ClassOf(window) == "#32768") {
    EndMenu();
  } else if (IsWindow(window)) {
    PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
  }
}

HMENU MenuOf(HWND menuWindow) {
  if (ClassOf(menuWindow) != "#32768") return nullptr;
  return reinterpret_cast<HMENU>(SendMessageA(menuWindow, kMenuOfWindow, 0, 0));
}

std::vector<std::string> MenuTexts(HMENU menu) {
  std::vector<std::string> texts;
  for (int item = 0; item < GetMenuItemCount(menu); ++item) {
    std::array<char, 128> text = {};
    GetMenuStringA(menu, static_cast<UINT>(item), text.data(), static_cast<int>(text.size()), MF_BYPOSITION);
    const bool isSeparator = (GetMenuState(menu, static_cast<UINT>(item), MF_BYPOSITION) & MF_SEPARATOR) != 0;
    texts.emplace_back(isSeparator ? "-" : text.data());
  }
  return texts;
}

}  // namespace explorer_tests
