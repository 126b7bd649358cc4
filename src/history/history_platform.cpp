#include "src/history/history_platform.h"

#include <objbase.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <wrl/client.h>

#include <bit>
#include <cstring>
#include <memory>
#include <utility>

#include "base/reach/drive_reach.h"
#include "base/text/code_page.h"
#include "base/text/letter_case.h"
#include "base/text/narrow_path.h"
#include "src/framework/unique_handle.h"
#include "src/host/vc64_imp.h"
#include "src/host/vc64_tx.h"

namespace file_explorer {
namespace {

using Microsoft::WRL::ComPtr;

constexpr char kHistoryFileName[] = "history.dat";
constexpr char kBackupExtension[] = ".bak";
constexpr DWORD kValueSize = kLongestHistoryValue + 1;

static_assert(sizeof(SYSTEMTIME) == sizeof(HistoryTime));

ComPtr<IShellFolder> Desktop() {
  ComPtr<IShellFolder> desktop;
  SHGetDesktopFolder(&desktop);
  return desktop;
}

std::string BackupPath(const std::string& path) {
  if (path.size() >= kTxPathSize) return std::string();
  const std::string lower = base::LowerCaseNarrow(path);
  char backup[kTxPathSize];
  if (lower.size() >= sizeof(backup)) return std::string();
  std::memcpy(backup, lower.c_str(), lower.size() + 1);
  return Tx_Check_File_Extension(backup, sizeof(backup), kBackupExtension) ? backup : std::string();
}

}  // namespace

ItemId ShellHistoryPlatform::ParseItem(const std::string& name) {
  const ComPtr<IShellFolder> desktop = Desktop();
  auto wide = base::ExactWide(name);
  unique_pidl pidl;
  if (!desktop || !wide || wide->empty() ||
      FAILED(desktop->ParseDisplayName(nullptr, nullptr, wide->data(), nullptr, pidl.put(), nullptr)) ||
      !pidl) {
    return ItemId();
  }
  const auto* const bytes = reinterpret_cast<const unsigned char*>(pidl.get());
  return ItemId(bytes, bytes + ILGetSize(pidl.get()));
}

std::string ShellHistoryPlatform::ParsingName(const ItemId& item) {
  const ComPtr<IShellFolder> desktop = Desktop();
  if (!desktop || item.empty()) return std::string();
  const auto* const pidl = reinterpret_cast<LPCITEMIDLIST>(item.data());
  STRRET name = {};
  if (FAILED(desktop->GetDisplayNameOf(pidl, SHGDN_FORPARSING, &name))) return std::string();
  wchar_t* text = nullptr;
  if (FAILED(StrRetToStrW(&name, pidl, &text)) || text == nullptr) return std::string();
  const std::unique_ptr<wchar_t, decltype(&CoTaskMemFree)> owner(text, &CoTaskMemFree);
  return base::NarrowPath(text).value_or(std::string());
}

bool ShellHistoryPlatform::MayHang(const std::string& name) {
  return base::MayHang(name);
}

std::string ShellHistoryPlatform::BaseName(const std::string& path) {
  std::string name(path.size() + 1, '\0');
  if (!Tx_ExtractBaseFileName(path.c_str(), name.data(), name.size())) return std::string();
  name.resize(std::strlen(name.c_str()));
  return name;
}

HistoryTime ShellHistoryPlatform::Now() {
  SYSTEMTIME now = {};
  GetSystemTime(&now);
  return std::bit_cast<HistoryTime>(now);
}

bool ToLocalTime(const HistoryTime& utc, HistoryTime* local) {
  if (!ToFileTime(utc)) return false;
  const auto from = std::bit_cast<SYSTEMTIME>(utc);
  SYSTEMTIME to = {};
  if (!SystemTimeToTzSpecificLocalTime(nullptr, &from, &to)) return false;
  *local = std::bit_cast<HistoryTime>(to);
  return true;
}

ProfileHistoryFile::ProfileHistoryFile(std::string path)
    : path_(std::move(path)), backup_(BackupPath(path_)) {}

std::string ProfileHistoryFile::ReadText(const char* key) {
  std::string value(kValueSize, '\0');
  value.resize(GetPrivateProfileStringA(kHistorySection, key, "", value.data(), kValueSize, file()));
  return value;
}

bool ProfileHistoryFile::ReadTime(const char* key, HistoryTime* time) {
  HistoryTime read;
  if (!GetPrivateProfileStructA(kHistorySection, key, &read, sizeof(read), file())) return false;
  *time = read;
  return true;
}

bool ProfileHistoryFile::WriteText(const char* key, const std::string& text) {
  return WritePrivateProfileStringA(kHistorySection, key, text.c_str(), file()) != FALSE;
}

bool ProfileHistoryFile::WriteTime(const char* key, const HistoryTime& time) {
  HistoryTime copy = time;  // the call's parameter is not const
  return WritePrivateProfileStructA(kHistorySection, key, &copy, sizeof(copy), file()) != FALSE;
}

bool ProfileHistoryFile::Exists() {
  return Tx_File_Exists(file()) != 0;
}

void ProfileHistoryFile::RemoveBackup() {
  if (!backup_.empty()) DeleteFileA(backup_.c_str());
}

bool ProfileHistoryFile::MoveToBackup() {
  if (backup_.empty()) return false;
  const bool isMoved = MoveFileA(file(), backup_.c_str()) != FALSE;
  Forget();
  return isMoved;
}

void ProfileHistoryFile::Remove() {
  DeleteFileA(file());
  Forget();
}

bool ProfileHistoryFile::RestoreBackup() {
  const bool isRestored = MoveFileA(backup_.c_str(), file()) != FALSE;
  Forget();
  return isRestored;
}

void ProfileHistoryFile::Forget() {
  WritePrivateProfileStringA(nullptr, nullptr, nullptr, file());
}

std::string HistoryFilePath(HWND mainWindow) {
  const unique_host_text folder(Import_IO_GetHalvoApplicationDirectoryForCurrentUser(mainWindow));
  char path[kTxPathSize];
  if (!folder || !Tx_ConcatenatePathAndFilename(folder.get(), kHistoryFileName, path, sizeof(path))) {
    return std::string();
  }
  return path;
}

}  // namespace file_explorer
