#include "base/text/narrow_path.h"

#include <windows.h>

#include <algorithm>

#include "base/handles/unique_handle.h"
#include "base/text/code_page.h"

namespace base {
namespace {

struct Identity {
  DWORD volume = 0;
  DWORD high = 0;
  DWORD low = 0;
  friend bool operator==(const Identity&, const Identity&) = default;
};

// Of the link itself, where the path ends in one.
std::optional<Identity> IdentityOf(const std::wstring& path) {
  const unique_file file =
      OwnFile(CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                          OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  BY_HANDLE_FILE_INFORMATION information = {};
  if (!file || !GetFileInformationByHandle(file.get(), &information)) return std::nullopt;
  return Identity{information.dwVolumeSerialNumber, information.nFileIndexHigh, information.nFileIndexLow};
}

std::wstring ShortForm(const std::wstring& path) {
  const DWORD size = GetShortPathNameW(path.c_str(), nullptr, 0);
  if (size == 0) return {};
  std::wstring result(size, L'\0');
  const DWORD length = GetShortPathNameW(path.c_str(), result.data(), size);
  result.resize(length < size ? length : 0);
  return result;
}

std::wstring_view TakePart(std::wstring_view& rest) {
  const size_t end = std::min(rest.find(L'\\'), rest.size());
  const std::wstring_view part = rest.substr(0, end);
  rest.remove_prefix(std::min(end + 1, rest.size()));
  return part;
}

// The long names of the parts that can be expressed and the short ones of the others; the short form as it is
// when the two differ in their parts.
std::wstring MixedForm(std::wstring_view longForm, std::wstring_view shortForm) {
  if (std::count(longForm.begin(), longForm.end(), L'\\') !=
      std::count(shortForm.begin(), shortForm.end(), L'\\')) {
    return std::wstring(shortForm);
  }
  std::wstring mixed;
  while (!longForm.empty()) {
    const std::wstring_view longPart = TakePart(longForm);
    const std::wstring_view shortPart = TakePart(shortForm);
    mixed += ExactNarrow(longPart) ? longPart : shortPart;
    if (!longForm.empty()) mixed += L'\\';
  }
  return mixed;
}

}  // namespace

bool IsSameObject(const std::wstring& first, const std::wstring& second) {
  const auto a = IdentityOf(first);
  return a && a == IdentityOf(second);
}

std::wstring WithLongNames(std::wstring_view path) {
  // A pattern would find something else.
  if (path.find_first_of(L"?*") != std::wstring_view::npos) return std::wstring(path);
  const bool endsInSeparator = path.ends_with(L'\\');
  std::wstring result;
  while (!path.empty()) {
    const std::wstring_view part = TakePart(path);
    WIN32_FIND_DATAW found = {};
    // All short names that stand for a long one have a tilde; no other part costs a look at the disk.
    const bool mayBeShort = part.find(L'~') != std::wstring_view::npos;
    const unique_find find =
        mayBeShort ? OwnFind(FindFirstFileW((result + std::wstring(part)).c_str(), &found)) : unique_find();
    result += find ? std::wstring_view(found.cFileName) : part;
    if (!path.empty() || endsInSeparator) result += L'\\';
  }
  return result;
}

std::optional<std::string> NarrowPath(std::wstring_view path) {
  if (auto exact = ExactNarrow(path)) return exact;
  const std::wstring longForm(path);
  if (longForm.find(L'\0') != std::wstring::npos) return std::nullopt;
  const std::wstring shortForm = ShortForm(longForm);
  if (shortForm.empty()) return std::nullopt;
  const std::wstring mixed = MixedForm(longForm, shortForm);
  auto narrow = ExactNarrow(mixed);
  if (!narrow || !IsSameObject(longForm, mixed)) return std::nullopt;
  return narrow;
}

}  // namespace base
