// File operations on their own thread: progress, cancel, a control that goes in between.
#include <windows.h>

#include <atomic>
#include <memory>

#include "tests/integration/fileops/fileops_fixture.h"
#include "workbench/controls/com/class_server.h"
#include "workbench/controls/operations/file_operations.h"

// A control's module says which one it is; here it is the test program.
namespace controls {
HINSTANCE ModuleInstance() {
  return GetModuleHandleW(nullptr);
}
}  // namespace controls

namespace fileops_test {
namespace {

using controls::FileOperations;
using testing::HasSubstr;

// The machine's files, but copying stops at the first portion until it is let go.
class SlowFiles : public base::FileSystem {
 public:
  SlowFiles() : real_(base::MachineFileSystem()) {}
  ~SlowFiles() override {
    CloseHandle(reached_);
    CloseHandle(go_);
  }
  bool reached() const { return WaitForSingleObject(reached_, 0) == WAIT_OBJECT_0; }
  void Go() { SetEvent(go_); }

  base::SystemError CopyBytes(const std::wstring& source, const std::wstring& target,
                              const CopyProgress& progress) override {
    progress(1);
    SetEvent(reached_);
    WaitForSingleObject(go_, INFINITE);
    return real_.CopyBytes(source, target, progress);
  }

  base::SystemError Spell(const std::wstring& path, std::wstring* exact) override {
    return real_.Spell(path, exact);
  }
  base::SystemError Status(const std::wstring& path, base::FileStatus* status) override {
    return real_.Status(path, status);
  }
  base::SystemError TargetStatus(const std::wstring& path, base::FileStatus* status) override {
    return real_.TargetStatus(path, status);
  }
  base::SystemError PhysicalChain(const std::wstring& path, std::vector<base::FileIdentity>* chain) override {
    return real_.PhysicalChain(path, chain);
  }
  base::SystemError List(const std::wstring& folder, std::vector<base::FileEntry>* entries) override {
    return real_.List(folder, entries);
  }
  base::SystemError MakeFolder(const std::wstring& path) override { return real_.MakeFolder(path); }
  base::SystemError CopyLink(const std::wstring& source, const std::wstring& target) override {
    return real_.CopyLink(source, target);
  }
  base::SystemError CopyFolderAttributes(const std::wstring& source, const std::wstring& target) override {
    return real_.CopyFolderAttributes(source, target);
  }
  base::SystemError Rename(const std::wstring& from, const std::wstring& to) override {
    return real_.Rename(from, to);
  }
  base::SystemError Replace(const std::wstring& from, const std::wstring& to) override {
    return real_.Replace(from, to);
  }
  base::SystemError RemoveFile(const std::wstring& path) override { return real_.RemoveFile(path); }
  base::SystemError RemoveFolder(const std::wstring& path) override { return real_.RemoveFolder(path); }
  base::SystemError RemoveLink(const std::wstring& path) override { return real_.RemoveLink(path); }
  base::SystemError Flush(const std::wstring& folder, const std::vector<std::wstring>& files) override {
    return real_.Flush(folder, files);
  }
  std::wstring ProcessToken() override { return real_.ProcessToken(); }
  bool ProcessHasEnded(const std::wstring& token) override { return real_.ProcessHasEnded(token); }

 private:
  base::FileSystem& real_;
  HANDLE reached_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
  HANDLE go_ = CreateEventA(nullptr, TRUE, FALSE, nullptr);
};

class ProgressTest : public testing::Test {
 protected:
  ProgressTest() {
    directory_.AddFile(L"from\\a.txt", "of a");
    directory_.AddFile(L"from\\b.txt", "of b");
    directory_.AddFolder(L"to");
    root_ = CreateWindowExA(0, "Static", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 800, 500, nullptr,
                            nullptr, nullptr, nullptr);
    view_ = CreateWindowExA(0, "Static", "", WS_CHILD | WS_VISIBLE, 0, 0, 100, 100, root_, nullptr, nullptr,
                            nullptr);
  }
  ~ProgressTest() override {
    files_.Go();
    operations_.reset();
    DestroyWindow(root_);
  }
  void Copy() {
    operations_->Copy(view_, {directory_.Join(L"from\\a.txt"), directory_.Join(L"from\\b.txt")},
                      directory_.Join(L"to"), false, [this](const FileOperations::Outcome& outcome) {
                        ++ended_;
                        outcome_ = outcome;
                      });
  }
  HWND Progress() const {
    const HWND window = FindWindowA("SswareShellProgress", nullptr);
    return window && GetWindow(window, GW_OWNER) == root_ ? window : nullptr;
  }
  bool Exists(const wchar_t* name) {
    return GetFileAttributesW(directory_.Join(std::wstring_view(name)).c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  // Everything in a folder.
  int CountIn(const wchar_t* folder) {
    WIN32_FIND_DATAW found = {};
    const HANDLE find = FindFirstFileW(directory_.Join(std::wstring(folder) + L"\\*").c_str(), &found);
    int count = -2;  // "." and ".."
    do ++count;
    while (FindNextFileW(find, &found));
    FindClose(find);
    return count;
  }

  void ExpectCancelled() {
    files_.Go();
    EXPECT_TRUE(WaitUntil([this] { return ended_ == 1; }));
    EXPECT_TRUE(outcome_.report.cancelled);
    EXPECT_FALSE(outcome_.whole);
    EXPECT_EQ(CountIn(L"from"), 2);
    EXPECT_EQ(CountIn(L"to"), 0);
    EXPECT_TRUE(boxes_.boxes().empty()) << "the user knows that it was cancelled";
  }

  test_support::TempDirectory directory_;
  test_support::MessageBoxRecorder boxes_;
  SlowFiles files_;
  std::unique_ptr<FileOperations> operations_ = std::make_unique<FileOperations>(&files_);
  HWND root_ = nullptr;
  HWND view_ = nullptr;
  int ended_ = 0;
  FileOperations::Outcome outcome_;
};

TEST_F(ProgressTest, ALongOperationShowsHowFarItIsAndLeavesTheViewUsable) {
  Copy();
  EXPECT_TRUE(WaitUntil([this] { return Progress() != nullptr; }));
  EXPECT_TRUE(IsWindowEnabled(root_)) << "not modal";
  EXPECT_EQ(test_support::TextOf(Progress()), "Copying 2 items");
  EXPECT_THAT(test_support::TextOf(GetDlgItem(Progress(), 1)), HasSubstr("a.txt"));
  EXPECT_THAT(test_support::TextOf(GetDlgItem(Progress(), 4)), HasSubstr(" of 2 items, "));
  files_.Go();
  EXPECT_TRUE(WaitUntil([this] { return ended_ == 1; }));
  EXPECT_EQ(Progress(), nullptr);
  EXPECT_TRUE(outcome_.whole);
  EXPECT_EQ(outcome_.report.done, 2U);
}

TEST_F(ProgressTest, AShortOperationShowsNothing) {
  files_.Go();
  bool seen = false;
  Copy();
  EXPECT_TRUE(WaitUntil([&] {
    seen = seen || Progress() != nullptr;
    return ended_ == 1;
  }));
  EXPECT_FALSE(seen);
}

TEST_F(ProgressTest, TheCancelButtonLeavesNothingHalfDone) {
  Copy();
  ASSERT_TRUE(WaitUntil([this] { return Progress() != nullptr; }));
  const HWND button = GetDlgItem(Progress(), IDCANCEL);
  SendMessageA(button, BM_CLICK, 0, 0);
  EXPECT_FALSE(IsWindowEnabled(button));
  ExpectCancelled();
}

TEST_F(ProgressTest, EscapeLeavesNothingHalfDone) {
  Copy();
  ASSERT_TRUE(WaitUntil([this] { return Progress() != nullptr; }));
  SendMessageA(GetDlgItem(Progress(), IDCANCEL), WM_KEYDOWN, VK_ESCAPE, 1);
  ExpectCancelled();
}

TEST_F(ProgressTest, ClosingTheProgressCancels) {
  Copy();
  ASSERT_TRUE(WaitUntil([this] { return Progress() != nullptr; }));
  SendMessageA(Progress(), WM_CLOSE, 0, 0);
  ExpectCancelled();
}

TEST_F(ProgressTest, AControlThatClosesEndsItsOperationAtASafePoint) {
  Copy();
  ASSERT_TRUE(WaitUntil([this] { return files_.reached(); }));
  files_.Go();
  operations_.reset();
  EXPECT_EQ(ended_, 0) << "nobody is told";
  EXPECT_FALSE(Busy());
  EXPECT_EQ(Progress(), nullptr);
  for (const wchar_t* const name : {L"to\\a.txt", L"to\\b.txt"}) {
    if (!Exists(name)) continue;
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    GetFileAttributesExW(directory_.Join(std::wstring_view(name)).c_str(), GetFileExInfoStandard, &data);
    EXPECT_EQ(data.nFileSizeLow, 4U) << "whole or absent";
  }
  EXPECT_TRUE(Exists(L"from\\a.txt"));
  EXPECT_TRUE(Exists(L"from\\b.txt"));
}

TEST_F(ProgressTest, AControlThatClosesDuringAQuestionTakesTheQuestionAlong) {
  directory_.AddFile(L"to\\a.txt", "older");
  files_.Go();
  ModalDriver driver;
  bool asked = false;
  driver.OnDialog([&](const SeenDialog&) {
    asked = true;
    operations_.reset();
  });
  Copy();
  EXPECT_TRUE(WaitUntil([&] { return asked && GetLastActivePopup(root_) == root_; }));
  test_support::PumpMessages();
  EXPECT_EQ(ended_, 0);
  EXPECT_TRUE(IsWindowEnabled(root_));
  EXPECT_EQ(CountIn(L"to"), 1);
}

TEST_F(ProgressTest, OperationsOfAControlComeOneAfterTheOther) {
  Copy();
  operations_->Copy(view_, {directory_.Join(L"from\\a.txt")}, directory_.Join(L"from"), false,
                    [this](const FileOperations::Outcome&) { ++ended_; });
  ASSERT_TRUE(WaitUntil([this] { return files_.reached(); }));
  EXPECT_FALSE(Exists(L"from\\a - Copy.txt"));
  files_.Go();
  EXPECT_TRUE(WaitUntil([this] { return ended_ == 2; }));
  EXPECT_TRUE(Exists(L"from\\a - Copy.txt"));
  EXPECT_TRUE(Exists(L"to\\a.txt"));
}

TEST_F(ProgressTest, AWindowThatGoesTakesTheProgressAlong) {
  Copy();
  ASSERT_TRUE(WaitUntil([this] { return Progress() != nullptr; }));
  DestroyWindow(root_);
  files_.Go();
  EXPECT_TRUE(WaitUntil([this] { return ended_ == 1; }));
}

}  // namespace
}  // namespace fileops_test
