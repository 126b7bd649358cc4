// The history with many entries: reading its file, sorting, showing and adding, against what cannot be gone
// below: a plain read of the same file, the same profile calls without anything around them, a bare list box.
// Each profile call looks for its key from the section's start, so that the bare calls grow with the square of
// the list's length; the load reads a list that is much longer than what is ever saved in short pieces.
#include "src/history/history_view.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/text/letter_case.h"
#include "bench/measure.h"
#include "src/history/history_list.h"
#include "src/history/history_platform.h"

namespace {

namespace fs = std::filesystem;
using namespace file_explorer;

constexpr int kSizes[] = {50, 200, 800};
constexpr int kViewId = 32000;
constexpr int kValueSize = 8192;

// A time in the profile calls' form: the bytes as digits, and their sum.
std::string TimeValue(const HistoryTime& time) {
  const auto* const bytes = reinterpret_cast<const unsigned char*>(&time);
  std::string text;
  unsigned sum = 0;
  char digits[3];
  for (size_t i = 0; i < sizeof time; ++i) {
    std::snprintf(digits, sizeof digits, "%02X", bytes[i]);
    text += digits;
    sum += bytes[i];
  }
  std::snprintf(digits, sizeof digits, "%02X", sum & 0xFF);
  return text + digits;
}

HistoryTime TimeOf(int index) {
  HistoryTime time = {2020, 1, 0, 1, 0, 0, 0, 0};
  const int mixed = index * 7919 % 100003;
  time.month = static_cast<std::uint16_t>(1 + mixed % 12);
  time.day = static_cast<std::uint16_t>(1 + mixed / 12 % 28);
  time.hour = static_cast<std::uint16_t>(mixed / 336 % 24);
  return time;
}

std::string PathOf(int index) {
  return "X:\\models\\folder " + std::to_string(index % 100) + "\\model " +
         std::to_string(index * 7919 % 100003) + (index % 3 == 0 ? ".obj" : ".3ds");
}

std::string NameOf(int index) {
  const std::string path = PathOf(index);
  return path.substr(path.rfind('\\') + 1);
}

// Every second entry has an item that the shell knows.
void WriteHistory(const std::string& file, int count) {
  std::ofstream out(file, std::ios::binary);
  out << "[HistoryList]\r\nNumEntries=" << count << "\r\n";
  for (int i = 0; i < count; ++i) {
    out << 'm' << i << '=' << TimeValue(TimeOf(i)) << "\r\nd" << i << '=' << NameOf(i) << "\r\nf" << i << '='
        << PathOf(i) << "\r\n";
    if (i % 2 == 0) out << 'p' << i << "=C:\\windows\\win.ini\r\n";
  }
  out.close();
  // A file that was changed just now is parsed anew at each call.
  fs::last_write_time(file, fs::last_write_time(file) - std::chrono::minutes(5));
}

void ReadPlainly(const std::string& file) {
  std::FILE* const stream = std::fopen(file.c_str(), "rb");
  if (stream == nullptr) return;
  std::vector<char> block(1 << 16);
  size_t sum = 0;
  while (const size_t size = std::fread(block.data(), 1, block.size(), stream)) sum += size;
  std::fclose(stream);
  bench::Keep(sum);
}

void CallProfileOnly(const std::string& file, int count) {
  std::string value(kValueSize, '\0');
  HistoryTime time;
  for (int i = 0; i < count; ++i) {
    GetPrivateProfileStringA(kHistorySection, HistoryKey('d', i).c_str(), "", value.data(), kValueSize,
                             file.c_str());
    GetPrivateProfileStructA(kHistorySection, HistoryKey('m', i).c_str(), &time, sizeof time, file.c_str());
    GetPrivateProfileStringA(kHistorySection, HistoryKey('f', i).c_str(), "", value.data(), kValueSize,
                             file.c_str());
    GetPrivateProfileStringA(kHistorySection, HistoryKey('p', i).c_str(), "", value.data(), kValueSize,
                             file.c_str());
  }
}

// The same values from memory: what is left of a load is our own work and the shell's.
class MemoryFile final : public HistorySource {
 public:
  explicit MemoryFile(int count) {
    values_[kEntryCountKey] = std::to_string(count);
    for (int i = 0; i < count; ++i) {
      values_[HistoryKey('d', i)] = NameOf(i);
      values_[HistoryKey('f', i)] = PathOf(i);
      if (i % 2 == 0) values_[HistoryKey('p', i)] = "C:\\windows\\win.ini";
    }
  }
  std::string ReadText(const char* key) override {
    const auto found = values_.find(key);
    return found != values_.end() ? found->second : std::string();
  }
  bool ReadTime(const char* key, HistoryTime* time) override {
    *time = TimeOf(std::atoi(key + 1));
    return true;
  }

 private:
  std::unordered_map<std::string, std::string> values_;
};

// A shell that answers at once.
class NoShell final : public HistoryPlatform {
 public:
  ItemId ParseItem(const std::string& name) override { return ItemId(name.begin(), name.end()); }
  bool MayHang(const std::string&) override { return false; }
  std::string ParsingName(const ItemId& item) override { return std::string(item.begin(), item.end()); }
  std::string BaseName(const std::string& path) override { return path.substr(path.rfind('\\') + 1); }
  HistoryTime Now() override { return TimeOf(1); }
};

struct Growth {
  int count;
  double seconds;
};

// How the time grows: the exponent of n between the smallest and the largest size. n log n gives about 1.1.
void PrintGrowth(const std::string& name, const std::vector<Growth>& figures) {
  const Growth& first = figures.front();
  const Growth& last = figures.back();
  std::printf(
      "%s grows with n to the power of %.2f (from %d to %d)\n", name.c_str(),
      std::log(last.seconds / first.seconds) / std::log(static_cast<double>(last.count) / first.count),
      first.count, last.count);
}

LRESULT CALLBACK PanelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const view = reinterpret_cast<CHistoryView*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (view != nullptr && view->HandleMessage(window, message, wParam, lParam)) return TRUE;
  return DefWindowProcA(window, message, wParam, lParam);
}

HWND CreatePanel() {
  WNDCLASSA windowClass = {};
  windowClass.lpfnWndProc = PanelProcedure;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.lpszClassName = "HistoryBenchPanel";
  RegisterClassA(&windowClass);
  return CreateWindowExA(0, "HistoryBenchPanel", "", WS_POPUP | WS_VISIBLE, 0, 0, 400, 600, nullptr, nullptr,
                         windowClass.hInstance, nullptr);
}

void FillBareListBox(HWND panel, int count) {
  const HWND box = CreateWindowExA(0, "ListBox", "",
                                   WS_CHILD | WS_VISIBLE | WS_VSCROLL | LBS_HASSTRINGS | LBS_OWNERDRAWFIXED,
                                   0, 0, 400, 600, panel, nullptr, GetModuleHandleA(nullptr), nullptr);
  SendMessageA(box, WM_SETREDRAW, FALSE, 0);
  SendMessageA(box, LB_INITSTORAGE, static_cast<WPARAM>(count), 0);
  for (int i = 0; i < count; ++i) {
    SendMessageA(box, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(NameOf(i).c_str()));
    SendMessageA(box, LB_SETITEMDATA, static_cast<WPARAM>(i), i);
  }
  SendMessageA(box, WM_SETREDRAW, TRUE, 0);
  DestroyWindow(box);
}

class HistoryBench {
 public:
  HistoryBench() : folder_(fs::temp_directory_path() / "history_bench"), panel_(CreatePanel()) {
    fs::create_directories(folder_);
    SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", folder_.string().c_str());
  }
  ~HistoryBench() {
    DestroyWindow(panel_);
    std::error_code error;
    fs::remove_all(folder_, error);
  }

  void Run(int count) {
    const std::string suffix = ", " + std::to_string(count) + " entries";
    const std::string file = HistoryFilePath(nullptr);
    WriteHistory(file, count);
    const double plain = bench::BestSeconds(3, [&] { ReadPlainly(file); });
    const double calls = bench::BestSeconds(1, [&] { CallProfileOnly(file, count); });
    const double own = MeasureOwnLoad(count);
    const double create = bench::BestSeconds(1, [&] { Create(); });
    bench::PrintRatio("profile calls alone" + suffix, calls, "plain read", plain);
    bench::PrintRatio("history view's load" + suffix, create, "plain read", plain);
    bench::PrintRatio("history view's load" + suffix, create, "the same profile calls alone", calls);
    bench::PrintRatio("load without profile calls and shell" + suffix, own, "plain read", plain);
    Note("profile calls alone", count, calls);
    Note("history view's load", count, create);
    Note("load without profile calls and shell", count, own);
    MeasureView(suffix, count);
  }

  void PrintGrowths() const {
    for (const auto& [name, figures] : growths_) PrintGrowth(name, figures);
  }

 private:
  void Note(const std::string& name, int count, double seconds) {
    growths_[name].push_back({count, seconds});
  }

  static double MeasureOwnLoad(int count) {
    MemoryFile memory(count);
    NoShell platform;
    return bench::BestSeconds(10, [&] {
      HistoryList list(platform, base::LowerCaseNarrow);
      list.Load(memory);
      list.Sort(kSortNewestFirst);
      bench::Keep(list.size());
    });
  }

  void Create() {
    HistoryServices services;
    services.instance = GetModuleHandleA(nullptr);
    services.profilePath = [this] { return (folder_ / "host.ini").string(); };
    services.mainWindow = [this] { return panel_; };
    view_ = CHistoryView::Create(panel_, kViewId, services);
    SetWindowLongPtrA(panel_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(view_.get()));
    ShowWindow(view_->window(), SW_SHOW);
  }

  // A method is timed only when it is another one than before: all of them in turn, several times.
  void MeasureSorting(const std::string& suffix, int count, double bare) {
    static constexpr const char* kNames[kSortMethodCount] = {
        "sort and show, newest first", "sort and show, oldest first", "sort and show, by name",
        "sort and show, by extension"};
    constexpr int kRounds = 5;
    double best[kSortMethodCount] = {1e300, 1e300, 1e300, 1e300};
    for (int round = 0; round < kRounds; ++round) {
      for (const int method : {kSortOldestFirst, kSortByName, kSortByExtension, kSortNewestFirst}) {
        best[method] =
            std::min(best[method], bench::BestSeconds(1, [&] { view_->SetSortingMethod(method); }));
      }
    }
    for (int method = 0; method < kSortMethodCount; ++method) {
      bench::PrintRatio(kNames[method] + suffix, best[method], "filling a bare list box", bare);
      Note(kNames[method], count, best[method]);
    }
  }

  void MeasureView(const std::string& suffix, int count) {
    const double bare = bench::BestSeconds(5, [&] { FillBareListBox(panel_, count); });
    const auto measure = [&](const char* name, int runs, const std::function<void()>& work) {
      const double seconds = bench::BestSeconds(runs, work);
      bench::PrintRatio(name + suffix, seconds, "filling a bare list box", bare);
      Note(name, count, seconds);
    };
    Note("filling a bare list box", count, bare);
    MeasureSorting(suffix, count, bare);
    measure("repaint", 3, [&] {
      InvalidateRect(view_->window(), nullptr, TRUE);
      UpdateWindow(view_->window());
    });
    int added = 0;
    measure("add a new path", 5,
            [&] { view_->AddPathToHistory(("X:\\new" + std::to_string(added++)).c_str()); });
    measure("add a listed path", 3, [&] { view_->AddPathToHistory(PathOf(count / 2).c_str()); });
    measure("save", 1, [&] { view_.reset(); });
    SetWindowLongPtrA(panel_, GWLP_USERDATA, 0);
  }

  const fs::path folder_;
  const HWND panel_;
  std::unique_ptr<CHistoryView> view_;
  std::map<std::string, std::vector<Growth>> growths_;
};

}  // namespace

int main() {
  CoInitialize(nullptr);
  {
    HistoryBench run;
    for (const int count : kSizes) run.Run(count);
    run.PrintGrowths();
  }
  CoUninitialize();
  return 0;
}
