#include <windows.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>

#include <memory>

#include "src/host/vc64_imp.h"
#include "workbench/imp/host_text.h"
#include "workbench/imp/placement.h"

using namespace workbench::imp;

struct ImportToolTipControl {
  HWND window;
};

namespace {

constexpr char kControlProperty[] = "HalvoImportToolTipControl";

Box BoxOf(const RECT& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}

bool AddOwnerAsTool(HWND tip, HWND owner) {
  TTTOOLINFOA tool = {};
  tool.cbSize = TTTOOLINFOA_V2_SIZE;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = owner;
  tool.uId = reinterpret_cast<UINT_PTR>(owner);
  tool.lpszText = LPSTR_TEXTCALLBACKA;
  return SendMessageA(tip, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool)) != FALSE;
}

// The window that a window is centred on: a child's parent, else the owner; null for the screen.
HWND WindowAround(HWND window) {
  const bool child = (GetWindowLongA(window, GWL_STYLE) & WS_CHILD) != 0;
  const HWND around = child ? GetAncestor(window, GA_PARENT) : GetWindow(window, GW_OWNER);
  return around && !IsIconic(around) ? around : nullptr;
}

RECT WorkAreaOf(HWND window) {
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof(monitor);
  if (GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor)) return monitor.rcWork;
  return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

}  // namespace

ImportToolTipControl* Import_IO_ToolTipControl_CreateNew(HWND owner) {
  return Guarded(static_cast<ImportToolTipControl*>(nullptr), [&]() -> ImportToolTipControl* {
    if (!IsWindow(owner)) return nullptr;
    const INITCOMMONCONTROLSEX classes = {sizeof(classes), ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    auto control = std::make_unique<ImportToolTipControl>();
    control->window = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr,
                                      WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, CW_USEDEFAULT, CW_USEDEFAULT,
                                      CW_USEDEFAULT, CW_USEDEFAULT, owner, nullptr, nullptr, nullptr);
    if (!control->window) return nullptr;
    // The owner takes the window with it when it is destroyed first; the mark tells that from a window that
    // was made later and got the same handle.
    if (!SetPropA(control->window, kControlProperty, control.get()) ||
        !AddOwnerAsTool(control->window, owner)) {
      DestroyWindow(control->window);
      return nullptr;
    }
    return control.release();
  });
}

void Import_IO_ToolTipControl_Delete(ImportToolTipControl* control) {
  const std::unique_ptr<ImportToolTipControl> owned(control);
  if (!control || !IsWindow(control->window) || GetPropA(control->window, kControlProperty) != control)
    return;
  RemovePropA(control->window, kControlProperty);
  DestroyWindow(control->window);
}

int Import_IO_Center_Window(HWND window) {
  RECT rect;
  if (!IsWindow(window) || !GetWindowRect(window, &rect)) return 0;
  const HWND around = WindowAround(window);
  const RECT workArea = WorkAreaOf(around ? around : window);
  RECT aroundRect = workArea;
  if (around) GetWindowRect(around, &aroundRect);
  const Point corner = CenteredCorner(BoxOf(rect), BoxOf(aroundRect), BoxOf(workArea));
  POINT position = {corner.x, corner.y};
  if (GetWindowLongA(window, GWL_STYLE) & WS_CHILD) ScreenToClient(GetAncestor(window, GA_PARENT), &position);
  return SetWindowPos(window, nullptr, position.x, position.y, 0, 0,
                      SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
