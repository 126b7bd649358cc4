#include "src/shellhost/shell_control_state.h"

#include <ocidl.h>
#include <olectl.h>

#include <utility>

#include "src/shellhost/shell_controls.h"

namespace file_explorer {
namespace {

struct SharedState {
  ComPtr<IFontDisp> font;
  DWORD comThread = 0;
  int comInitializations = 0;  // on comThread
};

SharedState& State() {
  static SharedState state;
  return state;
}

}  // namespace

// Always 9 points, whatever the screen's size and resolution: the control scales a font by itself.
ComPtr<IFontDisp> CreateControlFont() {
  wchar_t faceName[] = L"MS Sans Serif";
  FONTDESC description = {};
  description.cbSizeofstruct = sizeof(description);
  description.lpstrName = faceName;
  description.cySize.int64 = 90000;
  ComPtr<IFontDisp> font;
  OleCreateFontIndirect(&description, IID_IFontDisp, reinterpret_cast<void**>(font.ReleaseAndGetAddressOf()));
  return font;
}

IFontDisp* SharedControlFont() {
  ComPtr<IFontDisp>& font = State().font;
  if (!font) font = CreateControlFont();
  return font.Get();
}

void InitializeComForControls() {
  const HRESULT result = CoInitialize(nullptr);
  SharedState& state = State();
  if (state.comInitializations == 0) state.comThread = GetCurrentThreadId();
  if (SUCCEEDED(result) && state.comThread == GetCurrentThreadId()) ++state.comInitializations;
}

void ReleaseShellControlState() noexcept {
  SharedState& state = State();
  state.font.Reset();
  if (state.comThread != GetCurrentThreadId()) return;
  for (int left = std::exchange(state.comInitializations, 0); left > 0; --left) CoUninitialize();
}

}  // namespace file_explorer
