#include "src/explorer/explorer_window.h"

#include <windows.h>

#include <commctrl.h>
#include <windowsx.h>

#include <exception>
#include <utility>

#include "base/text/code_page.h"
#include "base/window/high_contrast.h"
#include "src/explorer/command_tables.h"
#include "src/explorer/explorer_commands.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/layout.h"
#include "src/explorer/pattern_help.h"
#include "src/explorer/toolbar_builder.h"
#include "src/explorer/toolbar_states.h"
#include "src/explorer/tooltip_request.h"
#include "src/framework/module_context.h"
#include "src/host/plugin_protocol.h"
#include "src/settings/directory_links.h"

namespace file_explorer {
namespace {

constexpr char kWindowClass[] = "HalvoFileViewClass";
constexpr char kDisplayModeKey[] = "curr_fileview_display_mode";
constexpr wchar_t kInitialText[] = L"Initializing File View Contents...";
constexpr COLORREF kBitmapTransparentColor = RGB(0xC0, 0xC0, 0xC0);

bool classRegistered = false;
// The object under creation: its window gets messages before it has its user data.
ExplorerWindow* pendingWindow = nullptr;

PaneRect ToPaneRect(const RECT& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

}  // namespace

ExplorerWindow::ExplorerWindow(ExplorerState& state, LPCITEMIDLIST startDirectory)
    : state_(state),
      displayMode_(static_cast<std::int16_t>(state.store.ReadNumber(kDisplayModeKey, kDefaultDisplayMode))),
      startDirectory_(ClonePidl(startDirectory)) {
  RegisterWindowClass(state.instance);
}

ExplorerWindow::~ExplorerWindow() { TakeDown(); }

void ExplorerWindow::TakeDown() noexcept {
  if (std::exchange(isTakenDown_, true)) return;
  try {
    // The mode is kept also when it did not change, and before the windows go.
    state_.store.WriteNumber(kDisplayModeKey, displayMode_);
  } catch (const std::exception&) {
    // The profile keeps the mode before; the windows go all the same.
  }
  messageHook_ = nullptr;
  fileViewEventHook_ = nullptr;
  // The controls go before the window that contains them.
  DestroyFilePane();
  patternBox_.Destroy();
  window_.reset();
}

void ExplorerWindow::RegisterWindowClass(HINSTANCE instance) {
  if (classRegistered) return;
  WNDCLASSEXA windowClass = {};
  windowClass.cbSize = sizeof(windowClass);
  windowClass.style = CS_HREDRAW | CS_VREDRAW;
  windowClass.lpfnWndProc = &ExplorerWindow::WindowProcedure;
  windowClass.cbClsExtra = 8;
  windowClass.cbWndExtra = 8;
  windowClass.hInstance = instance;
  windowClass.lpszClassName = kWindowClass;
  RegisterClassExA(&windowClass);
  classRegistered = true;  // tried once
}

void ExplorerWindow::UnregisterWindowClass(HINSTANCE instance) {
  if (classRegistered) UnregisterClassA(kWindowClass, instance);
  classRegistered = false;
}

bool ExplorerWindow::CreateAndDock(const DockingRequest& request) {
  pendingWindow = this;
  window_.reset(CreateWindowExA(0, kWindowClass, request.title, WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, 0, 0, 640, 80,
                                nullptr, nullptr, state_.instance, nullptr));
  pendingWindow = nullptr;
  if (!window_) return false;
  title_ = request.title;
  secondTitle_ = request.secondTitle;
  windowGuid_ = request.windowGuid;

  host::DockedWindowBitmap picture = {};
  unique_hbitmap bitmap;
  if (request.bitmapName != nullptr) {
    bitmap.reset(LoadBitmapA(state_.instance, request.bitmapName));
    picture = {1, bitmap.get(), kBitmapTransparentColor};
  }
  host::DockedWindowPlacement placement = {};
  std::uint16_t method = request.creationMethod;
  if (!host::Call<host::op::CreateDockedWindow>(state_.services, windowGuid_.c_str(), window_.get(), title_.c_str(),
                                                secondTitle_.c_str(), method, request.dockingPosition,
                                                std::intptr_t{0}, &picture, request.extraFlags, std::intptr_t{0},
                                                std::intptr_t{0}, std::intptr_t{0}, &placement)) {
    window_.reset();
    return false;
  }
  if (method == host::kMethodHostDefault) {
    method = host::Call<host::op::GetDefaultCreationMethod>(state_.services);
  }
  if (placement.hasPlacement == 0) PlaceForTheFirstTime(method);
  if (!request.show) return true;

  // Pop-ups and tabs are shown by the host; its notifications on the way would build panes for a size that is not yet
  // the window's own.
  if (HostShowsWindow(method)) {
    suppressHostMessages_ = true;
  } else {
    ShowWindow(window_.get(), SW_SHOWNORMAL);
  }
  host::Call<host::op::ShowManagedWindow>(state_.services, window_.get(), 1);
  suppressHostMessages_ = false;
  return true;
}

void ExplorerWindow::PlaceForTheFirstTime(std::uint16_t creationMethod) {
  RECT rectangle = {};
  if (!host::Call<host::op::GetStoredRectangle>(state_.services, host::kInitialRectangleGuid, &rectangle)) return;
  const InitialSize size = SizeForFirstPlacement(ToPaneRect(rectangle), creationMethod);
  host::Call<host::op::SetWindowSize>(state_.services, window_.get(), size.width, size.height, host::kSizeBoth);
  host::Call<host::op::SetWindowPosition>(state_.services, window_.get(), static_cast<std::int32_t>(rectangle.left),
                                          static_cast<std::int32_t>(rectangle.top));
}

LRESULT CALLBACK ExplorerWindow::WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* object = reinterpret_cast<ExplorerWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (object == nullptr) object = pendingWindow;
  if (object == nullptr) return DefWindowProcA(window, message, wParam, lParam);
  const base::Hold hold(object);
  try {
    const ModuleContext context;
    return object->Dispatch(window, message, wParam, lParam);
  } catch (...) {
    return 0;  // the host's message loop must not see an exception
  }
}

// Asks the window and not the object, which may be gone. A window under creation has no object yet.
bool ExplorerWindow::IsObjectOf(const ExplorerWindow* object, HWND window) {
  return object == pendingWindow ||
         reinterpret_cast<ExplorerWindow*>(GetWindowLongPtrA(window, GWLP_USERDATA)) == object;
}

LRESULT ExplorerWindow::Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (messageHook_ != nullptr) {
    bool handled = false;
    const LRESULT result = messageHook_(*this, message, wParam, lParam, &handled);
    if (handled) return result;
    // A menu that the hook opened runs a message loop of its own, in which the host may take the explorer down.
    if (!IsObjectOf(this, window)) return 0;
  }
  if (message == host::Call<host::op::GetNotificationMessage>(state_.services) && message != 0) {
    return suppressHostMessages_ ? 0 : OnManagerNotification(wParam);
  }
  for (const MessageHandler& row : MessageHandlers()) {
    if (row.message == message) return (this->*row.handler)(window, wParam, lParam);
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

std::span<const ExplorerWindow::MessageHandler> ExplorerWindow::MessageHandlers() {
  static constexpr MessageHandler kHandlers[] = {
      {WM_COMMAND, &ExplorerWindow::OnCommand},
      {WM_SYSCOMMAND, &ExplorerWindow::OnSystemCommand},
      {kMessageFileTypesChanged, &ExplorerWindow::OnIgnored},  // the hook's, when there is one
      {kMessageReserved, &ExplorerWindow::OnIgnored},
      {WM_NOTIFY, &ExplorerWindow::OnNotify},
      {WM_NOTIFYFORMAT, &ExplorerWindow::OnNotifyFormat},
      {WM_CREATE, &ExplorerWindow::OnCreate},
      {WM_SIZE, &ExplorerWindow::OnSize},
      {WM_ERASEBKGND, &ExplorerWindow::OnEraseBackground},
      {WM_SHOWWINDOW, &ExplorerWindow::OnIgnored},
      {WM_SETFOCUS, &ExplorerWindow::OnSetFocus},
      {WM_NEXTDLGCTL, &ExplorerWindow::OnNextControl},
      {WM_CLIPBOARDUPDATE, &ExplorerWindow::OnClipboardUpdate},
      {WM_SYSCOLORCHANGE, &ExplorerWindow::OnColorChange},
      {WM_SETTINGCHANGE, &ExplorerWindow::OnSettingChange},
      {WM_DESTROY, &ExplorerWindow::OnDestroy},
      {WM_NCDESTROY, &ExplorerWindow::OnEndOfWindow},
  };
  return kHandlers;
}

LRESULT ExplorerWindow::OnIgnored(HWND, WPARAM, LPARAM) { return 0; }

LRESULT ExplorerWindow::OnManagerNotification(WPARAM wParam) {
  switch (LOWORD(wParam)) {
    case host::kNotifyToggle:
      return OnManagerToggle();
    case host::kNotifyClose:
      return OnManagerClose();
    case host::kNotifyDocked:
    case host::kNotifyFloated:
    case host::kNotifyStateSet:
      ResynchronisePanes();
      return 0;
    default:
      return 0;
  }
}

LRESULT ExplorerWindow::OnManagerToggle() {
  const std::int32_t now = host::Call<host::op::GetWindowState>(state_.services, window_.get());
  if (now != host::kStateExpanded && now != host::kStateCollapsed) return 0;
  host::Call<host::op::SetWindowState>(state_.services, window_.get(),
                                       now == host::kStateExpanded ? host::kStateCollapsed : host::kStateExpanded);
  return 1;
}

LRESULT ExplorerWindow::OnManagerClose() {
  if (host::Call<host::op::GetSecondFlags>(state_.services) & host::kSecondFlagCloseAllowed) return 0;
  MessageBoxA(state_.MainWindow(), "The file explorer window is not allowed to be closed.", "Warning", MB_OK);
  return 1;
}

LRESULT ExplorerWindow::OnCommand(HWND, WPARAM wParam, LPARAM) {
  const int command = LOWORD(wParam);
  if (command >= kFirstExplorerCommand && command <= kLastExplorerCommand) RunExplorerCommand(*this, command);
  return 0;
}

LRESULT ExplorerWindow::OnSystemCommand(HWND window, WPARAM wParam, LPARAM lParam) {
  // Deliberate: the host's manager alone moves, sizes and closes the window. Only the system menu opens.
  const WPARAM command = wParam & 0xFFF0;
  if (command == SC_MOUSEMENU || command == SC_KEYMENU) {
    return DefWindowProcA(window, WM_SYSCOMMAND, wParam, lParam);
  }
  return 0;
}

LRESULT ExplorerWindow::OnNotify(HWND, WPARAM, LPARAM lParam) {
  auto& header = *reinterpret_cast<NMHDR*>(lParam);
  if (!IsTooltipRequest(header)) return 0;
  if (AsksForToolOf(header, patternBox_.edit())) {
    AnswerTooltipRequest(header, base::WideFromNarrow(kPatternHelpText));
  } else {
    AnswerTooltipRequest(state_.instance, header);
  }
  return 0;
}

// Somebody may have made a wide window of it by replacing its procedure; its controls speak with the module all the same.
LRESULT ExplorerWindow::OnNotifyFormat(HWND window, WPARAM wParam, LPARAM lParam) {
  return lParam == NF_QUERY ? NFR_ANSI : DefWindowProcA(window, WM_NOTIFYFORMAT, wParam, lParam);
}

LRESULT ExplorerWindow::OnCreate(HWND window, WPARAM, LPARAM) {
  SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  return 0;
}

LRESULT ExplorerWindow::OnSize(HWND, WPARAM, LPARAM lParam) {
  if (fileView_) Relayout(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
  return 0;
}

LRESULT ExplorerWindow::OnEraseBackground(HWND window, WPARAM wParam, LPARAM) {
  if (suppressHostMessages_) return 0;
  const HDC dc = reinterpret_cast<HDC>(wParam);
  RECT client = {};
  GetClientRect(window, &client);
  const int toolbarHeight = ToolbarHeight();
  FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
  FillRect(dc, &client, GetSysColorBrush(COLOR_WINDOW));
  client.top = toolbarHeight;
  const HFONT font = reinterpret_cast<HFONT>(SendMessageA(toolbar_, WM_GETFONT, 0, 0));
  const HGDIOBJ oldFont = font != nullptr ? SelectObject(dc, font) : nullptr;
  const COLORREF oldColor = SetTextColor(dc, base::ContrastColor(RGB(0, 0, 0), COLOR_WINDOWTEXT));
  const int oldMode = SetBkMode(dc, TRANSPARENT);
  DrawTextW(dc, kInitialText, -1, &client, DT_SINGLELINE | DT_CENTER | DT_VCENTER);
  SetBkMode(dc, oldMode);
  SetTextColor(dc, oldColor);
  if (oldFont != nullptr) SelectObject(dc, oldFont);
  return 1;
}

// "Paste" follows the clipboard also while the selection stays as it is.
LRESULT ExplorerWindow::OnClipboardUpdate(HWND, WPARAM, LPARAM) {
  RefreshToolbarStates(*this);
  return 0;
}

// The toolbar and the list want to be told by the window around them.
LRESULT ExplorerWindow::OnColorChange(HWND window, WPARAM wParam, LPARAM lParam) {
  base::PassOnColorChange(window, WM_SYSCOLORCHANGE, wParam, lParam);
  return 0;
}

// High contrast comes and goes with its setting, the colours with a message of their own.
LRESULT ExplorerWindow::OnSettingChange(HWND window, WPARAM wParam, LPARAM lParam) {
  if (wParam == SPI_SETHIGHCONTRAST) return OnColorChange(window, 0, 0);
  return DefWindowProcA(window, WM_SETTINGCHANGE, wParam, lParam);
}

// Somebody else destroys the window: what lives in it goes while its windows still stand.
LRESULT ExplorerWindow::OnDestroy(HWND window, WPARAM wParam, LPARAM lParam) {
  RemoveClipboardFormatListener(window);
  DestroyFilePane();
  patternBox_.Destroy();
  return DefWindowProcA(window, WM_DESTROY, wParam, lParam);
}

LRESULT ExplorerWindow::OnEndOfWindow(HWND window, WPARAM wParam, LPARAM lParam) {
  SetWindowLongPtrA(window, GWLP_USERDATA, 0);
  window_.release();  // destroyed by somebody else, or by the destructor just now
  toolbar_ = nullptr;
  return DefWindowProcA(window, WM_NCDESTROY, wParam, lParam);
}

}  // namespace file_explorer
