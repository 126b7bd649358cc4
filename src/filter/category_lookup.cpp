#include "src/filter/category_lookup.h"

#include "base/text/letter_case.h"
#include "src/filter/file_category.h"
#include "src/framework/unique_handle.h"
#include "src/host/vc64_tx.h"

namespace file_explorer {
namespace {

constexpr int kHandlerLimit = 65535;

// Importers and viewers: the list that classifies files. A keyword's token is the same as long as the process
// runs.
TxToken ClassifyingList() {
  static const TxToken kToken = Tx_Inquire_Token("import_and_viewer");
  return kToken;
}

// The GUIDs of the importers, in plug-in order.
class ImporterList {
 public:
  ImporterList() {
    Tx_FileFormatHandler_SortList(Tx_Inquire_Token("bypluginorder"), 0, 0);
    count_ = Tx_FileFormatHandler_Query_GUID_List(Tx_Inquire_Token("import"), kHandlerLimit, &guids_);
  }
  ~ImporterList() {
    for (int i = 0; i < count_; ++i) Tx_Free_Memory(guids_[i]);
    Tx_Free_Memory(guids_);
  }
  ImporterList(const ImporterList&) = delete;
  ImporterList& operator=(const ImporterList&) = delete;

  char** begin() const { return guids_; }
  char** end() const { return guids_ + count_; }

 private:
  char** guids_ = nullptr;
  int count_ = 0;
};

// name is lower-case.
bool TakesName(const char* handlerGuid, const std::string& name) {
  const char* extensions = nullptr;
  TxToken enabled = 0;
  Tx_Inquire_FileFormatHandler(handlerGuid, Tx_Inquire_Token("filetypes"), &extensions,
                               Tx_Inquire_Token("enabled"), &enabled, 0);
  if (extensions == nullptr || enabled != Tx_Inquire_Token("on")) return false;
  return Tx_Compare_Multiple_File_Extensions(name.c_str(), base::LowerCaseNarrow(extensions).c_str()) != 0;
}

}  // namespace

std::uint32_t CategoryTypeMask(const char* fileName) {
  return Tx_FileFormatHandler_GetHandlerTypesFromFilenameExtension(ClassifyingList(), fileName, 0);
}

bool IsFormatRegistered(std::uint32_t typeBit) {
  return Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats(ClassifyingList(), typeBit) > 0;
}

std::optional<COLORREF> CategoryColorFor(const char* fileName) {
  if (fileName == nullptr) return std::nullopt;
  const std::uint32_t typeMask = CategoryTypeMask(fileName);
  if (typeMask < kFirstCategoryMask) return std::nullopt;
  CategoryColor color;
  if (!Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(typeMask, &color.red, &color.green,
                                                              &color.blue)) {
    return std::nullopt;
  }
  return ColorReference(color);
}

bool FindImportHandler(const char* fileName, std::string* guid) {
  guid->clear();
  if (fileName == nullptr) return false;
  const std::string name = base::LowerCaseNarrow(fileName);
  for (const char* const handlerGuid : ImporterList()) {
    if (handlerGuid == nullptr || !TakesName(handlerGuid, name)) continue;
    *guid = handlerGuid;
    break;
  }
  return !guid->empty();
}

}  // namespace file_explorer
