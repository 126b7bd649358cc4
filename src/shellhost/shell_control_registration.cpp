// Registering the shell controls through their own files.
#include "src/framework/com/com_guard.h"
#include "src/shellhost/shell_control_state.h"
#include "src/shellhost/shell_controls.h"

namespace file_explorer {

int RegisterShellControl(const ShellControlClass& controlClass) {
  InitializeComForControls();
  const HMODULE library = LoadLibraryA(controlClass.fileName);
  if (reinterpret_cast<std::uintptr_t>(library) < 32) return 0;
  using Register = HRESULT(STDAPICALLTYPE*)();
  const auto registerServer =
      reinterpret_cast<Register>(reinterpret_cast<void (*)()>(GetProcAddress(library, "DllRegisterServer")));
  if (registerServer) RunForeignCode([&] { registerServer(); });
  return 1;  // the file stays loaded: its control is about to be made
}

int RegisterFileViewControl() {
  return RegisterShellControl(kFileViewClass);
}

int RegisterFolderViewControl() {
  return RegisterShellControl(kFolderViewClass);
}

int RegisterComboViewControl() {
  return RegisterShellControl(kComboViewClass);
}

void RegisterFilePaneControls(ControlRegistration fileView, ControlRegistration comboView) {
  static bool registered = false;
  if (registered) return;
  fileView();
  comboView();
  registered = true;
}

}  // namespace file_explorer
