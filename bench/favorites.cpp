// Many favourites in one folder: reading, showing and writing them, against a plain read of the same file and
// the same items in a bare tree control.
#include <windows.h>

#include <commctrl.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/text/letter_case.h"
#include "bench/measure.h"
#include "src/favorites/favorites_file.h"
#include "src/favorites/halvo_tree_view.h"

namespace {

namespace fs = std::filesystem;
using namespace file_explorer;

constexpr int kSizes[] = {2500, 5000, 10000, 20000};

std::string NameOf(int index, bool sorted) {
  char text[64];
  std::snprintf(text, sizeof text, "Model %06d", sorted ? index : index * 7919 % 100003);
  return text;
}

void WriteFavorites(const std::string& file, int count, bool sorted) {
  std::ofstream out(file, std::ios::binary);
  out << "K={root}\r\ns=49\r\ni=0\r\nd=Favorites\r\nE\r\n";
  for (int i = 0; i < count; ++i) {
    out << "K={8C1D31BB-0000-4000-8000-" << 100000000000LL + i << "}\r\ns=4\r\ni=1\r\nd=" << NameOf(i, sorted)
        << "\r\nn=X:\\models\\folder " << i % 100 << "\\" << NameOf(i, sorted) << ".obj\r\np={root}\r\n";
  }
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

struct Growth {
  int count;
  double seconds;
};

void PrintGrowth(const std::string& name, const std::vector<Growth>& figures) {
  const Growth& first = figures.front();
  const Growth& last = figures.back();
  std::printf(
      "%s grows with n to the power of %.2f (from %d to %d)\n", name.c_str(),
      std::log(last.seconds / first.seconds) / std::log(static_cast<double>(last.count) / first.count),
      first.count, last.count);
}

HWND CreatePanel() {
  WNDCLASSA windowClass = {};
  windowClass.lpfnWndProc = DefWindowProcA;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.lpszClassName = "FavoritesBenchPanel";
  RegisterClassA(&windowClass);
  return CreateWindowExA(0, "FavoritesBenchPanel", "", WS_POPUP | WS_VISIBLE, 0, 0, 400, 600, nullptr,
                         nullptr, windowClass.hInstance, nullptr);
}

constexpr DWORD kTreeStyle =
    WS_CHILD | TVS_HASBUTTONS | TVS_HASLINES | TVS_EDITLABELS | TVS_SHOWSELALWAYS | TVS_TRACKSELECT;

// The items in their final order, each behind the last.
void FillBareTree(HWND panel, int count) {
  const HWND tree = CreateWindowExA(0, WC_TREEVIEWA, "", kTreeStyle, 0, 0, 400, 600, panel, nullptr,
                                    GetModuleHandleA(nullptr), nullptr);
  SendMessageA(tree, WM_SETREDRAW, FALSE, 0);
  FavoriteRecord record;
  record.displayName = "Favorites";
  const TreeControl control(tree);
  const HTREEITEM root = control.Insert(record, nullptr, TVI_LAST);
  for (int i = 0; i < count; ++i) {
    record.displayName = NameOf(i, true);
    control.Insert(record, root, TVI_LAST);
  }
  SendMessageA(tree, WM_SETREDRAW, TRUE, 0);
  DestroyWindow(tree);
}

class FavoritesBench {
 public:
  FavoritesBench() : folder_(fs::temp_directory_path() / "favorites_bench"), panel_(CreatePanel()) {
    fs::create_directories(folder_);
  }
  ~FavoritesBench() {
    DestroyWindow(panel_);
    std::error_code error;
    fs::remove_all(folder_, error);
  }

  void Run(int count) {
    for (const bool sorted : {true, false}) {
      const std::string kind = sorted ? ", in order" : ", in any order";
      const std::string suffix = kind + ", " + std::to_string(count) + " favorites";
      const std::string file = (folder_ / "favorites.dat").string();
      WriteFavorites(file, count, sorted);
      const double plain = bench::BestSeconds(3, [&] { ReadPlainly(file); });
      const double bare = bench::BestSeconds(3, [&] { FillBareTree(panel_, count); });
      const double list = bench::BestSeconds(5, [&] { LoadListOnly(file); });
      CHalvoTreeView view(GetModuleHandleA(nullptr), panel_, nullptr, 104, kTreeStyle);
      view.CreateTreeWindow();
      const double load = bench::BestSeconds(3, [&] { view.LoadFavorites(file); });
      ShowWindow(view.window(), SW_SHOW);
      const double paint = bench::BestSeconds(3, [&] {
        InvalidateRect(view.window(), nullptr, TRUE);
        UpdateWindow(view.window());
      });
      const double find = bench::BestSeconds(3, [&] {
        bench::Keep(
            view.FindByKey("{8c1d31bb-0000-4000-8000-" + std::to_string(100000000000LL + count / 2) + "}"));
      });
      const double add = bench::BestSeconds(3, [&] { AddOne(view); });
      const double save = bench::BestSeconds(2, [&] { view.SaveFavorites(file); });
      bench::PrintRatio("records alone" + suffix, list, "plain read", plain);
      bench::PrintRatio("load with tree" + suffix, load, "plain read", plain);
      bench::PrintRatio("load with tree" + suffix, load, "filling a bare tree", bare);
      bench::PrintRatio("repaint" + suffix, paint, "filling a bare tree", bare);
      bench::PrintRatio("add one" + suffix, add, "filling a bare tree", bare);
      bench::PrintRatio("save" + suffix, save, "plain read", plain);
      bench::PrintTime("find by key" + suffix, find);
      growths_["filling a bare tree" + kind].push_back({count, bare});
      growths_["records alone" + kind].push_back({count, list});
      growths_["load with tree" + kind].push_back({count, load});
      growths_["save" + kind].push_back({count, save});
    }
  }

  void PrintGrowths() const {
    for (const auto& [name, figures] : growths_) PrintGrowth(name, figures);
  }

 private:
  static void LoadListOnly(const std::string& file) {
    FavoriteList list(base::LowerCaseNarrow);
    list.BeginLoading();
    ReadFavoritesFile(file, SystemFileCalls(), list,
                      [&](std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent) {
                        return list.Add(std::move(record), parent);
                      });
    list.EndLoading();
    bench::Keep(list.records().size());
  }

  void AddOne(CHalvoTreeView& view) {
    auto record = std::make_unique<FavoriteRecord>();
    record->displayName = "Model 050000";
    record->flags = kReferenceFlags;
    view.AddFavorite(std::move(record), view.FindByKey("{root}"));
  }

  const fs::path folder_;
  const HWND panel_;
  std::map<std::string, std::vector<Growth>> growths_;
};

}  // namespace

int main() {
  FavoritesBench run;
  for (const int count : kSizes) run.Run(count);
  run.PrintGrowths();
  return 0;
}
