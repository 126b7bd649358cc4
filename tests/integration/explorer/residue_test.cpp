// What the module changes in its host's process, and what it leaves behind: nothing.
#include <gtest/gtest.h>

#include <windows.h>

#include <objbase.h>

#include <string>

#include "src/host/vc64_tx.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/explorer/leak_count.h"
#include "tests/support/explorer/process_state.h"
#include "tests/support/wait_until.h"

namespace {

using test_support::CaptureProcessState;
using test_support::CountLeaks;
using test_support::LeakCount;
using test_support::ProcessState;

// The counts below are worth nothing unless they see what they are to count.
TEST(ResidueTest, TheCountSeesWindowsGdiObjectsAndMemory) {
  const LeakCount before = CountLeaks();
  const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
  const HWND window = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
  void* const hostBlock = Tx_Alloc_Memory(8);
  void* const taskBlock = CoTaskMemAlloc(8);
  const LeakCount with = CountLeaks();
  EXPECT_EQ(with.gdiObjects, before.gdiObjects + 1);
  EXPECT_GT(with.windows, before.windows);
  EXPECT_EQ(with.hostAllocations, before.hostAllocations + 1);
  EXPECT_EQ(with.taskAllocations, before.taskAllocations + 1);
  CoTaskMemFree(taskBlock);
  Tx_Free_Memory(hostBlock);
  DestroyWindow(window);
  DeleteObject(brush);
}

TEST(ResidueTest, NoEntryChangesTheProcess) {
  test_support::ExplorerFixture fixture;
  fixture.directory().AddFile(L"files\\a.obj");
  fixture.Start();
  const ProcessState before = CaptureProcessState();
  fixture.EntryPoint();
  EXPECT_EQ(CaptureProcessState(), before) << "loading";
  char help[] = "c:\\help";
  char path[] = "c:\\models\\a.obj";
  struct Entry {
    const char* keyword;
    void* value;
  };
  for (const Entry& entry :
       {Entry{"initialize", help}, Entry{"new_instance", nullptr}, Entry{"addpathtohistorylist", path},
        Entry{"showhistorypanel", nullptr}, Entry{"showfavoritespanel", nullptr}, Entry{"showfolderviewpanel", nullptr},
        Entry{"menu_item_clicked", nullptr}, Entry{"nonsense", nullptr}, Entry{"destroy_instance", nullptr},
        Entry{"shutdown", nullptr}}) {
    fixture.SayWithHost({{entry.keyword, entry.value}});
    fixture.workbench().Pump();
    EXPECT_EQ(CaptureProcessState(), before) << entry.keyword;
  }
}

TEST(ResidueTest, WindowMessagesChangeNothingInTheProcess) {
  test_support::ExplorerFixture fixture;
  fixture.directory().AddFile(L"files\\a.obj");
  fixture.Start();
  ASSERT_TRUE(fixture.LoadExplorer());
  fixture.SayWithHost({{"showfolderviewpanel", nullptr}});
  ASSERT_TRUE(fixture.WaitForFile("a.obj"));
  const ProcessState before = CaptureProcessState();
  for (const int command : {101, 102, 103, 107, 108, 113, 114, 115, 116, 117, 120, 121}) {
    SendMessageA(fixture.ExplorerWindow(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    EXPECT_EQ(CaptureProcessState(), before) << command;
  }
  SendMessageA(fixture.SelectEdit(), WM_CHAR, 'a', 1);
  EXPECT_EQ(CaptureProcessState(), before) << "select box";
}

TEST(ResidueTest, TwoHundredInstancesLeaveNothingBehind) {
  constexpr int kWarmUp = 10;
  constexpr int kRounds = 200;
  test_support::ExplorerFixture fixture;
  fixture.directory().AddFile(L"files\\a.obj");
  fixture.options().recordCalls = false;
  fixture.Start();
  fixture.EntryPoint();
  const auto round = [&] {
    fixture.SayWithHost({{"new_instance", nullptr}});
    fixture.SayWithHost({{"showfolderviewpanel", nullptr}});
    ASSERT_NE(fixture.FileList(), nullptr);
    fixture.workbench().Pump();
    fixture.SayWithHost({{"destroy_instance", nullptr}});
    fixture.workbench().Pump();
  };
  CountLeaks();
  for (int i = 0; i < kWarmUp; ++i) round();
  const LeakCount before = CountLeaks();
  for (int i = 0; i < kRounds; ++i) round();
  EXPECT_EQ(CountLeaks(), before);
  // No object of a control is alive: every reference was given back.
  for (const char* const file :
       {"ssware_shellfileview64.ocx", "ssware_shellfolderview64.ocx", "ssware_shellcombo64.ocx"}) {
    const HMODULE server = GetModuleHandleA(file);
    ASSERT_NE(server, nullptr) << file;
    using CanUnload = HRESULT(WINAPI*)();
    const auto canUnload =
        reinterpret_cast<CanUnload>(reinterpret_cast<void*>(GetProcAddress(server, "DllCanUnloadNow")));
    EXPECT_EQ(canUnload(), S_OK) << file;
  }
}

}  // namespace
