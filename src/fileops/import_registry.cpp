#include "src/fileops/import_registry.h"

#include "src/filter/category_lookup.h"
#include "src/host/vc64_tx.h"

namespace file_explorer {

ImportRegistry HostImportRegistry() {
  return {[](const char* path) {
            return Tx_FileFormatHandler_GetHandlerTypesFromFilenameExtension(Tx_Inquire_Token("import"), path, 0);
          },
          &FindImportHandler};
}

}  // namespace file_explorer
