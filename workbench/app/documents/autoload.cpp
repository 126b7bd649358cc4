#include "workbench/app/documents/autoload.h"

#include <windows.h>

#include "base/text/code_page.h"
#include "src/host/plugin_protocol.h"
#include "workbench/app/documents/autoload_text.h"
#include "workbench/app/documents/file_facts.h"
#include "workbench/app/documents/view_window.h"

namespace workbench {

std::optional<std::wstring> ReadAutoloadFile(std::wstring* error) {
  wchar_t folder[MAX_PATH + 2] = L"";
  const DWORD length = GetTempPathW(MAX_PATH + 1, folder);
  // The writer falls back to the root of drive C when there is no temporary directory; so does the reader.
  const std::wstring file = (length == 0 ? std::wstring(L"c:\\") : folder) + base::WideFromNarrow(host::kAutoloadFileName);
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
  // The plug-in writes in the code page of the process. Bytes that are no text in it name no file; a guess at another
  // code page could name a wrong one.
  auto wide = base::ExactWide(*path);
  if (!wide) return refuse(L"The hand-over file \"" + file + L"\" names a file in another code page.");
  return wide;
}

}  // namespace workbench
