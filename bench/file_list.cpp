// The file view with 100,000 files, in the real module and host: opening a folder, with and without a filter,
// and sorting it in groups. Each figure beside a reference of the same run.
#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "bench/measure.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/many_files.h"

namespace {

constexpr int kFiles = 100000;
constexpr double kPatience = 120;  // seconds
constexpr int kNameColumn = 0;

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point start) {
  return std::chrono::duration<double>(Clock::now() - start).count();
}

// How long something took, and the longest time that the window was busy with one message meanwhile.
struct Wait {
  double seconds = 0;
  double longestMessage = 0;
  bool came = false;
};

// Handles messages until the condition holds.
template <typename Condition>
Wait PumpUntil(Clock::time_point start, Condition&& condition) {
  Wait wait;
  while (SecondsSince(start) < kPatience) {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
      const auto before = Clock::now();
      TranslateMessage(&message);
      DispatchMessageA(&message);
      wait.longestMessage = std::max(wait.longestMessage, SecondsSince(before));
      if (condition()) {
        wait.came = true;
        wait.seconds = SecondsSince(start);
        return wait;
      }
    }
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
  }
  return wait;
}

// The explorer in a folder that has the many files in a folder of their own.
class Explorer {
 public:
  // root: the folder that the explorer begins in; it has one folder, "many".
  Explorer(const std::wstring& root, const std::string& profile) {
    fixture_.directory().AddFile(L"profile.ini", "[Explore]\n" + profile);
    fixture_.options().folder = root;
    fixture_.options().recordCalls = false;
  }

  bool Begin() {
    fixture_.Start();
    if (!fixture_.LoadExplorer() || fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}) != 0)
      return false;
    return fixture_.WaitForFile("many");
  }

  // Opens the folder of many files and waits until `rows` of them are there and the first row is the wanted
  // one.
  Wait Open(int rows, const std::string& lastName) {
    const auto start = Clock::now();
    fixture_.DoubleClickFile("many");
    return PumpUntil(start, [&] { return Rows() == rows && Name(rows - 1) == lastName; });
  }

  Wait SortByName(const std::string& firstName) {
    NMLISTVIEW click = {};
    click.hdr = {fixture_.FileList(), 1, static_cast<UINT>(LVN_COLUMNCLICK)};
    click.iSubItem = kNameColumn;
    const auto start = Clock::now();
    SendMessageA(GetParent(fixture_.FileList()), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&click));
    const double first = SecondsSince(start);
    Wait wait = PumpUntil(start, [&] { return Name(0) == firstName; });
    wait.longestMessage = std::max(wait.longestMessage, first);
    return wait;
  }

  int Rows() { return static_cast<int>(SendMessageA(fixture_.FileList(), LVM_GETITEMCOUNT, 0, 0)); }
  std::string Name(int row) {
    char text[MAX_PATH] = "";
    LVITEMA item = {};
    item.pszText = text;
    item.cchTextMax = sizeof(text);
    SendMessageA(fixture_.FileList(), LVM_GETITEMTEXTA, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&item));
    return item.pszText;
  }

 private:
  test_support::ExplorerFixture fixture_;
};

double RawEnumeration(const std::wstring& folder) {
  return bench::BestSeconds(3, [&] {
    WIN32_FIND_DATAW data;
    int count = 0;
    const HANDLE find = FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &data,
                                         FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (find == INVALID_HANDLE_VALUE) return;
    do {
      ++count;
    } while (FindNextFileW(find, &data));
    FindClose(find);
    bench::Keep(count);
  });
}

// Sorting the same number of names by a prepared key.
double PreparedSort(int count) {
  struct Row {
    std::int32_t key;
    std::string name;
  };
  std::vector<Row> rows;
  for (int i = 0; i < count; ++i) {
    char name[32];
    std::snprintf(name, sizeof(name), "c:\\files\\model%06d", i);
    rows.push_back({i % 8, name});
  }
  return bench::BestSeconds(3, [&] {
    std::vector<const Row*> order;
    for (const Row& row : rows) order.push_back(&row);
    std::sort(order.begin(), order.end(), [](const Row* a, const Row* b) {
      return a->key != b->key ? a->key < b->key : a->name < b->name;
    });
    bench::Keep(order);
  });
}

bool Report(const char* what, const Wait& wait) {
  if (!wait.came) std::printf("%s: did not end\n", what);
  return wait.came;
}

int Fail(const char* what) {
  std::printf("file list: %s failed\n", what);
  return 1;
}

int Run(const test_support::TempDirectory& root) {
  const std::wstring many = root.AddFolder(L"many");
  const int count = test_support::MakeManyFiles(many, kFiles, true);
  if (count != kFiles) return Fail("making the files");
  double open = 0;
  {
    Explorer explorer(root.path(), "GroupRelatedFilesTogetherOnFileView=0\n");
    if (!explorer.Begin()) return Fail("starting the explorer");
    const double raw = RawEnumeration(many);
    const Wait wait = explorer.Open(count, "model100000.obj");
    if (!Report("opening", wait)) return 1;
    open = wait.seconds;
    bench::PrintRatio("opening 100,000 files", open, "raw enumeration", raw);
    bench::PrintTime("  longest single message", wait.longestMessage);
  }
  {
    // Two masks and a type filter that let half of the files through.
    Explorer explorer(root.path(),
                      "GroupRelatedFilesTogetherOnFileView=0\n"
                      "FileInclusionList=*.obj,*.3ds,*.png,*.jpg\nFileExclusionList=test*,*9.bak\n"
                      "FileExtensionFilteringMethod=1\n");
    if (!explorer.Begin()) return Fail("starting the explorer");
    const Wait wait = explorer.Open(count / 2, "model100000.obj");
    if (!Report("opening with masks", wait)) return 1;
    bench::PrintRatio("opening with two masks and a type filter", wait.seconds, "the same folder without",
                      open);
  }
  {
    Explorer explorer(root.path(), "");
    if (!explorer.Begin()) return Fail("starting the explorer");
    // Files of no kind come last, and first the other way round; bitmaps have the lowest type bit.
    const Wait opened = explorer.Open(count, "model099997.xyz");
    if (!Report("opening in groups", opened)) return 1;
    bench::PrintRatio("opening in groups", opened.seconds, "the same folder without", open);
    bench::PrintTime("  longest single message", opened.longestMessage);
    const Wait down = explorer.SortByName("model099997.xyz");
    if (!Report("sorting in groups", down)) return 1;
    const Wait up = explorer.SortByName("model000001.png");
    if (!Report("sorting in groups, back", up)) return 1;
    bench::PrintRatio("sorting 100,000 files in groups", std::min(up.seconds, down.seconds),
                      "std::sort of prepared keys", PreparedSort(count));
    bench::PrintTime("  longest single message", std::max(up.longestMessage, down.longestMessage));
  }
  test_support::DeleteManyFiles(many);
  return 0;
}

}  // namespace

int main() {
  const test_support::TempDirectory root;
  return Run(root);
}
