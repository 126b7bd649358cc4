#include "workbench/controls/model/server_file.h"

namespace controls {
namespace {

constexpr std::wstring_view kBlanks = L" \t";

std::wstring_view Trim(std::wstring_view text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::wstring_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

}  // namespace

std::vector<std::wstring> ServerFileCandidates(std::wstring_view text) {
  text = Trim(text);
  std::vector<std::wstring> candidates;
  if (text.starts_with(L'"')) {
    text = Trim(text.substr(1, text.find(L'"', 1) - 1));
    if (!text.empty()) candidates.emplace_back(text);
    return candidates;
  }
  while (!text.empty()) {
    candidates.emplace_back(text);
    const size_t blank = text.find_last_of(kBlanks);
    text = blank == std::wstring_view::npos ? std::wstring_view() : Trim(text.substr(0, blank));
  }
  return candidates;
}

}  // namespace controls
