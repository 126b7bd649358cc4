#include "workbench/controls/com/ole_control.h"

#include <windows.h>

#include <shlwapi.h>

#include <cwchar>

#include "workbench/controls/com/class_server.h"

namespace controls {
namespace {

// One inch has 2540 hundredths of a millimetre.
constexpr int kHimetricPerInch = 2540;

SIZEL DefaultExtent() {
  return {kHimetricPerInch * 3, kHimetricPerInch * 2};
}

}  // namespace

OleControl::OleControl()
    : events_(ComObject<ConnectionPoint>::Create(static_cast<IConnectionPointContainer*>(this),
                                                 *kServedClass.eventsId)),
      extent_(DefaultExtent()) {}

OleControl::~OleControl() {
  events_->Disconnect();
}

void* OleControl::Interface(REFIID iid) {
  using C = OleControl;
  static const InterfaceRow<C> kRows[] = {
      Row<C, IOleObject>(IID_IUnknown),
      Row<C, IOleObject>(IID_IOleObject),
      Row<C, IDispatch>(IID_IDispatch),
      Row<C, IDispatch>(*kServedClass.dispatchId),
      Row<C, IOleControl>(IID_IOleControl),
      Row<C, IOleInPlaceObject>(IID_IOleInPlaceObject),
      Row<C, IOleInPlaceObject>(IID_IOleWindow),
      Row<C, IOleInPlaceActiveObject>(IID_IOleInPlaceActiveObject),
      Row<C, IPersistStreamInit>(IID_IPersistStreamInit),
      // The older interface's table is the beginning of the newer one's.
      Row<C, IPersistStreamInit>(IID_IPersistStream),
      Row<C, IPersistStreamInit>(IID_IPersist),
      Row<C, IPersistPropertyBag>(IID_IPersistPropertyBag),
      Row<C, IViewObject2>(IID_IViewObject),
      Row<C, IViewObject2>(IID_IViewObject2),
      Row<C, IConnectionPointContainer>(IID_IConnectionPointContainer),
      Row<C, IProvideClassInfo2>(IID_IProvideClassInfo),
      Row<C, IProvideClassInfo2>(IID_IProvideClassInfo2),
  };
  return FindInterface(kRows, this, iid);
}

// IOleObject

STDMETHODIMP OleControl::SetClientSite(IOleClientSite* site) {
  return Guarded([&] {
    if (!site) {
      Leave();
      viewSink_.reset();
    }
    site_ = site;
    return S_OK;
  });
}

STDMETHODIMP OleControl::GetClientSite(IOleClientSite** site) {
  if (!site) return E_POINTER;
  *site = ComRef<IOleClientSite>(site_).detach();
  return S_OK;
}

STDMETHODIMP OleControl::SetHostNames(LPCOLESTR, LPCOLESTR) {
  return S_OK;
}

STDMETHODIMP OleControl::Close(DWORD) {
  return Guarded([&] {
    // The container may drop its last reference while the window goes.
    const ComRef<IOleObject> self(this);
    CloseOnce();
    if (const ComRef<IOleAdviseHolder> holder = std::move(adviseHolder_)) holder->SendOnClose();
    return S_OK;
  });
}

void OleControl::CloseOnce() {
  if (closed_) return;
  closed_ = true;
  OnClose();
  Leave();
  viewSink_.reset();
}

STDMETHODIMP OleControl::SetMoniker(DWORD, IMoniker*) {
  return E_NOTIMPL;
}
STDMETHODIMP OleControl::GetMoniker(DWORD, DWORD, IMoniker**) {
  return E_NOTIMPL;
}
STDMETHODIMP OleControl::InitFromData(IDataObject*, BOOL, DWORD) {
  return E_NOTIMPL;
}
STDMETHODIMP OleControl::GetClipboardData(DWORD, IDataObject**) {
  return E_NOTIMPL;
}

STDMETHODIMP OleControl::DoVerb(LONG verb, LPMSG, IOleClientSite* site, LONG, HWND parent, LPCRECT rect) {
  return Guarded([&] {
    switch (verb) {
      case OLEIVERB_HIDE:
        if (window_) ShowWindow(window_, SW_HIDE);
        return S_OK;
      case OLEIVERB_INPLACEACTIVATE:
        return ActivateInPlace(site, parent, rect);
      case OLEIVERB_SHOW:
      case OLEIVERB_PRIMARY:
      case OLEIVERB_UIACTIVATE: {
        const HRESULT activated = ActivateInPlace(site, parent, rect);
        return SUCCEEDED(activated) ? ActivateUi() : activated;
      }
      default:
        return verb < 0 ? E_NOTIMPL : static_cast<HRESULT>(OLEOBJ_S_INVALIDVERB);
    }
  });
}

STDMETHODIMP OleControl::EnumVerbs(IEnumOLEVERB**) {
  return OLEOBJ_E_NOVERBS;
}
STDMETHODIMP OleControl::Update() {
  return S_OK;
}
STDMETHODIMP OleControl::IsUpToDate() {
  return S_OK;
}
STDMETHODIMP OleControl::GetUserClassID(CLSID* id) {
  return GetClassID(id);
}

STDMETHODIMP OleControl::GetUserType(DWORD, LPOLESTR* type) {
  return type ? SHStrDupW(kServedClass.displayName, type) : E_POINTER;
}

STDMETHODIMP OleControl::SetExtent(DWORD aspect, SIZEL* size) {
  if (!size) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  extent_ = *size;
  return S_OK;
}

STDMETHODIMP OleControl::GetExtent(DWORD aspect, SIZEL* size) {
  if (!size) return E_POINTER;
  if (aspect != DVASPECT_CONTENT) return DV_E_DVASPECT;
  *size = extent_;
  return S_OK;
}

STDMETHODIMP OleControl::Advise(IAdviseSink* sink, DWORD* cookie) {
  if (!adviseHolder_) {
    const HRESULT created = CreateOleAdviseHolder(adviseHolder_.put());
    if (FAILED(created)) return created;
  }
  return adviseHolder_->Advise(sink, cookie);
}

STDMETHODIMP OleControl::Unadvise(DWORD cookie) {
  return adviseHolder_ ? adviseHolder_->Unadvise(cookie) : static_cast<HRESULT>(OLE_E_NOCONNECTION);
}

STDMETHODIMP OleControl::EnumAdvise(IEnumSTATDATA** advises) {
  if (!advises) return E_POINTER;
  *advises = nullptr;
  return adviseHolder_ ? adviseHolder_->EnumAdvise(advises) : S_OK;
}

STDMETHODIMP OleControl::GetMiscStatus(DWORD aspect, DWORD* status) {
  if (!status) return E_POINTER;
  *status = aspect == DVASPECT_CONTENT ? kServedClass.miscStatus : 0;
  return S_OK;
}

STDMETHODIMP OleControl::SetColorScheme(LOGPALETTE*) {
  return E_NOTIMPL;
}

// IOleControl

STDMETHODIMP OleControl::GetControlInfo(CONTROLINFO* info) {
  if (!info) return E_POINTER;
  info->hAccel = nullptr;
  info->cAccel = 0;
  info->dwFlags = 0;
  return S_OK;
}

STDMETHODIMP OleControl::OnMnemonic(MSG*) {
  return S_OK;
}
STDMETHODIMP OleControl::OnAmbientPropertyChange(DISPID) {
  return S_OK;
}

STDMETHODIMP OleControl::FreezeEvents(BOOL freeze) {
  freezeCount_ += freeze ? 1 : freezeCount_ > 0 ? -1 : 0;
  return S_OK;
}

// IPersistStreamInit, IPersistPropertyBag: the container sets every property again at each start; nothing is
// kept.

STDMETHODIMP OleControl::GetClassID(CLSID* id) {
  if (!id) return E_POINTER;
  *id = *kServedClass.classId;
  return S_OK;
}

STDMETHODIMP OleControl::IsDirty() {
  return S_FALSE;
}
STDMETHODIMP OleControl::Load(IStream* stream) {
  return stream ? S_OK : E_POINTER;
}
STDMETHODIMP OleControl::Save(IStream* stream, BOOL) {
  return stream ? S_OK : E_POINTER;
}

STDMETHODIMP OleControl::GetSizeMax(ULARGE_INTEGER* size) {
  if (!size) return E_POINTER;
  size->QuadPart = 0;
  return S_OK;
}

STDMETHODIMP OleControl::InitNew() {
  return S_OK;
}

STDMETHODIMP OleControl::Load(IPropertyBag* bag, IErrorLog* log) {
  if (!bag) return E_POINTER;
  return Guarded([&] {
    // Every property that can be put with one value may stand in the bag under its name.
    const DispatchTable table = Members();
    for (size_t i = 0; i < table.count; ++i) {
      const DispatchRow& row = table.rows[i];
      if (row.access != Access::kPut || row.arguments != 1) continue;
      Variant value;
      if (FAILED(bag->Read(row.name, &value, log)) || value.vt == VT_EMPTY) continue;
      DISPID putId = DISPID_PROPERTYPUT;
      DISPPARAMS params = {&value, &putId, 1, 1};
      InvokeFromTable(table, MembersSelf(), kServedClass.displayName, row.id, DISPATCH_PROPERTYPUT, &params,
                      nullptr, nullptr, nullptr);
    }
    return S_OK;
  });
}

STDMETHODIMP OleControl::Save(IPropertyBag* bag, BOOL, BOOL) {
  if (!bag) return E_POINTER;
  return Guarded([&] {
    const DispatchTable table = Members();
    for (size_t i = 0; i < table.count; ++i) {
      const DispatchRow& row = table.rows[i];
      if (row.access != Access::kGet || row.arguments != 0) continue;
      DISPPARAMS none = {};
      Variant value;
      InvokeFromTable(table, MembersSelf(), kServedClass.displayName, row.id, DISPATCH_PROPERTYGET, &none,
                      &value, nullptr, nullptr);
      if (value.vt == VT_BOOL) bag->Write(row.name, &value);
    }
    return S_OK;
  });
}

// IConnectionPointContainer, IProvideClassInfo2

STDMETHODIMP OleControl::EnumConnectionPoints(IEnumConnectionPoints** points) {
  if (!points) return E_POINTER;
  *points = nullptr;
  return Guarded([&] {
    std::vector<ComRef<IConnectionPoint>> all{ComRef<IConnectionPoint>(events_.get())};
    *points =
        ComObject<ConnectionPointEnumerator>::Create(IID_IEnumConnectionPoints, std::move(all)).detach();
    return S_OK;
  });
}

STDMETHODIMP OleControl::FindConnectionPoint(REFIID iid, IConnectionPoint** point) {
  if (!point) return E_POINTER;
  *point = nullptr;
  if (!IsEqualIID(iid, *kServedClass.eventsId)) return CONNECT_E_NOCONNECTION;
  *point = ComRef<IConnectionPoint>(events_.get()).detach();
  return S_OK;
}

STDMETHODIMP OleControl::GetClassInfo(ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = TypeInfoOf(*kServedClass.classId).detach();
  return *info ? S_OK : static_cast<HRESULT>(TYPE_E_ELEMENTNOTFOUND);
}

STDMETHODIMP OleControl::GetGUID(DWORD kind, GUID* id) {
  if (!id) return E_POINTER;
  if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
  *id = *kServedClass.eventsId;
  return S_OK;
}

// IDispatch

STDMETHODIMP OleControl::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP OleControl::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  if (!typeInfo_) typeInfo_ = TypeInfoOf(*kServedClass.dispatchId);
  *info = ComRef<ITypeInfo>(typeInfo_).detach();
  return *info ? S_OK : static_cast<HRESULT>(TYPE_E_ELEMENTNOTFOUND);
}

STDMETHODIMP OleControl::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  return IdsFromTable(Members(), names, count, ids);
}

STDMETHODIMP OleControl::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                EXCEPINFO* exception, UINT* badArgument) {
  // A handler may close and release the control.
  const ComRef<IDispatch> self(this);
  return InvokeFromTable(Members(), MembersSelf(), kServedClass.displayName, id, flags, params, result,
                         exception, badArgument);
}

}  // namespace controls
