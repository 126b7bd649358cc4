// What the file system knows of a file, and the beginning of its content.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "workbench/app/documents/describe.h"

namespace workbench {

struct FileFacts {
  std::wstring path;  // absolute
  std::wstring name;  // last part of the path; the path itself for a drive
  bool folder = false;
  bool readOnly = false;
  bool hidden = false;
  std::uint64_t size = 0;  // bytes; 0 for a folder
  DateTime created;        // local time
  DateTime modified;
};

// ERROR_SUCCESS, or the Windows error that says why the path can't be read.
DWORD ReadFileFacts(const std::wstring& path, FileFacts* facts);

// The first `limit` bytes of a file, or all when it is shorter. ERROR_SUCCESS or the Windows error; *content
// then has what could be read before.
DWORD ReadFileBeginning(const std::wstring& path, std::size_t limit, std::string* content);

// What Windows says of an error, without a line end. name: of the file, for the sentences that name it.
std::wstring ErrorText(DWORD error, std::wstring_view name = {});

}  // namespace workbench
