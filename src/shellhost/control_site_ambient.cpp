// The site's ambient properties.
#include "src/framework/com/com_guard.h"
#include "src/shellhost/control_site.h"

#include <olectl.h>

namespace file_explorer {
namespace {

void PutFlag(VARIANT* value, bool on) {
  value->vt = VT_BOOL;
  value->boolVal = on ? VARIANT_TRUE : VARIANT_FALSE;
}

void PutNumber(VARIANT* value, DWORD number) {
  value->vt = VT_I4;
  value->lVal = static_cast<LONG>(number);
}

}  // namespace

HRESULT CControlSite::GetTypeInfoCount(UINT* count) {
  if (count) *count = 0;
  return E_NOTIMPL;
}

HRESULT CControlSite::GetTypeInfo(UINT, LCID, ITypeInfo** information) {
  if (information) *information = nullptr;
  return E_NOTIMPL;
}

HRESULT CControlSite::GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) {
  return E_NOTIMPL;
}

HRESULT CControlSite::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                             UINT*) {
  return ComEdge([&] {
    if (!(flags & DISPATCH_PROPERTYGET)) return E_FAIL;
    VARIANT value;
    VariantInit(&value);
    if (!AmbientValue(id, &value)) return DISP_E_MEMBERNOTFOUND;
    if (!result) return E_POINTER;
    const HRESULT copied = VariantCopy(result, &value);
    if (FAILED(copied)) throw _com_error(copied);
    return S_OK;
  });
}

// Font and display name are deliberately not answered: the font reaches the controls as an ordinary property.
bool CControlSite::AmbientValue(DISPID id, VARIANT* value) const noexcept {
  switch (id) {
    case DISPID_AMBIENT_APPEARANCE:
      PutFlag(value, (ambientFlags_ & kAmbientAppearance) != 0);
      return true;
    case DISPID_AMBIENT_SHOWHATCHING:
      PutFlag(value, (ambientFlags_ & kAmbientShowHatching) != 0);
      return true;
    case DISPID_AMBIENT_SHOWGRABHANDLES:
      PutFlag(value, (ambientFlags_ & kAmbientShowGrabHandles) != 0);
      return true;
    case DISPID_AMBIENT_USERMODE:
      PutFlag(value, (ambientFlags_ & kAmbientUserMode) != 0);
      return true;
    case DISPID_AMBIENT_LOCALEID:
      PutNumber(value, ambientLocale_);
      return true;
    case DISPID_AMBIENT_FORECOLOR:
      PutNumber(value, ambientForeground_);
      return true;
    case DISPID_AMBIENT_BACKCOLOR:
      PutNumber(value, ambientBackground_);
      return true;
    default:
      return false;
  }
}

void CControlSite::SetAmbientLocale(LCID locale) {
  ambientLocale_ = locale;
  TellAmbientChange(DISPID_AMBIENT_LOCALEID);
}

void CControlSite::SetAmbientColors(COLORREF foreground, COLORREF background) {
  ambientForeground_ = foreground;
  ambientBackground_ = background;
  TellAmbientChange(DISPID_AMBIENT_FORECOLOR);
  TellAmbientChange(DISPID_AMBIENT_BACKCOLOR);
}

void CControlSite::SetAmbientFlags(std::uint32_t flags) {
  ambientFlags_ = flags;
  TellAmbientChange(DISPID_UNKNOWN);  // several may have changed
}

void CControlSite::TellAmbientChange(DISPID ambient) {
  if (!parentWindow_) return;
  RunForeignCode([&] {
    if (const auto control = QueryFor<IOleControl>(control_.Get())) control->OnAmbientPropertyChange(ambient);
  });
}

}  // namespace file_explorer
