#include "workbench/app/documents/autoload_text.h"

#include <algorithm>

namespace workbench {
namespace {

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\0';
}

}  // namespace

std::optional<std::string> ParseAutoloadContent(std::string_view content) {
  if (content.size() >= kAutoloadSizeLimit) return std::nullopt;
  while (!content.empty() && IsBlank(content.back())) content.remove_suffix(1);
  if (content.size() >= 2 && content.front() == '"' && content.back() == '"') {
    content = content.substr(1, content.size() - 2);
  }
  if (content.empty()) return std::nullopt;
  const bool broken =
      std::any_of(content.begin(), content.end(), [](char c) { return static_cast<unsigned char>(c) < 32; });
  if (broken) return std::nullopt;
  return std::string(content);
}

}  // namespace workbench
