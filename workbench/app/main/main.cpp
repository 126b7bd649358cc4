// workbench.exe: reads the command line, opens the workbench with the plug-in and runs until the window is
// closed.
#include <windows.h>

#include <shellapi.h>

#include <vector>

#include "workbench/app/main/command_line.h"
#include "workbench/app/main/process_setup.h"
#include "workbench/app/main/ready_report.h"
#include "workbench/app/main/workbench.h"

namespace {

constexpr wchar_t kPluginName[] = L"ui_file_explorer.dll";
constexpr int kBadCommandLine = 2;

std::vector<std::wstring> Arguments() {
  int count = 0;
  wchar_t** texts = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> arguments;
  for (int i = 1; i < count; ++i) arguments.emplace_back(texts[i]);
  LocalFree(texts);
  return arguments;
}

int RunWorkbench() {
  std::wstring error;
  const auto commandLine = workbench::ParseCommandLine(Arguments(), &error);
  if (!commandLine) {
    const std::wstring text = error + L"\n\n" + workbench::kUsage;
    MessageBoxW(nullptr, text.c_str(), L"Workbench", MB_OK | MB_ICONERROR);
    return kBadCommandLine;
  }
  workbench::WorkbenchOptions options;
  options.profilePath = commandLine->profile;
  options.folder = commandLine->folder;
  options.size = commandLine->size;
  workbench::Workbench program(std::move(options));
  if (program.window() == nullptr) return 1;
  const std::wstring beside = workbench::ProgramFolder() + L"\\" + kPluginName;
  program.LoadPlugin(commandLine->plugin.empty() ? beside : commandLine->plugin);
  if (!commandLine->readyFile.empty()) workbench::ReportWhenReady(program.window(), commandLine->readyFile);
  return program.Run();
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
  try {
    workbench::PrepareProcess();
    return RunWorkbench();
  } catch (...) {
    MessageBoxW(nullptr, L"The program has to close: an unexpected error occurred.", L"Workbench",
                MB_OK | MB_ICONERROR);
    return 1;
  }
}
