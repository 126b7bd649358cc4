// The registry of file-format handlers. Not locked: the library's calls hold the lock around it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "src/host/vc64_tx.h"
#include "workbench/tx/text.h"

namespace workbench::tx {

enum class HandlerFunction { kNone, kImporter, kExporter, kViewer };

struct Handler {
  std::string guid;
  bool enabled = true;
  HandlerFunction function = HandlerFunction::kNone;
  int64_t types = 0;  // TxFileType bits
  std::optional<std::string> fileTypes;
  std::optional<std::string> name;
  TxVerifyHeaderCallback verifyHeader = nullptr;
  TxExecuteCallback execute = nullptr;
};

enum class HandlerList { kImport, kExport, kViewer, kImportAndViewer };

// GUIDs are equal whatever the case of their letters.
class HandlerRegistry {
 public:
  // Adds the handler at the end, or puts it in the place of the one of its GUID. False for an empty GUID.
  bool Register(Handler handler);
  bool Remove(std::string_view guid);
  bool Enable(std::string_view guid, bool enabled);
  // Valid until the handler is registered again or removed.
  const Handler* Find(std::string_view guid) const;
  size_t size() const { return order_.size(); }

  // Type bits of the list's enabled handlers that take the name. Allocates nothing unless the registry has
  // changed.
  uint32_t TypesOfName(HandlerList list, std::string_view fileName);
  int CountOfType(HandlerList list, uint32_t typeBits) const;
  // GUIDs of the list's handlers, at most limit, in the order of the last sort; later ones at the end.
  std::vector<std::string> Guids(HandlerList list, size_t limit) const;

  void SortByPluginOrder();  // order of registration
  void SortByName();         // handlers without a name come last; equal names in plug-in order

 private:
  struct Entry {
    Handler handler;
    uint64_t sequence;
  };
  using TypesByFunction = std::array<uint32_t, 4>;  // index: HandlerFunction

  void BuildIndex();

  std::map<std::string, Entry, LessIgnoringCase> entries_;
  std::vector<Entry*> order_;
  uint64_t nextSequence_ = 0;
  // Extension without its dot -> types of the enabled handlers that take it.
  std::unordered_map<std::string, TypesByFunction, HashIgnoringCase, EqualsIgnoringCase> index_;
  bool indexIsCurrent_ = true;
};

}  // namespace workbench::tx
