// The directory reader of ZIP archives. The first byte chooses how the rest is read: as the bytes of a file,
// or as a recipe from which an archive with right offsets is made, so that names and fields are reached that
// random bytes seldom reach. Whatever comes, the tree must be one that can be shown without harm.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>

#include "tests/support/zip_builder.h"
#include "workbench/controls/archive/entry_name.h"
#include "workbench/controls/archive/zip_directory.h"

namespace {

using namespace controls;

void Require(bool condition) {
  if (!condition) std::abort();
}

// Gives the input piece by piece, zeros at its end.
class Recipe {
 public:
  Recipe(const uint8_t* data, size_t size) : data_(data), left_(size) {}
  bool empty() const { return left_ == 0; }
  uint8_t Byte() {
    if (left_ == 0) return 0;
    --left_;
    return *data_++;
  }
  uint32_t Number() {
    uint32_t number = 0;
    for (int i = 0; i < 4; ++i) number = (number << 8) | Byte();
    return number;
  }
  std::string Text() {
    std::string text(Byte(), '\0');
    for (char& character : text) character = static_cast<char>(Byte());
    return text;
  }

 private:
  const uint8_t* data_;
  size_t left_;
};

std::string Cook(Recipe recipe) {
  test_support::ZipBuilder builder;
  const uint8_t kind = recipe.Byte();
  if (kind & 1) builder.Prefix(recipe.Text());
  if (kind & 2) builder.Comment(recipe.Text());
  if (kind & 4) builder.Wide(recipe.Byte(), recipe.Byte());
  if (kind & 8) builder.Gap(recipe.Text());
  if (kind & 16) {
    test_support::ZipLies lies;
    const uint8_t which = recipe.Byte();
    if (which & 1) lies.count = lies.countHere = static_cast<uint16_t>(recipe.Number());
    if (which & 2) lies.size = recipe.Number();
    if (which & 4) lies.start = recipe.Number();
    if (which & 8) lies.commentLength = recipe.Byte();
    if (which & 16) lies.disk = recipe.Byte();
    builder.Lie(lies);
  }
  while (!recipe.empty()) {
    test_support::ZipEntry entry;
    const uint8_t fields = recipe.Byte();
    entry.name = recipe.Text();
    if (fields & 1) entry.flags = 0x800;
    if (fields & 2) entry.extra = recipe.Text();
    if (fields & 4) entry.size = fields & 32 ? 0xFFFFFFFF : recipe.Number();
    if (fields & 8) entry.packed = fields & 64 ? 0xFFFFFFFF : recipe.Number();
    if (fields & 16) entry.offset = recipe.Number();
    if (fields & 128) entry.content = recipe.Text();
    entry.date = static_cast<uint16_t>(recipe.Number());
    builder.Add(entry);
  }
  return builder.Build();
}

int DepthOf(const ArchiveTree& tree, NodeId id) {
  int depth = 0;
  for (; id != kArchiveRoot; id = tree.at(id).parent) ++depth;
  return depth;
}

void CheckTree(const ArchiveTree& tree, size_t fileSize) {
  Require(tree.size() <= fileSize + 1);
  size_t reached = 1;
  for (NodeId id = 0; id < tree.size(); ++id) {
    if (!tree.at(id).folder) Require(tree.at(id).firstChild == kNoNode);
    Require(DepthOf(tree, id) <= ArchiveTree::kDeepest + 1);
    std::set<std::wstring_view> names;
    for (NodeId child = tree.at(id).firstChild; child != kNoNode; child = tree.at(child).nextSibling) {
      ++reached;
      Require(tree.at(child).parent == id);
      Require(IsHarmlessName(tree.name(child)));
      Require(names.insert(tree.name(child)).second);
    }
  }
  Require(reached == tree.size());
  // Each place can be found by its path.
  for (NodeId id = 1; id < tree.size() && id < 64; ++id) {
    std::wstring path(tree.name(id));
    for (NodeId above = tree.at(id).parent; above != kArchiveRoot; above = tree.at(above).parent) {
      path = std::wstring(tree.name(above)) + L"\\" + path;
    }
    Require(tree.Find(path) == id);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size == 0) return 0;
  const bool cooked = data[0] == 'R';
  const std::string bytes =
      cooked ? Cook(Recipe(data + 1, size - 1)) : std::string(reinterpret_cast<const char*>(data), size);
  MemorySource source({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
  const ZipListing listing = ReadZipDirectory(source);
  Require(listing.tree.has_value() == (listing.error == ZipError::kNone));
  if (listing.tree) CheckTree(*listing.tree, bytes.size());
  return 0;
}
