// Whether a folder that was remembered can still be shown. No Windows in here.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace file_explorer {

enum class PathKind { kMissing, kFile, kArchive, kFolder };  // an archive is a file that is browsed as a folder
enum class VolumeKind { kMissing, kLocal, kRemote };

// How paths are looked at. A volume is remote when a look at it may take long, as at a share whose server is off:
// `kind` is asked for paths on local volumes only.
struct PathLookup {
  std::function<VolumeKind(const std::wstring& root)> volume;  // "C:\"; without touching the volume
  std::function<PathKind(const std::wstring& path)> kind;
};

// path: a full path in the file system. remembered: what the path was when it was written down; a remote one is
// believed to be that still, so that a share is not forgotten because it is off now. Places inside an archive count as
// folders as long as the archive is there.
bool CanShowFolder(const std::wstring& path, PathKind remembered, const PathLookup& lookup);

}  // namespace file_explorer
