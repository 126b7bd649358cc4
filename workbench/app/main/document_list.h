// The open documents: one page of the document area each.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "workbench/app/docking/document_area.h"
#include "workbench/app/documents/document_view.h"

namespace workbench {

struct DocumentFacts {
  std::wstring path;
  std::wstring title;
  std::wstring kind;
  std::wstring summary;
  bool operator==(const DocumentFacts&) const = default;
};

class DocumentList final : private DocumentPageOwner {
 public:
  using Opener = std::function<std::unique_ptr<DocumentView>(HWND, const std::wstring&, std::wstring*)>;

  // changed is called after the list or the document in front changed.
  DocumentList(DocumentArea& area, Opener opener, std::function<void()> changed)
      : area_(area), opener_(std::move(opener)), changed_(std::move(changed)) {}
  ~DocumentList();

  // Opens a file, or brings the document to the front that shows it already. False, with a sentence in error,
  // when the file cannot be read at all.
  bool Open(const std::wstring& path, std::wstring* error);
  // Closes the document in front; false when the page in front is no document.
  bool CloseFront();
  std::vector<DocumentFacts> documents() const;
  // The document in front; empty texts when there is none.
  DocumentFacts Front() const;

 private:
  struct Entry {
    int page;
    std::unique_ptr<DocumentView> view;
  };

  void OnPageActivated(int page) override;
  void OnPageClose(int page) override;
  const Entry* Find(int page) const;

  DocumentArea& area_;
  Opener opener_;
  std::function<void()> changed_;
  std::vector<Entry> entries_;
};

}  // namespace workbench
