#include "src/framework/win_app.h"

namespace file_explorer {
namespace {

CWinApp* currentApp = nullptr;
constexpr CWinApp::MessageMapEntry kNoEntries[] = {{0, nullptr}};
constexpr CWinApp::MessageMap kRootMap = {nullptr, kNoEntries};

}  // namespace

CWinApp::CWinApp(const char* name) : name_(name) { currentApp = this; }

CWinApp::~CWinApp() {
  if (currentApp == this) currentApp = nullptr;
}

const CWinApp::MessageMap* CWinApp::GetMessageMap() const { return &kRootMap; }

BOOL CWinApp::InitInstance() { return TRUE; }

int CWinApp::ExitInstance() { return 0; }

CWinApp* CWinApp::Current() { return currentApp; }

}  // namespace file_explorer
