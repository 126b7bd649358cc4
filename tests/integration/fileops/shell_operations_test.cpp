// Copy and move with the system's functions replaced: what they are asked, and what comes of their answers.
#include "src/fileops/shell_operations.h"

#include <gmock/gmock.h>

#include <shlobj.h>

#include <string>
#include <vector>

#include "src/host/vc64_tx.h"
#include "tests/support/message_box_recorder.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;

struct Script {
  HRESULT allocator = S_OK;
  bool cancel = false;
  bool pathKnown = true;
  std::wstring path = L"c:\\target";
  int result = 0;
  DWORD lastError = 0;
  bool aborted = false;
};

struct Record {
  int allocators = 0;
  std::vector<BROWSEINFOA> browsers;
  std::vector<LPITEMIDLIST> preselected;
  std::vector<SHFILEOPSTRUCTA> operations;
  std::vector<std::string> from;  // with all zeros
  std::vector<std::string> to;
  std::vector<std::string> titles;
  DWORD lastErrorBefore = 0;
  size_t blocksDuring = 0;
};

Script script;
Record record;

std::string DoubleZeroText(const char* text) {
  std::string list;
  for (const char* at = text; *at != '\0'; at += lstrlenA(at) + 1)
    list.append(at, static_cast<size_t>(lstrlenA(at)) + 1);
  return list + '\0';
}

HRESULT WINAPI GetMalloc(IMalloc** allocator) {
  ++record.allocators;
  *allocator = nullptr;
  return FAILED(script.allocator) ? script.allocator : SHGetMalloc(allocator);
}
PIDLIST_ABSOLUTE WINAPI Browse(BROWSEINFOA* request) {
  record.browsers.push_back(*request);
  if (script.cancel) return nullptr;
  LPITEMIDLIST list = nullptr;
  SHGetSpecialFolderLocation(nullptr, CSIDL_DESKTOP, &list);
  return list;
}
BOOL WINAPI PathFromList(PCIDLIST_ABSOLUTE, LPWSTR path, DWORD size, GPFIDL_FLAGS) {
  lstrcpynW(path, script.path.c_str(), static_cast<int>(size));
  return script.pathKnown;
}
int WINAPI Operate(SHFILEOPSTRUCTA* request) {
  record.lastErrorBefore = GetLastError();
  record.operations.push_back(*request);
  record.from.push_back(DoubleZeroText(request->pFrom));
  record.to.push_back(DoubleZeroText(request->pTo));
  record.titles.push_back(request->lpszProgressTitle);
  record.blocksDuring = Tx_Inquire_Allocated_Blocks();
  request->fAnyOperationsAborted = script.aborted;
  SetLastError(script.lastError);
  return script.result;
}

class ShellOperationsTest : public testing::Test {
 protected:
  void SetUp() override {
    script = Script();
    record = Record();
    blocks_ = Tx_Inquire_Allocated_Blocks();
  }
  void TearDown() override {
    EXPECT_EQ(Tx_Inquire_Allocated_Blocks(), blocks_) << "the source list is freed";
  }

  SourceList Sources(const std::vector<std::string>& paths) {
    SourceList sources(HostListMemory());
    for (const std::string& path : paths) EXPECT_TRUE(sources.Append(path));
    return sources;
  }

  ShellOperations operations_{{&GetMalloc, &Browse, &PathFromList, &Operate}};
  test_support::MessageBoxRecorder boxes_;
  size_t blocks_ = 0;
};

TEST_F(ShellOperationsTest, TheBrowserIsAskedForAFolderOnADiskWithAnEditBox) {
  EXPECT_TRUE(operations_.CopyOrMove(true, 1, Sources({"c:\\a"})));
  ASSERT_EQ(record.browsers.size(), 1U);
  const BROWSEINFOA& browser = record.browsers[0];
  EXPECT_EQ(browser.hwndOwner, GetForegroundWindow());
  EXPECT_EQ(browser.pidlRoot, nullptr);
  EXPECT_STREQ(browser.lpszTitle, "Please select the destination folder");
  EXPECT_EQ(browser.ulFlags, static_cast<UINT>(BIF_RETURNONLYFSDIRS | BIF_EDITBOX | BIF_NEWDIALOGSTYLE));
  EXPECT_NE(browser.lpfn, nullptr);
}

TEST_F(ShellOperationsTest, TheShellGetsTheListTheDestinationAndTheUndoFlagAlone) {
  EXPECT_TRUE(operations_.CopyOrMove(true, 2, Sources({"c:\\a", "c:\\b c"})));
  EXPECT_TRUE(operations_.CopyOrMove(false, 1, Sources({"c:\\a"})));
  EXPECT_THAT(record.from, ElementsAre(std::string("c:\\a\0c:\\b c\0\0", 13), std::string("c:\\a\0\0", 6)));
  EXPECT_THAT(record.to, ElementsAre(std::string("c:\\target\0\0", 11), std::string("c:\\target\0\0", 11)));
  EXPECT_EQ(record.operations[0].wFunc, static_cast<UINT>(FO_MOVE));
  EXPECT_EQ(record.operations[1].wFunc, static_cast<UINT>(FO_COPY));
  for (const SHFILEOPSTRUCTA& operation : record.operations) {
    EXPECT_EQ(operation.fFlags, FOF_ALLOWUNDO);
    EXPECT_EQ(operation.hwnd, GetForegroundWindow());
  }
}

TEST_F(ShellOperationsTest, TheProgressTitleIsDeliberatelyThatOfOneFile) {
  operations_.CopyOrMove(true, 2, Sources({"c:\\a", "c:\\b"}));
  operations_.CopyOrMove(false, 2, Sources({"c:\\a", "c:\\b"}));
  operations_.CopyOrMove(true, 0, Sources({}));
  EXPECT_THAT(record.titles, ElementsAre("Moving file...", "Copying file...", "Moving 0 files..."));
  EXPECT_EQ(record.operations[0].fFlags & FOF_SIMPLEPROGRESS, 0) << "so the shell does not show it";
}

TEST_F(ShellOperationsTest, TheListLivesInTheHostsMemoryUntilTheOperationWasTried) {
  operations_.CopyOrMove(false, 1, Sources({"c:\\a"}));
  EXPECT_EQ(record.blocksDuring, blocks_ + 1);
}

TEST_F(ShellOperationsTest, CancellingDoesNothingAndKeepsTheLastDestination) {
  ASSERT_TRUE(operations_.CopyOrMove(false, 1, Sources({"c:\\a"})));
  const PCIDLIST_ABSOLUTE last = operations_.lastDestination();
  ASSERT_NE(last, nullptr);
  script.cancel = true;
  EXPECT_FALSE(operations_.CopyOrMove(true, 1, Sources({"c:\\b"})));
  EXPECT_EQ(operations_.lastDestination(), last);
  EXPECT_EQ(record.operations.size(), 1U);
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(ShellOperationsTest, TheNextBrowserIsToldTheLastDestination) {
  EXPECT_EQ(operations_.lastDestination(), nullptr);
  operations_.CopyOrMove(false, 1, Sources({"c:\\a"}));
  const auto first = reinterpret_cast<LPARAM>(operations_.lastDestination());
  operations_.CopyOrMove(false, 1, Sources({"c:\\a"}));
  EXPECT_EQ(record.browsers[0].lParam, 0);
  EXPECT_EQ(record.browsers[1].lParam, first);
  EXPECT_NE(first, 0);
}

struct BrowserWindow {
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == BFFM_SETSELECTIONA) selections.emplace_back(wParam, lParam);
    return DefWindowProcA(window, message, wParam, lParam);
  }
  static std::vector<std::pair<WPARAM, LPARAM>> selections;
};
std::vector<std::pair<WPARAM, LPARAM>> BrowserWindow::selections;

TEST_F(ShellOperationsTest, TheCallbackSelectsTheLastDestinationOnceTheBrowserHasInitialised) {
  operations_.CopyOrMove(false, 1, Sources({"c:\\a"}));
  const BFFCALLBACK callback = record.browsers[0].lpfn;
  const HWND window =
      CreateWindowExA(0, "Static", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
  SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&BrowserWindow::Procedure));
  BrowserWindow::selections.clear();
  callback(window, BFFM_SELCHANGED, 0, 1234);
  callback(window, BFFM_INITIALIZED, 0, 0);
  EXPECT_TRUE(BrowserWindow::selections.empty()) << "nothing was chosen before";
  callback(window, BFFM_INITIALIZED, 0, 1234);
  EXPECT_THAT(BrowserWindow::selections, ElementsAre(testing::Pair(WPARAM{0}, LPARAM{1234})))
      << "a list, not a path";
  DestroyWindow(window);
}

TEST_F(ShellOperationsTest, WithoutTheAllocatorNothingIsAsked) {
  script.allocator = E_FAIL;
  EXPECT_FALSE(operations_.CopyOrMove(true, 1, Sources({"c:\\a"})));
  EXPECT_TRUE(record.browsers.empty());
  EXPECT_EQ(operations_.lastDestination(), nullptr);
}

TEST_F(ShellOperationsTest, AChosenFolderWithoutAPathEndsTheOperationQuietly) {
  script.pathKnown = false;
  EXPECT_TRUE(operations_.CopyOrMove(true, 1, Sources({"c:\\a"}))) << "a destination was chosen";
  EXPECT_TRUE(record.operations.empty());
  EXPECT_NE(operations_.lastDestination(), nullptr) << "and is remembered";
  EXPECT_TRUE(boxes_.boxes().empty());
}

// With code page 1252 a folder of that name without the macron would be taken.
TEST_F(ShellOperationsTest, ADestinationThatCantBeExpressedIsRefusedByName) {
  script.path = L"c:\\no such t\u0101rget";
  EXPECT_TRUE(operations_.CopyOrMove(true, 1, Sources({"c:\\a"}))) << "a destination was chosen";
  if (GetACP() == CP_UTF8) {
    EXPECT_THAT(record.to, ElementsAre(std::string("c:\\no such t\xC4\x81rget\0\0", 20)));
    return;
  }
  EXPECT_TRUE(record.operations.empty());
  ASSERT_EQ(boxes_.boxes().size(), 1U);
  EXPECT_EQ(boxes_.boxes()[0].caption, "Error");
  EXPECT_THAT(boxes_.boxes()[0].text, testing::HasSubstr("c:\\no such t"));
}

TEST_F(ShellOperationsTest, ADestinationThatIsTooLongIsReported) {
  script.path = L"c:\\" + std::wstring(kPathBufferSize - 5, L'x');
  EXPECT_TRUE(operations_.CopyOrMove(false, 1, Sources({"c:\\a"})));
  EXPECT_EQ(record.operations.size(), 1U);
  if (GetACP() != CP_UTF8) return;
  script.path = L"c:\\" + std::wstring(kPathBufferSize / 2, L'\u0101');
  EXPECT_TRUE(operations_.CopyOrMove(false, 1, Sources({"c:\\a"})));
  EXPECT_EQ(record.operations.size(), 1U);
  EXPECT_EQ(boxes_.boxes().size(), 1U);
}

TEST_F(ShellOperationsTest, AFailureIsReportedWithTheSystemsText) {
  script.result = 2;
  script.lastError = ERROR_FILE_NOT_FOUND;
  EXPECT_TRUE(operations_.CopyOrMove(true, 1, Sources({"c:\\a"})));
  char expected[512] = "";
  FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, ERROR_FILE_NOT_FOUND,
                 MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT), expected, sizeof(expected), nullptr);
  ASSERT_EQ(boxes_.boxes().size(), 1U);
  const test_support::RecordedMessageBox& box = boxes_.boxes()[0];
  EXPECT_EQ(box.caption, "Shell Operation Error");
  EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONERROR));
  EXPECT_THAT(box.buttons, ElementsAre(IDOK));
  EXPECT_EQ(box.owner, nullptr) << "there is no foreground window here";
  EXPECT_FALSE(box.text.empty());
  EXPECT_EQ(std::string(expected).substr(0, 20), box.text.substr(0, 20));
}

TEST_F(ShellOperationsTest, AFailureWithoutALastErrorShowsNothing) {
  script.result = 1;
  SetLastError(ERROR_ACCESS_DENIED);  // of something that went before
  EXPECT_TRUE(operations_.CopyOrMove(true, 1, Sources({"c:\\a"})));
  EXPECT_EQ(record.lastErrorBefore, 0U);
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(ShellOperationsTest, TheReportDependsOnResultAndLastErrorAlone) {
  struct Row {
    int result;
    DWORD lastError;
    bool aborted;
    size_t boxes;
  };
  for (const Row& row : {Row{0, 0, false, 0}, Row{0, 0, true, 0}, Row{0, ERROR_ACCESS_DENIED, false, 0},
                         Row{0, ERROR_ACCESS_DENIED, true, 0}, Row{1223, 0, false, 0}, Row{1223, 0, true, 0},
                         Row{5, ERROR_ACCESS_DENIED, false, 1}, Row{1223, ERROR_CANCELLED, true, 1}}) {
    script.result = row.result;
    script.lastError = row.lastError;
    script.aborted = row.aborted;
    const size_t before = boxes_.boxes().size();
    EXPECT_TRUE(operations_.CopyOrMovePath("c:\\a", false));
    EXPECT_EQ(boxes_.boxes().size() - before, row.boxes) << row.result << " " << row.lastError << " " << row.aborted;
  }
}

TEST_F(ShellOperationsTest, ASuccessWithALastErrorShowsNothing) {
  script.lastError = ERROR_NO_MORE_FILES;
  EXPECT_TRUE(operations_.CopyOrMove(false, 1, Sources({"c:\\a"})));
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(ShellOperationsTest, AnErrorWithoutATextIsNamedByItsNumber) {
  ReportShellError(0x2FFFFFFF);
  ASSERT_EQ(boxes_.boxes().size(), 1U);
  EXPECT_EQ(boxes_.boxes()[0].text, "Error code 805306367.");
}

TEST_F(ShellOperationsTest, ASinglePathIsAListOfOne) {
  EXPECT_TRUE(operations_.CopyOrMovePath("c:\\folder", true));
  EXPECT_THAT(record.from, ElementsAre(std::string("c:\\folder\0\0", 11)));
  EXPECT_THAT(record.titles, ElementsAre("Moving file..."));
}

TEST_F(ShellOperationsTest, AnEmptyOrAbsentPathDoesNothing) {
  EXPECT_FALSE(operations_.CopyOrMovePath("", true));
  EXPECT_FALSE(operations_.CopyOrMovePath(nullptr, true));
  EXPECT_EQ(record.allocators, 0);
  EXPECT_TRUE(boxes_.boxes().empty());
}

TEST_F(ShellOperationsTest, ANameThatTheCodePageLacksIsReportedAndNothingIsAsked) {
  EXPECT_FALSE(operations_.CopyOrMovePath("c:\\???.txt", true))
      << "it would name every file of three letters";
  EXPECT_EQ(boxes_.boxes().size(), 1U);
  EXPECT_TRUE(record.browsers.empty());
}

TEST_F(ShellOperationsTest, WithoutAFileViewThereIsNoSelection) {
  EXPECT_FALSE(operations_.CopyOrMoveSelection(nullptr, true));
  EXPECT_EQ(record.allocators, 0);
}

}  // namespace
}  // namespace file_explorer
