#include "workbench/app/documents/autoload.h"

#include <windows.h>

#include "src/host/plugin_protocol.h"
#include "workbench/app/documents/autoload_text.h"
#include "workbench/app/documents/file_facts.h"
#include "workbench/app/documents/view_window.h"

namespace workbench {
namespace {

// The plug-in writes in the code page of the process; a text that is UTF-8 is taken as such everywhere.
std::wstring FromPluginText(const std::string& text) {
  const int length = static_cast<int>(text.size());
  UINT codePage = CP_UTF8;
  DWORD flags = MB_ERR_INVALID_CHARS;
  int size = MultiByteToWideChar(codePage, flags, text.data(), length, nullptr, 0);
  if (size == 0) {
    codePage = CP_ACP;
    flags = 0;
    size = MultiByteToWideChar(codePage, flags, text.data(), length, nullptr, 0);
  }
  std::wstring wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(codePage, flags, text.data(), length, wide.data(), size);
  return wide;
}

}  // namespace

std::optional<std::wstring> ReadAutoloadFile(std::wstring* error) {
  wchar_t folder[MAX_PATH + 2] = L"";
  const DWORD length = GetTempPathW(MAX_PATH + 1, folder);
  // The writer falls back to the root of drive C when there is no temporary directory; so does the reader.
  const std::wstring file = (length == 0 ? std::wstring(L"c:\\") : folder) + Wide(host::kAutoloadFileName);
  std::string content;
  const DWORD code = ReadFileBeginning(file, kAutoloadSizeLimit, &content);
  const auto refuse = [&](const std::wstring& why) -> std::optional<std::wstring> {
    if (error != nullptr) *error = why;
    return std::nullopt;
  };
  if (code != ERROR_SUCCESS)
    return refuse(L"The hand-over file \"" + file + L"\" can't be read. " + ErrorText(code, file));
  const auto path = ParseAutoloadContent(content);
  if (!path) return refuse(L"The hand-over file \"" + file + L"\" names no file.");
  return FromPluginText(*path);
}

}  // namespace workbench
