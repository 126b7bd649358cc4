// A text file, read-only: rows on a grid of equally wide columns, with selection and copying.
#pragma once

#include <cstdint>
#include <string>

#include "workbench/app/documents/document_view.h"
#include "workbench/app/documents/file_facts.h"

namespace workbench {

// How much of a text file is shown, in bytes.
inline constexpr std::size_t kTextSizeLimit = 16u * 1024 * 1024;

// Shows the content, which is the file's first kTextSizeLimit bytes or all of it; cutOff says that the file
// goes on. Null when the window can't be created.
std::unique_ptr<DocumentView> CreateTextView(HWND parent, const FileFacts& facts, const std::string& content,
                                             bool cutOff);

// Messages that a text view's window answers besides the usual ones (WM_COPY copies the selection).
inline constexpr UINT kTextSelectAll = WM_APP + 1;    // both parameters 0
inline constexpr UINT kTextSelectRange = WM_APP + 2;  // first and last position in UTF-16 units
inline constexpr UINT kTextGetTopRow = WM_APP + 3;    // gives the first row shown, from 0

}  // namespace workbench
