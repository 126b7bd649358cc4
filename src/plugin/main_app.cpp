#include "src/plugin/main_app.h"

#include <array>

#include "base/text/narrow_path.h"
#include "src/explorer/explorer_window.h"
#include "src/framework/module_context.h"
#include "src/host/vc64_imp.h"

namespace file_explorer {
namespace {

constexpr char kVersionKey[] = "SOFTWARE\\Halvo Software, Inc.\\Halvo-File-Explorer-Dll";
constexpr DWORD kModulePathSize = 300 + 1;  // characters, with the terminator

CMainApp* mainApp = nullptr;
CMainApp theApp;

constexpr CWinApp::MessageMapEntry kEntries[] = {{0, nullptr}};

void WriteVersionToRegistry() {
  const auto path = base::NarrowPath(ModulePath());
  if (!path || path->empty()) return;
  const unique_host_text version(Import_IO_GetVersionStringfromExeOrDLL(path->c_str()));
  if (version && version.get()[0] != '\0') Import_IO_Write_Key(kVersionKey, "Version", version.get());
}

}  // namespace

std::wstring ModulePath() {
  std::array<wchar_t, kModulePathSize> path = {};
  GetModuleFileNameW(ModuleInstance(), path.data(), kModulePathSize);
  path.back() = L'\0';
  return path.data();
}

CMainApp* MainApp() { return mainApp; }

CMainApp::CMainApp() : CWinApp(nullptr) {}

CMainApp::~CMainApp() = default;

const CWinApp::MessageMap* CMainApp::GetMessageMap() const {
  static const MessageMap kMap = {CWinApp::GetMessageMap(), kEntries};
  return &kMap;
}

BOOL CMainApp::InitInstance() {
  mainApp = this;
  if (FAILED(CoInitialize(nullptr))) return FALSE;
  state_ = new ExplorerState();
  WriteVersionToRegistry();
  return CWinApp::InitInstance();
}

int CMainApp::ExitInstance() {
  delete state_;
  state_ = nullptr;
  ExplorerWindow::UnregisterWindowClass(ModuleInstance());
  CoUninitialize();
  return CWinApp::ExitInstance();
}

}  // namespace file_explorer
