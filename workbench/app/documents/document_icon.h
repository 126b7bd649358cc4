// The large pictures of files and folders, drawn smoothly at any size.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "workbench/app/documents/describe.h"

namespace workbench {

// Draws on a square of size pixels with smooth edges: `draw` gets a device context in which the square is
// `side` units wide and already filled with the background.
void DrawSmooth(HDC dc, int x, int y, int size, COLORREF background,
                const std::function<void(HDC, int side)>& draw);

// A sheet with the extension on a band in the kind's colour, or a folder. The background shows around it.
void DrawDocumentIcon(HDC dc, int x, int y, int size, FileKind kind, const std::wstring& extension,
                      COLORREF background);

}  // namespace workbench
