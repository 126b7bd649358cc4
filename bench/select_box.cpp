// One keystroke in the "Select:" box over a folder of 100,000 files, in the real module and host. The
// reference is reading the text of every item of the list once, which no selection by name can do without.
#include <windows.h>

#include <commctrl.h>

#include <array>
#include <string>

#include "bench/measure.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace {

constexpr int kFiles = 100000;
constexpr DWORD kPatience = 120000;  // milliseconds

// Makes the files in the folder by the shell of the machine below: through Wine it takes minutes.
bool MakeFiles(const std::string& folder) {
  using UnixName = char*(CDECL*)(LPCWSTR);
  const auto unixName = reinterpret_cast<UnixName>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name")));
  if (unixName == nullptr) return false;
  const std::wstring wide(folder.begin(), folder.end());
  char* const path = unixName(wide.c_str());
  if (path == nullptr) return false;
  std::string command =
      "Z:\\bin\\sh -c \"cd '" + std::string(path) +
      "' && (seq -f Brick_wall_%06g.png 25000; seq -f Chair_%06g.obj 25000; seq -f House_%06g.3ds 25000; "
      "seq -f Notes_%06g.txt 25000) | xargs touch; touch '" +
      std::string(path) + ".done'\"";
  HeapFree(GetProcessHeap(), 0, path);
  STARTUPINFOA start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &process)) {
    return false;
  }
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return test_support::WaitUntil(
      [&] { return GetFileAttributesA((folder + ".done").c_str()) != INVALID_FILE_ATTRIBUTES; }, kPatience);
}

double ReadAllTexts(HWND list) {
  return bench::BestSeconds(3, [list] {
    std::array<char, 1024> text = {};
    for (int i = 0; i < static_cast<int>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0)); ++i) {
      LVITEMA item = {};
      item.pszText = text.data();
      item.cchTextMax = static_cast<int>(text.size());
      SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
      bench::Keep(text);
    }
  });
}

// Sets the text without a selection, then types the last character.
double LastKeystroke(HWND edit, const std::string& text) {
  SendMessageA(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.substr(0, text.size() - 1).c_str()));
  SendMessageA(edit, EM_SETSEL, text.size(), static_cast<LPARAM>(text.size()));
  const double seconds = bench::BestSeconds(1, [&] {
    SendMessageA(edit, WM_CHAR, static_cast<WPARAM>(static_cast<unsigned char>(text.back())), 1);
  });
  test_support::PumpMessages();
  return seconds;
}

int CountSelected(HWND list) {
  return static_cast<int>(SendMessageA(list, LVM_GETSELECTEDCOUNT, 0, 0));
}

}  // namespace

int main() {
  test_support::ExplorerFixture fixture;
  if (!MakeFiles(fixture.FilesFolder())) {
    std::puts("select box: the files could not be made");
    return 1;
  }
  fixture.options().recordCalls = false;
  fixture.Start();
  if (!fixture.LoadExplorer() || fixture.SayWithHost({{"showfolderviewpanel", nullptr}}) != 0 ||
      !test_support::WaitUntil(
          [&] { return SendMessageA(fixture.FileList(), LVM_GETITEMCOUNT, 0, 0) == kFiles; }, kPatience)) {
    std::puts("select box: the files could not be shown");
    return 1;
  }
  const HWND list = fixture.FileList();
  const std::string reference = "reading every item's text";
  const double reading = ReadAllTexts(list);
  const struct {
    const char* text;
    const char* what;
  } keystrokes[] = {
      {"[z]", "nothing matches, nothing changes"},
      {"br", "a quarter gets selected"},
      {"bri", "the same quarter again"},
      {"?o", "another half, the quarter goes"},
      {"*", "all get selected"},
      {"*.3ds", "all but a quarter go"},
      {"*[02468].*", "every other one gets selected"},
      {"\"zz", "all go"},
  };
  for (const auto& keystroke : keystrokes) {
    const double seconds = LastKeystroke(fixture.SelectEdit(), keystroke.text);
    bench::PrintRatio("select box, 100,000 items, " + std::string(keystroke.text) + " (" + keystroke.what +
                          ": " + std::to_string(CountSelected(list)) + ")",
                      seconds, reference, reading);
  }
  fixture.Close();
  return 0;
}
