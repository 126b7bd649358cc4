// Ends a test program whose test stands still: in a modal loop that nobody ends, in a wait or a loop without
// an end.
#pragma once

namespace test_support {

// From now on each test may take some minutes, of which a busy machine needs a fraction. Where one takes
// longer, the program says in which test, what windows are up and where its thread is, keeps a picture of the
// screen, and ends with a code that is not 0. EXPLORER_TEST_SECONDS in the environment sets another limit.
// Call it on the thread that runs the tests, after GoogleTest was initialised.
void StartWatchdog();

}  // namespace test_support
