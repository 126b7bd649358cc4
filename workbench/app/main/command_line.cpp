#include "workbench/app/main/command_line.h"

#include <cwchar>

namespace workbench {
namespace {

constexpr int kLargestSize = 16384;
constexpr int kSmallestSize = 200;

std::optional<int> ParseLength(const std::wstring& text) {
  if (text.empty() || text.size() > 5) return std::nullopt;
  int number = 0;
  for (const wchar_t digit : text) {
    if (digit < L'0' || digit > L'9') return std::nullopt;
    number = number * 10 + (digit - L'0');
  }
  if (number < kSmallestSize || number > kLargestSize) return std::nullopt;
  return number;
}

std::optional<Size> ParseSize(const std::wstring& text) {
  const size_t by = text.find_first_of(L"xX");
  if (by == std::wstring::npos) return std::nullopt;
  const std::optional<int> width = ParseLength(text.substr(0, by));
  const std::optional<int> height = ParseLength(text.substr(by + 1));
  if (!width || !height) return std::nullopt;
  return Size{*width, *height};
}

bool TakeOption(CommandLine& result, const std::wstring& option, const std::wstring& value) {
  if (value.empty()) return false;
  if (option == L"--plugin") {
    result.plugin = value;
  } else if (option == L"--profile") {
    result.profile = value;
  } else if (option == L"--ready-file") {
    result.readyFile = value;
  } else if (option == L"--size") {
    result.size = ParseSize(value);
    return result.size.has_value();
  } else {
    return false;
  }
  return true;
}

}  // namespace

std::optional<CommandLine> ParseCommandLine(const std::vector<std::wstring>& arguments, std::wstring* error) {
  CommandLine result;
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::wstring& argument = arguments[i];
    if (argument.rfind(L"--", 0) == 0) {
      const std::wstring value = i + 1 < arguments.size() ? arguments[++i] : std::wstring();
      if (!TakeOption(result, argument, value)) {
        *error = L"\"" + argument + L"\" is not known or lacks its value.";
        return std::nullopt;
      }
    } else if (result.folder.empty()) {
      result.folder = argument;
    } else {
      *error = L"There is more than one folder.";
      return std::nullopt;
    }
  }
  return result;
}

}  // namespace workbench
