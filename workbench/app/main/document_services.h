// What the workbench takes from the documents, dialogs and text folders, as functions that may be absent or
// replaced.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "workbench/app/dialogs/about_dialog.h"
#include "workbench/app/documents/document_view.h"

namespace workbench {

struct DocumentServices {
  std::function<std::unique_ptr<DocumentView>(HWND parent, const std::wstring& path, std::wstring* error)>
      openView;
  std::function<std::optional<std::wstring>(std::wstring* error)> readAutoloadFile;
  std::function<void(HWND owner, const AboutInformation& information)> showAbout;
};

// The real ones.
DocumentServices StandardDocumentServices();

}  // namespace workbench
