// Lists of files as the shell passes them between programs.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <string>
#include <vector>

namespace controls {

// The clipboard format that says whether the files shall be copied or moved.
UINT PreferredEffectFormat();
// The format in which a target says what it did.
UINT PerformedEffectFormat();

// Blocks for the formats CF_HDROP and PreferredEffectFormat; null when memory is short. The caller's.
HGLOBAL MakeFileListBlock(const std::vector<std::wstring>& paths);
HGLOBAL MakeEffectBlock(DWORD effect);

// The paths of a CF_HDROP block; empty for null.
std::vector<std::wstring> PathsOf(HGLOBAL fileList);
// The files of a data object; empty when it holds none.
std::vector<std::wstring> FilesOf(IDataObject* data);

}  // namespace controls
