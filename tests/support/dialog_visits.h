// Visits of modal dialogs: while a dialog's own message loop runs, a timer finds it and lets the test act on
// it.
//
//   DialogVisits visits;
//   visits.Expect("Explore Options", IDOK, [](HWND dialog) { ... });
//   ShowTheDialog();          // returns when the visit is over and the dialog closed
//   EXPECT_TRUE(visits.Done());
#pragma once

#include <windows.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/unexpected_boxes.h"

namespace test_support {

// One at a time.
class DialogVisits {
 public:
  DialogVisits();
  ~DialogVisits();
  DialogVisits(const DialogVisits&) = delete;
  DialogVisits& operator=(const DialogVisits&) = delete;

  // The next dialog of this thread with that caption gets `visit`, and afterwards, when it is still there,
  // the command `close`. Dialogs are visited in the order in which they are expected; one may come up during
  // another's visit. A dialog that stays open all the same is ended after the time of a wait, and the test fails.
  void Expect(std::string caption, int close, std::function<void(HWND dialog)> visit);

  // Whether every dialog that was expected came.
  bool Done() const { return expected_.empty(); }

 private:
  struct Expected {
    std::string caption;
    int close;
    std::function<void(HWND)> visit;
  };
  struct Leaving {
    HWND dialog;
    ULONGLONG deadline;
  };

  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD);
  void Poll();
  void EndOverdue();

  ExpectsBoxes expects_;
  std::deque<Expected> expected_;
  std::vector<Leaving> leaving_;
  UINT_PTR timer_ = 0;
};

// Posts a key to the window that has the focus and lets the dialog's keyboard handling see it, as its own
// message loop would.
void TypeKey(HWND dialog, WPARAM key);
// The same for a letter while Alt is held down.
void TypeAccessKey(HWND dialog, char letter);
// Presses a button by its id, at once; returns when the dialog has dealt with it.
void PressButton(HWND dialog, int id);
// Chooses an entry of a drop-down list as a user would: the dialog is notified.
void ChooseEntry(HWND dialog, int id, int index);

}  // namespace test_support
