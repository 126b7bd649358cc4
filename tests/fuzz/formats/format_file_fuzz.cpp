// The file of formats: any bytes give a list that the registry takes, and every handler of it can be found
// again.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "workbench/tx/extension_list.h"
#include "workbench/tx/format_file.h"
#include "workbench/tx/handler_registry.h"

namespace tx = workbench::tx;

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view content(reinterpret_cast<const char*>(data), size);
  tx::HandlerRegistry registry;
  for (tx::Handler& format : tx::ParseFormatFile(content)) {
    const std::string guid = format.guid;
    const std::string types = *format.fileTypes;
    Require(format.types != 0);
    Require(registry.Register(std::move(format)));
    Require(registry.Find(guid) != nullptr);
    std::string_view list = types;
    std::string_view extension;
    Require(tx::NextExtension(list, extension));
    Require(tx::HasExtensionOfList("name." + std::string(extension), types));
  }
  registry.SortByName();
  registry.TypesOfName(tx::HandlerList::kImportAndViewer, content.substr(0, 200));
  return 0;
}
