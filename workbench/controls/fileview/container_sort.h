// A sort of the file view's rows whose comparisons the container answers.
#pragma once

#include <memory>
#include <vector>

#include "workbench/controls/fileview/file_view.h"
#include "workbench/controls/model/merge_sorter.h"

namespace controls {

// Done a part at a time, so that the window stays alive. The container sees one object an item for the whole
// sort.
struct FileView::ContainerSort {
  ContainerSort(SortRule sortRule, std::shared_ptr<Listing> sortListing)
      : rule(sortRule),
        listing(std::move(sortListing)),
        sorter(listing->rows.rows()),
        items(listing->store.size()) {}

  SortRule rule;
  std::shared_ptr<Listing> listing;
  MergeSorter<ItemId> sorter;
  std::vector<ComRef<IDispatch>> items;  // by item id, made when they are first asked about
};

}  // namespace controls
