// The operations of the host services, put together from the parts of the workbench. Every operation checks
// what it is given: a null pointer, an unknown window or GUID has no effect and gives 0.
#include <algorithm>
#include <cstring>

#include "workbench/app/dialogs/color_services.h"
#include "workbench/app/dialogs/host_dialogs.h"
#include "workbench/app/main/workbench.h"
#include "workbench/app/text/wildcard.h"
#include "workbench/app/ui/text_conversion.h"

namespace workbench {
namespace {

namespace op = host::op;

std::shared_ptr<const TabImage> ImageOf(const host::DockedWindowBitmap* bitmap) {
  return bitmap == nullptr || bitmap->hasBitmap == 0
             ? nullptr
             : TabImage::Copy(bitmap->bitmap, bitmap->transparentColor);
}

}  // namespace

void Workbench::ProvideApplication() {
  services_.Provide<op::GetMainWindow>([this] { return window(); });
  services_.Provide<op::GetProfileFileName>([this] { return profilePath_.c_str(); });
}

void Workbench::ProvidePanel() {
  services_.Provide<op::CreateUtilityPanel>([this](const char* category, const char* guid, const char* title,
                                                   const char* secondTitle, HBITMAP bitmap, std::intptr_t,
                                                   COLORREF transparent, std::intptr_t, std::intptr_t,
                                                   std::intptr_t, std::intptr_t) {
    UtilityPanel::PageRequest page;
    page.category = TextOrEmpty(category);
    page.guid = TextOrEmpty(guid);
    page.title = WidenOrEmpty(title);
    page.secondTitle = WidenOrEmpty(secondTitle);
    page.image = TabImage::Copy(bitmap, transparent);
    return panel_->AddPage(page);
  });
  services_.Provide<op::RemoveUtilityPanel>(
      [this](const char* guid) { panel_->RemovePage(TextOrEmpty(guid)); });
  services_.Provide<op::ShowUtilityPanel>([this](const char* guid) { ShowPanelPage(guid); });
}

void Workbench::ShowPanelPage(const char* guid) {
  if (!panel_->ShowPage(TextOrEmpty(guid))) return;
  // A plug-in asks for its page whenever its window is activated. A panel that the user closed or collapsed
  // stays so then; only a call of its own shows it.
  if (!windows_->isNotifying()) windows_->Show(panel_->window(), true);
}

std::int32_t Workbench::CreateDockedWindow(const DockRequest& request,
                                           host::DockedWindowPlacement* placement) {
  DockAnswer answer;
  if (!windows_->Adopt(request, &answer)) return 0;
  if (placement != nullptr) {
    placement->hasPlacement = answer.remembered ? 1 : 0;
    placement->rect = ToRECT(answer.rect);
  }
  return 1;
}

void Workbench::ProvideWindowManager() {
  services_.Provide<op::CreateDockedWindow>(
      [this](const char* guid, HWND window, const char* title, const char*, std::uint16_t method,
             std::uint16_t position, std::intptr_t, const host::DockedWindowBitmap* bitmap, std::uint32_t,
             std::intptr_t, std::intptr_t, std::intptr_t, host::DockedWindowPlacement* placement) {
        DockRequest request;
        request.guid = TextOrEmpty(guid);
        request.window = window;
        request.title = WidenOrEmpty(title);
        request.method = method;
        request.position = position;
        request.image = ImageOf(bitmap);
        const std::int32_t taken = CreateDockedWindow(request, placement);
        if (options_.dispatchWhileDocking) Pump();
        return taken;
      });
  services_.Provide<op::SetWindowSize>(
      [this](HWND window, std::int32_t width, std::int32_t height, std::int32_t code) {
        windows_->SetSize(window, width, height, code);
      });
  services_.Provide<op::SetWindowPosition>(
      [this](HWND window, std::int32_t left, std::int32_t top) { windows_->SetPosition(window, left, top); });
  services_.Provide<op::SetWindowState>(
      [this](HWND window, std::int32_t state) { windows_->SetState(window, state); });
  services_.Provide<op::GetWindowState>([this](HWND window) { return windows_->GetState(window); });
  services_.Provide<op::ShowDockingMenu>([this](HWND window, std::int32_t x, std::int32_t y) {
    windows_->ShowDockingMenu(window, {x, y});
  });
  services_.Provide<op::GetNotificationMessage>([this] { return windows_->notificationMessage(); });
  services_.Provide<op::GetStoredRectangle>([this](const char* guid, RECT* rect) {
    Rect stored;
    if (rect == nullptr || !windows_->StoredRectangle(TextOrEmpty(guid), &stored)) return 0;
    // Right and bottom belong to the rectangle in this operation.
    *rect = {stored.left, stored.top, stored.right - 1, stored.bottom - 1};
    return 1;
  });
  services_.Provide<op::GetDefaultCreationMethod>([] { return host::kMethodTabbedCollapsible; });
  services_.Provide<op::ShowManagedWindow>(
      [this](HWND window, std::int32_t show) {
        windows_->Show(window, show != 0);
        if (options_.dispatchWhileDocking) Pump();
      });
}

void Workbench::ProvideDialogs() {
  services_.Provide<op::ShowHostDialog>([this](const char* keyword, HWND owner, const char* argument,
                                               std::intptr_t, std::intptr_t, std::intptr_t) {
    if (keyword == nullptr) return 0;
    return workbench::ShowHostDialog(keyword, IsWindow(owner) ? owner : window(), argument, profilePath_) ? 1
                                                                                                          : 0;
  });
  services_.Provide<op::PickColor>([](HWND dialog, const char* title, float* red, float* green, float* blue) {
    if (red == nullptr || green == nullptr || blue == nullptr) return 0;
    return workbench::PickColor(dialog, title == nullptr ? "" : title, red, green, blue) ? 1 : 0;
  });
  services_.Provide<op::RepaintColorButton>(
      [](HWND dialog, std::int32_t controlId, float red, float green, float blue) {
        if (IsWindow(dialog)) workbench::RepaintColorButton(dialog, controlId, red, green, blue);
      });
  services_.Provide<op::DrawColorButton>([](const DRAWITEMSTRUCT* item, float red, float green, float blue) {
    if (item != nullptr) workbench::DrawColorButton(item, red, green, blue);
  });
}

void Workbench::ProvideOthers() {
  // The bars between the panes are drawn before what moves next covers them.
  services_.Provide<op::RedrawBracket>([this] { UpdateWindow(windows_->site().window()); });
  services_.Provide<op::ValidateMatchPattern>([](const char* pattern, char* reason) {
    std::string why;
    if (pattern == nullptr) {
      why = "there is no pattern";
    } else if (workbench::ValidatePattern(pattern, &why)) {
      return 1;
    }
    if (reason != nullptr) {
      const size_t length = std::min<size_t>(why.size(), host::kMatchReasonSize - 1);
      std::memcpy(reason, why.data(), length);
      reason[length] = '\0';
    }
    return 0;
  });
  services_.Provide<op::MatchPattern>([](const char* pattern, const char* name, std::int32_t flags) {
    if (pattern == nullptr || name == nullptr) return 0;
    return workbench::MatchPattern(pattern, name, (flags & host::kMatchIgnoreCase) != 0) ? 1 : 0;
  });
  services_.Provide<op::CallPlugin>([this](const char* guid, const char* const* keywords, void** values) {
    return CallPlugin(guid, keywords, values);
  });
  services_.Provide<op::GetSecondFlags>([this] { return options_.facts.secondFlags; });
  services_.Provide<op::GetHostFlags>([this] { return options_.facts.flags; });
  services_.Provide<op::GetHostVersion>(
      [this](std::int16_t* major, std::int16_t* minor, std::int16_t* release, std::int64_t* fourth) {
        if (major != nullptr) *major = options_.facts.majorVersion;
        if (minor != nullptr) *minor = options_.facts.minorVersion;
        if (release != nullptr) *release = options_.facts.release;
        if (fourth != nullptr) *fourth = 0;
      });
  // The workbench hands out no registrations; giving one back has no effect.
  services_.Provide<op::CloseRegistration>([](void*) {});
  services_.Provide<op::ReleaseRegistration>([](void*) {});
}

std::int32_t Workbench::CallPlugin(const char* guid, const char* const* keywords, void** values) {
  const std::string name = TextOrEmpty(guid);
  const auto found = plugins_.find(name);
  if (found != plugins_.end() && keywords != nullptr) {
    found->second(keywords, values);
    return 1;
  }
  const bool isFileSelection = name == host::kFileSelectionPluginGuid;
  const std::wstring what = isFileSelection ? L"The file selection panel" : L"The plug-in " + base::WideFromNarrow(name);
  main_->SetMessage(what + L" is not installed");
  return 0;
}

}  // namespace workbench
