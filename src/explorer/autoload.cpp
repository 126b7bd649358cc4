#include "src/explorer/autoload.h"

#include <array>
#include <cstring>
#include <string>

#include "base/flow/steps.h"
#include "base/text/code_page.h"
#include "src/explorer/explorer_state.h"
#include "src/framework/unique_handle.h"
#include "src/host/plugin_protocol.h"

namespace file_explorer {
namespace {

constexpr wchar_t kLastResortDirectory[] = L"c:\\";

bool DirectoryExists(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// With a separator at its end. Wide throughout: the user's name may have letters that the code page lacks.
std::wstring TemporaryDirectory() {
  std::array<wchar_t, MAX_PATH + 2> path = {};
  const DWORD length = GetTempPathW(static_cast<DWORD>(path.size()), path.data());
  if (length == 0 || length >= path.size()) return kLastResortDirectory;
  std::wstring directory = path.data();
  if (!DirectoryExists(directory) && !CreateDirectoryW(directory.c_str(), nullptr))
    return kLastResortDirectory;
  if (!directory.ends_with(L'\\')) directory += L'\\';
  return directory;
}

bool WriteWholeFile(const std::wstring& fileName, const char* text) {
  const HANDLE handle = CreateFileW(fileName.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  const unique_file file(handle);
  const DWORD length = static_cast<DWORD>(std::strlen(text));
  DWORD written = 0;
  return WriteFile(file.get(), text, length, &written, nullptr) && written == length;
}

}  // namespace

void AutoloadFile(HWND hostWindow, const char* path) {
  if (path == nullptr || path[0] == '\0') return;
  const std::wstring fileName = TemporaryDirectory() + base::WideFromNarrow(host::kAutoloadFileName);
  if (WriteWholeFile(fileName, path)) SendMessageA(hostWindow, host::kAutoloadMessage, 0, 0);
}

void LoadFile(ExplorerState& state, const char* path) {
  // A path that can't be remembered is loaded all the same.
  base::IndependentSteps steps;
  steps.Run([&] {
    if (state.historyView) state.historyView->AddPathToHistory(path);
  });
  steps.Run([&] { AutoloadFile(state.MainWindow(), path); });
  steps.Finish();
}

}  // namespace file_explorer
