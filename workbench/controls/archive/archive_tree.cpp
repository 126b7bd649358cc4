#include "workbench/controls/archive/archive_tree.h"

#include <algorithm>
#include <chrono>

#include "workbench/controls/archive/entry_name.h"
#include "workbench/controls/model/natural_compare.h"

namespace controls {
namespace {

bool IsSeparator(wchar_t character) {
  return character == L'/' || character == L'\\';
}

size_t NextSeparator(std::wstring_view path) {
  size_t at = 0;
  while (at < path.size() && !IsSeparator(path[at])) ++at;
  return at;
}

// Takes the separators (and the "." parts, which lead nowhere) from the front; true when there was a
// separator.
bool SkipSeparators(std::wstring_view& path) {
  bool any = false;
  for (;;) {
    if (!path.empty() && IsSeparator(path.front())) {
      path.remove_prefix(1);
      any = true;
    } else if (path.size() >= 2 && path.front() == L'.' && IsSeparator(path[1])) {
      path.remove_prefix(2);
    } else {
      return any;
    }
  }
}

std::wstring ShownName(std::wstring_view part, bool unsafe) {
  if (!unsafe && IsHarmlessName(part)) return std::wstring(part);
  return HarmlessName(part);
}

uint64_t RandomSeed(const void* object) {
  const auto now = static_cast<uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count());
  return (now ^ reinterpret_cast<uintptr_t>(object)) * 0x9E3779B97F4A7C15u | 1;
}

}  // namespace

ArchiveTree::ArchiveTree(size_t mostNodes)
    : mostNodes_(mostNodes), index_(64, kNoNode), seed_(RandomSeed(this)) {
  ArchiveNode root;
  root.folder = true;
  nodes_.push_back(root);
}

NodeId ArchiveTree::Add(std::wstring_view path, const EntryFacts& facts) {
  const bool nameless = path.empty();
  const bool absolute = SkipSeparators(path);
  if (path.empty() && !nameless) return kArchiveRoot;
  NodeId parent = kArchiveRoot;
  bool unsafe = absolute;
  for (int depth = 1;; ++depth) {
    if (depth > kDeepest) return AddRest(parent, path, facts);
    const size_t end = NextSeparator(path);
    const std::wstring name = ShownName(path.substr(0, end), unsafe);
    if (end == path.size()) return FileIn(parent, name, facts);
    path.remove_prefix(end);
    SkipSeparators(path);
    parent = FolderIn(parent, name);
    if (parent == kNoNode) return kNoNode;
    unsafe = false;
    if (!path.empty()) continue;
    if (!nodes_[parent].listed) nodes_[parent].facts = facts;
    nodes_[parent].facts.size = 0;
    nodes_[parent].listed = true;
    return parent;
  }
}

// What lies too deep is one name, in which HarmlessName makes the separators visible.
NodeId ArchiveTree::AddRest(NodeId parent, std::wstring_view path, const EntryFacts& facts) {
  const bool folder = IsSeparator(path.back());
  while (path.size() > 1 && IsSeparator(path.back())) path.remove_suffix(1);
  const std::wstring name = ShownName(path, false);
  return folder ? FolderIn(parent, name) : FileIn(parent, name, facts);
}

NodeId ArchiveTree::FolderIn(NodeId parent, const std::wstring& name) {
  const NodeId known = Child(parent, name);
  if (known == kNoNode) return Insert(parent, name, true);
  if (nodes_[known].folder) return known;
  const auto other = otherNames_.find({parent, name});
  if (other != otherNames_.end()) return other->second;
  const NodeId made = Insert(parent, FreeName(parent, name, true), true);
  if (made != kNoNode) otherNames_.emplace(Key{parent, name}, made);
  return made;
}

NodeId ArchiveTree::FileIn(NodeId parent, const std::wstring& name, const EntryFacts& facts) {
  const bool taken = Child(parent, name) != kNoNode;
  const NodeId id = Insert(parent, taken ? FreeName(parent, name, false) : name, false);
  if (id == kNoNode) return id;
  nodes_[id].facts = facts;
  nodes_[id].listed = true;
  return id;
}

// Numbers go on where they ended, so that many entries of one name cost no search from the beginning.
std::wstring ArchiveTree::FreeName(NodeId parent, const std::wstring& name, bool folder) {
  uint32_t& number = numbers_.emplace(Key{parent, name}, 1).first->second;
  for (;;) {
    std::wstring candidate = NumberedName(name, ++number, folder);
    if (Child(parent, candidate) == kNoNode) return candidate;
  }
}

NodeId ArchiveTree::Insert(NodeId parent, std::wstring_view name, bool folder) {
  if (nodes_.size() >= mostNodes_ || names_.size() + name.size() > 0xFFFFFFFFu) return kNoNode;
  const auto id = static_cast<NodeId>(nodes_.size());
  ArchiveNode node;
  node.parent = parent;
  node.nameOffset = static_cast<uint32_t>(names_.size());
  node.nameLength = static_cast<uint16_t>(name.size());
  node.folder = folder;
  names_.insert(names_.end(), name.begin(), name.end());
  nodes_.push_back(node);
  ArchiveNode& above = nodes_[parent];
  (above.lastChild == kNoNode ? above.firstChild : nodes_[above.lastChild].nextSibling) = id;
  above.lastChild = id;
  if (nodes_.size() * 2 > index_.size()) {
    GrowIndex();
  } else {
    index_[Slot(parent, name)] = id;
  }
  return id;
}

uint64_t ArchiveTree::Hash(NodeId parent, std::wstring_view name) const {
  uint64_t hash = (parent + 0x9E3779B97F4A7C15u) * seed_;
  for (const wchar_t character : name) {
    hash = (hash ^ static_cast<uint64_t>(character)) * seed_;
    hash ^= hash >> 29;
  }
  return hash ^ (hash >> 32);
}

// The place of a name in the index, or the free place where it belongs.
size_t ArchiveTree::Slot(NodeId parent, std::wstring_view wanted) const {
  const size_t mask = index_.size() - 1;
  size_t slot = Hash(parent, wanted) & mask;
  while (index_[slot] != kNoNode && (nodes_[index_[slot]].parent != parent || name(index_[slot]) != wanted)) {
    slot = (slot + 1) & mask;
  }
  return slot;
}

NodeId ArchiveTree::Child(NodeId parent, std::wstring_view wanted) const {
  return index_[Slot(parent, wanted)];
}

void ArchiveTree::GrowIndex() {
  index_.assign(index_.size() * 4, kNoNode);
  for (NodeId id = 1; id < nodes_.size(); ++id) index_[Slot(nodes_[id].parent, name(id))] = id;
}

NodeId ArchiveTree::Find(std::wstring_view path) const {
  NodeId at = kArchiveRoot;
  while (!path.empty() && at != kNoNode) {
    const size_t end = std::min(path.find(L'\\'), path.size());
    const std::wstring_view part = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (part.empty()) continue;
    NodeId child = Child(at, part);
    if (child == kNoNode) {
      child = nodes_[at].firstChild;
      while (child != kNoNode && !EqualsIgnoringCase(name(child), part)) child = nodes_[child].nextSibling;
    }
    at = child;
  }
  return at;
}

}  // namespace controls
