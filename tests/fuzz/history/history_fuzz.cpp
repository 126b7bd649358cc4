// The history's texts: any name, path, time and count is listed, sorted and shown; sorting loses nothing and
// is stable.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "src/history/history_list.h"
#include "src/history/history_store.h"
#include "src/history/path_compaction.h"
#include "src/history/row_layout.h"

using namespace file_explorer;

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

class Platform final : public HistoryPlatform {
 public:
  ItemId ParseItem(const std::string& name) override { return ItemId(name.begin(), name.end()); }
  bool MayHang(const std::string&) override { return false; }
  std::string ParsingName(const ItemId& item) override { return std::string(item.begin(), item.end()); }
  std::string BaseName(const std::string& path) override {
    return path.substr(path.find_last_of("\\/:") + 1);
  }
  HistoryTime Now() override { return HistoryTime(); }
};

// Lines of the input are the values that the reader asks for, one after the other.
class Lines final : public HistoryFile {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  std::string ReadText(const char*) override {
    const std::size_t end = std::min(rest_.find('\n'), rest_.size());
    const std::string line(rest_.substr(0, end));
    rest_.remove_prefix(std::min(end + 1, rest_.size()));
    return line;
  }
  bool ReadTime(const char* key, HistoryTime* time) override {
    const std::string line = ReadText(key);
    if (line.size() != sizeof(*time)) return false;
    std::memcpy(static_cast<void*>(time), line.data(), sizeof(*time));
    return true;
  }
  bool WriteText(const char*, const std::string&) override { return --writesLeft > 0; }
  bool WriteTime(const char*, const HistoryTime&) override { return --writesLeft > 0; }
  bool Exists() override { return true; }
  void RemoveBackup() override {}
  bool MoveToBackup() override { return true; }
  void Remove() override {}
  bool RestoreBackup() override { return true; }
  void Forget() override {}

  int writesLeft = 120;

 private:
  std::string_view rest_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Lines file(std::string_view(reinterpret_cast<const char*>(data), size));
  Platform platform;
  HistoryList list(platform);
  list.Load(file);
  std::set<const HistoryEntry*> before;
  for (const auto& entry : list.entries()) before.insert(entry.get());
  for (int method = -1; method <= kSortMethodCount; ++method) {
    list.Sort(method);
    std::set<const HistoryEntry*> after;
    for (const auto& entry : list.entries()) after.insert(entry.get());
    Require(after == before);
  }
  for (const auto& entry : list.entries()) {
    Require(entry->displayName.ends_with(HistoryExtension(entry->displayName)));
    LastAccessText(entry->lastAccess);
    const auto measure = [](std::wstring_view text) { return static_cast<int>(text.size()); };
    for (const int room : {-1, 5, 20}) {
      const std::wstring path(entry->fullPath.begin(), entry->fullPath.end());
      const std::wstring shown = CompactPath(path, room, measure);
      Require(shown.empty() || entry->fullPath.back() == shown.back());
    }
  }
  if (size > 0) list.Add(std::string(reinterpret_cast<const char*>(data), std::min<std::size_t>(size, 40)));
  WriteHistory(file, list.Values());
  return 0;
}
