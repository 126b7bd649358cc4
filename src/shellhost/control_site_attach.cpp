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

  try {
    viewObject_ = AskFor<IViewObject>(control_.Get());
    oleObject_ = AskFor<IOleObject>(control_.Get());
    if (!oleObject_) return E_FAIL;
    ReadMiscStatus();
    // Some controls read ambient properties while they load and so need their site before.
    if (flags_ & kSiteClientSiteFirst) GiveClientSite();
    LoadInitialState(initStream);
    inPlaceObject_ = AskFor<IOleInPlaceObject>(control_.Get());
    windowlessObject_ = AskFor<IOleInPlaceObjectWindowless>(control_.Get());
    if (flags_ & kSiteVisible) ActivateControl();
    if (const ComPtr<IViewObject> view = viewObject_) {
      CallForeignCode([&] { view->SetAdvise(DVASPECT_CONTENT, 0, this); });
    }
    if (!(flags_ & kSiteClientSiteFirst)) GiveClientSite();
    return S_OK;
  } catch (...) {
    return E_FAIL;
  }
}

// The control may have the site detached during any of these calls: each goes through a reference of its own.
ComPtr<IOleObject> CControlSite::AttachedObject() const {
  if (!oleObject_) throw _com_error(E_UNEXPECTED);
  return oleObject_;
}

void CControlSite::GiveClientSite() {
  const ComPtr<IOleObject> object = AttachedObject();
  CallForeignCode([&] { object->SetClientSite(AsClientSite()); });
}

void CControlSite::ReadMiscStatus() {
  DWORD status = 0;
  HRESULT result = E_FAIL;
  const ComPtr<IOleObject> object = AttachedObject();
  CallForeignCode([&] { result = object->GetMiscStatus(DVASPECT_CONTENT, &status); });
  if (FAILED(result)) return;
  if (status & OLEMISC_SETCLIENTSITEFIRST) flags_ |= kSiteClientSiteFirst;
  if (status & OLEMISC_INVISIBLEATRUNTIME) flags_ &= ~kSiteVisible;
}

void CControlSite::LoadInitialState(IUnknown* initStream) {
  if (initStream) {
    LoadFrom(initStream);
    return;
  }
  if (properties_.empty()) {
    const auto persist = AskFor<IPersistStreamInit>(control_.Get());
    if (persist) CallForeignCode([&] { persist->InitNew(); });
    return;
  }
  const auto bag = CComObject<CPropertyBag>::New();
  for (const PropertyList::Entry& entry : properties_.entries()) {
    bag->Write(entry.name.get(), const_cast<VARIANT*>(&entry.value.get()));
  }
  LoadFrom(static_cast<IPropertyBag*>(bag.Get()));
}

void CControlSite::LoadFrom(IUnknown* source) {
  if (const auto bag = AskFor<IPropertyBag>(source)) {
    const auto persist = AskFor<IPersistPropertyBag>(control_.Get());
    const auto errors = CComObject<CErrorLog>::New();
    if (persist) CallForeignCode([&] { persist->Load(bag.Get(), errors.Get()); });
    return;
  }
  if (const auto stream = AskFor<IStream>(source)) {
    const auto persist = AskFor<IPersistStream>(control_.Get());
    if (persist) CallForeignCode([&] { persist->Load(stream.Get()); });
  }
}

void CControlSite::ActivateControl() {
  const ComPtr<IOleObject> object = AttachedObject();
  CallForeignCode([&] {
    object->DoVerb(OLEIVERB_INPLACEACTIVATE, nullptr, AsClientSite(), 0, parentWindow_, &position_);
  });
}

}  // namespace file_explorer
