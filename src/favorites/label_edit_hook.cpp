#include "src/favorites/label_edit_hook.h"

#include "src/framework/module_context.h"

namespace file_explorer {
namespace {

constexpr char kPreviousProcedure[] = "1AFD44F7-ECEE-49e8-AE72-37D663499A44";

LRESULT CALLBACK EditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const ModuleContext context;
  const auto previous = reinterpret_cast<WNDPROC>(GetPropA(window, kPreviousProcedure));
  if (message == WM_NCDESTROY) UnhookLabelEdit(window);
  if (message == WM_GETDLGCODE && (wParam == VK_RETURN || wParam == VK_ESCAPE)) return DLGC_WANTALLKEYS;
  return previous != nullptr ? CallWindowProcA(previous, window, message, wParam, lParam)
                             : DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

void HookLabelEdit(HWND edit) {
  if (edit == nullptr || GetPropA(edit, kPreviousProcedure) != nullptr) return;
  const auto previous = reinterpret_cast<HANDLE>(GetWindowLongPtrA(edit, GWLP_WNDPROC));
  if (!SetPropA(edit, kPreviousProcedure, previous)) return;
  SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EditProcedure));
}

void UnhookLabelEdit(HWND edit) {
  if (edit == nullptr) return;
  const HANDLE previous = RemovePropA(edit, kPreviousProcedure);
  if (previous != nullptr) SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
}

}  // namespace file_explorer
