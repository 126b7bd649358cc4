// What a plug-in must leave alone in its host's process, as one comparable value.
#pragma once

#include <windows.h>

#include <ostream>
#include <string>

namespace test_support {

struct ProcessState {
  std::string currentDirectory;
  std::string locale;        // of the C library
  std::string dllDirectory;  // SetDllDirectory
  UINT errorMode = 0;
  unsigned floatControl = 0;  // precision, rounding and exceptions
  HANDLE activationContext = nullptr;
  std::string environment;  // all variables

  bool operator==(const ProcessState&) const = default;
};

ProcessState CaptureProcessState();
std::ostream& operator<<(std::ostream& stream, const ProcessState& state);

}  // namespace test_support
