#include "workbench/imp/text_tools.h"

#include "workbench/tx/path_text.h"
#include "workbench/tx/text.h"

namespace workbench::imp {
namespace {

bool IsPlainName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.find_first_of("\\/:") == std::string_view::npos;
}

}  // namespace

std::string_view StripWhitespace(std::string_view text) {
  constexpr std::string_view kWhiteSpace = " \t\r\n\v\f";
  const size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::string_view::npos) return text.substr(0, 0);
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

std::string HelpPagePath(std::string_view helpLocation, std::string_view helpFile, std::string_view topic) {
  constexpr std::string_view kHelpExtension = ".hlp";
  if (tx::EndsIgnoringCase(helpFile, kHelpExtension)) helpFile.remove_suffix(kHelpExtension.size());
  if (helpLocation.empty() || !IsPlainName(helpFile) || !IsPlainName(topic)) return {};
  return tx::JoinPath(tx::JoinPath(helpLocation, helpFile), std::string(topic) + ".html");
}

std::string VersionText(unsigned long high, unsigned long low) {
  std::string text;
  for (const unsigned long part : {high >> 16, high, low >> 16, low}) {
    if (!text.empty()) text.push_back('.');
    text += std::to_string(part & 0xFFFF);
  }
  return text;
}

}  // namespace workbench::imp
