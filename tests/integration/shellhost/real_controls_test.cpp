// The three controls of this project in real windows: registered, hosted, linked and driven as the explorer
// does it.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>
#include <shlobj.h>

#include <algorithm>
#include <set>

#include "base/text/code_page.h"
#include "src/framework/com/com_dispatch.h"
#include "src/framework/com/com_text.h"
#include "src/shellhost/control_container.h"
#include "src/shellhost/control_contract.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/folder_view.h"
#include "src/shellhost/offered_options.h"
#include "src/shellhost/shell_controls.h"
#include "tests/integration/shellhost/hosting_fixture.h"
#include "tests/support/message_box_recorder.h"
#include "tests/support/temp_directory.h"

namespace file_explorer {
namespace {

using test_support::WaitUntil;

struct Event {
  std::int16_t code;
  std::int64_t a;
  std::string path;
};

std::vector<Event> events;
std::string hiddenName;  // an item whose path ends in it is left out of the view

std::int64_t Record(std::int16_t code, ShellControlHost*, IDispatch* object, std::int64_t a, std::int64_t,
                    std::int64_t, std::int64_t, const char* path) {
  events.push_back({code, a, path ? path : ""});
  if (code == static_cast<std::int16_t>(ControlEvent::kAskDefaultAction) && !hiddenName.empty() && path &&
      std::string(path).ends_with(hiddenName)) {
    ShellItem(object).InvokeDefault();
  }
  return 0;
}

int Count(ControlEvent code) {
  return static_cast<int>(std::count_if(events.begin(), events.end(), [&](const Event& event) {
    return event.code == static_cast<std::int16_t>(code);
  }));
}

unique_pidl FolderOf(const std::wstring& path) {
  return unique_pidl(ILCreateFromPathW(path.c_str()));
}

std::string ClassOf(HWND window) {
  char name[64] = "";
  GetClassNameA(window, name, sizeof name);
  return name;
}

class RealControls : public HostingTest {
 protected:
  void SetUp() override {
    HostingTest::SetUp();
    events.clear();
    hiddenName.clear();
    ASSERT_EQ(RegisterFileViewControl(), 1);
    ASSERT_EQ(RegisterComboViewControl(), 1);
    ASSERT_EQ(RegisterFolderViewControl(), 1);
    SetWindowPos(parent_.get(), nullptr, 20, 20, 900, 500, SWP_NOZORDER | SWP_NOACTIVATE);
    combo_ = CreateComboViewHost(parent_.get());
    file_ = CreateFileViewHost(parent_.get(), {}, nullptr, Record);
    folder_ = CreateFolderViewHost(parent_.get());
    ASSERT_TRUE(combo_ && file_ && folder_);
    ResizeShellControl(combo_.get(), {0, 0, 900, 24});
    ResizeShellControl(folder_.get(), {0, 24, 250, 500});
    ResizeShellControl(file_.get(), {250, 24, 900, 500});
    LinkShellControls(combo_.get(), folder_.get(), file_.get());
    directory_.AddFile(L"tree.obj");
    directory_.AddFile(L"wood.png");
    directory_.AddFile(L"read me.txt");
    directory_.AddFolder(L"sub folder");
  }
  void TearDown() override {
    file_.reset();
    folder_.reset();
    combo_.reset();
    ReleaseShellControlState();
    EXPECT_EQ(GetWindow(parent_.get(), GW_CHILD), nullptr);
    HostingTest::TearDown();
  }
  void ShowTestFolder() {
    const unique_pidl pidl = FolderOf(directory_.path());
    SetCurrentFolder(file_.get(), pidl.get());
    ASSERT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 4; })) << GetItemCount(file_.get());
  }
  std::set<std::string> ShownNames() {
    std::set<std::string> names;
    for (LONG i = 1; i <= GetItemCount(file_.get()); ++i) {
      const std::string path = GetItem(file_.get(), i).GetName().value_or("");
      names.insert(path.substr(path.rfind('\\') + 1));
    }
    return names;
  }

  test_support::TempDirectory directory_;
  test_support::MessageBoxRecorder boxes_;
  ShellControlPtr combo_, file_, folder_;
};

TEST_F(RealControls, StandInTheirPanesWithTheirWindows) {
  EXPECT_EQ(ClassOf(GetListWindow(file_.get())), "SysListView32");
  EXPECT_EQ(ClassOf(GetTreeWindow(folder_.get())), "SysTreeView32");
  EXPECT_TRUE(IsWindow(GetComboWindow(combo_.get())));
  for (const auto* host : {file_.get(), folder_.get(), combo_.get()}) {
    EXPECT_EQ(ControlSiteOf(host->site.Get())->IsInPlaceActive(), 1);
  }
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(RealControls, ShowTheFolderThatTheyAreSentTo) {
  ShowTestFolder();
  EXPECT_EQ(ShownNames(), (std::set<std::string>{"tree.obj", "wood.png", "read me.txt", "sub folder"}));
  EXPECT_GE(Count(ControlEvent::kFolderChanged), 1);
  EXPECT_GE(Count(ControlEvent::kContentChanged), 1);
  EXPECT_EQ(Count(ControlEvent::kAskDefaultAction), 3) << "once for each file";
  const unique_pidl expected = FolderOf(directory_.path());
  EXPECT_TRUE(ILIsEqual(GetCurrentFolder(file_.get()), expected.get()));
  const unique_pidl copy = CopyItemPidl(file_.get());
  EXPECT_TRUE(copy && ILIsEqual(copy.get(), expected.get()));
  const auto changed = std::find_if(events.rbegin(), events.rend(), [](const Event& event) {
    return event.code == static_cast<std::int16_t>(ControlEvent::kFolderChanged);
  });
  EXPECT_EQ(changed->a, reinterpret_cast<std::intptr_t>(GetCurrentFolder(file_.get())));
}

TEST_F(RealControls, ItemsSayWhatTheyAre) {
  ShowTestFolder();
  for (LONG i = 1; i <= 4; ++i) {
    const ShellItem item = GetItem(file_.get(), i);
    const std::string path = item.GetFullPath().value_or("");
    EXPECT_EQ(path, item.GetName());
    EXPECT_EQ(path.find(directory_.narrow()), 0u);
    EXPECT_EQ(item.HasAttributes(SFGAO_FILESYSTEM), static_cast<ULONG>(SFGAO_FILESYSTEM));
    EXPECT_EQ(item.HasAttributes(SFGAO_FOLDER) != 0, path.ends_with("sub folder"));
    VARIANT key = NumberVariant(static_cast<LONG>(i * 10));
    item.SetSortKey(key);
    EXPECT_EQ(GetItem(file_.get(), i).GetSortKey()->lVal, i * 10);
  }
}

TEST_F(RealControls, SelectedItemsComeOneAfterTheOther) {
  ShowTestFolder();
  EXPECT_EQ(GetSelectedCount(file_.get()), 0);
  EXPECT_FALSE(GetFirstSelectedItem(file_.get()));
  GetItem(file_.get(), 1).SetSelected(true);
  GetItem(file_.get(), 3).SetSelected(true);
  EXPECT_EQ(GetSelectedCount(file_.get()), 2);
  EXPECT_EQ(GetSelectedIndex(file_.get()), 0);
  const ShellItem first = GetFirstSelectedItem(file_.get());
  const ShellItem second = GetNextSelectedItem(file_.get());
  ASSERT_TRUE(first && second);
  EXPECT_EQ(first.GetName(), GetItem(file_.get(), 1).GetName());
  EXPECT_EQ(second.GetName(), GetItem(file_.get(), 3).GetName());
  EXPECT_FALSE(GetNextSelectedItem(file_.get()));
  EXPECT_TRUE(WaitUntil([] { return Count(ControlEvent::kSelectionChanged) > 0; }));
}

TEST_F(RealControls, AnItemWhoseDefaultActionIsInvokedWhileTheListFillsIsLeftOut) {
  hiddenName = "wood.png";
  const unique_pidl pidl = FolderOf(directory_.path());
  SetCurrentFolder(file_.get(), pidl.get());
  ASSERT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 3; }));
  EXPECT_EQ(ShownNames(), (std::set<std::string>{"tree.obj", "read me.txt", "sub folder"}));
  hiddenName.clear();
  RefreshView(file_.get());
  EXPECT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 4; }));
}

TEST_F(RealControls, TreeAndComboFollowTheFileView) {
  ShowTestFolder();
  EXPECT_TRUE(WaitUntil([&] {
    const ShellItem selected = GetSelectedFolder(folder_.get());
    return selected && selected.GetName() == directory_.narrow();
  }));
  EXPECT_TRUE(SelectedFolderHasParent(folder_.get()));
  const std::string parent = directory_.narrow().substr(0, directory_.narrow().rfind('\\'));
  GoUpOneLevel(file_.get());
  EXPECT_TRUE(WaitUntil([&] {
    const ShellItem shown = GetCurrentFolderItem(file_.get());
    const ShellItem selected = GetSelectedFolder(folder_.get());
    return shown && shown.GetName() == parent && selected && selected.GetName() == parent;
  }));
}

TEST_F(RealControls, ShowEachDisplayMode) {
  ShowTestFolder();
  const HWND list = GetListWindow(file_.get());
  struct {
    const char* name;
    LRESULT view;
  } const modes[] = {{"Report", LV_VIEW_DETAILS},
                     {"List", LV_VIEW_LIST},
                     {"SmallIcon", LV_VIEW_SMALLICON},
                     {"LargeIcon", LV_VIEW_ICON}};
  for (const auto& mode : modes) {
    SetDisplayMode(file_.get(), mode.name);
    EXPECT_EQ(SendMessageA(list, LVM_GETVIEW, 0, 0), mode.view) << mode.name;
  }
  SetDisplayMode(file_.get(), "report");
  EXPECT_EQ(SendMessageA(list, LVM_GETVIEW, 0, 0), LV_VIEW_ICON);
  SetDisplayMode(file_.get(), "Thumbnails");
  EXPECT_EQ(GetItemCount(file_.get()), 4);
}

TEST_F(RealControls, TakeOptionsAndNewFolders) {
  ShowTestFolder();
  ControlOptions options;
  options.fileViewShowFolders = 0;
  options.fileViewShowGridLines = 1;
  ApplyControlOptions(folder_.get(), file_.get(), options);
  EXPECT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 3; }));
  options.fileViewShowFolders = 1;
  ApplyControlOptions(folder_.get(), file_.get(), options);
  EXPECT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 4; }));
  CreateNewFolder(file_.get());
  EXPECT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 5; }));
}

TEST_F(RealControls, TakeTheOptionsThatAreOfferedByName) {
  ShowTestFolder();
  OfferedOptions options;
  const std::wstring secret = directory_.AddFile(L"secret.obj");
  ASSERT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 5; }));
  ASSERT_TRUE(SetFileAttributesW(secret.c_str(), FILE_ATTRIBUTE_HIDDEN));
  OfferControlOptions(folder_.get(), file_.get(), combo_.get(), options);
  EXPECT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 4; }));
  for (const wchar_t* const name : {L"FullPath", L"ShowVirtualFolders", L"Completion"}) {
    EXPECT_TRUE(OfferControlOption(combo_.get(), name, true));
  }
  EXPECT_TRUE(OfferControlOption(folder_.get(), L"ShowHiddenItems", true));
  EXPECT_TRUE(OfferControlOption(file_.get(), L"ShowHiddenItems", true));
  EXPECT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 5; }));
}

TEST_F(RealControls, AFolderThatDoesNotExistIsNoCrash) {
  ShowTestFolder();
  unique_pidl gone;
  {
    const test_support::TempDirectory other;
    gone = FolderOf(other.path());
  }
  ASSERT_TRUE(gone);
  SetCurrentFolder(file_.get(), gone.get());
  test_support::PumpMessages();
  const unique_pidl back = FolderOf(directory_.path());
  SetCurrentFolder(file_.get(), back.get());
  EXPECT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 4; }));
}

TEST_F(RealControls, TheSinksDescribeTheirEventsByTheControlsTypeLibrary) {
  struct {
    const ShellControlHost* host;
    const GUID& library;
  } const sinks[] = {{file_.get(), LIBID_FileViewControl},
                     {folder_.get(), LIBID_FolderViewControl},
                     {combo_.get(), LIBID_ComboViewControl}};
  for (const auto& sink : sinks) {
    // Registered for the machine: not every system finds a user's type libraries.
    char path[MAX_PATH] = "";
    GetModuleFileNameA(GetModuleHandleA(sink.host->controlClass->fileName), path, MAX_PATH);
    ComPtr<ITypeLib> library;
    ASSERT_EQ(LoadTypeLibEx(base::WideFromNarrow(path).c_str(), REGKIND_REGISTER, library.ReleaseAndGetAddressOf()),
              S_OK);
    ComPtr<ITypeInfo> information;
    const HRESULT result =
        sink.host->sink->GetTypeInfo(0, LOCALE_NEUTRAL, information.ReleaseAndGetAddressOf());
    UnRegisterTypeLib(sink.library, 1, 0, LOCALE_NEUTRAL, SYS_WIN64);
    ASSERT_EQ(result, S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(information->GetTypeAttr(&attributes), S_OK);
    EXPECT_TRUE(IsEqualGUID(attributes->guid, *sink.host->controlClass->eventId));
    information->ReleaseTypeAttr(attributes);
  }
}

TEST_F(RealControls, ComeAndGoTwentyTimesWithoutTrace) {
  int windows = 0;
  for (int i = 0; i < 20; ++i) {
    file_.reset();
    folder_.reset();
    combo_.reset();
    if (i == 1) windows = ThreadWindows();
    if (i > 1) {
      EXPECT_EQ(ThreadWindows(), windows);
    }
    ASSERT_EQ(GetWindow(parent_.get(), GW_CHILD), nullptr);
    combo_ = CreateComboViewHost(parent_.get());
    file_ = CreateFileViewHost(parent_.get(), {}, nullptr, Record);
    folder_ = CreateFolderViewHost(parent_.get());
    LinkShellControls(combo_.get(), folder_.get(), file_.get());
    const unique_pidl pidl = FolderOf(directory_.path());
    SetCurrentFolder(file_.get(), pidl.get());
  }
  EXPECT_TRUE(WaitUntil([&] { return GetItemCount(file_.get()) == 4; }));
}

TEST_F(RealControls, UnloadWhenNothingOfThemIsLeft) {
  ShowTestFolder();
  file_.reset();
  folder_.reset();
  combo_.reset();
  test_support::PumpMessages();
  for (const auto* controlClass : {&kFileViewClass, &kFolderViewClass, &kComboViewClass}) {
    const HMODULE library = GetModuleHandleA(controlClass->fileName);
    ASSERT_TRUE(library);
    const auto canUnload = reinterpret_cast<HRESULT(STDAPICALLTYPE*)()>(
        reinterpret_cast<void (*)()>(GetProcAddress(library, "DllCanUnloadNow")));
    ASSERT_TRUE(canUnload);
    EXPECT_TRUE(WaitUntil([&] { return canUnload() == S_OK; })) << controlClass->fileName;
  }
}

}  // namespace
}  // namespace file_explorer
