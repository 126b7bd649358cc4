#include "tests/support/explorer/process_state.h"

#include <cfloat>
#include <clocale>

namespace test_support {
namespace {

std::string Environment() {
  std::string all;
  char* const block = GetEnvironmentStringsA();
  for (const char* variable = block; *variable != '\0'; variable += lstrlenA(variable) + 1) {
    all.append(variable).append("\n");
  }
  FreeEnvironmentStringsA(block);
  return all;
}

}  // namespace

ProcessState CaptureProcessState() {
  ProcessState state;
  char text[2048] = "";
  GetCurrentDirectoryA(sizeof(text), text);
  state.currentDirectory = text;
  state.locale = setlocale(LC_ALL, nullptr);
  text[0] = '\0';
  GetDllDirectoryA(sizeof(text), text);
  state.dllDirectory = text;
  state.errorMode = GetErrorMode();
  state.floatControl = _controlfp(0, 0);
  GetCurrentActCtx(&state.activationContext);
  ReleaseActCtx(state.activationContext);
  state.environment = Environment();
  return state;
}

std::ostream& operator<<(std::ostream& stream, const ProcessState& state) {
  return stream << "directory " << state.currentDirectory << ", locale " << state.locale << ", DLL directory '"
                << state.dllDirectory << "', error mode " << state.errorMode << ", float " << state.floatControl
                << ", activation context " << state.activationContext << ", environment of "
                << state.environment.size() << " bytes";
}

}  // namespace test_support
