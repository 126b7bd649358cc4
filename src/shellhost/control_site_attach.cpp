// Attaching a control: the sequence that makes a created control a shown one.
#include "src/framework/com/com_guard.h"
#include "src/shellhost/control_site.h"
#include "src/shellhost/property_bag.h"

namespace file_explorer {

HRESULT CControlSite::Attach(HWND parentWindow, const RECT& rect, IUnknown* initStream) {
  if (!parentWindow) return E_INVALIDARG;
  parentWindow_ = parentWindow;
  position_ = rect;
  if (frame_) frame_->SetParentWindow(parentWindow);
  if (!control_) return E_UNEXPECTED;

  const bool asked = RunForeignCode([&] {
    viewObject_ = QueryFor<IViewObject>(control_.Get());
    oleObject_ = QueryFor<IOleObject>(control_.Get());
  });
  if (!asked || !oleObject_) return E_FAIL;

  const bool completed = RunForeignCode([&] {
    ReadMiscStatus();
    // Some controls read ambient properties while they load and so need their site before.
    if (flags_ & kSiteClientSiteFirst) oleObject_->SetClientSite(AsClientSite());
    LoadInitialState(initStream);
    inPlaceObject_ = QueryFor<IOleInPlaceObject>(control_.Get());
    windowlessObject_ = QueryFor<IOleInPlaceObjectWindowless>(control_.Get());
    if (flags_ & kSiteVisible) ActivateControl();
    if (viewObject_) viewObject_->SetAdvise(DVASPECT_CONTENT, 0, this);
    if (!(flags_ & kSiteClientSiteFirst)) oleObject_->SetClientSite(AsClientSite());
  });
  return completed ? S_OK : E_FAIL;
}

void CControlSite::ReadMiscStatus() {
  DWORD status = 0;
  if (FAILED(oleObject_->GetMiscStatus(DVASPECT_CONTENT, &status))) return;
  if (status & OLEMISC_SETCLIENTSITEFIRST) flags_ |= kSiteClientSiteFirst;
  if (status & OLEMISC_INVISIBLEATRUNTIME) flags_ &= ~kSiteVisible;
}

void CControlSite::LoadInitialState(IUnknown* initStream) {
  if (initStream) {
    LoadFrom(initStream);
    return;
  }
  if (properties_.empty()) {
    if (const auto persist = QueryFor<IPersistStreamInit>(control_.Get())) persist->InitNew();
    return;
  }
  const auto bag = CComObject<CPropertyBag>::New();
  for (const PropertyList::Entry& entry : properties_.entries()) {
    bag->Write(entry.name.get(), const_cast<VARIANT*>(&entry.value.get()));
  }
  LoadFrom(static_cast<IPropertyBag*>(bag.Get()));
}

void CControlSite::LoadFrom(IUnknown* source) {
  if (const auto bag = QueryFor<IPropertyBag>(source)) {
    const auto persist = QueryFor<IPersistPropertyBag>(control_.Get());
    if (persist) persist->Load(bag.Get(), CComObject<CErrorLog>::New().Get());
    return;
  }
  if (const auto stream = QueryFor<IStream>(source)) {
    if (const auto persist = QueryFor<IPersistStream>(control_.Get())) persist->Load(stream.Get());
  }
}

void CControlSite::ActivateControl() {
  oleObject_->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, AsClientSite(), 0, parentWindow_, &position_);
}

}  // namespace file_explorer
