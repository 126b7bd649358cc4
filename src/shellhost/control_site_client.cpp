// The site as a client site, a control site and a sink of view changes.
#include "src/shellhost/control_site.h"

#include "src/shellhost/control_values.h"

namespace file_explorer {
namespace {

struct Resolution {
  int x;
  int y;
};

Resolution ScreenResolution() {
  const HDC screen = ::GetDC(nullptr);
  const Resolution resolution = {GetDeviceCaps(screen, LOGPIXELSX), GetDeviceCaps(screen, LOGPIXELSY)};
  ::ReleaseDC(nullptr, screen);
  return resolution;
}

}  // namespace

HRESULT CControlSite::SaveObject() {
  return S_OK;
}

HRESULT CControlSite::GetMoniker(DWORD, DWORD, IMoniker** moniker) {
  if (moniker) *moniker = nullptr;
  return E_NOTIMPL;
}

HRESULT CControlSite::GetContainer(IOleContainer** container) {
  if (container) *container = nullptr;
  return E_NOINTERFACE;
}

HRESULT CControlSite::ShowObject() {
  return S_OK;
}

HRESULT CControlSite::OnShowWindow(BOOL) {
  return S_OK;
}

HRESULT CControlSite::RequestNewObjectLayout() {
  return E_NOTIMPL;
}

HRESULT CControlSite::OnControlInfoChanged() {
  return S_OK;
}

HRESULT CControlSite::LockInPlaceActive(BOOL lock) {
  flags_ &= ~kSiteInPlaceLocked;
  if (lock & 1) flags_ |= kSiteInPlaceLocked;
  return S_OK;
}

HRESULT CControlSite::GetExtendedControl(IDispatch** control) {
  if (control) *control = nullptr;
  return E_NOTIMPL;
}

// Container units are pixels. Positions and sizes convert alike: both axes run the same way.
HRESULT CControlSite::TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) {
  if (!himetric || !container) return E_INVALIDARG;
  const Resolution resolution = ScreenResolution();
  if (flags & XFORMCOORDS_HIMETRICTOCONTAINER) {
    container->x = static_cast<float>(HimetricToPixels(himetric->x, resolution.x));
    container->y = static_cast<float>(HimetricToPixels(himetric->y, resolution.y));
    return S_OK;
  }
  if (flags & XFORMCOORDS_CONTAINERTOHIMETRIC) {
    himetric->x = PixelsToHimetric(container->x, resolution.x);
    himetric->y = PixelsToHimetric(container->y, resolution.y);
    return S_OK;
  }
  return E_INVALIDARG;
}

HRESULT CControlSite::TranslateAccelerator(MSG*, DWORD) {
  return E_NOTIMPL;
}

HRESULT CControlSite::OnFocus(BOOL) {
  return S_OK;
}

HRESULT CControlSite::ShowPropertyFrame() {
  return E_NOTIMPL;
}

void CControlSite::OnDataChange(FORMATETC*, STGMEDIUM*) {}

void CControlSite::OnViewChange(DWORD, LONG) {
  InvalidateRect(nullptr, FALSE);
}

void CControlSite::OnRename(IMoniker*) {}

void CControlSite::OnSave() {}

void CControlSite::OnClose() {}

void CControlSite::OnViewStatusChange(DWORD) {}

}  // namespace file_explorer
