#include "workbench/controls/com/registration.h"

#include <windows.h>

#include <ole2.h>

#include <algorithm>
#include <vector>

#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/model/server_file.h"

namespace controls {
namespace {

// The value that marks a key as written by these controls; it holds the registered file.
constexpr wchar_t kMark[] = L"RegisteredByStandIn";

std::wstring Expanded(const std::wstring& text) {
  std::wstring expanded(ExpandEnvironmentStringsW(text.c_str(), nullptr, 0), L'\0');
  const DWORD size =
      ExpandEnvironmentStringsW(text.c_str(), expanded.data(), static_cast<DWORD>(expanded.size()));
  expanded.resize(size == 0 || size > expanded.size() ? 0 : size - 1);
  return expanded;
}

class RegistryKey {
 public:
  RegistryKey() = default;
  ~RegistryKey() {
    if (key_) RegCloseKey(key_);
  }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;

  bool Open(HKEY parent, const std::wstring& path) {
    return parent && RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, &key_) == ERROR_SUCCESS;
  }
  bool Create(HKEY parent, const std::wstring& path) {
    return RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key_,
                           nullptr) == ERROR_SUCCESS;
  }
  bool Set(const wchar_t* name, const std::wstring& text) {
    return RegSetValueExW(key_, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
  }
  bool Has(const wchar_t* name) const {
    return RegQueryValueExW(key_, name, nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
  }
  // Of an expandable text, what it stands for on this machine.
  std::wstring Get(const wchar_t* name) const {
    DWORD bytes = 0;
    DWORD type = 0;
    if (RegQueryValueExW(key_, name, nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS) return {};
    if (type != REG_SZ && type != REG_EXPAND_SZ) return {};
    std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
    if (RegQueryValueExW(key_, name, nullptr, nullptr, reinterpret_cast<BYTE*>(text.data()), &bytes) !=
        ERROR_SUCCESS) {
      return {};
    }
    text.resize(wcslen(text.c_str()));
    return type == REG_EXPAND_SZ ? Expanded(text) : text;
  }

 private:
  HKEY key_ = nullptr;
};

std::wstring ClassPath(const CLSID& id) {
  return L"CLSID\\" + GuidText(id);
}

bool IsFile(const std::wstring& path) {
  if (!IsAbsolutePath(path)) {
    wchar_t found[MAX_PATH];
    return SearchPathW(nullptr, path.c_str(), nullptr, MAX_PATH, found, nullptr) != 0;
  }
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

// Whether the file exists that a class is registered to, in quotes and with arguments or not.
bool FileExists(const std::wstring& server) {
  const std::vector<std::wstring> files = ServerFileCandidates(server);
  return std::any_of(files.begin(), files.end(), IsFile);
}

// Whether the class is somebody else's under this root: registered to a file that exists, without our mark.
bool IsForeign(const CLSID& id, HKEY classes) {
  RegistryKey server;
  if (!server.Open(classes, ClassPath(id) + L"\\InprocServer32")) return false;
  if (server.Has(kMark)) return false;
  const std::wstring file = server.Get(nullptr);
  return !file.empty() && FileExists(file);
}

// Whether a newer copy of ours than this one is registered and its file exists.
bool IsNewerCopyOfOurs(const ControlRegistration& control, HKEY classes) {
  RegistryKey server;
  if (!server.Open(classes, ClassPath(control.classId) + L"\\InprocServer32") || !server.Has(kMark))
    return false;
  const std::wstring file = server.Get(nullptr);
  if (SamePath(file, control.modulePath) || !FileExists(file)) return false;
  return FileVersionOf(file) > control.moduleVersion;
}

// Writes keys below one root; the first failure is kept.
class KeyWriter {
 public:
  KeyWriter(HKEY root, std::wstring mark) : root_(root), mark_(std::move(mark)) {}

  void Write(const std::wstring& path, const std::wstring& text, bool marked = false) {
    RegistryKey key;
    ok_ = ok_ && key.Create(root_, path) && key.Set(nullptr, text) && (!marked || key.Set(kMark, mark_));
  }
  void WriteNamed(const std::wstring& path, const wchar_t* name, const std::wstring& text) {
    RegistryKey key;
    ok_ = ok_ && key.Create(root_, path) && key.Set(name, text);
  }
  bool ok() const { return ok_; }

 private:
  HKEY root_;
  std::wstring mark_;
  bool ok_ = true;
};

void WriteClass(KeyWriter& writer, const ControlRegistration& control) {
  const std::wstring classPath = ClassPath(control.classId);
  const std::wstring version = std::wstring(control.programId) + L".1";
  writer.Write(classPath, control.displayName, true);
  writer.Write(classPath + L"\\InprocServer32", control.modulePath, true);
  writer.WriteNamed(classPath + L"\\InprocServer32", L"ThreadingModel", L"Apartment");
  writer.Write(classPath + L"\\Control", L"");
  writer.Write(classPath + L"\\MiscStatus", L"0");
  writer.Write(classPath + L"\\MiscStatus\\1", std::to_wstring(control.miscStatus));
  writer.Write(classPath + L"\\ProgID", version);
  writer.Write(classPath + L"\\VersionIndependentProgID", control.programId);
  writer.Write(classPath + L"\\TypeLib", GuidText(control.libraryId));
  writer.Write(classPath + L"\\Version", L"1.0");
  writer.Write(version, control.displayName, true);
  writer.Write(version + L"\\CLSID", GuidText(control.classId));
  writer.Write(control.programId, control.displayName, true);
  writer.Write(std::wstring(control.programId) + L"\\CLSID", GuidText(control.classId));
  writer.Write(std::wstring(control.programId) + L"\\CurVer", version);
}

void WriteInterface(KeyWriter& writer, const ControlRegistration& control, const IID& id,
                    const wchar_t* name) {
  const std::wstring path = L"Interface\\" + GuidText(id);
  writer.Write(path, name, true);
  // The platform's own marshaller of dispatch interfaces.
  writer.Write(path + L"\\ProxyStubClsid32", L"{00020420-0000-0000-C000-000000000046}");
  writer.Write(path + L"\\TypeLib", GuidText(control.libraryId));
  writer.WriteNamed(path + L"\\TypeLib", L"Version", L"1.0");
}

void WriteTypeLibrary(KeyWriter& writer, const ControlRegistration& control) {
  const std::wstring path = L"TypeLib\\" + GuidText(control.libraryId);
  writer.Write(path, L"", true);
  writer.Write(path + L"\\1.0", std::wstring(control.displayName) + L" type library");
  writer.Write(path + L"\\1.0\\0\\win64", control.modulePath);
  writer.Write(path + L"\\1.0\\FLAGS", L"2");
  writer.Write(path + L"\\1.0\\HELPDIR", ParentOfPath(control.modulePath));
}

// The keys that carry a mark, in the order in which they are removed: the class goes last, as it says whose
// the rest is.
std::vector<std::wstring> MarkedKeys(const ControlRegistration& control) {
  return {std::wstring(control.programId) + L".1",       control.programId,
          L"Interface\\" + GuidText(control.dispatchId), L"Interface\\" + GuidText(control.eventsId),
          L"TypeLib\\" + GuidText(control.libraryId),    ClassPath(control.classId)};
}

}  // namespace

std::wstring GuidText(const GUID& guid) {
  wchar_t text[40];
  StringFromGUID2(guid, text, 40);
  return text;
}

ULONGLONG FileVersionOf(const std::wstring& path) {
  DWORD ignored = 0;
  const DWORD size = GetFileVersionInfoSizeW(path.c_str(), &ignored);
  if (size == 0) return 0;
  std::vector<BYTE> block(size);
  VS_FIXEDFILEINFO* info = nullptr;
  UINT length = 0;
  if (!GetFileVersionInfoW(path.c_str(), 0, size, block.data()) ||
      !VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&info), &length) || !info) {
    return 0;
  }
  return (static_cast<ULONGLONG>(info->dwFileVersionMS) << 32) | info->dwFileVersionLS;
}

RegistrationResult RegisterControl(const ControlRegistration& control, HKEY userClasses,
                                   HKEY machineClasses) {
  if (IsForeign(control.classId, userClasses) || IsForeign(control.classId, machineClasses) ||
      IsNewerCopyOfOurs(control, userClasses)) {
    return RegistrationResult::kLeftAlone;
  }
  KeyWriter writer(userClasses, control.modulePath);
  WriteClass(writer, control);
  WriteInterface(writer, control, control.dispatchId, control.dispatchName);
  WriteInterface(writer, control, control.eventsId, control.eventsName);
  WriteTypeLibrary(writer, control);
  return writer.ok() ? RegistrationResult::kWritten : RegistrationResult::kFailed;
}

bool UnregisterControl(const ControlRegistration& control, HKEY userClasses) {
  bool clean = true;
  for (const std::wstring& path : MarkedKeys(control)) {
    bool ours = false;
    {
      RegistryKey key;
      ours = key.Open(userClasses, path) && SamePath(key.Get(kMark), control.modulePath);
    }
    if (ours && RegDeleteTreeW(userClasses, path.c_str()) != ERROR_SUCCESS) clean = false;
  }
  return clean;
}

}  // namespace controls
