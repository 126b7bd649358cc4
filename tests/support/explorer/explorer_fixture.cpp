#include "tests/support/explorer/explorer_fixture.h"

#include <windows.h>

#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "src/host/vc64_tx.h"
#include "base/text/code_page.h"
#include "tests/support/wait_until.h"

namespace test_support {
namespace {

constexpr wchar_t kModule[] = L"ui_file_explorer.dll";

std::wstring ModulePath() { return workbench::ProgramFolder() + L"\\" + kModule; }

struct Search {
  std::string_view className;
  HWND found = nullptr;
};

BOOL CALLBACK MatchClass(HWND window, LPARAM parameter) {
  auto* const search = reinterpret_cast<Search*>(parameter);
  std::array<char, 128> name = {};
  GetClassNameA(window, name.data(), static_cast<int>(name.size()));
  if (search->className != name.data()) return TRUE;
  search->found = window;
  return FALSE;
}

}  // namespace

HWND FindDescendant(HWND root, std::string_view className) {
  Search search = {className};
  if (root != nullptr) EnumChildWindows(root, MatchClass, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

std::string TextOf(HWND window) {
  std::array<char, 2048> text = {};
  SendMessageA(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  return text.data();
}

ExplorerFixture::ExplorerFixture() {
  directory_.AddFolder(L"files");
  SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", UserDirectory().c_str());
  options_.profilePath = directory_.Join(std::wstring_view(L"profile.ini"));
  options_.folder = directory_.Join(std::wstring_view(L"files"));
  options_.size = workbench::Size{1200, 800};
  options_.recordCalls = true;
  options_.showMessage = [this](HWND, const std::wstring& text) { messages_.push_back(text); };
}

ExplorerFixture::~ExplorerFixture() {
  Close();
  if (module_ != nullptr) FreeLibrary(module_);
  SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", nullptr);
  Tx_Set_Environment("TS_WORKING_DIR", nullptr);
}

workbench::Workbench& ExplorerFixture::Start() {
  workbench_ = std::make_unique<workbench::Workbench>(options_);
  workbench_->Pump();
  return *workbench_;
}

bool ExplorerFixture::LoadExplorer() {
  const workbench::PluginState state = workbench_->LoadPlugin(ModulePath());
  workbench_->Pump();
  return state == workbench::PluginState::Running;
}

void ExplorerFixture::Close() {
  if (workbench_ == nullptr) return;
  workbench_->Close();
  workbench_.reset();
}

host::PluginEntryPoint ExplorerFixture::EntryPoint() {
  if (module_ == nullptr) module_ = LoadLibraryW(ModulePath().c_str());
  return reinterpret_cast<host::PluginEntryPoint>(
      reinterpret_cast<void*>(GetProcAddress(module_, host::kEntryPointName)));
}

std::uint32_t ExplorerFixture::Say(const std::vector<Pair>& pairs, std::vector<void*>* values) {
  std::vector<const char*> keywords;
  std::vector<void*> slots;
  for (const Pair& pair : pairs) {
    keywords.push_back(pair.keyword);
    slots.push_back(pair.value);
  }
  keywords.push_back(nullptr);
  slots.push_back(nullptr);
  std::uint32_t status = 0xFFFFFFFF;
  EntryPoint()(keywords.data(), slots.data(), &status);
  if (values != nullptr) *values = slots;
  return status;
}

std::uint32_t ExplorerFixture::SayWithHost(const std::vector<Pair>& pairs, std::vector<void*>* values) {
  std::vector<Pair> all = {{"parent_hWnd", workbench_->window()}, {"parent_hInstance", services().services()}};
  all.insert(all.end(), pairs.begin(), pairs.end());
  return Say(all, values);
}

HWND ExplorerFixture::ExplorerWindow() const { return FindDescendant(workbench_->window(), "HalvoFileViewClass"); }

HWND ExplorerFixture::CommandToolbar() const { return FindDescendant(ExplorerWindow(), TOOLBARCLASSNAMEA); }

HWND ExplorerFixture::SelectEdit() const { return GetDlgItem(CommandToolbar(), 32003); }

HWND ExplorerFixture::FileList() const { return FindDescendant(ExplorerWindow(), WC_LISTVIEWA); }

HWND ExplorerFixture::Panel() const { return workbench_->panel().PageWindow(host::kPanelGuid); }

HWND ExplorerFixture::FolderTree() const {
  // The favourites are a tree too, but a direct child of the panel.
  HWND tree = nullptr;
  for (HWND child = GetWindow(Panel(), GW_CHILD); child != nullptr && tree == nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    tree = FindDescendant(child, WC_TREEVIEWA);
  }
  return tree;
}

HWND ExplorerFixture::PanelChild(int id) const { return GetDlgItem(Panel(), id); }

std::vector<std::string> ExplorerFixture::Names(UINT flags) const {
  const HWND list = FileList();
  std::vector<std::string> names;
  if (list == nullptr) return names;
  for (int i = -1; (i = static_cast<int>(SendMessageA(list, LVM_GETNEXTITEM, static_cast<WPARAM>(i), flags))) >= 0;) {
    std::array<wchar_t, 1024> text = {};
    LVITEMW item = {};
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    names.push_back(base::DisplayNarrow(item.pszText));
  }
  return names;
}

std::vector<std::string> ExplorerFixture::FileNames() const { return Names(LVNI_ALL); }
std::vector<std::string> ExplorerFixture::SelectedNames() const { return Names(LVNI_SELECTED); }

int ExplorerFixture::IndexOf(std::string_view name) const {
  const std::vector<std::string> names = FileNames();
  const auto found = std::find(names.begin(), names.end(), name);
  return found == names.end() ? -1 : static_cast<int>(found - names.begin());
}

bool ExplorerFixture::WaitForFile(std::string_view name) {
  return WaitUntil([&] { return IndexOf(name) >= 0; });
}

bool ExplorerFixture::WaitForFiles(size_t count) {
  return WaitUntil([&] {
    const HWND list = FileList();
    return list != nullptr && static_cast<size_t>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0)) == count;
  });
}

void ExplorerFixture::PostClick(std::string_view name, bool twice) {
  const HWND list = FileList();
  RECT label = {};
  label.left = LVIR_LABEL;
  ASSERT_TRUE(SendMessageA(list, LVM_GETITEMRECT, static_cast<WPARAM>(IndexOf(name)), reinterpret_cast<LPARAM>(&label)))
      << name << " is not in the list";
  const LPARAM point = MAKELPARAM(label.left + 4, (label.top + label.bottom) / 2);
  // The list loops until the button is up again: that message waits in the queue first.
  PostMessageA(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
  PostMessageA(list, WM_LBUTTONUP, 0, point);
  if (twice) {
    PostMessageA(list, WM_LBUTTONDBLCLK, MK_LBUTTON, point);
    PostMessageA(list, WM_LBUTTONUP, 0, point);
  }
}

void ExplorerFixture::DoubleClickFile(std::string_view name) { PostClick(name, true); }
void ExplorerFixture::ClickFile(std::string_view name) { PostClick(name, false); }

}  // namespace test_support
