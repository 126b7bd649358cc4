// One keystroke in the "Select:" box over a folder of 100,000 files, in the real module and host. The
// reference is what no selection by name can do without: reading the text of every item of the list once, and
// telling the list each change of a selection.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "bench/measure.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/machine_below.h"
#include "tests/support/wait_until.h"

namespace {

constexpr int kFiles = 100000;

// Makes the files in the folder by the shell of the machine below: through Wine it takes minutes.
bool MakeFiles(const std::string& folder) {
  const std::string path = test_support::PathBelow(std::wstring(folder.begin(), folder.end()));
  return !path.empty() &&
         test_support::RunBelow("cd '" + path +
                                "' && (seq -f Brick_wall_%06g.png 25000; seq -f Chair_%06g.obj 25000; "
                                "seq -f House_%06g.3ds 25000; seq -f Notes_%06g.txt 25000) | xargs touch");
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

using Selection = std::vector<bool>;

Selection SelectionOf(HWND list) {
  Selection selection(static_cast<size_t>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0)));
  for (size_t i = 0; i < selection.size(); ++i)
    selection[i] = SendMessageA(list, LVM_GETITEMSTATE, i, LVIS_SELECTED) != 0;
  return selection;
}

// Changes what differs from the selection that the list has.
void ChangeSelection(HWND list, const Selection& from, const Selection& to) {
  SendMessageA(list, WM_SETREDRAW, FALSE, 0);
  for (size_t i = 0; i < to.size(); ++i) {
    if (from[i] == to[i]) continue;
    LVITEMA item = {};
    item.stateMask = LVIS_SELECTED;
    item.state = to[i] ? LVIS_SELECTED : 0U;
    SendMessageA(list, LVM_SETITEMSTATE, i, reinterpret_cast<LPARAM>(&item));
  }
  SendMessageA(list, WM_SETREDRAW, TRUE, 0);
}

// How long the list takes for the changes alone; it stands as at `to` afterwards.
double ChangesAlone(HWND list, const Selection& from, const Selection& to) {
  ChangeSelection(list, to, from);
  test_support::PumpMessages();
  const double seconds = bench::BestSeconds(1, [&] { ChangeSelection(list, from, to); });
  test_support::PumpMessages();
  return seconds;
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
          [&] { return SendMessageA(fixture.FileList(), LVM_GETITEMCOUNT, 0, 0) == kFiles; })) {
    std::puts("select box: the files could not be shown");
    return 1;
  }
  const HWND list = fixture.FileList();
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
  Selection before = SelectionOf(list);
  for (const auto& keystroke : keystrokes) {
    const double seconds = LastKeystroke(fixture.SelectEdit(), keystroke.text);
    const Selection after = SelectionOf(list);
    const auto selected = std::count(after.begin(), after.end(), true);
    bench::PrintRatio("select box, 100,000 items, " + std::string(keystroke.text) + " (" + keystroke.what +
                          ": " + std::to_string(selected) + ")",
                      seconds, "reading every text and changing the states",
                      reading + ChangesAlone(list, before, after));
    before = after;
  }
  fixture.Close();
  return 0;
}
