// What helps to understand a test that stands still: the windows that are up, where its thread is, and a
// picture of the screen. All of it works while the thread that owns the windows answers no message.
#pragma once

#include <windows.h>

#include <string>

namespace test_support {

// A line each visible top-level window (class, caption, whose it is), indented below it the texts of its
// children. Asks no window procedure. Texts are UTF-8.
std::string DescribeWindows();

// The frames of a thread of this process, one a line: function where its name is known, module and offset.
// The thread is stopped meanwhile; a thread can't describe itself.
std::string DescribeFrames(HANDLE thread);

// Keeps a picture of the screen in the folder that the environment variable EXPLORER_FAILURES names (a path
// of the machine below Wine; without it, or on Windows, nothing happens). Gives the line that says where it
// lies, or nothing.
std::string TakePicture(const std::string& name);

}  // namespace test_support
