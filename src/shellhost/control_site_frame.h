// The in-place frame that a control site shows its control.
#pragma once

#include <windows.h>

#include <oleidl.h>

#include <span>

#include "src/framework/com/com_object.h"

namespace file_explorer {

class CControlSiteIPFrame : public IOleInPlaceFrame, public CComObjectRootEx<CComSingleThreadModel> {
 public:
  static std::span<const InterfaceEntry> Interfaces();

  // The window that the frame speaks for: the site's parent window; null once the site is gone.
  void SetParentWindow(HWND parentWindow) noexcept { parentWindow_ = parentWindow; }

  // IOleWindow
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) override;
  // IOleInPlaceUIWindow
  HRESULT STDMETHODCALLTYPE GetBorder(LPRECT border) override;
  HRESULT STDMETHODCALLTYPE RequestBorderSpace(LPCBORDERWIDTHS widths) override;
  HRESULT STDMETHODCALLTYPE SetBorderSpace(LPCBORDERWIDTHS widths) override;
  HRESULT STDMETHODCALLTYPE SetActiveObject(IOleInPlaceActiveObject* object, LPCOLESTR name) override;
  // IOleInPlaceFrame
  HRESULT STDMETHODCALLTYPE InsertMenus(HMENU menu, LPOLEMENUGROUPWIDTHS widths) override;
  HRESULT STDMETHODCALLTYPE SetMenu(HMENU menu, HOLEMENU oleMenu, HWND activeWindow) override;
  HRESULT STDMETHODCALLTYPE RemoveMenus(HMENU menu) override;
  HRESULT STDMETHODCALLTYPE SetStatusText(LPCOLESTR text) override;
  HRESULT STDMETHODCALLTYPE EnableModeless(BOOL enable) override;
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(LPMSG message, WORD id) override;

 protected:
  virtual ~CControlSiteIPFrame() = default;

 private:
  HWND parentWindow_ = nullptr;
};

}  // namespace file_explorer
