// The workbench's command line: workbench.exe [--plugin PATH] [--profile PATH] [--size WxH] [--ready-file PATH] [FOLDER]
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/app/layout/geometry.h"

namespace workbench {

struct CommandLine {
  std::wstring plugin;   // empty: the plug-in beside the program
  std::wstring profile;  // empty: workbench.ini in the per-user directory
  std::wstring folder;   // empty: the explorer begins where it ended
  std::optional<Size> size;
  std::wstring readyFile;  // not empty: gets a line when the file list is filled
};

inline constexpr wchar_t kUsage[] = L"workbench.exe [--plugin PATH] [--profile PATH] [--size WxH] [--ready-file PATH] [FOLDER]";

// arguments without the program's own name. Nothing, with a sentence in error, when they make no sense.
std::optional<CommandLine> ParseCommandLine(const std::vector<std::wstring>& arguments, std::wstring* error);

}  // namespace workbench
