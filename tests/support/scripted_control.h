// A small ActiveX control for tests of its container: it logs every call in order and does what a script
// says.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <oleidl.h>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "src/framework/com/com_object.h"

namespace test_support {

using file_explorer::ComPtr;

class ScriptedControl;

// What a call of the control does instead of its work.
enum class Fault {
  kFails,   // returns E_FAIL
  kThrows,  // throws a C++ exception
  kRaises,  // raises a structured exception, as a crash or another compiler's exception does
};

// What the control's dispatch interface answers: the call's flags and arguments, and where its result goes
// (may be null).
using Member = std::function<HRESULT(WORD flags, DISPPARAMS* parameters, VARIANT* result)>;

struct ControlScript {
  DWORD miscStatus = OLEMISC_SETCLIENTSITEFIRST;
  std::vector<IID> missing;  // interfaces that the control doesn't have
  std::map<std::string, Fault>
      faults;  // by call: "GetMiscStatus", "SetClientSite", "InitNew", "Load", "DoVerb", ...
  std::vector<std::wstring> bagReads;  // what it reads from a property bag
  std::vector<DISPID> ambientReads;    // what it asks its site for when it is activated
  IID dispatchId = IID_IDispatch;
  IID eventId = IID_IDispatch;
  std::map<DISPID, Member> members;  // others: a put is taken, a get gives nothing
  std::map<std::wstring, DISPID> names;  // members that are known by name; without any: E_NOTIMPL
  bool windowless = false;           // activates without a window of its own
};

// Registers the scripted control under a class id, for this process. Everything that a control reports lands
// here, so the object must outlive its controls.
class ScriptedClass {
 public:
  ScriptedClass(const CLSID& classId, ControlScript script);
  ~ScriptedClass();
  ScriptedClass(const ScriptedClass&) = delete;
  ScriptedClass& operator=(const ScriptedClass&) = delete;

  ControlScript script;
  std::vector<std::string> log;
  int created = 0;
  int alive = 0;
  ScriptedControl* control = nullptr;                                  // the newest; null when it is gone
  std::map<std::wstring, std::pair<HRESULT, std::wstring>> bagValues;  // results of bagReads, values as texts
  std::map<DISPID, HRESULT> ambientResults;

  // The part of the log that begins with one of the words.
  std::vector<std::string> LogOf(const std::set<std::string>& words) const;

 private:
  ComPtr<IClassFactory> factory_;
  DWORD registration_ = 0;
};

// The control. Not made directly: CoCreateInstance of a ScriptedClass's id gives one.
class ScriptedControl : public IOleObject,
                        public IViewObject,
                        public IOleInPlaceObjectWindowless,
                        public IOleControl,
                        public IPersistStreamInit,
                        public IPersistStream,
                        public IPersistPropertyBag,
                        public IConnectionPointContainer,
                        public IConnectionPoint,
                        public IDispatch {
 public:
  explicit ScriptedControl(ScriptedClass& owner);

  // Raises an event; arguments in declaration order, they stay the caller's. E_UNEXPECTED without a sink.
  HRESULT Fire(DISPID id, const std::vector<VARIANT>& arguments);
  bool HasSink() const { return sink_ != nullptr; }
  IOleClientSite* clientSite() const { return clientSite_.Get(); }
  IAdviseSink* viewSink() const { return viewSink_.Get(); }
  HWND window() const { return window_; }
  ULONG references() const { return static_cast<ULONG>(references_); }

  // IUnknown
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;
  // IOleObject
  HRESULT STDMETHODCALLTYPE SetClientSite(IOleClientSite* site) override;
  HRESULT STDMETHODCALLTYPE GetClientSite(IOleClientSite** site) override;
  HRESULT STDMETHODCALLTYPE SetHostNames(LPCOLESTR, LPCOLESTR) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Close(DWORD option) override;
  HRESULT STDMETHODCALLTYPE SetMoniker(DWORD, IMoniker*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD, DWORD, IMoniker**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE InitFromData(IDataObject*, BOOL, DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetClipboardData(DWORD, IDataObject**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                                   LPCRECT rect) override;
  HRESULT STDMETHODCALLTYPE EnumVerbs(IEnumOLEVERB**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Update() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE IsUpToDate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetUserClassID(CLSID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetUserType(DWORD, LPOLESTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetExtent(DWORD, SIZEL*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE GetExtent(DWORD, SIZEL*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Advise(IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE EnumAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetMiscStatus(DWORD aspect, DWORD* status) override;
  HRESULT STDMETHODCALLTYPE SetColorScheme(LOGPALETTE*) override { return E_NOTIMPL; }
  // IViewObject
  HRESULT STDMETHODCALLTYPE Draw(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, HDC, LPCRECTL, LPCRECTL,
                                 BOOL(STDMETHODCALLTYPE*)(ULONG_PTR), ULONG_PTR) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Freeze(DWORD, LONG, void*, DWORD*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Unfreeze(DWORD) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  HRESULT STDMETHODCALLTYPE GetAdvise(DWORD*, DWORD*, IAdviseSink**) override { return E_NOTIMPL; }
  // IOleInPlaceObjectWindowless
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE InPlaceDeactivate() override;
  HRESULT STDMETHODCALLTYPE UIDeactivate() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE SetObjectRects(LPCRECT position, LPCRECT clip) override;
  HRESULT STDMETHODCALLTYPE ReactivateAndUndo() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnWindowMessage(UINT, WPARAM, LPARAM, LRESULT*) override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE GetDropTarget(IDropTarget**) override { return E_NOTIMPL; }
  // IOleControl
  HRESULT STDMETHODCALLTYPE GetControlInfo(CONTROLINFO*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE OnMnemonic(MSG*) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE OnAmbientPropertyChange(DISPID id) override;
  HRESULT STDMETHODCALLTYPE FreezeEvents(BOOL) override { return S_OK; }
  // IPersistStreamInit, IPersistStream, IPersistPropertyBag
  HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE IsDirty() override { return S_FALSE; }
  HRESULT STDMETHODCALLTYPE Load(IStream* stream) override;
  HRESULT STDMETHODCALLTYPE Save(IStream*, BOOL) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetSizeMax(ULARGE_INTEGER*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE InitNew() override;
  HRESULT STDMETHODCALLTYPE Load(IPropertyBag* bag, IErrorLog* errors) override;
  HRESULT STDMETHODCALLTYPE Save(IPropertyBag*, BOOL, BOOL) override { return E_NOTIMPL; }
  // IConnectionPointContainer, IConnectionPoint
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;
  HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Advise(IUnknown* sink, DWORD* cookie) override;
  HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override;
  HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
  // IDispatch
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 private:
  virtual ~ScriptedControl();
  HRESULT Step(const std::string& call, const std::string& details = {});
  void* Find(REFIID iid);
  void Activate(IOleClientSite* site);
  void Deactivate();

  ScriptedClass& owner_;
  LONG references_ = 0;
  ComPtr<IOleClientSite> clientSite_;
  ComPtr<IOleInPlaceSite> inPlaceSite_;
  ComPtr<IAdviseSink> viewSink_;
  ComPtr<IDispatch> sink_;
  HWND window_ = nullptr;
};

// An item object as the shell controls hand them out; its fields may be changed at any time.
class ScriptedItem : public IDispatch,
                     public file_explorer::CComObjectRootEx<file_explorer::CComSingleThreadModel> {
 public:
  static std::span<const file_explorer::InterfaceEntry> Interfaces();

  ULONG attributes = 0;
  std::wstring name;
  std::wstring fullPath;
  std::wstring folderText;
  double pidl = 0;
  LONG sortKey = 0;
  VARIANT_BOOL selected = VARIANT_FALSE;
  ComPtr<IDispatch> parent;
  std::map<DISPID, HRESULT> failures;
  std::function<void(DISPID id)> whenAsked;  // called before a call is answered; may do anything
  std::vector<std::string> log;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 protected:
  virtual ~ScriptedItem() = default;
};

// A call of a dispatch interface as a log line: "put 4 bool -1", "get 47(3)", "method 44()".
std::string DescribeCall(DISPID id, WORD flags, const DISPPARAMS* parameters);

}  // namespace test_support
