#include "src/history/path_compaction.h"

#include <vector>

namespace file_explorer {
namespace {

constexpr char kSeparator = '\\';
constexpr std::string_view kReplacement = "..";

// A doubled separator (the start of a share's name) splits nothing.
bool IsSingleSeparator(std::string_view text, size_t at) {
  return text[at] == kSeparator && (at == 0 || text[at - 1] != kSeparator) &&
         (at + 1 == text.size() || text[at + 1] != kSeparator);
}

std::vector<size_t> SingleSeparators(std::string_view folder) {
  std::vector<size_t> positions;
  for (size_t at = 0; at < folder.size(); ++at) {
    if (IsSingleSeparator(folder, at)) positions.push_back(at);
  }
  return positions;
}

size_t BaseNameStart(std::string_view path) {
  const size_t at = path.find_last_of("\\/:");
  return at == std::string_view::npos ? 0 : at + 1;
}

}  // namespace

std::string CompactPath(std::string_view path, int room, const MeasureText& measure) {
  const size_t nameStart = BaseNameStart(path);
  const std::string_view name = path.substr(nameStart);
  if (measure(name) >= room) return std::string(name);

  std::string shown(path);
  if (measure(shown) <= room) return shown;
  const std::string_view folder = path.substr(0, nameStart);
  const std::vector<size_t> separators = SingleSeparators(folder);
  // Folder names stand between neighbouring separators; replacing the first `count` of them gives each
  // candidate.
  std::string replaced(folder.substr(0, separators.empty() ? folder.size() : separators.front()));
  for (size_t count = 1; count < separators.size(); ++count) {
    replaced.append(1, kSeparator).append(kReplacement);
    shown = replaced;
    shown.append(path.substr(separators[count]));
    if (measure(shown) <= room) break;
  }
  return shown;
}

}  // namespace file_explorer
