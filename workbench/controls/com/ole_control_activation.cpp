// In-place activation and drawing of a control.
#include "workbench/controls/com/class_server.h"
#include "workbench/controls/com/ole_control.h"

namespace controls {

HRESULT OleControl::ActivateInPlace(IOleClientSite* site, HWND parent, LPCRECT rect) {
  if (closed_) return E_UNEXPECTED;
  if (window_) {
    ShowWindow(window_, SW_SHOWNA);
    return S_OK;
  }
  // A container that sets the client site last names it here.
  IOleClientSite* const active = site_ ? site_.get() : site;
  if (!active) return E_UNEXPECTED;
  ComRef<IOleInPlaceSite> inPlace;
  if (FAILED(active->QueryInterface(IID_IOleInPlaceSite, inPlace.put_void()))) return E_NOINTERFACE;
  if (inPlace->CanInPlaceActivate() != S_OK) return E_FAIL;
  inPlaceSite_ = inPlace;

  RECT place = rect ? *rect : RECT{};
  const HRESULT entered = EnterSite(parent, place);
  if (FAILED(entered)) return entered;
  {
    const ActivationScope scope;
    window_ = CreateControlWindow(parent, place);
  }
  if (!window_) {
    Leave();
    return E_OUTOFMEMORY;
  }
  SetObjectRects(&place, &place);
  ShowWindow(window_, SW_SHOWNA);
  return S_OK;
}

HRESULT OleControl::EnterSite(HWND& parent, RECT& rect) {
  ComRef<IOleInPlaceSiteEx> extended;
  HRESULT result;
  if (SUCCEEDED(inPlaceSite_->QueryInterface(IID_IOleInPlaceSiteEx, extended.put_void()))) {
    BOOL noRedraw = FALSE;
    result = extended->OnInPlaceActivateEx(&noRedraw, 0);
  } else {
    result = inPlaceSite_->OnInPlaceActivate();
  }
  if (FAILED(result)) {
    inPlaceSite_.reset();
    return result;
  }
  HWND siteWindow = nullptr;
  if (SUCCEEDED(inPlaceSite_->GetWindow(&siteWindow)) && siteWindow) parent = siteWindow;
  ComRef<IOleInPlaceUIWindow> document;
  RECT position = {};
  RECT clip = {};
  OLEINPLACEFRAMEINFO info = {};
  info.cb = sizeof(info);
  if (SUCCEEDED(inPlaceSite_->GetWindowContext(frame_.put(), document.put(), &position, &clip, &info))) {
    rect = position;
  }
  if (parent) return S_OK;
  Leave();
  return E_INVALIDARG;
}

HRESULT OleControl::ActivateUi() {
  if (!inPlaceSite_ || uiActive_) return S_OK;
  uiActive_ = true;
  inPlaceSite_->OnUIActivate();
  if (frame_) frame_->SetActiveObject(this, kServedClass.displayName);
  if (const HWND focus = FocusWindow()) SetFocus(focus);
  return S_OK;
}

void OleControl::OnGotFocus() {
  if (!inPlaceSite_ || uiActive_ || closed_) return;
  uiActive_ = true;
  inPlaceSite_->OnUIActivate();
  if (frame_) frame_->SetActiveObject(this, kServedClass.displayName);
}

// Leaves the site in the reverse order of entering it. Every step may have been done already.
void OleControl::Leave() {
  UIDeactivate();
  if (window_) {
    DestroyControlWindow();
    window_ = nullptr;
  }
  // The site is told last, and through a copy: it may call back.
  if (const ComRef<IOleInPlaceSite> site = std::move(inPlaceSite_)) site->OnInPlaceDeactivate();
  inPlaceSite_.reset();
  frame_.reset();
}

STDMETHODIMP OleControl::GetWindow(HWND* window) {
  if (!window) return E_POINTER;
  *window = window_;
  return window_ ? S_OK : E_FAIL;
}

STDMETHODIMP OleControl::ContextSensitiveHelp(BOOL) {
  return S_OK;
}

STDMETHODIMP OleControl::InPlaceDeactivate() {
  return Guarded([&] {
    Leave();
    return S_OK;
  });
}

STDMETHODIMP OleControl::UIDeactivate() {
  if (!uiActive_) return S_OK;
  uiActive_ = false;
  if (frame_) frame_->SetActiveObject(nullptr, nullptr);
  if (inPlaceSite_) inPlaceSite_->OnUIDeactivate(FALSE);
  return S_OK;
}

STDMETHODIMP OleControl::SetObjectRects(LPCRECT position, LPCRECT) {
  if (!position) return E_POINTER;
  if (!window_) return S_OK;
  SetWindowPos(window_, nullptr, position->left, position->top, position->right - position->left,
               position->bottom - position->top, SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
  return S_OK;
}

STDMETHODIMP OleControl::ReactivateAndUndo() {
  return INPLACE_E_NOTUNDOABLE;
}
STDMETHODIMP OleControl::TranslateAccelerator(LPMSG) {
  return S_FALSE;
}
STDMETHODIMP OleControl::OnFrameWindowActivate(BOOL) {
  return S_OK;
}
STDMETHODIMP OleControl::OnDocWindowActivate(BOOL) {
  return S_OK;
}
STDMETHODIMP OleControl::ResizeBorder(LPCRECT, IOleInPlaceUIWindow*, BOOL) {
  return S_OK;
}
STDMETHODIMP OleControl::EnableModeless(BOOL) {
  return S_OK;
}

STDMETHODIMP OleControl::Draw(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, HDC context, LPCRECTL bounds,
                              LPCRECTL, BOOL(CALLBACK*)(ULONG_PTR), ULONG_PTR) {
  if (!context || !bounds) return E_INVALIDARG;
  // Only a control without a window is asked to draw itself; an empty frame says where it will be.
  const RECT rect = {bounds->left, bounds->top, bounds->right, bounds->bottom};
  FillRect(context, &rect, GetSysColorBrush(COLOR_WINDOW));
  FrameRect(context, &rect, GetSysColorBrush(COLOR_BTNSHADOW));
  return S_OK;
}

STDMETHODIMP OleControl::GetColorSet(DWORD, LONG, void*, DVTARGETDEVICE*, HDC, LOGPALETTE** colors) {
  if (colors) *colors = nullptr;
  return S_FALSE;
}

STDMETHODIMP OleControl::Freeze(DWORD, LONG, void*, DWORD*) {
  return E_NOTIMPL;
}
STDMETHODIMP OleControl::Unfreeze(DWORD) {
  return E_NOTIMPL;
}

STDMETHODIMP OleControl::SetAdvise(DWORD aspects, DWORD flags, IAdviseSink* sink) {
  viewAspects_ = aspects;
  viewFlags_ = flags;
  viewSink_ = sink;
  return S_OK;
}

STDMETHODIMP OleControl::GetAdvise(DWORD* aspects, DWORD* flags, IAdviseSink** sink) {
  if (aspects) *aspects = viewAspects_;
  if (flags) *flags = viewFlags_;
  if (sink) *sink = ComRef<IAdviseSink>(viewSink_).detach();
  return S_OK;
}

STDMETHODIMP OleControl::GetExtent(DWORD aspect, LONG, DVTARGETDEVICE*, LPSIZEL size) {
  return GetExtent(aspect, size);
}

}  // namespace controls
