// The font that a container hands to a control.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/shell/window_base.h"

namespace controls {

class FontHolder {
 public:
  // Takes any font object; E_INVALIDARG for another object. Null goes back to the system's own font.
  HRESULT Set(IUnknown* object) {
    ComRef<IFont> font;
    if (object && FAILED(object->QueryInterface(IID_IFont, font.put_void()))) return E_INVALIDARG;
    font_ = font;
    return S_OK;
  }
  ComRef<IDispatch> object() const { return font_.As<IDispatch>(IID_IDispatch); }
  // Valid while the holder keeps its font.
  HFONT handle() {
    HFONT handle = nullptr;
    if (font_ && SUCCEEDED(font_->get_hFont(&handle)) && handle) return handle;
    if (!fallback_) {
      NONCLIENTMETRICSW metrics = {};
      metrics.cbSize = sizeof(metrics);
      SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
      fallback_.reset(CreateFontIndirectW(&metrics.lfMessageFont));
    }
    return fallback_.get();
  }

 private:
  ComRef<IFont> font_;
  UniqueFont fallback_;
};

}  // namespace controls
