// The list of paths that the shell's file operation takes, built in the host's memory.
#pragma once

#include <cstddef>
#include <string_view>

namespace file_explorer {

// Where the list's memory comes from: Tx_Alloc_Memory, Tx_Realloc_Memory and Tx_Free_Memory of the host's
// core library.
struct ListMemory {
  void* (*allocate)(std::size_t size);
  void* (*reallocate)(void* block, std::size_t size);  // null, the block unchanged, when memory is short
  void (*free)(void* block);
};

// Paths are read into buffers of this size, the terminator included.
inline constexpr std::size_t kPathBufferSize = 2048;

// One block of full paths, each ending with a zero byte, and a further zero byte behind the last one. Owns
// the block.
class SourceList {
 public:
  explicit SourceList(const ListMemory& memory) : memory_(&memory) {}
  SourceList(SourceList&& other) noexcept;
  SourceList& operator=(SourceList&& other) noexcept;
  SourceList(const SourceList&) = delete;
  SourceList& operator=(const SourceList&) = delete;
  ~SourceList();

  // Adds a path behind the others, growing the block. An empty path is skipped, which is no failure. False,
  // the list unchanged, when memory is short or the path does not fit into a path buffer.
  bool Append(std::string_view path);

  // The block, or a list without paths when nothing was appended; never null.
  const char* text() const;
  // Bytes of the block with all its zeros; 0 while there is none.
  std::size_t size() const { return size_; }

 private:
  const ListMemory* memory_;
  char* block_ = nullptr;
  std::size_t size_ = 0;
};

// Whether a path can be given to the shell's file operation as it stands. One with a wildcard can't: it would
// name other files than the selected one. A wildcard is what a letter becomes that the code page doesn't
// have.
bool IsLiteralPath(std::string_view path);

}  // namespace file_explorer
