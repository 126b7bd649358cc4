#include "workbench/app/documents/path_form.h"

#include <algorithm>
#include <string_view>

namespace workbench {
namespace {

constexpr std::size_t kPlainPathLimit = 260;
constexpr std::wstring_view kDevices[] = {L"CON", L"PRN", L"AUX", L"NUL"};
constexpr std::wstring_view kNumberedDevices[] = {L"COM", L"LPT"};

bool IsSeparator(wchar_t c) {
  return c == L'\\' || c == L'/';
}

bool IsDevice(std::wstring_view part) {
  std::wstring stem(part.substr(0, part.find(L'.')));
  while (!stem.empty() && stem.back() == L' ') stem.pop_back();
  for (wchar_t& c : stem) {
    if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - L'a' + L'A');
  }
  const auto is = [&](std::wstring_view device) { return stem == device; };
  const auto isNumbered = [&](std::wstring_view device) {
    return stem.size() == 4 && stem.starts_with(device) && stem[3] >= L'1' && stem[3] <= L'9';
  };
  return std::any_of(std::begin(kDevices), std::end(kDevices), is) ||
         std::any_of(std::begin(kNumberedDevices), std::end(kNumberedDevices), isNumbered);
}

bool PlainFormChanges(std::wstring_view part) {
  if (part.empty() || part == L"." || part == L"..") return false;
  return part.back() == L'.' || part.back() == L' ' || IsDevice(part);
}

// The extended form knows neither "." nor "..", so a path with them stays in the plain one.
bool HasRelativePart(std::wstring_view path, bool* changes) {
  for (std::size_t at = 0; at <= path.size();) {
    const auto end = std::find_if(path.begin() + static_cast<std::ptrdiff_t>(at), path.end(), IsSeparator);
    const auto length = static_cast<std::size_t>(end - path.begin()) - at;
    const std::wstring_view part = path.substr(at, length);
    if (part == L"." || part == L"..") return true;
    *changes = *changes || PlainFormChanges(part);
    at += length + 1;
  }
  return false;
}

}  // namespace

std::wstring ExtendedPath(const std::wstring& path) {
  const bool network =
      path.size() > 2 && IsSeparator(path[0]) && IsSeparator(path[1]) && path[2] != L'?' && path[2] != L'.';
  const bool drive = path.size() > 2 && path[1] == L':' && IsSeparator(path[2]);
  bool changes = path.size() >= kPlainPathLimit;
  if ((!network && !drive) || HasRelativePart(std::wstring_view(path).substr(2), &changes) || !changes)
    return path;
  std::wstring extended = network ? L"\\\\?\\UNC\\" : L"\\\\?\\";
  // One separator between parts, and the one that the form knows.
  for (const wchar_t c : network ? path.substr(2) : path) {
    if (!IsSeparator(c)) {
      extended.push_back(c);
    } else if (extended.back() != L'\\') {
      extended.push_back(L'\\');
    }
  }
  return extended;
}

}  // namespace workbench
