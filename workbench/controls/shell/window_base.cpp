#include "workbench/controls/shell/window_base.h"

#include <map>
#include <unordered_map>
#include <utility>

#include "workbench/controls/com/class_server.h"

namespace controls {
namespace {

// Windows live on one thread of the host.
std::map<std::wstring, int>& ClassUses() {
  static std::map<std::wstring, int> uses;
  return uses;
}

}  // namespace

bool WindowClassUse::Acquire(const wchar_t* name, WNDPROC procedure) {
  if (!name_.empty()) return true;
  if (ClassUses()[name] == 0) {
    WNDCLASSEXW info = {};
    info.cbSize = sizeof(info);
    info.style = CS_DBLCLKS;
    info.lpfnWndProc = procedure;
    info.hInstance = ModuleInstance();
    info.hCursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    info.lpszClassName = name;
    if (RegisterClassExW(&info) == 0 && GetLastError() != ERROR_CLASS_ALREADY_EXISTS) return false;
  }
  name_ = name;
  ++ClassUses()[name_];
  return true;
}

void WindowClassUse::Release() {
  if (name_.empty()) return;
  if (--ClassUses()[name_] == 0) UnregisterClassW(name_.c_str(), ModuleInstance());
  name_.clear();
}

bool WindowBase::Create(const wchar_t* className, HWND parent, const RECT& rect) {
  return Create(className, parent, rect, {WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT});
}

bool WindowBase::Create(const wchar_t* className, HWND parent, const RECT& rect, const Look& look) {
  // Also makes sure that the library of the list, the tree and the box is loaded.
  const INITCOMMONCONTROLSEX classes = {
      sizeof(classes), ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES | ICC_USEREX_CLASSES | ICC_PROGRESS_CLASS};
  InitCommonControlsEx(&classes);
  if (!class_.Acquire(className, Procedure)) return false;
  CreateWindowExW(look.extended, className, look.title, look.style, rect.left, rect.top, rect.right - rect.left,
                  rect.bottom - rect.top, parent, nullptr, ModuleInstance(), this);
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

namespace {

struct Subclassed {
  WNDPROC original;
  Subclass* subclass;  // null once detached under somebody else's procedure
};

// Windows live on one thread of the host, and there are a handful of them.
std::unordered_map<HWND, Subclassed>& SubclassedWindows() {
  static std::unordered_map<HWND, Subclassed> windows;
  return windows;
}

}  // namespace

void Subclass::Attach(HWND window) {
  Detach();
  auto& windows = SubclassedWindows();
  const auto known = windows.find(window);
  if (known != windows.end()) {
    known->second.subclass = this;
  } else {
    const auto original = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure)));
    if (!original) return;
    windows[window] = {original, this};
  }
  window_ = window;
}

void Subclass::Detach() {
  const HWND window = std::exchange(window_, nullptr);
  auto& windows = SubclassedWindows();
  const auto entry = windows.find(window);
  if (!window || entry == windows.end()) return;
  entry->second.subclass = nullptr;
  // Somebody who came later calls our procedure: it stays, and only passes on.
  if (GetWindowLongPtrW(window, GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(&Procedure)) return;
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(entry->second.original));
  windows.erase(entry);
}

LRESULT Subclass::Original(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto& windows = SubclassedWindows();
  const auto entry = windows.find(window);
  return entry == windows.end() ? DefWindowProcW(window, message, wParam, lParam)
                                : CallWindowProcW(entry->second.original, window, message, wParam, lParam);
}

LRESULT CALLBACK Subclass::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
  auto& windows = SubclassedWindows();
  const auto entry = windows.find(window);
  if (entry == windows.end()) return DefWindowProcW(window, message, wParam, lParam);
  const Subclassed found = entry->second;
  if (message == WM_NCDESTROY) {
    if (found.subclass) found.subclass->window_ = nullptr;
    windows.erase(entry);
    return CallWindowProcW(found.original, window, message, wParam, lParam);
  }
  try {
    if (found.subclass) return found.subclass->HandleSubclassed(window, message, wParam, lParam);
  } catch (...) {
    // The window's own handling is the best that is left.
  }
  return CallWindowProcW(found.original, window, message, wParam, lParam);
}

}  // namespace controls
