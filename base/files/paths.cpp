#include "base/files/paths.h"

#include <algorithm>

#include "base/files/name_case.h"

namespace base {
namespace {

bool IsSeparator(wchar_t character) {
  return character == L'\\' || character == L'/';
}

bool IsDriveLetter(wchar_t character) {
  const wchar_t upper = FoldCase(character);
  return upper >= L'A' && upper <= L'Z';
}

bool StartsWithDrive(std::wstring_view path) {
  return path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == L':';
}

bool IsServerPath(std::wstring_view path) {
  return path.size() > 2 && path[0] == L'\\' && path[1] == L'\\' && path[2] != L'\\' && path[2] != L'?' &&
         path[2] != L'.';
}

// The length of the part that has no parent: "C:\" or "\\server\share".
size_t RootLength(std::wstring_view path) {
  if (StartsWithDrive(path)) return path.size() > 2 && IsSeparator(path[2]) ? 3 : 2;
  if (!IsServerPath(path)) return 0;
  const size_t share = path.find(L'\\', 2);
  if (share == std::wstring_view::npos) return path.size();
  return std::min(path.find(L'\\', share + 1), path.size());
}

std::wstring_view Trim(std::wstring_view text) {
  const auto isBlank = [](wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool IsControl(wchar_t character) {
  return character < 0x20 || character == 0x7F;
}

bool IsForbiddenInNames(wchar_t character) {
  return IsControl(character) || std::wstring_view(L"\\/:*?\"<>|").find(character) != std::wstring_view::npos;
}

}  // namespace

std::wstring_view ExtensionOf(std::wstring_view name) {
  const size_t dot = name.rfind(L'.');
  if (dot == std::wstring_view::npos || dot == 0) return {};
  return name.substr(dot + 1);
}

std::wstring_view NameOfPath(std::wstring_view path) {
  if (IsRootPath(path)) return path;
  const size_t separator = path.rfind(L'\\');
  return separator == std::wstring_view::npos ? path : path.substr(separator + 1);
}

std::wstring JoinPath(std::wstring_view folder, std::wstring_view name) {
  std::wstring result(folder);
  if (!result.empty() && !IsSeparator(result.back())) result += L'\\';
  result += name;
  return result;
}

std::wstring ParentOfPath(std::wstring_view path) {
  const size_t root = RootLength(path);
  if (path.size() <= root) return {};
  const size_t separator = path.rfind(L'\\');
  if (separator == std::wstring_view::npos) return {};
  return std::wstring(path.substr(0, std::max(separator, root)));
}

bool IsRootPath(std::wstring_view path) {
  return !path.empty() && RootLength(path) == path.size();
}

bool IsAbsolutePath(std::wstring_view path) {
  return (StartsWithDrive(path) && path.size() > 2 && IsSeparator(path[2])) || IsServerPath(path);
}

std::vector<std::wstring> PathChain(std::wstring_view path) {
  std::vector<std::wstring> chain;
  for (std::wstring at(path); !at.empty(); at = ParentOfPath(at)) chain.push_back(at);
  std::reverse(chain.begin(), chain.end());
  return chain;
}

bool IsWithin(std::wstring_view path, std::wstring_view folder) {
  if (folder.empty() || path.size() < folder.size()) return false;
  if (!EqualsIgnoringCase(path.substr(0, folder.size()), folder)) return false;
  return path.size() == folder.size() || IsSeparator(folder.back()) || IsSeparator(path[folder.size()]);
}

bool SamePath(std::wstring_view first, std::wstring_view second) {
  return EqualsIgnoringCase(first, second);
}

std::wstring ExtendedPath(std::wstring_view path) {
  if (path.starts_with(L"\\\\?\\")) return std::wstring(path);
  if (IsServerPath(path)) return L"\\\\?\\UNC" + std::wstring(path.substr(1));
  return L"\\\\?\\" + std::wstring(path);
}

std::wstring TidyTypedPath(std::wstring_view typed) {
  std::wstring_view text = Trim(typed);
  if (text.size() >= 2 && text.front() == L'"' && text.back() == L'"') {
    text = Trim(text.substr(1, text.size() - 2));
  }
  if (text.size() > 8 && EqualsIgnoringCase(text.substr(0, 8), L"file:///")) text.remove_prefix(8);
  std::wstring result(text);
  std::replace(result.begin(), result.end(), L'/', L'\\');
  if (result.starts_with(L"\\\\?\\UNC\\")) {
    result.replace(0, 8, L"\\\\");
  } else if (result.starts_with(L"\\\\?\\")) {
    result.erase(0, 4);
  }
  if (StartsWithDrive(result) && result.size() == 2) result += L'\\';
  while (result.size() > RootLength(result) && result.back() == L'\\') result.pop_back();
  return result;
}

std::wstring PathInFolder(std::wstring_view folder, std::wstring_view name) {
  std::wstring plain(name);
  std::replace(plain.begin(), plain.end(), L'\\', kBackslashInName);
  return JoinPath(folder, plain);
}

std::wstring NameOfCopy(std::wstring_view name, int number) {
  const std::wstring_view extension = ExtensionOf(name);
  const std::wstring_view stem =
      extension.empty() ? name : name.substr(0, name.size() - extension.size() - 1);
  std::wstring copy = std::wstring(stem) + L" - Copy";
  if (number > 1) copy += L" (" + std::to_wstring(number) + L")";
  if (!extension.empty()) copy += L"." + std::wstring(extension);
  return copy;
}

bool IsDeviceName(std::wstring_view name) {
  std::wstring_view stem = name.substr(0, std::min(name.find_first_of(L".:"), name.size()));
  while (!stem.empty() && stem.back() == L' ') stem.remove_suffix(1);
  static constexpr std::wstring_view kDevices[] = {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$"};
  if (std::any_of(std::begin(kDevices), std::end(kDevices),
                  [&](std::wstring_view device) { return EqualsIgnoringCase(stem, device); })) {
    return true;
  }
  // The superscript digits 1 to 3 count as digits here.
  constexpr std::wstring_view kPorts = L"123456789\u00B9\u00B2\u00B3";
  if (stem.size() != 4 || kPorts.find(stem[3]) == std::wstring_view::npos) return false;
  return EqualsIgnoringCase(stem.substr(0, 3), L"COM") || EqualsIgnoringCase(stem.substr(0, 3), L"LPT");
}

bool NeedsExtendedPath(std::wstring_view name) {
  if (name.empty()) return false;
  return name.back() == L'.' || name.back() == L' ' || IsDeviceName(name);
}

bool ShellCanExpress(std::wstring_view path) {
  constexpr size_t kPathLimit = 260;  // the closing zero included
  if (path.empty() || path.size() >= kPathLimit) return false;
  std::wstring_view rest = path.substr(RootLength(path));
  if (std::any_of(rest.begin(), rest.end(),
                  [](wchar_t c) { return c == kBackslashInName || (c != L'\\' && IsForbiddenInNames(c)); })) {
    return false;
  }
  while (!rest.empty()) {
    const size_t end = std::min(rest.find(L'\\'), rest.size());
    if (NeedsExtendedPath(rest.substr(0, end))) return false;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return true;
}

std::wstring ReasonAgainstName(std::wstring_view name) {
  constexpr size_t kNameLimit = 255;
  if (name.empty()) return L"A name cannot be empty.";
  if (name == L"." || name == L"..") return L"This name is reserved.";
  if (name.size() > kNameLimit) return L"The name is longer than 255 characters.";
  if (std::any_of(name.begin(), name.end(), IsControl)) return L"A name cannot contain control characters.";
  if (std::any_of(name.begin(), name.end(), IsForbiddenInNames)) {
    return L"A name cannot contain any of the characters \\ / : * ? \" < > |";
  }
  if (name.find(kBackslashInName) != std::wstring_view::npos)
    return L"The name contains a reserved character.";
  if (name.back() == L'.') return L"A name cannot end with a dot.";
  if (name.back() == L' ') return L"A name cannot end with a blank.";
  if (IsDeviceName(name)) return L"This name is reserved for a device of the system.";
  return {};
}

}  // namespace base
