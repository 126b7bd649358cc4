// The sinks of the three controls' events. Each looks an event's DISPID up in a table, checks and decodes the
// arguments and calls the ControlEventCallback of its host. A malformed event is answered S_OK and goes no
// further.
#pragma once

#include <windows.h>

#include <span>

#include "src/framework/com/com_object.h"
#include "src/framework/com/dispatch_impl.h"
#include "src/shellhost/control_contract.h"
#include "src/shellhost/shell_control_host.h"

namespace file_explorer {

// A sink's back pointer to its host; null before the host connects the sink and after the host is gone.
class ControlEventSink {
 public:
  void SetHost(ShellControlHost* host) noexcept { host_ = host; }
  ShellControlHost* host() const noexcept { return host_; }

 protected:
  ~ControlEventSink() = default;

 private:
  ShellControlHost* host_ = nullptr;
};

class CFileViewSinkEvents
    : public IDispatchImpl<_DFileViewEvents, &DIID_FileViewEvents, &LIBID_FileViewControl, 1, 0>,
      public CComObjectRootEx<CComSingleThreadModel>,
      public ControlEventSink {
 public:
  static std::span<const InterfaceEntry> Interfaces();
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;
};

class CFolderViewSinkEvents
    : public IDispatchImpl<_DFolderViewEvents, &DIID_FolderViewEvents, &LIBID_FolderViewControl, 1, 0>,
      public CComObjectRootEx<CComSingleThreadModel>,
      public ControlEventSink {
 public:
  static std::span<const InterfaceEntry> Interfaces();
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;
};

// Takes the combo view's events; none reaches the explorer.
class CComboViewSinkEvents
    : public IDispatchImpl<_DShComboBoxEvents, &DIID_ComboViewEvents, &LIBID_ComboViewControl, 1, 0>,
      public CComObjectRootEx<CComSingleThreadModel>,
      public ControlEventSink {
 public:
  static std::span<const InterfaceEntry> Interfaces();
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;
};

}  // namespace file_explorer
