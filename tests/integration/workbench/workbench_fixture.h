// What the tests of the workbench share: a workbench with a folder of its own, and a window that wants to be
// docked.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"
#include "workbench/app/main/workbench.h"

namespace workbench {

inline constexpr char kTestGuid[] = "{11111111-2222-3333-4444-555555555555}";
inline constexpr char kOtherGuid[] = "{66666666-7777-8888-9999-AAAAAAAAAAAA}";

// A top-level window as a plug-in makes it: caption, system menu, sizing frame, no system commands of its
// own.
class TestWindow {
 public:
  explicit TestWindow(UINT notification);
  ~TestWindow();

  HWND window() const { return window_; }
  void Destroy();
  bool isAlive() const { return window_ != nullptr; }
  // Sub-codes of the notifications that came, in order.
  std::vector<int> notified;
  LRESULT answerToggle = 0;
  LRESULT answerClose = 0;
  // Runs for every notification, before it is answered.
  std::function<void(int code)> onNotified;
  Size Client() const;
  int Count(int code) const;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM first, LPARAM second);
  LRESULT Handle(UINT id, WPARAM first, LPARAM second);

  HWND window_ = nullptr;
  UINT notification_;
};

class WorkbenchTest : public testing::Test {
 protected:
  WorkbenchTest();
  ~WorkbenchTest() override;

  // Options with the folder's profile; the program's messages are collected.
  WorkbenchOptions Options();
  void Start() { Start(Options()); }
  void Start(WorkbenchOptions options);
  void Stop() { workbench_.reset(); }
  Workbench& host() { return *workbench_; }
  host::HostServices* services() { return workbench_->services().services(); }

  // A new window for the window manager.
  std::unique_ptr<TestWindow> NewWindow();
  // CreateDockedWindow as a plug-in calls it.
  std::int32_t Dock(TestWindow& window, std::uint16_t method, std::uint16_t position,
                    host::DockedWindowPlacement* placement = nullptr, const char* guid = kTestGuid);
  // Docks and shows.
  std::unique_ptr<TestWindow> Docked(std::uint16_t method, std::uint16_t position,
                                     const char* guid = kTestGuid);

  // A window's place in the dock site's coordinates.
  Rect PlaceInSite(HWND window);
  Rect Site() { return host().windows().site().ClientArea(); }
  // Mouse messages to a window, in its client coordinates.
  static void Press(HWND window, Point at);
  static void Drag(HWND window, Point to);
  static void ReleaseAt(HWND window, Point at);
  static void Click(HWND window, Point at);
  static void DoubleClick(HWND window, Point at);
  static Point Middle(const Rect& rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }

  test_support::TempDirectory folder_;
  std::vector<std::wstring> messages_;
  std::unique_ptr<Workbench> workbench_;
};

}  // namespace workbench
