// A stable merge sort that can be done a little at a time, for comparisons that are answered by somebody
// else.
#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace controls {

// Sorts a list bottom-up. Step() does a limited number of comparisons and says whether the list is sorted;
// between two steps the program may do anything. Runs that are in order already cost one comparison a pair of
// runs.
template <typename T>
class MergeSorter {
 public:
  explicit MergeSorter(std::vector<T> items) : items_(std::move(items)), merged_(items_.size()) {}

  bool done() const { return width_ >= items_.size(); }
  std::vector<T> TakeItems() { return std::move(items_); }

  // less(a, b) as for std::sort. True when finished.
  template <typename Less>
  bool Step(size_t comparisons, Less&& less) {
    while (!done() && comparisons != 0) {
      if (!merging_) {
        BeginMerge();
        --comparisons;
        if (right_ == rightEnd_ || !less(items_[right_], items_[leftEnd_ - 1])) {
          EndMerge();
          continue;
        }
      }
      while (left_ < leftEnd_ && right_ < rightEnd_ && comparisons != 0) {
        --comparisons;
        const bool takeRight = less(items_[right_], items_[left_]);
        merged_[out_++] = items_[takeRight ? right_++ : left_++];
      }
      if (left_ < leftEnd_ && right_ < rightEnd_) return false;
      EndMerge();
    }
    return done();
  }

 private:
  void BeginMerge() {
    left_ = start_;
    leftEnd_ = std::min(start_ + width_, items_.size());
    right_ = leftEnd_;
    rightEnd_ = std::min(start_ + 2 * width_, items_.size());
    out_ = start_;
    merging_ = true;
  }

  void EndMerge() {
    while (left_ < leftEnd_) merged_[out_++] = items_[left_++];
    while (right_ < rightEnd_) merged_[out_++] = items_[right_++];
    merging_ = false;
    start_ = rightEnd_;
    if (start_ < items_.size()) return;
    items_.swap(merged_);
    start_ = 0;
    width_ *= 2;
  }

  std::vector<T> items_;
  std::vector<T> merged_;
  size_t width_ = 1;
  size_t start_ = 0;
  size_t left_ = 0, leftEnd_ = 0, right_ = 0, rightEnd_ = 0, out_ = 0;
  bool merging_ = false;
};

}  // namespace controls
