// What the module calls while the user browses: names with letters beyond ASCII never go through GDI's 8-bit
// functions, and no other machine is asked for anything on the window's thread.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <fstream>

#include "tests/integration/explorer/running_explorer.h"
#include "tests/support/call_watch.h"
#include "tests/support/wait_until.h"

namespace explorer_tests {
namespace {

using testing::IsEmpty;

constexpr char kModuleFile[] = "ui_file_explorer.dll";
// In code page 1252, which these tests run in.
constexpr char kName[] = "\xC4\xD6\xDC caf\xE9.obj";

class ForeignCallsTest : public RunningExplorer {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\\u00C4\u00D6\u00DC caf\u00E9.obj", "v 0 0 0\n");
    fixture_.directory().AddFile(L"files\\plain.txt");
    fixture_.directory().AddFolder(L"user");
    WriteHistory();
    WriteFavorites();
  }
  // Entries of another machine, and one of the folder.
  void WriteHistory() const {
    std::ofstream file(fixture_.UserDirectory() + "\\history.dat", std::ios::binary);
    file << "[HistoryList]\r\nNumEntries=3\r\n"
         << "d0=dead.obj\r\nf0=\\\\dead\\share\\dead.obj\r\np0=\\\\dead\\share\\dead.obj\r\n"
         << "d1=" << kName << "\r\nf1=\\\\dead\\share\\" << kName << "\r\np1=\\\\dead\\share\\" << kName
         << "\r\n"
         << "d2=" << kName << "\r\nf2=" << FilePath(kName) << "\r\np2=" << FilePath(kName) << "\r\n";
  }
  void WriteFavorites() const {
    std::ofstream file(fixture_.UserDirectory() + "\\favorites.dat", std::ios::binary);
    file << "K={0}\ns=49\ni=0\nd=Favorites\nE\n"
         << "K={1}\ns=4\ni=1\nd=" << kName << "\nn=\\\\dead\\share\\models\np={0}\n";
  }
  void PaintEverything() {
    test_support::PumpMessages();
    RedrawWindow(fixture_.workbench().window(), nullptr, nullptr,
                 RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
    test_support::PumpMessages();
  }
  // The explorer from its start to its end, each of its views painted, tall rows too.
  void Browse() {
    Begin(2);
    PaintEverything();
    SendToPanel(107);
    PaintEverything();
    SendToPanel(135);
    PaintEverything();
    SendToPanel(3002);
    PaintEverything();
    SendToPanel(108);
    PaintEverything();
    Select({kName});
    SendToExplorer(117);
    PaintEverything();
    fixture_.DoubleClickFile(kName);
    PaintEverything();
    fixture_.SayWithHost({{"addpathtohistorylist", const_cast<char*>("\\\\dead\\share\\added.obj")}});
    PaintEverything();
  }
};

TEST_F(ForeignCallsTest, BrowsingDrawsNoLetterThrough8BitCallsAndAsksNoOtherMachine) {
  fixture_.Start();
  ASSERT_NE(fixture_.EntryPoint(), nullptr);  // loads the module, and nothing more
  const test_support::CallWatch watch(GetModuleHandleA(kModuleFile));
  EXPECT_GE(watch.watched(), 5U) << "the module imports what is looked for";
  fixture_.Close();
  Browse();
  fixture_.Close();
  EXPECT_THAT(watch.narrowTexts(), IsEmpty());
  EXPECT_THAT(watch.remoteCalls(), IsEmpty());
}

// The watch itself: it sees what it is there for.
TEST_F(ForeignCallsTest, TheWatchSeesCallsOfItsModule) {
  const HMODULE self = LoadLibraryA(kModuleFile);
  ASSERT_NE(self, nullptr);
  {
    const test_support::CallWatch watch(GetModuleHandleA(nullptr));
    const HDC dc = GetDC(nullptr);
    SIZE size = {};
    GetTextExtentPoint32A(dc, "abc\xE4", 3, &size);
    EXPECT_THAT(watch.narrowTexts(), IsEmpty()) << "the count says where the text ends";
    GetTextExtentPoint32A(dc, "abc\xE4", 4, &size);
    ReleaseDC(nullptr, dc);
    EXPECT_THAT(watch.narrowTexts(), testing::ElementsAre("GetTextExtentPoint32A: abc\xE4"));
    GetFileAttributesW(L"C:\\");
    EXPECT_THAT(watch.remoteCalls(), IsEmpty());
    GetFileAttributesW(L"\\\\.\\no such device");
    EXPECT_THAT(watch.remoteCalls(), testing::ElementsAre("GetFileAttributesW: \\\\.\\no such device"));
  }
  FreeLibrary(self);
}

}  // namespace
}  // namespace explorer_tests
