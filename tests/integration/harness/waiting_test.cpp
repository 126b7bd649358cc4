// What the tests rely on: waits, message boxes that nobody expects, and the watchdog.
#include <gmock/gmock.h>
#include <gtest/gtest-spi.h>

#include <windows.h>

#include <array>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/failure_report.h"
#include "tests/support/machine_below.h"
#include "tests/support/message_box_recorder.h"
#include "tests/support/temp_directory.h"
#include "tests/support/unexpected_boxes.h"
#include "tests/support/wait_until.h"

namespace test_support {
namespace {

using testing::HasSubstr;

// Where pictures of failures go; a test that provokes one on purpose leaves none.
class FailuresFolder {
 public:
  explicit FailuresFolder(const char* folder) {
    GetEnvironmentVariableA(kName, before_.data(), static_cast<DWORD>(before_.size()));
    SetEnvironmentVariableA(kName, folder);
  }
  ~FailuresFolder() { SetEnvironmentVariableA(kName, before_[0] != '\0' ? before_.data() : nullptr); }
  FailuresFolder(const FailuresFolder&) = delete;
  FailuresFolder& operator=(const FailuresFolder&) = delete;

 private:
  static constexpr char kName[] = "EXPLORER_FAILURES";
  std::array<char, 1024> before_ = {};
};

TEST(WaitUntil, EndsWhenTheConditionHolds) {
  int calls = 0;
  EXPECT_TRUE(WaitUntil([&] { return ++calls == 3; }));
}

TEST(WaitUntil, SaysWhenAConditionDoesNotComeTrue) {
  const FailuresFolder none(nullptr);
  const ShorterPatience shorter(30);
  EXPECT_FALSE(WaitUntil([] { return false; }));
}

TEST(WaitUntil, EndsAtOnceWhenTheConditionCannotHoldAnyMore) {
  const FailuresFolder none(nullptr);
  int calls = 0;
  EXPECT_FALSE(WaitUntil([] { return false; }, [&] { return ++calls == 2; }));
}

// A timer whose messages take longer to handle than it takes to elapse is always due again.
TEST(WaitUntil, LooksAtItsConditionWhileMessagesNeverEnd) {
  static int turns;
  turns = 0;
  const HWND window =
      CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr, nullptr);
  SetWindowLongPtrA(
      window, GWLP_WNDPROC,
      reinterpret_cast<LONG_PTR>(+[](HWND handle, UINT message, WPARAM first, LPARAM second) -> LRESULT {
        if (message != WM_APP) return DefWindowProcA(handle, message, first, second);
        ++turns;
        return PostMessageA(handle, WM_APP, 0, 0);
      }));
  PostMessageA(window, WM_APP, 0, 0);
  EXPECT_TRUE(WaitUntil([] { return turns > 0; }));
  DestroyWindow(window);
}

void CALLBACK ShowBox(HWND, UINT, UINT_PTR timer, DWORD) {
  KillTimer(nullptr, timer);
  MessageBoxA(nullptr, "The disk is full.", "Copying", MB_OKCANCEL);
}

TEST(UnexpectedBox, FailsTheTestWithItsTextAndEndsTheWait) {
  const FailuresFolder none(nullptr);
  const int before = UnexpectedBoxes();
  testing::TestPartResultArray results;
  {
    const testing::ScopedFakeTestPartResultReporter reporter(
        testing::ScopedFakeTestPartResultReporter::INTERCEPT_ONLY_CURRENT_THREAD, &results);
    SetTimer(nullptr, 0, 10, ShowBox);
    EXPECT_FALSE(WaitUntil([] { return false; }));
  }
  EXPECT_EQ(UnexpectedBoxes(), before + 1);
  ASSERT_EQ(results.size(), 1);
  EXPECT_THAT(results.GetTestPartResult(0).message(), HasSubstr("\"Copying\" says \"The disk is full.\""));
}

TEST(UnexpectedBox, GetsTheButtonThatDoesLeast) {
  int pressed = 0;
  EXPECT_NONFATAL_FAILURE(pressed = MessageBoxA(nullptr, "Delete?", "", MB_YESNOCANCEL), "Delete?");
  EXPECT_EQ(pressed, IDCANCEL);
  EXPECT_NONFATAL_FAILURE(pressed = MessageBoxA(nullptr, "Delete?", "", MB_YESNO), "Delete?");
  EXPECT_EQ(pressed, IDNO);
  EXPECT_NONFATAL_FAILURE(pressed = MessageBoxA(nullptr, "Done.", "", MB_OK), "Done.");
  EXPECT_EQ(pressed, IDOK);
}

TEST(UnexpectedBox, IsNoneWhileSomebodyRecordsBoxes) {
  const int before = UnexpectedBoxes();
  MessageBoxRecorder recorder;
  for (int i = 0; i < 3; ++i) MessageBoxA(nullptr, "Saved.", "Options", MB_OK);
  EXPECT_EQ(recorder.boxes().size(), 3U);
  EXPECT_EQ(UnexpectedBoxes(), before);
}

TEST(FailureReport, NamesTheWindowsAndTheirTexts) {
  const HWND window = CreateWindowExW(0, L"STATIC", L"caption \x0101", WS_POPUP | WS_VISIBLE, 0, 0, 99, 99,
                                      nullptr, nullptr, nullptr, nullptr);
  CreateWindowExA(0, "BUTTON", "inner text", WS_CHILD | WS_VISIBLE, 0, 0, 9, 9, window, nullptr, nullptr,
                  nullptr);
  const std::string report = DescribeWindows();
  DestroyWindow(window);
  EXPECT_THAT(report, HasSubstr("Static \"caption \xC4\x81\""));
  EXPECT_THAT(report, HasSubstr("    Button \"inner text\""));
}

TEST(FailureReport, NamesTheFramesOfAThread) {
  const HANDLE go = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  const HANDLE thread = CreateThread(
      nullptr, 0, [](void* event) -> DWORD { return WaitForSingleObject(event, INFINITE); }, go, 0, nullptr);
  std::string frames;
  EXPECT_TRUE(WaitUntil([&] {
    frames = DescribeFrames(thread);
    return frames.find("WaitForSingleObject") != std::string::npos;
  })) << frames;
  SetEvent(go);
  EXPECT_TRUE(WaitForHandle(thread));
  CloseHandle(thread);
  CloseHandle(go);
}

struct Ended {
  DWORD result = 0;
  std::string said;
};

// Runs a program of the folder of this one to its end.
Ended RunToItsEnd(const wchar_t* program, const TempDirectory& directory) {
  std::array<wchar_t, MAX_PATH> path = {};
  GetModuleFileNameW(nullptr, path.data(), MAX_PATH);
  std::wstring line(path.data());
  line = L"\"" + line.substr(0, line.rfind(L'\\') + 1) + program + L"\"";
  SECURITY_ATTRIBUTES inherited = {sizeof inherited, nullptr, TRUE};
  const HANDLE file = CreateFileW(directory.Join(L"output").c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                  &inherited, CREATE_ALWAYS, 0, nullptr);
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = start.hStdError = file;
  PROCESS_INFORMATION process = {};
  Ended ended;
  if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process)) {
    EXPECT_TRUE(WaitForHandle(process.hProcess));
    GetExitCodeProcess(process.hProcess, &ended.result);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
  CloseHandle(file);
  std::ifstream content(directory.Join(std::string_view("output")));
  ended.said.assign(std::istreambuf_iterator<char>(content), std::istreambuf_iterator<char>());
  return ended;
}

TEST(Watchdog, EndsAProgramWhoseTestStandsStillAndSaysWhere) {
  const TempDirectory directory;
  const std::string below = PathBelow(directory.path());
  const FailuresFolder failures(below.empty() ? nullptr : below.c_str());
  SetEnvironmentVariableA("EXPLORER_TEST_SECONDS", "3");
  const Ended ended = RunToItsEnd(L"harness_stands_still.exe", directory);
  SetEnvironmentVariableA("EXPLORER_TEST_SECONDS", nullptr);
  EXPECT_EQ(ended.result, 87U);
  EXPECT_THAT(ended.said, HasSubstr("StandsStill.InAMessageLoop stands still"));
  EXPECT_THAT(ended.said, HasSubstr("\"a dialog that nobody closes\""));
  EXPECT_THAT(ended.said, HasSubstr("GetMessage"));
  if (below.empty()) return;
  EXPECT_THAT(ended.said, HasSubstr("picture: "));
  EXPECT_NE(GetFileAttributesW(directory.Join(L"StandsStill-InAMessageLoop.png").c_str()),
            INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace test_support
