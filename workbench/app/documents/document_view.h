// Views of the document area: one open file each.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

namespace workbench {

// One open document; owns its window, a child of the given parent. UI thread only.
class DocumentView {
 public:
  virtual ~DocumentView() = default;
  virtual HWND window() const = 0;
  virtual const std::wstring& path() const = 0;
  virtual std::wstring title() const = 0;    // text of the document's tab
  virtual std::wstring kind() const = 0;     // "picture", "text", "information" or "welcome"
  virtual std::wstring summary() const = 0;  // for a status line, e.g. "1024 x 768 pixels, 24 bits"
};

// Opens a file or folder for showing, as a picture, as text, or with what is known about it. The window is
// created hidden and without a size: the caller places and shows it. A file that can't be shown as what it
// claims to be is shown with a note. Null, with a message in *error (may be null), only when the path can't
// be read at all.
std::unique_ptr<DocumentView> OpenDocumentView(HWND parent, const std::wstring& path, std::wstring* error);

// The page that is shown while no document is open: what this place is for and how to use it. Its path is
// empty.
std::unique_ptr<DocumentView> CreateWelcomeView(HWND parent);

}  // namespace workbench
