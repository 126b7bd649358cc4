// Deals with what comes up modally on this thread, while its own message loop runs: dialogs and pop-up menus.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/unexpected_boxes.h"

namespace fileops_test {

struct SeenDialog {
  HWND window = nullptr;
  HWND owner = nullptr;
  std::string caption;
  std::vector<std::string> texts;  // of its labels and buttons
};

struct SeenMenu {
  std::vector<std::string> captions;  // without "&"; "-" for a separator
  std::string defaultItem;
};

// While one exists, each dialog of the thread is given to the dialog function once, and each menu to the menu
// function once. What nobody deals with for the time of a wait is cancelled, and the
// test fails. One at a time.
class ModalDriver {
 public:
  ModalDriver();
  ~ModalDriver();
  ModalDriver(const ModalDriver&) = delete;
  ModalDriver& operator=(const ModalDriver&) = delete;

  // Presses a button of each dialog from now on.
  void PressInDialogs(int button);
  // Does something else with each dialog.
  void OnDialog(std::function<void(const SeenDialog&)> act) { onDialog_ = std::move(act); }
  // Chooses the item of a caption from the next menu; an empty caption closes the menu.
  void ChooseFromMenu(const std::string& caption) { choice_ = caption; }

  const std::vector<SeenDialog>& dialogs() const { return dialogs_; }
  const std::vector<SeenMenu>& menus() const { return menus_; }

 private:
  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
  void Poll();
  void LookAtMenu(HWND window);

  test_support::ExpectsBoxes expects_;
  UINT_PTR timer_ = 0;
  std::function<void(const SeenDialog&)> onDialog_;
  std::string choice_;
  HWND dialog_ = nullptr;  // the one that was dealt with last
  HWND menu_ = nullptr;
  ULONGLONG since_ = 0;
  std::vector<SeenDialog> dialogs_;
  std::vector<SeenMenu> menus_;
};

}  // namespace fileops_test
