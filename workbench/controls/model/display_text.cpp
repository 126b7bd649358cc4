#include "workbench/controls/model/display_text.h"

#include <algorithm>

#include "workbench/controls/model/natural_compare.h"

namespace controls {

std::wstring GroupDigits(uint64_t value, std::wstring_view separator) {
  const std::wstring digits = std::to_wstring(value);
  std::wstring result;
  for (size_t i = 0; i < digits.size(); ++i) {
    if (i != 0 && (digits.size() - i) % 3 == 0) result += separator;
    result += digits[i];
  }
  return result;
}

std::wstring SizeInKilobytes(uint64_t bytes) {
  return GroupDigits(bytes / 1024 + (bytes % 1024 != 0)) + L" KB";
}

std::wstring ShortSize(uint64_t bytes) {
  if (bytes < 1024) return std::to_wstring(bytes) + (bytes == 1 ? L" byte" : L" bytes");
  static constexpr const wchar_t* kUnits[] = {L" KB", L" MB", L" GB", L" TB", L" PB", L" EB"};
  size_t unit = 0;
  uint64_t whole = bytes;
  uint64_t rest = 0;
  for (;; ++unit) {
    rest = whole % 1024;
    whole /= 1024;
    if (whole < 1024 || unit + 1 == std::size(kUnits)) break;
  }
  const uint64_t tenth = rest * 10 / 1024;
  std::wstring text = std::to_wstring(whole);
  if (whole < 100 && tenth != 0) text += L"." + std::to_wstring(tenth);
  return text + kUnits[unit];
}

std::wstring FallbackTypeName(std::wstring_view extension) {
  if (extension.empty()) return L"File";
  std::wstring name(extension);
  std::transform(name.begin(), name.end(), name.begin(), FoldCase);
  return name + L" File";
}

std::wstring StatusText(const StatusFacts& facts) {
  std::wstring text = GroupDigits(facts.items) + (facts.items == 1 ? L" item" : L" items");
  if (facts.reading) text += L", reading\u2026";
  if (facts.selected == 0) return text;
  text += L", " + GroupDigits(facts.selected) + L" selected";
  if (facts.selectionHasFiles) text += L", " + ShortSize(facts.selectedBytes);
  return text;
}

std::wstring FolderErrorText(uint32_t error, std::wstring_view path, std::wstring_view systemText) {
  const std::wstring quoted = L"\u201C" + std::wstring(path) + L"\u201D";
  switch (error) {
    case 2:    // file not found
    case 3:    // path not found
    case 15:   // invalid drive
    case 161:  // bad path name
    case 123:  // invalid name
      return quoted + L" cannot be found.";
    case 5:  // access denied
      return L"You do not have permission to open " + quoted + L".";
    case 21:  // not ready
      return L"The drive of " + quoted + L" is not ready.";
    case 32:  // sharing violation
      return quoted + L" is in use by another program.";
    case 53:  // network path not found
    case 64:  // network name deleted
    case 67:  // network name not found
      return L"The network place " + quoted + L" cannot be reached.";
    case 206:  // name too long
      return L"The path " + quoted + L" is too long.";
    case 267:  // not a directory
      return quoted + L" is not a folder.";
    case kErrorNoArchive:
      return quoted + L" is no ZIP archive, or a part of it is missing.";
    case kErrorArchiveDamaged:
      return quoted + L" is damaged: its list of contents cannot be read.";
    case kErrorArchiveSplit:
      return quoted + L" is one of several parts of an archive, which cannot be shown.";
    case kErrorArchiveTooLarge:
      return quoted + L" has too many entries to be shown.";
    default:
      break;
  }
  std::wstring text = quoted + L" cannot be opened";
  if (!systemText.empty()) return text + L": " + std::wstring(systemText);
  return text + L" (error " + std::to_wstring(error) + L").";
}

}  // namespace controls
