#include "src/settings/remembered_folder.h"

namespace file_explorer {
namespace {

constexpr wchar_t kSeparator = L'\\';
constexpr size_t kRootSize = 3;  // "C:\"

bool HasDrive(std::wstring_view path) { return path.size() > 1 && path[1] == L':'; }

VolumeKind VolumeOf(const std::wstring& path, const PathLookup& lookup) {
  // Everything else that is absolute begins with a server's name.
  return HasDrive(path) ? lookup.volume(path.substr(0, 2) + kSeparator) : VolumeKind::kRemote;
}

bool IsShown(PathKind kind) { return kind == PathKind::kFolder || kind == PathKind::kArchive; }

// The nearest thing above that exists is an archive.
bool IsInsideArchive(std::wstring path, const PathLookup& lookup) {
  for (size_t end = path.find_last_of(kSeparator); end != std::wstring::npos && end >= kRootSize;
       end = path.find_last_of(kSeparator)) {
    path.resize(end);
    const PathKind kind = lookup.kind(path);
    if (kind != PathKind::kMissing) return kind == PathKind::kArchive;
  }
  return false;
}

}  // namespace

bool CanShowFolder(const std::wstring& path, PathKind remembered, const PathLookup& lookup) {
  if (path.empty()) return false;
  switch (VolumeOf(path, lookup)) {
    case VolumeKind::kMissing:
      return false;
    case VolumeKind::kRemote:
      return remembered != PathKind::kFile;
    case VolumeKind::kLocal:
      break;
  }
  const PathKind now = lookup.kind(path);
  return now == PathKind::kMissing ? IsInsideArchive(path, lookup) : IsShown(now);
}

}  // namespace file_explorer
