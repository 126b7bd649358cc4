// The part of an ActiveX control that has nothing to do with what it shows: site, activation, persistence,
// events.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>

#include <optional>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/com/connection_point.h"
#include "workbench/controls/com/dispatch.h"

namespace controls {

// A windowed, in-place activated control of the apartment model. Life: constructed, site set, loaded or
// initialised, activated (window made as a child of the site's window), closed. Properties work in every
// state; those that concern the window are applied when it is made. After Close the object answers, but does
// nothing.
class OleControl : public IOleObject,
                   public IOleControl,
                   public IOleInPlaceObject,
                   public IOleInPlaceActiveObject,
                   public IPersistStreamInit,
                   public IPersistPropertyBag,
                   public IViewObject2,
                   public IConnectionPointContainer,
                   public IProvideClassInfo2,
                   public IDispatch {
 public:
  void* Interface(REFIID iid);

  // IOleObject
  STDMETHODIMP SetClientSite(IOleClientSite* site) override;
  STDMETHODIMP GetClientSite(IOleClientSite** site) override;
  STDMETHODIMP SetHostNames(LPCOLESTR application, LPCOLESTR document) override;
  STDMETHODIMP Close(DWORD saveOption) override;
  STDMETHODIMP SetMoniker(DWORD which, IMoniker* moniker) override;
  STDMETHODIMP GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
  STDMETHODIMP InitFromData(IDataObject* data, BOOL creation, DWORD reserved) override;
  STDMETHODIMP GetClipboardData(DWORD reserved, IDataObject** data) override;
  STDMETHODIMP DoVerb(LONG verb, LPMSG message, IOleClientSite* site, LONG index, HWND parent,
                      LPCRECT rect) override;
  STDMETHODIMP EnumVerbs(IEnumOLEVERB** verbs) override;
  STDMETHODIMP Update() override;
  STDMETHODIMP IsUpToDate() override;
  STDMETHODIMP GetUserClassID(CLSID* id) override;
  STDMETHODIMP GetUserType(DWORD form, LPOLESTR* type) override;
  STDMETHODIMP SetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP GetExtent(DWORD aspect, SIZEL* size) override;
  STDMETHODIMP Advise(IAdviseSink* sink, DWORD* cookie) override;
  STDMETHODIMP Unadvise(DWORD cookie) override;
  STDMETHODIMP EnumAdvise(IEnumSTATDATA** advises) override;
  STDMETHODIMP GetMiscStatus(DWORD aspect, DWORD* status) override;
  STDMETHODIMP SetColorScheme(LOGPALETTE* palette) override;

  // IOleControl
  STDMETHODIMP GetControlInfo(CONTROLINFO* info) override;
  STDMETHODIMP OnMnemonic(MSG* message) override;
  STDMETHODIMP OnAmbientPropertyChange(DISPID id) override;
  STDMETHODIMP FreezeEvents(BOOL freeze) override;

  // IOleWindow, IOleInPlaceObject, IOleInPlaceActiveObject
  STDMETHODIMP GetWindow(HWND* window) override;
  STDMETHODIMP ContextSensitiveHelp(BOOL enter) override;
  STDMETHODIMP InPlaceDeactivate() override;
  STDMETHODIMP UIDeactivate() override;
  STDMETHODIMP SetObjectRects(LPCRECT position, LPCRECT clip) override;
  STDMETHODIMP ReactivateAndUndo() override;
  STDMETHODIMP TranslateAccelerator(LPMSG message) override;
  STDMETHODIMP OnFrameWindowActivate(BOOL activate) override;
  STDMETHODIMP OnDocWindowActivate(BOOL activate) override;
  STDMETHODIMP ResizeBorder(LPCRECT border, IOleInPlaceUIWindow* window, BOOL frame) override;
  STDMETHODIMP EnableModeless(BOOL enable) override;

  // IPersist, IPersistStreamInit, IPersistPropertyBag
  STDMETHODIMP GetClassID(CLSID* id) override;
  STDMETHODIMP IsDirty() override;
  STDMETHODIMP Load(IStream* stream) override;
  STDMETHODIMP Save(IStream* stream, BOOL clearDirty) override;
  STDMETHODIMP GetSizeMax(ULARGE_INTEGER* size) override;
  STDMETHODIMP InitNew() override;
  STDMETHODIMP Load(IPropertyBag* bag, IErrorLog* log) override;
  STDMETHODIMP Save(IPropertyBag* bag, BOOL clearDirty, BOOL all) override;

  // IViewObject2
  STDMETHODIMP Draw(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC targetContext,
                    HDC context, LPCRECTL bounds, LPCRECTL metafileBounds, BOOL(CALLBACK* goOn)(ULONG_PTR),
                    ULONG_PTR goOnArgument) override;
  STDMETHODIMP GetColorSet(DWORD aspect, LONG index, void* aspectInfo, DVTARGETDEVICE* device, HDC context,
                           LOGPALETTE** colors) override;
  STDMETHODIMP Freeze(DWORD aspect, LONG index, void* aspectInfo, DWORD* freeze) override;
  STDMETHODIMP Unfreeze(DWORD freeze) override;
  STDMETHODIMP SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) override;
  STDMETHODIMP GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) override;
  STDMETHODIMP GetExtent(DWORD aspect, LONG index, DVTARGETDEVICE* device, LPSIZEL size) override;

  // IConnectionPointContainer, IProvideClassInfo2
  STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
  STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;
  STDMETHODIMP GetClassInfo(ITypeInfo** info) override;
  STDMETHODIMP GetGUID(DWORD kind, GUID* id) override;

  // IDispatch
  STDMETHODIMP GetTypeInfoCount(UINT* count) override;
  STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
  STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* params, VARIANT* result,
                      EXCEPINFO* exception, UINT* badArgument) override;

 protected:
  OleControl();
  virtual ~OleControl();

  // The control's members; self is what the handlers get.
  virtual DispatchTable Members() = 0;
  virtual void* MembersSelf() = 0;
  // Makes the control's window (hidden) as a child of parent. Called with the module's activation context
  // entered.
  virtual HWND CreateControlWindow(HWND parent, const RECT& rect) = 0;
  // Destroys what CreateControlWindow made. The window may be gone already, when the parent was destroyed
  // first.
  virtual void DestroyControlWindow() = 0;
  // Closes if the container did not; each derived destructor calls it, while its members still live.
  void CloseOnce();
  // The last chance to let go of other objects; called once, before the window goes.
  virtual void OnClose() {}
  // The window that gets the keyboard focus when the control is activated by the user.
  virtual HWND FocusWindow() { return window_; }

  HWND window() const { return window_; }
  bool closed() const { return closed_; }
  // To be called when the window was destroyed from outside.
  void ForgetWindow() { window_ = nullptr; }
  // To be called when the focus comes into the control.
  void OnGotFocus();

  ConnectionPoint& events() { return *events_.get(); }
  bool eventsFrozen() const { return freezeCount_ != 0; }

 private:
  HRESULT ActivateInPlace(IOleClientSite* site, HWND parent, LPCRECT rect);
  HRESULT EnterSite(HWND& parent, RECT& rect);
  HRESULT ActivateUi();
  void Leave();

  ComRef<IOleClientSite> site_;
  ComRef<IOleInPlaceSite> inPlaceSite_;
  ComRef<IOleInPlaceFrame> frame_;
  ComRef<IOleAdviseHolder> adviseHolder_;
  ComRef<IAdviseSink> viewSink_;
  DWORD viewAspects_ = 0;
  DWORD viewFlags_ = 0;
  ComRef<ComObject<ConnectionPoint>> events_;
  ComRef<ITypeInfo> typeInfo_;
  HWND window_ = nullptr;
  SIZEL extent_ = {};
  int freezeCount_ = 0;
  bool uiActive_ = false;
  bool closed_ = false;
};

}  // namespace controls
