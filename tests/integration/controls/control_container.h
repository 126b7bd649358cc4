// A small container that hosts one control in a window, and short ways to call a control.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>
#include <shlobj.h>

#include <string>
#include <vector>

#include "tests/integration/controls/event_log.h"
#include "workbench/controls/com/bstr.h"
#include "workbench/controls/com/com_object.h"

namespace controls_test {

using controls::ComRef;
using controls::Variant;

struct ControlKind {
  const wchar_t* file;
  CLSID classId;
  IID dispatchId;
  IID eventsId;
};
extern const ControlKind kFileView;
extern const ControlKind kFolderView;
extern const ControlKind kComboView;

// The control's module, loaded from the folder of the test program and never freed, as the explorer does it.
HMODULE ModuleOf(const ControlKind& kind);
HRESULT CreateFromModule(const ControlKind& kind, IUnknown** object);
bool CanUnload(const ControlKind& kind);

// Calls by DISPID. Failures are reported through the HRESULT.
HRESULT Put(IDispatch* object, DISPID id, const VARIANT& value);
HRESULT PutBool(IDispatch* object, DISPID id, bool value);
HRESULT PutLong(IDispatch* object, DISPID id, long value);
HRESULT PutObject(IDispatch* object, DISPID id, IUnknown* value);
HRESULT PutPidl(IDispatch* object, DISPID id, const ITEMIDLIST* pidl);
HRESULT Get(IDispatch* object, DISPID id, VARIANT* result, std::vector<VARIANT> arguments = {});
long GetLong(IDispatch* object, DISPID id);
long GetLong(IDispatch* object, DISPID id, long argument);
bool GetBool(IDispatch* object, DISPID id);
std::wstring GetText(IDispatch* object, DISPID id);
ComRef<IDispatch> GetObject(IDispatch* object, DISPID id);
ComRef<IDispatch> GetObject(IDispatch* object, DISPID id, long argument);
const ITEMIDLIST* GetPidl(IDispatch* object, DISPID id);
HRESULT CallMethod(IDispatch* object, DISPID id, std::vector<VARIANT> arguments = {},
                   VARIANT* result = nullptr);
VARIANT LongValue(long value);
VARIANT BoolValue(bool value);

struct HostedOptions {
  bool connectEvents = true;
  SIZE size = {700, 420};
};

// A control in place in a window of its own.
class Hosted {
 public:
  explicit Hosted(const ControlKind& kind, const HostedOptions& options = {});
  ~Hosted();
  Hosted(const Hosted&) = delete;
  Hosted& operator=(const Hosted&) = delete;

  IDispatch* operator->() const { return dispatch_.get(); }
  IDispatch* dispatch() const { return dispatch_.get(); }
  IUnknown* unknown() const { return unknown_.get(); }
  HWND frame() const { return frame_; }
  HWND window() const;
  EventLog& log() { return *log_; }
  // Detaches in the order of the explorer's site and lets go of everything.
  void Close();

  // Of the file view.
  void Go(const std::wstring& path);
  // Goes there and waits until the folder is read.
  bool GoAndWait(const std::wstring& path);
  HWND list() const;
  std::vector<std::wstring> Names() const;
  std::wstring CellText(int row, int column) const;
  int RowOf(const std::wstring& name) const;

 private:
  class Site;
  HWND frame_ = nullptr;
  ComRef<IUnknown> unknown_;
  ComRef<IDispatch> dispatch_;
  ComRef<IOleObject> ole_;
  ComRef<IOleInPlaceObject> inPlace_;
  ComRef<IConnectionPoint> point_;
  EventLog* log_ = nullptr;
  DWORD cookie_ = 0;
};

// Base of the tests: OLE is initialised, nothing of the control is left at the end.
std::wstring ListText(HWND list, int row, int column);

}  // namespace controls_test
