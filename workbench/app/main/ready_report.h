// Tells a script when the explorer's file list is filled.
#pragma once

#include <windows.h>

#include <string>

namespace workbench {

// From now on looks ten times a second at the file list below window (the first list control in it). When its number of
// items has not changed for half a second, writes the line "ready <items>" to the file and looks no more. One at a time;
// the file is written once.
void ReportWhenReady(HWND window, const std::wstring& file);

}  // namespace workbench
