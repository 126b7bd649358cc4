#include "src/fileops/source_list.h"

#include <cstring>
#include <utility>

namespace file_explorer {

SourceList::SourceList(SourceList&& other) noexcept
    : memory_(other.memory_),
      block_(std::exchange(other.block_, nullptr)),
      size_(std::exchange(other.size_, 0)) {}

SourceList& SourceList::operator=(SourceList&& other) noexcept {
  std::swap(memory_, other.memory_);
  std::swap(block_, other.block_);
  std::swap(size_, other.size_);
  return *this;
}

SourceList::~SourceList() {
  if (block_ != nullptr) memory_->free(block_);
}

bool SourceList::Append(std::string_view path) {
  if (path.empty()) return true;
  if (path.size() >= kPathBufferSize) return false;
  // The zero that ends the list so far becomes the first byte of the new path.
  const std::size_t used = size_ == 0 ? 0 : size_ - 1;
  const std::size_t size = used + path.size() + 2;
  void* const block = block_ == nullptr ? memory_->allocate(size) : memory_->reallocate(block_, size);
  if (block == nullptr) return false;
  block_ = static_cast<char*>(block);
  std::memcpy(block_ + used, path.data(), path.size());
  block_[size - 2] = '\0';
  block_[size - 1] = '\0';
  size_ = size;
  return true;
}

const char* SourceList::text() const {
  return block_ == nullptr ? "\0" : block_;
}

bool IsLiteralPath(std::string_view path) {
  return path.find_first_of("?*") == std::string_view::npos;
}

}  // namespace file_explorer
