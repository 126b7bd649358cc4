#include "workbench/controls/shell/window_base.h"

#include "workbench/controls/com/class_server.h"

namespace controls {
namespace {

int g_classUses = 0;  // windows live on one thread of the host
const wchar_t* g_className = nullptr;

}  // namespace

bool WindowClassUse::Acquire(const wchar_t* name, WNDPROC procedure) {
  if (held_) return true;
  if (g_classUses == 0) {
    WNDCLASSEXW info = {};
    info.cbSize = sizeof(info);
    info.style = CS_DBLCLKS;
    info.lpfnWndProc = procedure;
    info.hInstance = ModuleInstance();
    info.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    info.lpszClassName = name;
    if (RegisterClassExW(&info) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) return false;
    g_className = name;
  }
  ++g_classUses;
  held_ = true;
  return true;
}

void WindowClassUse::Release() {
  if (!held_) return;
  held_ = false;
  if (--g_classUses == 0) UnregisterClassW(g_className, ModuleInstance());
}

bool WindowBase::Create(const wchar_t* className, HWND parent, const RECT& rect) {
  if (!class_.Acquire(className, Procedure)) return false;
  CreateWindowExW(WS_EX_CONTROLPARENT, className, L"", WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, rect.left, rect.top,
                  rect.right - rect.left, rect.bottom - rect.top, parent, nullptr, ModuleInstance(), this);
  return hwnd_ != nullptr;
}

void WindowBase::Destroy() {
  if (hwnd_) DestroyWindow(hwnd_);
  class_.Release();
}

LRESULT CALLBACK WindowBase::Procedure(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* created = static_cast<WindowBase*>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams);
    created->hwnd_ = hwnd;
    SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* self = reinterpret_cast<WindowBase*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
  if (!self) return DefWindowProcW(hwnd, message, wParam, lParam);
  try {
    const LRESULT result = self->HandleMessage(message, wParam, lParam);
    if (message == WM_NCDESTROY) {
      SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
      self->hwnd_ = nullptr;
    }
    return result;
  } catch (...) {
    return DefWindowProcW(hwnd, message, wParam, lParam);
  }
}

void Subclass::Attach(HWND window) {
  Detach();
  if (SetWindowSubclass(window, Procedure, reinterpret_cast<UINT_PTR>(this), reinterpret_cast<DWORD_PTR>(this))) {
    window_ = window;
  }
}

void Subclass::Detach() {
  if (window_) RemoveWindowSubclass(window_, Procedure, reinterpret_cast<UINT_PTR>(this));
  window_ = nullptr;
}

LRESULT CALLBACK Subclass::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                     DWORD_PTR reference) noexcept {
  auto* self = reinterpret_cast<Subclass*>(reference);
  if (message == WM_NCDESTROY) {
    self->Detach();
    return DefSubclassProc(window, message, wParam, lParam);
  }
  try {
    return self->HandleSubclassed(window, message, wParam, lParam);
  } catch (...) {
    return DefSubclassProc(window, message, wParam, lParam);
  }
}

}  // namespace controls
