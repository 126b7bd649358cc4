// A picture, fitted into its window; zoomed by the wheel and the keys, moved by dragging.
#pragma once

#include "workbench/app/documents/document_view.h"
#include "workbench/app/documents/file_facts.h"
#include "workbench/app/documents/picture_loader.h"

namespace workbench {

// Null when the window can't be created.
std::unique_ptr<DocumentView> CreatePictureView(HWND parent, const FileFacts& facts, LoadedPicture picture);

}  // namespace workbench
