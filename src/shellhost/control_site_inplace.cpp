// The site as an in-place site: activation, and drawing for controls without a window of their own.
#include <memory>

#include "src/framework/com/com_guard.h"
#include "src/shellhost/control_site.h"

namespace file_explorer {
namespace {

struct RegionDeleter {
  void operator()(HRGN region) const noexcept { DeleteObject(region); }
};
using UniqueRegion = std::unique_ptr<std::remove_pointer_t<HRGN>, RegionDeleter>;

}  // namespace

// ---- Activation
// ------------------------------------------------------------------------------------------------

HRESULT CControlSite::GetWindow(HWND* window) {
  if (!window) return E_INVALIDARG;
  *window = parentWindow_;
  return S_OK;
}

HRESULT CControlSite::ContextSensitiveHelp(BOOL) {
  return S_OK;
}

HRESULT CControlSite::CanInPlaceActivate() {
  return S_OK;
}

void CControlSite::ChangeActivation(std::uint32_t set, std::uint32_t clear) {
  const std::uint32_t before = flags_;
  flags_ = (flags_ | set) & ~clear;
  if (flags_ != before) OnActivationChanged();
}

HRESULT CControlSite::OnInPlaceActivate() {
  ChangeActivation(kSiteInPlaceActive, 0);
  return S_OK;
}

HRESULT CControlSite::OnUIActivate() {
  ChangeActivation(kSiteUiActive, 0);
  return S_OK;
}

HRESULT CControlSite::GetWindowContext(IOleInPlaceFrame** frame, IOleInPlaceUIWindow** document,
                                       LPRECT position, LPRECT clip, LPOLEINPLACEFRAMEINFO info) {
  if (frame) *frame = nullptr;
  if (document) *document = nullptr;
  if (!frame || !document || !position || !clip || !info) return E_INVALIDARG;
  return ComEdge([&] {
    if (!frame_) frame_ = CComObject<CControlSiteIPFrame>::New();
    frame_->SetParentWindow(parentWindow_);
    *position = position_;
    *clip = position_;
    info->cb = sizeof(OLEINPLACEFRAMEINFO);
    info->fMDIApp = FALSE;
    info->hwndFrame = parentWindow_;
    info->haccel = nullptr;
    info->cAccelEntries = 0;
    // Frame and document are the same parent window, each with a reference of its own.
    ComPtr<IOleInPlaceFrame> asFrame(frame_.Get());
    ComPtr<IOleInPlaceUIWindow> asDocument(frame_.Get());
    *frame = asFrame.Detach();
    *document = asDocument.Detach();
    return S_OK;
  });
}

HRESULT CControlSite::Scroll(SIZE) {
  return S_OK;
}

HRESULT CControlSite::OnUIDeactivate(BOOL) {
  ChangeActivation(0, kSiteUiActive);
  return S_OK;
}

HRESULT CControlSite::OnInPlaceDeactivate() {
  ChangeActivation(0, kSiteInPlaceActive);
  return S_OK;
}

HRESULT CControlSite::DiscardUndoState() {
  return S_OK;
}

HRESULT CControlSite::DeactivateAndUndo() {
  return S_OK;
}

HRESULT CControlSite::OnPosRectChange(LPCRECT) {
  return S_OK;
}

HRESULT CControlSite::OnInPlaceActivateEx(BOOL* noRedraw, DWORD) {
  if (noRedraw) *noRedraw = FALSE;
  return OnInPlaceActivate();
}

HRESULT CControlSite::OnInPlaceDeactivateEx(BOOL) {
  return OnInPlaceDeactivate();
}

HRESULT CControlSite::RequestUIActivate() {
  return S_FALSE;
}

HRESULT CControlSite::CanWindowlessActivate() {
  return (flags_ & kSiteWindowlessAllowed) ? S_OK : S_FALSE;
}

HRESULT CControlSite::GetCapture() {
  return S_FALSE;
}

HRESULT CControlSite::SetCapture(BOOL) {
  return S_FALSE;
}

HRESULT CControlSite::GetFocus() {
  return S_OK;
}

HRESULT CControlSite::SetFocus(BOOL) {
  return S_OK;
}

// ---- Drawing on the parent window
// ------------------------------------------------------------------------------

// Lends the parent window's device context, clipped to the control's part of rect. One at a time.
HRESULT CControlSite::GetDC(LPCRECT rect, DWORD flags, HDC* dc) {
  if (!dc) return E_INVALIDARG;
  *dc = nullptr;
  if (!parentWindow_ || drawingContext_) return E_UNEXPECTED;
  RECT area = position_;
  if (rect) IntersectRect(&area, rect, &position_);
  const HDC context = ::GetDC(parentWindow_);
  if (!context) return E_FAIL;
  drawingContext_ = context;
  drawingState_ = SaveDC(context);
  IntersectClipRect(context, area.left, area.top, area.right, area.bottom);
  if (flags & OLEDC_PAINTBKGND)
    SendMessageA(parentWindow_, WM_ERASEBKGND, reinterpret_cast<WPARAM>(context), 0);
  *dc = context;
  return S_OK;
}

HRESULT CControlSite::ReleaseDC(HDC dc) {
  if (!dc || dc != drawingContext_) return E_INVALIDARG;
  EndDrawing();
  return S_OK;
}

void CControlSite::EndDrawing() noexcept {
  if (!drawingContext_) return;
  RestoreDC(drawingContext_, drawingState_);
  // The window that the context came from; the site may have been detached meanwhile.
  ::ReleaseDC(WindowFromDC(drawingContext_), drawingContext_);
  drawingContext_ = nullptr;
}

HRESULT CControlSite::InvalidateRect(LPCRECT rect, BOOL erase) {
  if (!parentWindow_) return E_UNEXPECTED;
  RECT area = position_;
  if (rect && !IntersectRect(&area, rect, &position_)) return S_OK;
  ::InvalidateRect(parentWindow_, &area, erase);
  return S_OK;
}

HRESULT CControlSite::InvalidateRgn(HRGN region, BOOL erase) {
  if (!region) return InvalidateRect(nullptr, erase);
  if (!parentWindow_) return E_UNEXPECTED;
  const UniqueRegion area(CreateRectRgnIndirect(&position_));
  if (!area) return E_OUTOFMEMORY;
  if (CombineRgn(area.get(), area.get(), region, RGN_AND) > NULLREGION) {
    ::InvalidateRgn(parentWindow_, area.get(), erase);
  }
  return S_OK;
}

HRESULT CControlSite::ScrollRect(int, int, LPCRECT, LPCRECT) {
  return S_OK;
}

// The part of the rectangle that the control may draw on; S_FALSE when nothing of it is left.
HRESULT CControlSite::AdjustRect(LPRECT rect) {
  if (!rect) return E_INVALIDARG;
  RECT visible;
  const bool any = IntersectRect(&visible, rect, &position_);
  *rect = visible;
  return any ? S_OK : S_FALSE;
}

HRESULT CControlSite::OnDefWindowMessage(UINT message, WPARAM first, LPARAM second, LRESULT* result) {
  if (!parentWindow_) return E_UNEXPECTED;
  const LRESULT answer = DefWindowProcA(parentWindow_, message, first, second);
  if (result) *result = answer;
  return S_OK;
}

}  // namespace file_explorer
