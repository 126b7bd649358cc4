// Inside this folder: reaching a host's control by DISPID.
#pragma once

#include "src/framework/com/com_dispatch.h"
#include "src/shellhost/shell_control_host.h"

namespace file_explorer {

// The dispatch interface of a host's control, borrowed; null for a null host and for one without a site.
inline IDispatch* ControlOf(const ShellControlHost* host) noexcept {
  return host && host->site ? host->control.Get() : nullptr;
}

inline void PutFlag(IDispatch* object, DISPID id, bool on) {
  _com_dispatch_propput(object, id, VT_BOOL, on ? VARIANT_TRUE : VARIANT_FALSE);
}

inline LONG GetNumber(IDispatch* object, DISPID id) {
  LONG value = 0;
  _com_dispatch_propget(object, id, VT_I4, &value);
  return value;
}

inline ComPtr<IDispatch> GetObjectProperty(IDispatch* object, DISPID id) {
  IDispatch* value = nullptr;
  _com_dispatch_propget(object, id, VT_DISPATCH, &value);
  ComPtr<IDispatch> result;
  result.Attach(value);
  return result;
}

inline void CallMethod(IDispatch* object, DISPID id) {
  _com_dispatch_method(object, id, DISPATCH_METHOD, VT_EMPTY, nullptr, nullptr);
}

// Controls give window handles as 32-bit numbers.
inline HWND GetWindowProperty(const ShellControlHost* host, DISPID id) {
  IDispatch* const control = ControlOf(host);
  return control ? reinterpret_cast<HWND>(static_cast<LONG_PTR>(GetNumber(control, id))) : nullptr;
}

// Adds an item to the context menu that a control is building.
LONG AddMenuItem(const ShellControlHost* host, DISPID id, const char* caption, const char* verb);

}  // namespace file_explorer
