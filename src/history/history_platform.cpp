#include "src/history/history_platform.h"

#include <objbase.h>
#include <shlobj.h>
#include <shlwapi.h>
#include <wrl/client.h>

#include <bit>
#include <cstring>
#include <memory>
#include <utility>

#include "base/text/code_page.h"
#include "base/text/letter_case.h"
#include "base/text/narrow_path.h"
#include "src/framework/unique_handle.h"
#include "src/history/history_slices.h"
#include "src/host/vc64_imp.h"
#include "src/host/vc64_tx.h"

namespace file_explorer {
namespace {

using Microsoft::WRL::ComPtr;

constexpr char kHistoryFileName[] = "history.dat";
constexpr char kBackupExtension[] = ".bak";
constexpr DWORD kValueSize = 8192;
constexpr LONGLONG kLargestFile = LONGLONG{64} << 20;  // that is cut

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

unique_file OpenFile(const char* path, DWORD access, DWORD creation) {
  const HANDLE file =
      CreateFileA(path, access, FILE_SHARE_READ, nullptr, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
  return unique_file(file != INVALID_HANDLE_VALUE ? file : nullptr);
}

bool ReadWholeFile(const char* path, std::string* text) {
  const unique_file file = OpenFile(path, GENERIC_READ, OPEN_EXISTING);
  LARGE_INTEGER size = {};
  if (!file || !GetFileSizeEx(file.get(), &size) || size.QuadPart > kLargestFile) return false;
  text->resize(static_cast<size_t>(size.QuadPart));
  DWORD read = 0;
  return ReadFile(file.get(), text->data(), static_cast<DWORD>(text->size()), &read, nullptr) &&
         read == text->size();
}

bool WriteWholeFile(const char* path, const std::string& text) {
  const unique_file file = OpenFile(path, GENERIC_WRITE, CREATE_ALWAYS);
  DWORD written = 0;
  if (!file || !WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr))
    return false;
  // The system may read a file that has changed just now anew at each call: this one is from long ago.
  const FILETIME longAgo = {0, 0x01C00000};
  SetFileTime(file.get(), nullptr, nullptr, &longAgo);
  return written == text.size();
}

// Its path; empty when it can't be written.
std::string WriteTemporaryFile(const std::string& text) {
  wchar_t wideFolder[MAX_PATH + 2];
  char path[MAX_PATH];
  const DWORD length = GetTempPathW(MAX_PATH + 2, wideFolder);
  const auto folder = length != 0 && length < MAX_PATH + 2 ? base::NarrowPath(wideFolder) : std::nullopt;
  if (!folder || GetTempFileNameA(folder->c_str(), "hst", 0, path) == 0) return std::string();
  if (WriteWholeFile(path, text)) return path;
  DeleteFileA(path);
  return std::string();
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

ProfileHistoryFile::~ProfileHistoryFile() {
  RemoveSlice();
}

const char* ProfileHistoryFile::FileOf(const char* key) {
  const int entry = EntryOfKey(key);
  if (entry < kFirstCutEntry) return file();
  if (!slices_) ReadSlices();
  const auto index = static_cast<std::size_t>((entry - kFirstCutEntry) / kEntriesPerSlice);
  if (index >= slices_->size()) return file();
  if (slicePath_.empty() || slice_ != index) WriteSlice(index);
  return slicePath_.empty() ? file() : slicePath_.c_str();
}

void ProfileHistoryFile::ReadSlices() {
  slices_.emplace();
  std::string text;
  if (ReadWholeFile(file(), &text)) *slices_ = CutHistory(text);
}

void ProfileHistoryFile::WriteSlice(std::size_t index) {
  RemoveSlice();
  slice_ = index;
  slicePath_ = WriteTemporaryFile((*slices_)[index]);
}

void ProfileHistoryFile::RemoveSlice() {
  if (!slicePath_.empty()) DeleteFileA(slicePath_.c_str());
  slicePath_.clear();
}

std::string ProfileHistoryFile::ReadText(const char* key) {
  std::string value(kValueSize, '\0');
  value.resize(GetPrivateProfileStringA(kHistorySection, key, "", value.data(), kValueSize, FileOf(key)));
  return value;
}

bool ProfileHistoryFile::ReadTime(const char* key, HistoryTime* time) {
  HistoryTime read;
  if (!GetPrivateProfileStructA(kHistorySection, key, &read, sizeof(read), FileOf(key))) return false;
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
  Flush();
  return isMoved;
}

void ProfileHistoryFile::Remove() {
  DeleteFileA(file());
  Flush();
}

void ProfileHistoryFile::RestoreBackup() {
  MoveFileA(backup_.c_str(), file());
  Flush();
}

void ProfileHistoryFile::Flush() const {
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
