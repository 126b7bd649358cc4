#include "workbench/controls/operations/recycle_bin.h"

#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <optional>
#include <set>
#include <string_view>

#include "base/files/file_system.h"
#include "base/files/paths.h"
#include "base/files/wine_calls.h"
#include "base/text/utf8.h"
#include "workbench/controls/com/com_object.h"
#include "workbench/controls/shell/pidl.h"
#include "workbench/controls/shell/shell_operation.h"

namespace controls {
namespace {

// Exactly this name: another one that differs in letter case only is another file where the disk says so.
base::SystemError StatusOf(const std::wstring& path, base::FileStatus* status) {
  return base::MachineFileSystem().Status(path, status);
}

bool Exists(const std::wstring& path) {
  base::FileStatus status;
  return !base::IsNotFound(StatusOf(path, &status));
}

// In any letter case: the shell gives nothing back beside another spelling of the name, but asks to replace
// it.
bool IsTaken(const std::wstring& path) {
  return GetFileAttributesW(base::ExtendedPath(path).c_str()) != INVALID_FILE_ATTRIBUTES || Exists(path);
}

bool IsWine() {
  return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

std::wstring EnvironmentText(const wchar_t* name) {
  std::wstring text(GetEnvironmentVariableW(name, nullptr, 0), L'\0');
  text.resize(GetEnvironmentVariableW(name, text.data(), static_cast<DWORD>(text.size())));
  return text;
}

// Wine keeps its one bin in a folder of the machine below. To it nothing can be moved from other file
// systems: the shell would ask once more, or copy, and take away a source whose copy is cut off.
std::optional<uint64_t> VolumeOfWinesBin() {
  const std::wstring data = EnvironmentText(L"XDG_DATA_HOME");
  if (data.starts_with(L'/')) {
    base::wine::Status status;
    for (const char* const folder : {"/Trash/files", ""}) {
      if (base::wine::GetStatus(base::Utf8FromWide(data) + folder, true, &status) == 0) return status.device;
    }
    return std::nullopt;
  }
  std::wstring home = EnvironmentText(L"WINEHOMEDIR");
  if (home.starts_with(L"\\??\\")) home.erase(0, 4);
  base::FileStatus status;
  for (const wchar_t* const folder : {L"\\.local\\share\\Trash\\files", L"\\.local\\share"}) {
    const std::wstring path = home + folder;
    if (base::MachineFileSystem().TargetStatus(path, &status) == base::kNoError)
      return status.identity.volume;
  }
  return std::nullopt;
}

bool LiesWithWinesBin(const std::wstring& path) {
  base::FileStatus status;
  const std::optional<uint64_t> volume = VolumeOfWinesBin();
  return volume && StatusOf(path, &status) == base::kNoError && status.identity.volume == *volume;
}

// What tells an item of the bin from all others, the same each time that the bin is read. Wine's lists have a
// byte and the find data of the item in front of the name that it got in the bin, and don't clear the unused
// parts of the find data.
std::string IdOf(const ITEMIDLIST* child) {
  const size_t inFront = IsWine() ? sizeof(USHORT) + 1 + sizeof(WIN32_FIND_DATAW) : 0;
  const std::string_view bytes(reinterpret_cast<const char*>(child), ILGetSize(child));
  return std::string(bytes.size() > inFront ? bytes.substr(inFront) : bytes);
}

ComRef<IShellFolder2> BinFolder() {
  ComRef<IShellFolder2> folder;
  ComRef<IShellFolder> desktop;
  LPITEMIDLIST list = nullptr;
  if (FAILED(SHGetSpecialFolderLocation(nullptr, CSIDL_BITBUCKET, &list))) return folder;
  const UniquePidl bin(list);
  if (SUCCEEDED(SHGetDesktopFolder(desktop.put()))) {
    desktop->BindToObject(bin.get(), nullptr, IID_IShellFolder2, folder.put_void());
  }
  return folder;
}

// What an item was called before it went. The bin may show the name without its extension; the name that it
// gave to the item itself still has it.
std::wstring OriginalName(IShellFolder2& folder, const ITEMIDLIST* child) {
  STRRET shown = {};
  STRRET own = {};
  if (FAILED(folder.GetDisplayNameOf(child, SHGDN_INFOLDER, &shown)) ||
      FAILED(folder.GetDisplayNameOf(child, SHGDN_FORPARSING, &own))) {
    return {};
  }
  std::wstring name = TextOfStrret(shown, child);
  const std::wstring ownName = TextOfStrret(own, child);
  const std::wstring_view extension = base::ExtensionOf(base::NameOfPath(ownName));
  if (!extension.empty() && base::ExtensionOf(name) != extension) name += L"." + std::wstring(extension);
  return name;
}

// Calls act with each child of the bin until it returns false.
template <typename Act>
void ForEachBinned(IShellFolder2& folder, Act act) {
  ComRef<IEnumIDList> list;
  constexpr SHCONTF kAll = SHCONTF_FOLDERS | SHCONTF_NONFOLDERS | SHCONTF_INCLUDEHIDDEN;
  if (folder.EnumObjects(nullptr, kAll, list.put()) != S_OK) return;
  LPITEMIDLIST next = nullptr;
  while (list->Next(1, &next, nullptr) == S_OK) {
    const UniquePidl child(next);
    if (!act(child.get())) return;
  }
}

std::set<std::string> BinContents(IShellFolder2& folder) {
  std::set<std::string> ids;
  ForEachBinned(folder, [&](const ITEMIDLIST* child) {
    ids.insert(IdOf(child));
    return true;
  });
  return ids;
}

// What is in the bin now and was not before, of these paths.
std::vector<BinnedItem> NewInBin(IShellFolder2& folder, const std::set<std::string>& before,
                                 const std::vector<std::wstring>& paths) {
  std::vector<BinnedItem> found;
  ForEachBinned(folder, [&](const ITEMIDLIST* child) {
    std::string id = IdOf(child);
    if (before.contains(id)) return true;
    // The name and the moment tell which one it is: the bin may know the folder by another spelling of its
    // path.
    const std::wstring name = OriginalName(folder, child);
    const auto path = std::find_if(paths.begin(), paths.end(),
                                   [&](const std::wstring& each) { return base::NameOfPath(each) == name; });
    if (path != paths.end()) found.push_back({*path, std::move(id)});
    return true;
  });
  return found;
}

// Others were deleted for good by the user's leave, or stand there only since the user was asked.
bool IsForBin(const base::FileStatus& status) {
  return status.kind == base::FileKind::kFile || status.kind == base::FileKind::kFolder;
}

// The bin's own menu gives the item back. Wine knows the entry by its place alone: it is the first.
HRESULT Undelete(IContextMenu& menu) {
  CMINVOKECOMMANDINFO info = {};
  info.cbSize = sizeof(info);
  info.fMask = CMIC_MASK_FLAG_NO_UI;
  info.lpVerb = "undelete";
  if (!IsWine()) return menu.InvokeCommand(&info);
  const HMENU entries = CreatePopupMenu();
  constexpr UINT kFirst = 1;
  HRESULT result = menu.QueryContextMenu(entries, 0, kFirst, 0x7FFF, CMF_NORMAL);
  if (SUCCEEDED(result) && GetMenuItemCount(entries) > 0) {
    info.lpVerb = MAKEINTRESOURCEA(GetMenuItemID(entries, 0) - kFirst);
    result = menu.InvokeCommand(&info);
  }
  DestroyMenu(entries);
  return result;
}

}  // namespace

bool HasBin(const std::wstring& path) {
  const std::vector<std::wstring> chain = base::PathChain(path);
  SHQUERYRBINFO info = {};
  info.cbSize = sizeof(info);
  if (chain.empty() || FAILED(SHQueryRecycleBinW(chain.front().c_str(), &info))) return false;
  return !base::wine::CanCallKernel() || LiesWithWinesBin(path);
}

BinOutcome MoveToBin(HWND owner, const std::vector<std::wstring>& paths,
                     const std::function<bool(const std::wstring& path)>& next) {
  BinOutcome outcome;
  const ComRef<IShellFolder2> bin = BinFolder();
  std::set<std::string> before;
  if (bin) before = BinContents(*bin.get());
  constexpr FILEOP_FLAGS kFlags =
      FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI | FOF_WANTNUKEWARNING;
  // One by one: a list ends at the first item that fails.
  for (const std::wstring& path : paths) {
    if (!next(path)) {
      outcome.cancelled = true;
      break;
    }
    // The shell would take a link's target, or another file that differs in letter case only.
    base::FileStatus status;
    const base::SystemError missing = StatusOf(path, &status);
    if (missing != base::kNoError || !IsForBin(status)) {
      outcome.failures.push_back(
          {path,
           missing == base::kNoError ? base::FailureReason::kSourceChanged : base::FailureReason::kSystem,
           missing});
      continue;
    }
    const ShellCode code = DeleteWithShell(owner, path, kFlags);
    if (!Exists(path)) {
      ++outcome.done;
    } else if (code.aborted) {
      outcome.cancelled = true;
    } else {
      const DWORD error = code.error != 0 ? code.error : ERROR_ACCESS_DENIED;
      outcome.failures.push_back({path, base::FailureReason::kSystem, error});
    }
  }
  if (bin) outcome.binned = NewInBin(*bin.get(), before, paths);
  return outcome;
}

base::SystemError RestoreFromBin(const BinnedItem& item) {
  if (IsTaken(item.path)) return ERROR_ALREADY_EXISTS;
  // Not every system says that the folder is missing.
  if (!IsTaken(base::ParentOfPath(item.path))) return ERROR_PATH_NOT_FOUND;
  const ComRef<IShellFolder2> bin = BinFolder();
  if (!bin) return ERROR_NOT_SUPPORTED;
  HRESULT result = HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND);
  ForEachBinned(*bin.get(), [&](const ITEMIDLIST* child) {
    if (IdOf(child) != item.binId) return true;
    ComRef<IContextMenu> menu;
    result = bin->GetUIObjectOf(nullptr, 1, &child, IID_IContextMenu, nullptr, menu.put_void());
    if (SUCCEEDED(result)) result = Undelete(*menu.get());
    return false;
  });
  if (Exists(item.path)) return base::kNoError;
  if (SUCCEEDED(result)) return ERROR_ACCESS_DENIED;
  return HRESULT_FACILITY(result) == FACILITY_WIN32 ? static_cast<DWORD>(HRESULT_CODE(result))
                                                    : ERROR_ACCESS_DENIED;
}

}  // namespace controls
