#include "base/reach/reach.h"

namespace base {
namespace {

bool IsSeparator(wchar_t c) {
  return c == L'\\' || c == L'/';
}

wchar_t UpperLetter(wchar_t c) {
  if (c >= L'a' && c <= L'z') return static_cast<wchar_t>(c - L'a' + L'A');
  return c >= L'A' && c <= L'Z' ? c : L'\0';
}

constexpr std::wstring_view kVerbatim = L"\\\\?\\";

}  // namespace

wchar_t DriveLetterOf(std::wstring_view path) {
  if (path.starts_with(kVerbatim)) path.remove_prefix(kVerbatim.size());
  return path.size() >= 2 && path[1] == L':' ? UpperLetter(path[0]) : L'\0';
}

bool IsBeyondTheDrives(std::wstring_view path) {
  return path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1]) && DriveLetterOf(path) == L'\0';
}

bool DriveMayHang(DriveKind kind, wchar_t letter) {
  const bool isFloppy = kind == DriveKind::kRemovable && (letter == L'A' || letter == L'B');
  return kind == DriveKind::kRemote || kind == DriveKind::kOptical || isFloppy;
}

}  // namespace base
