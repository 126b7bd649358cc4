// The site of one hosted control: what the control talks to, and how its owner drives it.
//
// Life: constructed (no control), created (Create), attached (Attach: shown in a parent window), detached
// (Detach: all of the control's interfaces released), destroyed (last reference). The owner holds one
// reference, the control more through the client site. Everything runs on the thread that owns the windows.
#pragma once

#include <windows.h>

#include <docobj.h>
#include <ocidl.h>
#include <oleidl.h>

#include <cstdint>
#include <list>
#include <span>
#include <string>

#include "src/framework/com/com_object.h"
#include "src/shellhost/command_target.h"
#include "src/shellhost/control_site_frame.h"
#include "src/shellhost/property_list.h"

namespace file_explorer {

class CControlSite;

// The sites that exist, oldest first.
class SiteList {
 public:
  explicit SiteList(std::size_t maximum = static_cast<std::size_t>(-1) / 64) noexcept : maximum_(maximum) {}

  // Throws std::length_error "list<T> too long" when the list has its maximum number of elements.
  void Add(CControlSite* site);
  // A site that isn't there is ignored.
  void Remove(CControlSite* site) noexcept { sites_.remove(site); }
  const std::list<CControlSite*>& sites() const noexcept { return sites_; }

 private:
  std::list<CControlSite*> sites_;
  std::size_t maximum_;
};

// The module's list: a site adds itself when it is constructed and leaves when it is destroyed.
SiteList& ModuleSites() noexcept;

// State flags of a site; bit 6 has no meaning.
enum SiteFlags : std::uint32_t {
  kSiteClientSiteFirst = 0x01,  // the control wants its client site before anything else
  kSiteVisible = 0x02,          // visible at run time
  kSiteInPlaceActive = 0x04,
  kSiteUiActive = 0x08,
  kSiteInPlaceLocked = 0x10,
  kSiteWindowlessAllowed = 0x20,
  kSiteCheckSafeForScripting = 0x80,  // create only controls that are registered as safe for scripting
};

// Ambient flags of a site.
enum AmbientFlags : std::uint32_t {
  kAmbientShowHatching = 0x1,
  kAmbientShowGrabHandles = 0x2,
  kAmbientUserMode = 0x4,
  kAmbientAppearance = 0x8,
};

// The interface id under which a site gives itself (a CControlSite*, with a reference).
extern const IID IID_CControlSite;

class CControlSite : public IOleClientSite,
                     public IOleInPlaceSiteWindowless,
                     public IOleControlSite,
                     public IAdviseSinkEx,
                     public IDispatch,
                     public IOleCommandTargetImpl<CControlSite>,
                     public CComObjectRootEx<CComSingleThreadModel> {
 public:
  static std::span<const InterfaceEntry> Interfaces();
  static std::span<const CommandEntry<CControlSite>> Commands();

  // ---- The site's own operations ----
  // Called after the control became or ceased to be in-place active or UI active. Does nothing here.
  virtual void OnActivationChanged();

 protected:
  CControlSite();
  virtual ~CControlSite();
  void FinalRelease() noexcept;

 public:
  // Makes the control of a class; `properties` reach it when it is attached. S_OK or E_FAIL.
  virtual HRESULT Create(const CLSID& classId, const PropertyList& properties, const char* codeBase);
  // Puts the control into parentWindow at rect (client pixels). initStream, an IPropertyBag or IStream,
  // replaces the properties; may be null. E_INVALIDARG without a window, E_UNEXPECTED without a control,
  // E_FAIL when the control is no OLE object or an exception came out of it. Calls that merely fail don't end
  // the sequence.
  virtual HRESULT Attach(HWND parentWindow, const RECT& rect, IUnknown* initStream);
  // Takes the control down and releases every interface of it. Always S_OK.
  virtual HRESULT Detach();
  // Borrowed; null without a control.
  virtual IUnknown* ControlUnknown() const;
  // Moves the attached control (client pixels). Always S_OK.
  virtual HRESULT SetPosition(const RECT& rect);
  virtual RECT Position() const;
  // E_FAIL without an OLE object, else what the control answers.
  virtual HRESULT DoVerb(LONG verb);
  // The three ambients that an owner may change; an attached control is told.
  virtual void SetAmbientLocale(LCID locale);
  virtual void SetAmbientColors(COLORREF foreground, COLORREF background);
  virtual void SetAmbientFlags(std::uint32_t flags);
  virtual const CLSID& ClassId() const;
  virtual const char* CodeBase() const;
  virtual bool HasControl() const;
  virtual HWND ParentWindow() const;  // not null: attached
  virtual int IsInPlaceActive() const;

  std::uint32_t flags() const noexcept { return flags_; }
  // Switches kSiteWindowlessAllowed or kSiteCheckSafeForScripting; before Create.
  void SetFlag(SiteFlags flag, bool on) noexcept { flags_ = on ? flags_ | flag : flags_ & ~flag; }

  // ---- IOleClientSite ----
  HRESULT STDMETHODCALLTYPE SaveObject() override;
  HRESULT STDMETHODCALLTYPE GetMoniker(DWORD assign, DWORD which, IMoniker** moniker) override;
  HRESULT STDMETHODCALLTYPE GetContainer(IOleContainer** container) override;
  HRESULT STDMETHODCALLTYPE ShowObject() override;
  HRESULT STDMETHODCALLTYPE OnShowWindow(BOOL show) override;
  HRESULT STDMETHODCALLTYPE RequestNewObjectLayout() override;

  // ---- IOleWindow, IOleInPlaceSite ----
  HRESULT STDMETHODCALLTYPE GetWindow(HWND* window) override;
  HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL enter) override;
  HRESULT STDMETHODCALLTYPE CanInPlaceActivate() override;
  HRESULT STDMETHODCALLTYPE OnInPlaceActivate() override;
  HRESULT STDMETHODCALLTYPE OnUIActivate() override;
  HRESULT STDMETHODCALLTYPE GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                             LPRECT position, LPRECT clip,
                                             LPOLEINPLACEFRAMEINFO info) override;
  HRESULT STDMETHODCALLTYPE Scroll(SIZE extent) override;
  HRESULT STDMETHODCALLTYPE OnUIDeactivate(BOOL undoable) override;
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivate() override;
  HRESULT STDMETHODCALLTYPE DiscardUndoState() override;
  HRESULT STDMETHODCALLTYPE DeactivateAndUndo() override;
  HRESULT STDMETHODCALLTYPE OnPosRectChange(LPCRECT position) override;

  // ---- IOleInPlaceSiteEx ----
  HRESULT STDMETHODCALLTYPE OnInPlaceActivateEx(BOOL* noRedraw, DWORD flags) override;
  HRESULT STDMETHODCALLTYPE OnInPlaceDeactivateEx(BOOL noRedraw) override;
  HRESULT STDMETHODCALLTYPE RequestUIActivate() override;

  // ---- IOleInPlaceSiteWindowless: drawing and focus of a control without a window, on the parent window
  // ----
  HRESULT STDMETHODCALLTYPE CanWindowlessActivate() override;
  HRESULT STDMETHODCALLTYPE GetCapture() override;
  HRESULT STDMETHODCALLTYPE SetCapture(BOOL capture) override;
  HRESULT STDMETHODCALLTYPE GetFocus() override;
  HRESULT STDMETHODCALLTYPE SetFocus(BOOL focus) override;
  HRESULT STDMETHODCALLTYPE GetDC(LPCRECT rect, DWORD flags, HDC* dc) override;
  HRESULT STDMETHODCALLTYPE ReleaseDC(HDC dc) override;
  HRESULT STDMETHODCALLTYPE InvalidateRect(LPCRECT rect, BOOL erase) override;
  HRESULT STDMETHODCALLTYPE InvalidateRgn(HRGN region, BOOL erase) override;
  HRESULT STDMETHODCALLTYPE ScrollRect(int dx, int dy, LPCRECT scroll, LPCRECT clip) override;
  HRESULT STDMETHODCALLTYPE AdjustRect(LPRECT rect) override;
  HRESULT STDMETHODCALLTYPE OnDefWindowMessage(UINT message, WPARAM first, LPARAM second,
                                               LRESULT* result) override;

  // ---- IOleControlSite ----
  HRESULT STDMETHODCALLTYPE OnControlInfoChanged() override;
  HRESULT STDMETHODCALLTYPE LockInPlaceActive(BOOL lock) override;
  HRESULT STDMETHODCALLTYPE GetExtendedControl(IDispatch** control) override;
  HRESULT STDMETHODCALLTYPE TransformCoords(POINTL* himetric, POINTF* container, DWORD flags) override;
  HRESULT STDMETHODCALLTYPE TranslateAccelerator(MSG* message, DWORD modifiers) override;
  HRESULT STDMETHODCALLTYPE OnFocus(BOOL gotFocus) override;
  HRESULT STDMETHODCALLTYPE ShowPropertyFrame() override;

  // ---- IAdviseSink, IAdviseSinkEx ----
  void STDMETHODCALLTYPE OnDataChange(FORMATETC* format, STGMEDIUM* medium) override;
  void STDMETHODCALLTYPE OnViewChange(DWORD aspect, LONG index) override;
  void STDMETHODCALLTYPE OnRename(IMoniker* moniker) override;
  void STDMETHODCALLTYPE OnSave() override;
  void STDMETHODCALLTYPE OnClose() override;
  void STDMETHODCALLTYPE OnViewStatusChange(DWORD status) override;

  // ---- IDispatch: ambient properties ----
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                                   VARIANT* result, EXCEPINFO* exception, UINT* badArgument) override;

 private:
  IOleClientSite* AsClientSite() noexcept { return this; }
  IUnknown* Identity() noexcept { return static_cast<IOleClientSite*>(this); }
  ComPtr<IOleObject> AttachedObject() const;  // raises _com_error when the site was detached meanwhile
  void GiveClientSite();
  void ReadMiscStatus();
  void LoadInitialState(IUnknown* initStream);
  void LoadFrom(IUnknown* source);
  void ActivateControl();
  void ChangeActivation(std::uint32_t set, std::uint32_t clear);
  void TellAmbientChange(DISPID ambient);
  bool AmbientValue(DISPID id, VARIANT* value) const noexcept;
  void EndDrawing() noexcept;

  HWND parentWindow_ = nullptr;
  RECT position_ = {};
  std::uint32_t flags_ = kSiteVisible | kSiteWindowlessAllowed;
  ComPtr<IUnknown> control_;
  ComPtr<IViewObject> viewObject_;
  ComPtr<IOleObject> oleObject_;
  ComPtr<IOleInPlaceObject> inPlaceObject_;
  ComPtr<IOleInPlaceObjectWindowless> windowlessObject_;  // released first on Detach
  CLSID classId_ = {};
  std::string codeBase_;
  PropertyList properties_;
  LCID ambientLocale_ = 0;
  COLORREF ambientForeground_;
  COLORREF ambientBackground_;
  std::uint32_t ambientFlags_ =
      kAmbientShowHatching | kAmbientShowGrabHandles | kAmbientUserMode | kAmbientAppearance;
  ComPtr<CComObject<CControlSiteIPFrame>> frame_;  // made on first use
  HDC drawingContext_ = nullptr;                   // lent to a windowless control, from GetDC to ReleaseDC
  int drawingState_ = 0;
};

}  // namespace file_explorer
