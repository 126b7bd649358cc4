// What is known about a file or folder whose content is not shown.
#pragma once

#include "workbench/app/documents/document_view.h"
#include "workbench/app/documents/file_facts.h"

namespace workbench {

// note: why the content is not shown; may be empty. Null when the window can't be created.
std::unique_ptr<DocumentView> CreateInformationView(HWND parent, const FileFacts& facts,
                                                    const std::wstring& note);

}  // namespace workbench
