#include "src/shellhost/control_site_frame.h"

#include <array>

namespace file_explorer {

std::span<const InterfaceEntry> CControlSiteIPFrame::Interfaces() {
  using T = CControlSiteIPFrame;
  static constexpr std::array kEntries = {
      Exposes<T, IUnknown, IOleInPlaceFrame>(IID_IUnknown),
      Exposes<T, IOleWindow, IOleInPlaceFrame>(IID_IOleWindow),
      Exposes<T, IOleInPlaceUIWindow, IOleInPlaceFrame>(IID_IOleInPlaceUIWindow),
      Exposes<T, IOleInPlaceFrame>(IID_IOleInPlaceFrame)};
  return kEntries;
}

HRESULT CControlSiteIPFrame::GetWindow(HWND* window) {
  if (!window) return E_INVALIDARG;
  *window = parentWindow_;
  return S_OK;
}

HRESULT CControlSiteIPFrame::ContextSensitiveHelp(BOOL) {
  return S_OK;
}

HRESULT CControlSiteIPFrame::GetBorder(LPRECT) {
  return INPLACE_E_NOTOOLSPACE;
}

HRESULT CControlSiteIPFrame::RequestBorderSpace(LPCBORDERWIDTHS) {
  return INPLACE_E_NOTOOLSPACE;
}

HRESULT CControlSiteIPFrame::SetBorderSpace(LPCBORDERWIDTHS) {
  return S_OK;
}

HRESULT CControlSiteIPFrame::SetActiveObject(IOleInPlaceActiveObject*, LPCOLESTR) {
  return S_OK;
}

HRESULT CControlSiteIPFrame::InsertMenus(HMENU, LPOLEMENUGROUPWIDTHS) {
  return S_OK;
}

HRESULT CControlSiteIPFrame::SetMenu(HMENU, HOLEMENU, HWND) {
  return S_OK;
}

HRESULT CControlSiteIPFrame::RemoveMenus(HMENU) {
  return S_OK;
}

HRESULT CControlSiteIPFrame::SetStatusText(LPCOLESTR) {
  return S_OK;
}

HRESULT CControlSiteIPFrame::EnableModeless(BOOL) {
  return S_OK;
}

HRESULT CControlSiteIPFrame::TranslateAccelerator(LPMSG, WORD) {
  return E_NOTIMPL;
}

}  // namespace file_explorer
