#include "base/reach/drive_reach.h"

#include <windows.h>

#include "base/reach/reach.h"
#include "base/text/code_page.h"

namespace base {
namespace {

DriveKind KindOfDrive(wchar_t letter) {
  const wchar_t root[] = {letter, L':', L'\\', L'\0'};
  switch (GetDriveTypeW(root)) {
    case DRIVE_FIXED:
    case DRIVE_RAMDISK:
      return DriveKind::kFixed;
    case DRIVE_REMOVABLE:
      return DriveKind::kRemovable;
    case DRIVE_REMOTE:
      return DriveKind::kRemote;
    case DRIVE_CDROM:
      return DriveKind::kOptical;
    default:
      return DriveKind::kNone;
  }
}

}  // namespace

bool MayHang(std::wstring_view path) {
  if (IsBeyondTheDrives(path)) return true;
  const wchar_t letter = DriveLetterOf(path);
  return letter != L'\0' && DriveMayHang(KindOfDrive(letter), letter);
}

bool MayHang(std::string_view path) {
  return MayHang(WideFromNarrow(path));
}

}  // namespace base
