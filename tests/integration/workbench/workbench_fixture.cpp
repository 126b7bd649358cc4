#include "tests/integration/workbench/workbench_fixture.h"

#include <algorithm>

namespace workbench {
namespace {

constexpr wchar_t kTestWindowClass[] = L"WorkbenchTestWindow";

LPARAM PointParameter(Point at) {
  return MAKELPARAM(static_cast<WORD>(at.x), static_cast<WORD>(at.y));
}

}  // namespace

TestWindow::TestWindow(UINT notification) : notification_(notification) {
  WNDCLASSW description = {};
  description.lpfnWndProc = &Procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.lpszClassName = kTestWindowClass;
  RegisterClassW(&description);
  window_ = CreateWindowExW(0, kTestWindowClass, L"Test window", WS_CAPTION | WS_SYSMENU | WS_THICKFRAME, 0,
                            0, 640, 80, nullptr, nullptr, GetModuleHandleW(nullptr), this);
}

TestWindow::~TestWindow() {
  Destroy();
}

void TestWindow::Destroy() {
  if (window_ != nullptr) DestroyWindow(window_);
}

Size TestWindow::Client() const {
  RECT client = {};
  GetClientRect(window_, &client);
  return {static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

int TestWindow::Count(int code) const {
  return static_cast<int>(std::count(notified.begin(), notified.end(), code));
}

LRESULT CALLBACK TestWindow::Procedure(HWND window, UINT id, WPARAM first, LPARAM second) {
  if (id == WM_NCCREATE) {
    SetWindowLongPtrW(window, GWLP_USERDATA,
                      reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(second)->lpCreateParams));
  }
  auto* self = reinterpret_cast<TestWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self != nullptr && id == WM_NCDESTROY) self->window_ = nullptr;
  if (self != nullptr && (id == self->notification_ || id == WM_SYSCOMMAND))
    return self->Handle(id, first, second);
  return DefWindowProcW(window, id, first, second);
}

LRESULT TestWindow::Handle(UINT id, WPARAM first, LPARAM) {
  if (id == WM_SYSCOMMAND) return 0;
  const int code = LOWORD(first);
  notified.push_back(code);
  if (onNotified) onNotified(code);
  if (code == host::kNotifyToggle) return answerToggle;
  return code == host::kNotifyClose ? answerClose : 0;
}

WorkbenchTest::WorkbenchTest() {
  SetEnvironmentVariableW(L"HALVO_APPLICATION_DIRECTORY", folder_.Join(L"user").c_str());
}

WorkbenchTest::~WorkbenchTest() {
  workbench_.reset();
}

WorkbenchOptions WorkbenchTest::Options() {
  WorkbenchOptions options;
  options.profilePath = folder_.Join(L"workbench.ini");
  options.size = Size{1000, 700};
  options.recordCalls = true;
  options.showMessage = [this](HWND, const std::wstring& text) { messages_.push_back(text); };
  return options;
}

void WorkbenchTest::Start(WorkbenchOptions options) {
  workbench_.reset();
  workbench_ = std::make_unique<Workbench>(std::move(options));
  workbench_->Pump();
}

std::unique_ptr<TestWindow> WorkbenchTest::NewWindow() {
  return std::make_unique<TestWindow>(host::Call<host::op::GetNotificationMessage>(services()));
}

std::int32_t WorkbenchTest::Dock(TestWindow& window, std::uint16_t method, std::uint16_t position,
                                 host::DockedWindowPlacement* placement, const char* guid) {
  const host::DockedWindowBitmap bitmap = {};
  host::DockedWindowPlacement unused = {};
  return host::Call<host::op::CreateDockedWindow>(
      services(), guid, window.window(), "Test window", "Test window", method, position, std::intptr_t{0},
      &bitmap, std::uint32_t{0}, std::intptr_t{0}, std::intptr_t{0}, std::intptr_t{0},
      placement != nullptr ? placement : &unused);
}

std::unique_ptr<TestWindow> WorkbenchTest::Docked(std::uint16_t method, std::uint16_t position,
                                                  const char* guid) {
  auto window = NewWindow();
  EXPECT_NE(Dock(*window, method, position, nullptr, guid), 0);
  host::Call<host::op::ShowManagedWindow>(services(), window->window(), 1);
  host().Pump();
  window->notified.clear();
  return window;
}

Rect WorkbenchTest::PlaceInSite(HWND window) {
  RECT rect = {};
  GetWindowRect(window, &rect);
  MapWindowPoints(nullptr, host().windows().site().window(), reinterpret_cast<POINT*>(&rect), 2);
  return ToRect(rect);
}

void WorkbenchTest::Press(HWND window, Point at) {
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, PointParameter(at));
}

void WorkbenchTest::Drag(HWND window, Point to) {
  SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, PointParameter(to));
}

void WorkbenchTest::ReleaseAt(HWND window, Point at) {
  SendMessageW(window, WM_LBUTTONUP, 0, PointParameter(at));
}

void WorkbenchTest::Click(HWND window, Point at) {
  Press(window, at);
  ReleaseAt(window, at);
}

void WorkbenchTest::DoubleClick(HWND window, Point at) {
  Click(window, at);
  SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, PointParameter(at));
  ReleaseAt(window, at);
}

}  // namespace workbench
