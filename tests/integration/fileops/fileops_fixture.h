// The explorer on a folder of real files, with what the tests of file operations ask of it.
#pragma once

#include <gmock/gmock.h>
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string>
#include <vector>

#include "src/framework/command_ids.h"
#include "tests/integration/fileops/modal_driver.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"
#include "workbench/controls/operations/conflict_dialog.h"

namespace fileops_test {

using test_support::WaitUntil;

// Whether a file operation of this program is under way.
inline bool Busy() {
  HWND window = nullptr;
  while ((window = FindWindowExA(HWND_MESSAGE, window, "SswareShellOperation", nullptr)) != nullptr) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) return true;
  }
  return false;
}

class FileOpsTest : public testing::Test {
 protected:
  // Starts the explorer on directory()\files, the folder tree in front.
  void Start(size_t files) {
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ASSERT_TRUE(fixture_.WaitForFiles(files));
    ASSERT_TRUE(WaitUntil([this] { return SelectedNode() == "files"; })) << SelectedNode();
  }
  void Option(const char* key, const char* value) {
    WritePrivateProfileStringA("Explore", key, value, fixture_.ProfilePath().c_str());
  }

  HWND list() const { return fixture_.FileList(); }
  HWND tree() const { return fixture_.FolderTree(); }
  std::string Path(const std::string& name) { return fixture_.FilesFolder() + "\\" + name; }
  static bool Exists(const std::string& path) {
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  std::string Content(const std::string& path) {
    std::string text;
    const HANDLE file =
        CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    char buffer[256];
    DWORD read = 0;
    if (file == INVALID_HANDLE_VALUE) return "(none)";
    if (ReadFile(file, buffer, sizeof(buffer), &read, nullptr)) text.assign(buffer, read);
    CloseHandle(file);
    return text;
  }
  bool Shows(const std::string& name) { return fixture_.WaitForFile(name); }
  bool Loses(const std::string& name) {
    return WaitUntil([&] { return fixture_.IndexOf(name) < 0; });
  }

  // Selects these names and nothing else.
  void Select(const std::vector<std::string>& names) {
    LVITEMA item = {};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageA(list(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    item.state = item.stateMask;
    for (const std::string& name : names) {
      ASSERT_GE(fixture_.IndexOf(name), 0) << name;
      SendMessageA(list(), LVM_SETITEMSTATE, static_cast<WPARAM>(fixture_.IndexOf(name)),
                   reinterpret_cast<LPARAM>(&item));
    }
    test_support::PumpMessages();
  }
  // A command of the explorer's toolbar.
  void Command(int command) {
    SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, static_cast<WPARAM>(command),
                 reinterpret_cast<LPARAM>(fixture_.CommandToolbar()));
  }
  bool GoTo(const std::string& name, size_t files) {
    fixture_.DoubleClickFile(name);
    return WaitUntil([&] { return SelectedNode() == name; }) && fixture_.WaitForFiles(files);
  }

  // Types a folder into the path box.
  void TypePath(const std::string& path) {
    const HWND box = test_support::FindDescendant(fixture_.ExplorerWindow(), WC_COMBOBOXEXA);
    const auto edit = reinterpret_cast<HWND>(SendMessageA(box, CBEM_GETEDITCONTROL, 0, 0));
    SetWindowTextA(edit, path.c_str());
    SendMessageA(edit, WM_KEYDOWN, VK_RETURN, 1);
  }
  // Waits until the operations that were started have ended and told what they have to tell.
  void Finish() {
    EXPECT_TRUE(WaitUntil([] { return !Busy(); }));
    test_support::PumpMessages();
  }
  void Paste() {
    Command(file_explorer::kCommandPaste);
    Finish();
  }
  // A key to a list or tree while others are held.
  static void PressWith(HWND view, WPARAM key, std::initializer_list<int> held) {
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    BYTE pressed[256] = {};
    std::copy(std::begin(keys), std::end(keys), std::begin(pressed));
    for (const int each : held) pressed[each] = 0x80;
    SetKeyboardState(pressed);
    SendMessageA(view, WM_KEYDOWN, key, 1);
    SetKeyboardState(keys);
  }
  void Undo() {
    PressWith(list(), 'Z', {VK_CONTROL});
    Finish();
  }
  // Presses a button of each question about a conflict, for this one or for all further ones.
  void AnswerConflicts(int button, bool forAll = false) {
    driver_.OnDialog([button, forAll](const SeenDialog& dialog) {
      if (GetDlgItem(dialog.window, button) == nullptr) return;  // a message box: its recorder answers
      if (forAll) CheckDlgButton(dialog.window, controls::kConflictForAllBox, BST_CHECKED);
      PostMessageA(dialog.window, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED), 0);
    });
  }
  std::string LastBox() {
    return fixture_.boxes().boxes().empty() ? "(none)" : fixture_.boxes().boxes().back().text;
  }
  // The line under the list, painted anew.
  std::string Status() {
    test_support::PumpMessages();
    UpdateWindow(GetParent(list()));
    return test_support::TextOf(GetParent(list()));
  }

  std::string NodeText(HTREEITEM item) const {
    char text[512] = "";
    TVITEMA data = {};
    data.mask = TVIF_TEXT | TVIF_HANDLE;
    data.hItem = item;
    data.pszText = text;
    data.cchTextMax = sizeof(text);
    if (item == nullptr || !SendMessageA(tree(), TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&data))) return {};
    return data.pszText;
  }
  HTREEITEM NextNode(UINT relation, HTREEITEM item = nullptr) const {
    return reinterpret_cast<HTREEITEM>(
        SendMessageA(tree(), TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
  }
  std::string SelectedNode() const { return NodeText(NextNode(TVGN_CARET)); }
  std::vector<std::string> ChildrenOf(HTREEITEM parent) const {
    std::vector<std::string> names;
    for (HTREEITEM child = NextNode(TVGN_CHILD, parent); child != nullptr;
         child = NextNode(TVGN_NEXT, child)) {
      names.push_back(NodeText(child));
    }
    return names;
  }
  HTREEITEM ChildOf(HTREEITEM parent, const std::string& name) const {
    for (HTREEITEM child = NextNode(TVGN_CHILD, parent); child != nullptr;
         child = NextNode(TVGN_NEXT, child)) {
      if (NodeText(child) == name) return child;
    }
    return nullptr;
  }
  // Opens the selected folder in the tree; true when its children are the given ones.
  bool ExpandSelected(const std::vector<std::string>& children) {
    SendMessageA(tree(), TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(NextNode(TVGN_CARET)));
    return WaitUntil([&] { return ChildrenOf(NextNode(TVGN_CARET)) == children; });
  }

  test_support::ExplorerFixture fixture_;
  ModalDriver driver_;
};

}  // namespace fileops_test
