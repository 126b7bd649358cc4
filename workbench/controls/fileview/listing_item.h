// An item of the file view as an object.
#pragma once

#include <memory>

#include "workbench/controls/fileview/folder_model.h"
#include "workbench/controls/shell/item_object.h"

namespace controls {

// What an item asks of its view.
class ListingItemView {
 public:
  virtual HRESULT OpenItem(const std::shared_ptr<Listing>& listing, ItemId id) = 0;
  virtual bool IsItemSelected(const std::shared_ptr<Listing>& listing, ItemId id) const = 0;
  virtual HRESULT SelectItem(const std::shared_ptr<Listing>& listing, ItemId id, bool selected) = 0;

 protected:
  ~ListingItemView() = default;
};

// The view as long as it lives; items and the view share it, and the view empties it when it closes.
struct ListingItemOwner {
  ListingItemView* view = nullptr;
};

class ListingItem : public ItemObject {
 public:
  std::wstring Path() const override;
  std::wstring DisplayName() const override { return std::wstring(listing_->store.name(id_)); }
  ULONG Attributes(ULONG mask) const override { return listing_->AttributesOf(id_) & mask; }
  const ITEMIDLIST* Pidl() override;
  ComRef<IDispatch> Parent() override;
  HRESULT InvokeDefault() override;
  bool Selected() const override;
  HRESULT SetSelected(bool selected) override;
  bool SortKey(long& key) const override;
  HRESULT SetSortKey(long key) override;

  // Makes this object another item; only for an object that nobody else holds.
  void Become(std::shared_ptr<Listing> listing, ItemId id);

 protected:
  ListingItem(std::shared_ptr<ListingItemOwner> owner, std::shared_ptr<Listing> listing, ItemId id)
      : owner_(std::move(owner)), listing_(std::move(listing)), id_(id) {}

 private:
  std::shared_ptr<ListingItemOwner> owner_;
  std::shared_ptr<Listing> listing_;
  ItemId id_;
  Location location_;  // made when the list is asked for
};

}  // namespace controls
