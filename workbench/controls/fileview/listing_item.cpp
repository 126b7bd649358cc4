#include "workbench/controls/fileview/listing_item.h"

namespace controls {

std::wstring ListingItem::Path() const {
  std::wstring path = listing_->PathOf(id_);
  return path.empty() ? DisplayName() : path;
}

const ITEMIDLIST* ListingItem::Pidl() {
  if (id_ < listing_->entries.size()) return listing_->entries[id_].pidl.get();
  if (location_.empty()) location_ = listing_->LocationOf(id_);
  return location_.pidl();
}

ComRef<IDispatch> ListingItem::Parent() {
  return ComRef<IDispatch>::Attach(ComObject<LocationItem>::Create(listing_->folder).detach());
}

HRESULT ListingItem::InvokeDefault() {
  return owner_->view ? owner_->view->OpenItem(listing_, id_) : E_UNEXPECTED;
}

bool ListingItem::Selected() const {
  return owner_->view && owner_->view->IsItemSelected(listing_, id_);
}

HRESULT ListingItem::SetSelected(bool selected) {
  return owner_->view ? owner_->view->SelectItem(listing_, id_, selected) : E_UNEXPECTED;
}

bool ListingItem::SortKey(long& key) const {
  const ItemRecord& record = listing_->store.at(id_);
  key = record.sortKey;
  return (record.flags & kItemHasSortKey) != 0;
}

HRESULT ListingItem::SetSortKey(long key) {
  ItemRecord& record = listing_->store.at(id_);
  record.sortKey = key;
  record.flags |= kItemHasSortKey;
  return S_OK;
}

void ListingItem::Become(std::shared_ptr<Listing> listing, ItemId id) {
  listing_ = std::move(listing);
  id_ = id;
  location_ = Location();
}

}  // namespace controls
