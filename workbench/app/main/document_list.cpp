#include "workbench/app/main/document_list.h"

#include <algorithm>

namespace workbench {
namespace {

DocumentFacts FactsOf(const DocumentView& view) {
  return {view.path(), view.title(), view.kind(), view.summary()};
}

bool SamePath(const std::wstring& a, const std::wstring& b) {
  return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

std::wstring FullPath(const std::wstring& path) {
  wchar_t full[32768];
  const DWORD length = GetFullPathNameW(path.c_str(), static_cast<DWORD>(std::size(full)), full, nullptr);
  return length == 0 || length >= std::size(full) ? path : std::wstring(full, length);
}

}  // namespace

DocumentList::~DocumentList() {
  changed_ = nullptr;
  while (!entries_.empty()) OnPageClose(entries_.back().page);
}

bool DocumentList::Open(const std::wstring& asked, std::wstring* error) {
  if (asked.empty() || !opener_) {
    *error = L"There is no file to open.";
    return false;
  }
  const std::wstring path = FullPath(asked);
  for (const Entry& entry : entries_) {
    if (!SamePath(entry.view->path(), path)) continue;
    area_.Activate(entry.page);
    return true;
  }
  std::unique_ptr<DocumentView> view = opener_(area_.window(), path, error);
  if (view == nullptr) return false;
  const int page = area_.AddPage(view->window(), view->title(), nullptr, *this);
  entries_.push_back({page, std::move(view)});
  area_.Activate(page);
  return true;
}

bool DocumentList::CloseFront() {
  if (Find(area_.front()) == nullptr) return false;
  OnPageClose(area_.front());
  return true;
}

std::vector<DocumentFacts> DocumentList::documents() const {
  std::vector<DocumentFacts> result;
  for (const Entry& entry : entries_) result.push_back(FactsOf(*entry.view));
  return result;
}

DocumentFacts DocumentList::Front() const {
  const Entry* entry = Find(area_.front());
  return entry == nullptr ? DocumentFacts() : FactsOf(*entry->view);
}

const DocumentList::Entry* DocumentList::Find(int page) const {
  const auto found =
      std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) { return entry.page == page; });
  return found == entries_.end() ? nullptr : &*found;
}

void DocumentList::OnPageActivated(int) {
  if (changed_) changed_();
}

void DocumentList::OnPageClose(int page) {
  const Entry* found = Find(page);
  if (found == nullptr) return;
  // The page goes before its window does.
  area_.RemovePage(page);
  std::erase_if(entries_, [&](const Entry& entry) { return entry.page == page; });
  if (changed_) changed_();
}

}  // namespace workbench
