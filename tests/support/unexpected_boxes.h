// A message box that no test expects would wait for its button until somebody kills the program. The main of
// the test programs watches for such boxes on its thread: the test fails with the box's caption and text, the
// box is answered (Cancel, No or what it has), and the test goes on.
#pragma once

namespace test_support {

// While one exists, message boxes are somebody's business who answers them: a recorder, a driver, a timer of
// the test.
class ExpectsBoxes {
 public:
  ExpectsBoxes();
  ~ExpectsBoxes();
  ExpectsBoxes(const ExpectsBoxes&) = delete;
  ExpectsBoxes& operator=(const ExpectsBoxes&) = delete;
};

// Watches the message boxes of the thread that calls it, until the process ends.
void WatchForUnexpectedBoxes();

// How many came up so far.
int UnexpectedBoxes();

}  // namespace test_support
