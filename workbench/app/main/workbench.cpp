#include "workbench/app/main/workbench.h"

#include <windows.h>

#include <commctrl.h>
#include <ole2.h>

#include <cwchar>

#include "base/files/emptied_file.h"
#include "base/files/system_recovery_calls.h"
#include "base/text/narrow_path.h"
#include "workbench/app/main/format_viewers.h"
#include "workbench/app/main/host_libraries.h"
#include "workbench/app/ui/text_conversion.h"

namespace workbench {
namespace {

constexpr wchar_t kProfileName[] = L"workbench.ini";
constexpr wchar_t kCurrentDirectoryLink[] = L"ExploreCurrentDirectory.lnk";
constexpr wchar_t kMainWindowKey[] = L"Main-Window";

std::wstring DefaultProfilePath() {
  const std::wstring directory = ApplicationDirectory(nullptr);
  return (directory.empty() ? ProgramFolder() : directory) + L"\\" + kProfileName;
}

Rect WorkArea() {
  RECT area = {};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
  return ToRect(area);
}

// The remembered place of the main window: "left,top,right,bottom,maximized".
struct MainPlace {
  Rect rect;
  bool maximized = false;
};

std::optional<MainPlace> ParseMainPlace(const std::wstring& text) {
  MainPlace place;
  int maximized = 0;
  wchar_t rest = 0;
  const int found = std::swscanf(text.c_str(), L"%d,%d,%d,%d,%d%lc", &place.rect.left, &place.rect.top,
                                 &place.rect.right, &place.rect.bottom, &maximized, &rest);
  if (found != 5 || place.rect.empty()) return std::nullopt;
  place.maximized = maximized != 0;
  return place;
}

// Each value that is set rewrites the whole profile in place: ended at that moment, the program leaves none.
void RestoreEmptiedProfile(const std::wstring& path) {
  base::SystemRecoveryCalls calls;
  if (const auto narrow = base::NarrowPath(path)) base::RestoreEmptiedFile(*narrow, calls);
}

}  // namespace

Workbench::Workbench(WorkbenchOptions options) : options_(std::move(options)) {
  oleReady_ = SUCCEEDED(OleInitialize(nullptr));
  const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_WIN95_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&classes);
  if (options_.profilePath.empty()) options_.profilePath = DefaultProfilePath();
  // The system looks for a bare profile name in its own folder.
  options_.profilePath = FullPathOf(options_.profilePath);
  if (!options_.folder.empty()) options_.folder = FullPathOf(options_.folder);
  if (options_.helpLocation.empty()) options_.helpLocation = ProgramFolder() + L"\\help";
  profilePath_ = base::NarrowPath(options_.profilePath).value_or(std::string());
  RestoreEmptiedProfile(options_.profilePath);
  services_.SetRecording(options_.recordCalls);
  PrepareFolder();
  CreateParts();
}

Workbench::~Workbench() {
  Close();
  if (oleReady_) OleUninitialize();
}

// The folder of the command line wins over the folder that the explorer ended in: the link to that one is
// removed.
void Workbench::PrepareFolder() {
  if (options_.folder.empty()) return;
  SetWorkingDirectoryVariable(options_.folder);
  const std::wstring directory = ApplicationDirectory(nullptr);
  if (!directory.empty()) DeleteFileW((directory + L"\\" + kCurrentDirectoryLink).c_str());
}

void Workbench::CreateParts() {
  main_ = std::make_unique<MainWindow>(static_cast<MainWindowOwner&>(*this), theme_);
  PlaceMainWindow();
  windows_ = std::make_unique<WindowManager>(main_->window(), theme_, PlacementStore(options_.profilePath));
  documents_ = std::make_unique<DocumentList>(windows_->documents(), options_.documents.openView,
                                              [this] { UpdateStatus(); });
  if (options_.documents.createWelcome)
    welcome_ = options_.documents.createWelcome(windows_->documents().window());
  if (welcome_ != nullptr) windows_->documents().SetEmptyWindow(welcome_->window());
  panel_ = std::make_unique<UtilityPanel>(windows_->site().window(), theme_);
  OnRoomChanged(main_->Room());
  DockRequest panel;
  panel.guid = kUtilityPanelWindow;
  panel.window = panel_->window();
  panel.title = L"Utility panel";
  panel.method = host::kMethodCollapsible;
  panel.position = host::kDockLeft;
  panel.ofWorkbench = true;
  windows_->Adopt(panel, nullptr);
  windows_->Show(panel_->window(), true);
  ProvideApplication();
  ProvidePanel();
  ProvideWindowManager();
  ProvideDialogs();
  ProvideOthers();
  plugin_ = std::make_unique<PluginHost>(main_->window(), services_.services());
  main_->SetMessage(L"Ready");
}

void Workbench::PlaceMainWindow() {
  const PlacementStore store(options_.profilePath);
  const Rect area = WorkArea();
  const std::optional<MainPlace> remembered = ParseMainPlace(store.LoadText(kMainWindowKey));
  Size size = {theme_.Scale(1180), theme_.Scale(780)};
  if (options_.size) size = *options_.size;
  Rect rect = {area.left + (area.width() - size.width) / 2, area.top + (area.height() - size.height) / 2, 0,
               0};
  rect.right = rect.left + size.width;
  rect.bottom = rect.top + size.height;
  if (remembered && !options_.size) rect = remembered->rect;
  rect = KeepInside(rect, area);
  SetWindowPos(main_->window(), nullptr, rect.left, rect.top, rect.width(), rect.height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
  if (!options_.visible) return;
  const bool maximized = remembered && remembered->maximized && !options_.size;
  ShowWindow(main_->window(), maximized ? SW_SHOWMAXIMIZED : SW_SHOW);
}

void Workbench::SaveMainWindowPlace() const {
  WINDOWPLACEMENT placement = {};
  placement.length = sizeof placement;
  if (!GetWindowPlacement(main_->window(), &placement)) return;
  // Kept in screen coordinates; the system gives them relative to the work area.
  const Rect area = WorkArea();
  const RECT& rect = placement.rcNormalPosition;
  wchar_t text[96];
  std::swprintf(text, std::size(text), L"%d,%d,%d,%d,%d", static_cast<int>(rect.left) + area.left,
                static_cast<int>(rect.top) + area.top, static_cast<int>(rect.right) + area.left,
                static_cast<int>(rect.bottom) + area.top, placement.showCmd == SW_SHOWMAXIMIZED ? 1 : 0);
  PlacementStore(options_.profilePath).SaveText(kMainWindowKey, text);
}

PluginState Workbench::LoadPlugin(const std::wstring& path) {
  const PluginState state = plugin_->Load(FullPathOf(path), options_.helpLocation);
  const std::wstring problem = plugin_->Problem();
  if (problem.empty()) {
    main_->SetMessage(L"Ready");
    return state;
  }
  std::wstring line = problem;
  for (wchar_t& character : line) character = character == L'\n' ? L' ' : character;
  main_->SetMessage(line);
  // A plug-in that refuses this host has already said so in a box of its own.
  if (state != PluginState::Refused) ShowMessage(problem);
  return state;
}

void Workbench::ShowMessage(const std::wstring& text) {
  if (options_.showMessage) {
    options_.showMessage(window(), text);
  } else {
    MessageBoxW(window(), text.c_str(), L"Workbench", MB_OK | MB_ICONWARNING);
  }
}

void Workbench::UpdateStatus() {
  const DocumentFacts front = documents_->Front();
  main_->SetSummary(front.summary);
  const std::wstring title = front.title.empty() ? L"Workbench" : front.title + L" - Workbench";
  SetWindowTextW(main_->window(), title.c_str());
}

bool Workbench::OpenDocument(const std::wstring& path) {
  if (OpenWithViewer(FullPathOf(path))) {
    main_->SetMessage(path);
    return true;
  }
  std::wstring error;
  const bool opened = documents_->Open(path, &error);
  main_->SetMessage(opened ? path : L"Not opened: " + path + L" - " + error);
  return opened;
}

void Workbench::Pump() {
  // On a busy machine a timer may be due again each time that it was dealt with.
  constexpr int kMostMessages = 5000;
  MSG message = {};
  for (int i = 0; i < kMostMessages && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
    if (isOpen() && main_->TranslateKeys(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

int Workbench::Run() {
  MSG message = {};
  while (isOpen() && !closeRequested_ && GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (main_->TranslateKeys(message)) continue;
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  Close();
  return 0;
}

void Workbench::Close() {
  if (!isOpen()) return;
  SaveMainWindowPlace();
  plugin_->Unload();  // its windows go first, and are remembered as they go
  windows_->SaveAll();
  documents_.reset();
  windows_->documents().SetEmptyWindow(nullptr);
  welcome_.reset();
  plugin_.reset();
  windows_.reset();
  panel_.reset();
  main_.reset();
}

}  // namespace workbench
