// The masks dialog, visited while it is open.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "src/filter/masks_dialog.h"
#include "tests/support/temp_directory.h"
#include "tests/support/unexpected_boxes.h"
#include "workbench/app/services/host_services_table.h"

namespace file_explorer {

// Runs visit once, as soon as a visible dialog "File Selection Masks" is there. A dialog that is still open
// afterwards is ended from outside: it has no button for that.
class MasksDialogVisit {
 public:
  explicit MasksDialogVisit(std::function<void(HWND dialog)> visit);
  ~MasksDialogVisit();
  MasksDialogVisit(const MasksDialogVisit&) = delete;
  MasksDialogVisit& operator=(const MasksDialogVisit&) = delete;
  bool visited() const { return visited_; }

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
  void Poll();

  std::function<void(HWND)> visit_;
  test_support::ExpectsBoxes expects_;
  UINT_PTR timer_ = 0;
  bool visited_ = false;
};

std::string ControlText(HWND dialog, int id);
std::vector<std::string> ComboEntries(HWND dialog, int id);
void Press(HWND dialog, int id);
// A key to the control with the focus, the way the dialog's message loop hands it on.
void Key(HWND dialog, WPARAM key);
void AltKey(HWND dialog, char letter);
void TypeText(const char* text);
int FocusedId();

// A parent window, a host with the workbench's matcher, and the values that the dialog edits.
class MasksDialogFixture : public testing::Test {
 protected:
  MasksDialogFixture();
  ~MasksDialogFixture() override;

  // Opens the dialog; true when the folder options changed.
  bool Open(const std::function<void(HWND dialog)>& visit);
  void StoreLists(const char* inclusion, const char* exclusion);
  static std::string TextOf(const unique_host_text& text) { return text ? text.get() : "(none)"; }

  test_support::TempDirectory directory;
  workbench::HostServicesTable services;
  HWND parent = nullptr;
  unique_host_text inclusion;
  unique_host_text exclusion;
  std::uint16_t filteringMethod = 0;
  std::int32_t showFolders = 1;
  std::int32_t showVirtualFolders = 1;
  int saves = 0;
};

}  // namespace file_explorer
