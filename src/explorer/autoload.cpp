#include "src/explorer/autoload.h"

#include <array>
#include <cstring>
#include <string>

#include "base/flow/steps.h"
#include "src/explorer/explorer_state.h"
#include "src/framework/unique_handle.h"
#include "src/host/plugin_protocol.h"
#include "src/host/vc64_tx.h"

namespace file_explorer {
namespace {

constexpr char kLastResortDirectory[] = "c:\\";

bool DirectoryExists(const char* path) {
  const DWORD attributes = GetFileAttributesA(path);
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

std::string TemporaryDirectory() {
  std::array<char, kTxPathSize> path = {};
  const DWORD length = GetTempPathA(kTxPathSize, path.data());
  if (length == 0 || length >= kTxPathSize) return kLastResortDirectory;
  if (!DirectoryExists(path.data()) && !CreateDirectoryA(path.data(), nullptr)) return kLastResortDirectory;
  return path.data();
}

bool WriteWholeFile(const char* fileName, const char* text) {
  const HANDLE handle =
      CreateFileA(fileName, GENERIC_WRITE, FILE_SHARE_READ, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) return false;
  const unique_file file(handle);
  const DWORD length = static_cast<DWORD>(std::strlen(text));
  DWORD written = 0;
  return WriteFile(file.get(), text, length, &written, nullptr) && written == length;
}

}  // namespace

void AutoloadFile(HWND hostWindow, const char* path) {
  if (path == nullptr || path[0] == '\0') return;
  std::array<char, kTxPathSize> fileName = {};
  if (!Tx_ConcatenatePathAndFilename(TemporaryDirectory().c_str(), host::kAutoloadFileName, fileName.data(),
                                     fileName.size())) {
    return;
  }
  if (WriteWholeFile(fileName.data(), path)) SendMessageA(hostWindow, host::kAutoloadMessage, 0, 0);
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
