// Writing and removing a control's entries of the registry, for the current user only.
#pragma once

#include <windows.h>

#include <string>

namespace controls {

struct ControlRegistration {
  CLSID classId;
  IID dispatchId;
  IID eventsId;
  GUID libraryId;
  const wchar_t* displayName;  // "Shell FileView Control"
  const wchar_t* programId;    // without version: "Ssware.ShellFileView"
  const wchar_t* dispatchName;
  const wchar_t* eventsName;
  DWORD miscStatus;
  std::wstring modulePath;
  ULONGLONG moduleVersion;  // four 16-bit parts, the major one highest
};

enum class RegistrationResult {
  kWritten,
  kLeftAlone,  // somebody else's control, or a newer copy of ours, is registered and its file exists
  kFailed,
};

// userClasses is the current user's Software\Classes, machineClasses (may be null) the machine's. A class
// that is registered to an existing file without our mark is never touched, nor is a copy of ours with a
// higher version.
RegistrationResult RegisterControl(const ControlRegistration& control, HKEY userClasses, HKEY machineClasses);

// Removes what RegisterControl wrote for this very file. Other registrations stay. True when nothing of ours
// is left.
bool UnregisterControl(const ControlRegistration& control, HKEY userClasses);

// Version of a file's version resource, 0 without one.
ULONGLONG FileVersionOf(const std::wstring& path);

std::wstring GuidText(const GUID& guid);

}  // namespace controls
