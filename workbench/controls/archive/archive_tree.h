// The folders and files of an archive, as they are shown.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace controls {

using NodeId = uint32_t;
inline constexpr NodeId kArchiveRoot = 0;
inline constexpr NodeId kNoNode = 0xFFFFFFFFu;

// What the archive's directory says of an entry.
struct EntryFacts {
  uint64_t size = 0;      // bytes, unpacked
  uint64_t modified = 0;  // 100 ns units since 1601, wall clock; 0 when unknown
  bool hidden = false;
};

struct ArchiveNode {
  EntryFacts facts;
  NodeId parent = kNoNode;
  NodeId firstChild = kNoNode;
  NodeId lastChild = kNoNode;
  NodeId nextSibling = kNoNode;
  uint32_t nameOffset = 0;
  uint16_t nameLength = 0;
  bool folder = false;
  bool listed = false;   // has an entry of its own; a folder without one is implied by a path
  bool damaged = false;  // its data cannot be where the directory says
};

// Names are unique in their folder and harmless (entry_name.h). Children stand in the order of the directory.
class ArchiveTree {
 public:
  // Folders lie at most this deep; what is deeper is shown as one name.
  static constexpr int kDeepest = 64;
  // More nodes are refused, so that a small file cannot fill the memory.
  static constexpr size_t kMostNodes = 2'000'000;

  explicit ArchiveTree(size_t mostNodes = kMostNodes);

  // Adds an entry with the folders on its way; separators are "/" and "\", one at the end makes it a folder.
  // A folder that is there already stays one folder, a file whose name is taken gets a number. An entry that
  // stands for the root itself ("/", "./") gives the root. kNoNode when the tree is full.
  NodeId Add(std::wstring_view path, const EntryFacts& facts);
  void MarkDamaged(NodeId id) { nodes_[id].damaged = true; }

  size_t size() const { return nodes_.size(); }
  const ArchiveNode& at(NodeId id) const { return nodes_[id]; }
  std::wstring_view name(NodeId id) const {
    return std::wstring_view(names_.data() + nodes_[id].nameOffset, nodes_[id].nameLength);
  }

  // The node of a path of shown names, parted by "\"; the root for an empty path. Each part is looked up
  // exactly, and when there is none without regard to case. kNoNode when there is no such place.
  NodeId Find(std::wstring_view path) const;

 private:
  NodeId AddRest(NodeId parent, std::wstring_view path, const EntryFacts& facts);
  NodeId FolderIn(NodeId parent, const std::wstring& name);
  NodeId FileIn(NodeId parent, const std::wstring& name, const EntryFacts& facts);
  NodeId Child(NodeId parent, std::wstring_view name) const;
  NodeId Insert(NodeId parent, std::wstring_view name, bool folder);
  std::wstring FreeName(NodeId parent, const std::wstring& name, bool folder);
  size_t Slot(NodeId parent, std::wstring_view name) const;
  uint64_t Hash(NodeId parent, std::wstring_view name) const;
  void GrowIndex();

  using Key = std::pair<NodeId, std::wstring>;
  size_t mostNodes_;
  std::vector<ArchiveNode> nodes_;
  std::vector<wchar_t> names_;
  std::vector<NodeId> index_;         // open addressing by parent and name; a power of two
  uint64_t seed_;                     // so that nobody can prepare names that collide
  std::map<Key, uint32_t> numbers_;   // the last number that a taken name got
  std::map<Key, NodeId> otherNames_;  // folders whose name a file had taken
};

}  // namespace controls
