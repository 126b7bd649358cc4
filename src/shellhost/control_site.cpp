// Life of a site and its own operations.
#include "src/shellhost/control_site.h"

#include <comcat.h>

#include <array>
#include <stdexcept>

#include "src/framework/com/com_guard.h"

namespace file_explorer {
namespace {

const CATID kSafeForScripting = {
    0x7DD95801, 0x9882, 0x11CF, {0x9F, 0xA9, 0x00, 0xAA, 0x00, 0x6C, 0x42, 0xC4}};

bool IsSafeForScripting(const CLSID& classId) {
  ComPtr<ICatInformation> categories;
  if (FAILED(CoCreateInstance(CLSID_StdComponentCategoriesMgr, nullptr, CLSCTX_INPROC_SERVER,
                              IID_ICatInformation,
                              reinterpret_cast<void**>(categories.ReleaseAndGetAddressOf())))) {
    return false;
  }
  CATID wanted = kSafeForScripting;
  return categories->IsClassOfCategories(classId, 1, &wanted, 0, nullptr) == S_OK;
}

}  // namespace

const IID IID_CControlSite = {0x6C1E3B52, 0x94D7, 0x4F0A, {0x8B, 0x2E, 0x51, 0xD0, 0x7A, 0x39, 0xE4, 0xC6}};

void SiteList::Add(CControlSite* site) {
  if (sites_.size() >= maximum_) throw std::length_error("list<T> too long");
  sites_.push_back(site);
}

SiteList& ModuleSites() noexcept {
  static SiteList sites;
  return sites;
}

CControlSite::CControlSite()
    : ambientForeground_(GetSysColor(COLOR_WINDOWTEXT)), ambientBackground_(GetSysColor(COLOR_WINDOW)) {
  ModuleSites().Add(this);
}

CControlSite::~CControlSite() {
  ModuleSites().Remove(this);
}

void CControlSite::FinalRelease() noexcept {
  Detach();
  EndDrawing();
  // The control may keep the frame longer than the site.
  if (frame_) frame_->SetParentWindow(nullptr);
}

std::span<const InterfaceEntry> CControlSite::Interfaces() {
  using T = CControlSite;
  static const std::array kEntries = {
      Exposes<T, IUnknown, IOleClientSite>(IID_IUnknown),
      Exposes<T, IOleClientSite>(IID_IOleClientSite),
      Exposes<T, IOleWindow, IOleInPlaceSiteWindowless>(IID_IOleWindow),
      Exposes<T, IOleInPlaceSite, IOleInPlaceSiteWindowless>(IID_IOleInPlaceSite),
      Exposes<T, IOleInPlaceSiteEx, IOleInPlaceSiteWindowless>(IID_IOleInPlaceSiteEx),
      Exposes<T, IOleInPlaceSiteWindowless>(IID_IOleInPlaceSiteWindowless),
      Exposes<T, IOleControlSite>(IID_IOleControlSite),
      Exposes<T, IAdviseSink, IAdviseSinkEx>(IID_IAdviseSink),
      Exposes<T, IAdviseSinkEx>(IID_IAdviseSinkEx),
      Exposes<T, IDispatch>(IID_IDispatch),
      Exposes<T, IOleCommandTarget>(IID_IOleCommandTarget),
      Exposes<T, T>(IID_CControlSite),
  };
  return kEntries;
}

std::span<const CommandEntry<CControlSite>> CControlSite::Commands() {
  return {};  // none of the hosted controls asks its site for a command
}

void CControlSite::OnActivationChanged() {}

HRESULT CControlSite::Create(const CLSID& classId, const PropertyList& properties, const char* codeBase) {
  const HRESULT created = ComEdge([&] {
    classId_ = classId;
    properties_ = properties;
    codeBase_ = codeBase ? codeBase : "";
    if ((flags_ & kSiteCheckSafeForScripting) && !IsSafeForScripting(classId)) return E_FAIL;
    HRESULT result = E_FAIL;
    const bool completed = RunForeignCode([&] {
      result = CoCreateInstance(classId_, nullptr,
                                CLSCTX_INPROC_SERVER | CLSCTX_INPROC_HANDLER | CLSCTX_LOCAL_SERVER,
                                IID_IUnknown, reinterpret_cast<void**>(control_.ReleaseAndGetAddressOf()));
    });
    return completed && SUCCEEDED(result) && control_ ? S_OK : E_FAIL;
  });
  return SUCCEEDED(created) ? S_OK : E_FAIL;
}

HRESULT CControlSite::Detach() {
  // Each pointer is taken out first: the control may call the site again while it goes. A step that raises an
  // exception doesn't keep the others from running.
  RunForeignCode([&] { windowlessObject_.Reset(); });
  if (ComPtr<IOleInPlaceObject> inPlace = std::move(inPlaceObject_)) {
    RunForeignCode([&] { inPlace->InPlaceDeactivate(); });
    RunForeignCode([&] { inPlace.Reset(); });
  }
  if (ComPtr<IOleObject> object = std::move(oleObject_)) {
    RunForeignCode([&] { object->Close(OLECLOSE_NOSAVE); });
    RunForeignCode([&] { object->SetClientSite(nullptr); });
    RunForeignCode([&] { object.Reset(); });
  }
  RunForeignCode([&] { viewObject_.Reset(); });
  RunForeignCode([&] { control_.Reset(); });
  parentWindow_ = nullptr;
  return S_OK;
}

IUnknown* CControlSite::ControlUnknown() const {
  return control_.Get();
}

HRESULT CControlSite::SetPosition(const RECT& rect) {
  position_ = rect;
  if (const ComPtr<IOleInPlaceObject> inPlace = inPlaceObject_) {
    RunForeignCode([&] { inPlace->SetObjectRects(&position_, &position_); });
  }
  return S_OK;
}

RECT CControlSite::Position() const {
  return position_;
}

HRESULT CControlSite::DoVerb(LONG verb) {
  const ComPtr<IOleObject> object = oleObject_;
  if (!object) return E_FAIL;
  HRESULT result = E_FAIL;
  const bool completed = RunForeignCode(
      [&] { result = object->DoVerb(verb, nullptr, AsClientSite(), 0, parentWindow_, &position_); });
  return completed ? result : E_FAIL;
}

const CLSID& CControlSite::ClassId() const {
  return classId_;
}

const char* CControlSite::CodeBase() const {
  return codeBase_.c_str();
}

bool CControlSite::HasControl() const {
  return control_ != nullptr;
}

HWND CControlSite::ParentWindow() const {
  return parentWindow_;
}

int CControlSite::IsInPlaceActive() const {
  return (flags_ & kSiteInPlaceActive) ? 1 : 0;
}

}  // namespace file_explorer
