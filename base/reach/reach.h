// How far away a path is: what lies on another machine, or on a medium that has to be loaded first, can hold
// a call up for half a minute. Windows must not wait for it.
#pragma once

#include <string_view>

namespace base {

// What the system says of a drive, as GetDriveType gives it.
enum class DriveKind { kNone, kFixed, kRemovable, kRemote, kOptical };

// The letter of the drive that a path begins with ("C:\...", "\\?\C:\..."), upper case; 0 when it begins with
// none.
wchar_t DriveLetterOf(std::wstring_view path);

// Whether a path names another machine or a device ("\\server\share\...", "\\?\UNC\...", "\\.\...").
bool IsBeyondTheDrives(std::wstring_view path);

// Whether opening something on such a drive may take long: another machine, an optical disc, a floppy disk.
// Fixed disks, sticks and cards answer at once, and so does a drive that is not there.
bool DriveMayHang(DriveKind kind, wchar_t letter);

}  // namespace base
