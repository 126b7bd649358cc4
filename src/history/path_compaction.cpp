#include "src/history/path_compaction.h"

#include <vector>

namespace file_explorer {
namespace {

constexpr wchar_t kSeparator = L'\\';
constexpr std::wstring_view kReplacement = L"..";

// A doubled separator (the start of a share's name) splits nothing.
bool IsSingleSeparator(std::wstring_view text, size_t at) {
  return text[at] == kSeparator && (at == 0 || text[at - 1] != kSeparator) &&
         (at + 1 == text.size() || text[at + 1] != kSeparator);
}

std::vector<size_t> SingleSeparators(std::wstring_view folder) {
  std::vector<size_t> positions;
  for (size_t at = 0; at < folder.size(); ++at) {
    if (IsSingleSeparator(folder, at)) positions.push_back(at);
  }
  return positions;
}

size_t BaseNameStart(std::wstring_view path) {
  const size_t at = path.find_last_of(L"\\/:");
  return at == std::wstring_view::npos ? 0 : at + 1;
}

}  // namespace

std::wstring CompactPath(std::wstring_view path, int room, const MeasureText& measure) {
  const size_t nameStart = BaseNameStart(path);
  const std::wstring_view name = path.substr(nameStart);
  if (measure(name) >= room) return std::wstring(name);

  std::wstring shown(path);
  if (measure(shown) <= room) return shown;
  const std::wstring_view folder = path.substr(0, nameStart);
  const std::vector<size_t> separators = SingleSeparators(folder);
  // Folder names stand between neighbouring separators; replacing the first `count` of them gives each
  // candidate.
  std::wstring replaced(folder.substr(0, separators.empty() ? folder.size() : separators.front()));
  for (size_t count = 1; count < separators.size(); ++count) {
    replaced.append(1, kSeparator).append(kReplacement);
    shown = replaced;
    shown.append(path.substr(separators[count]));
    if (measure(shown) <= room) break;
  }
  return shown;
}

}  // namespace file_explorer
