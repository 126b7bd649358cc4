#include "src/filter/category_colors.h"

#include "src/host/vc64_tx.h"

namespace file_explorer {

void ResetAndFetchCategoryColors(CategoryColors* colors) {
  Tx_FileFormatHandler_ResetAssociatedFileTypeHandlerColors();
  for (const FileCategoryInfo& category : FileCategories()) {
    CategoryColor& slot = (*colors)[static_cast<size_t>(category.category)];
    Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(category.typeBit, &slot.red, &slot.green,
                                                           &slot.blue);
  }
}

void PushCategoryColorsToHost(const CategoryColors& colors) {
  for (const FileCategoryInfo& category : FileCategories()) {
    const CategoryColor& color = colors[static_cast<size_t>(category.category)];
    Tx_FileFormatHandler_SetAssociatedFileTypeHandlerColor(category.typeBit, color.red, color.green,
                                                           color.blue);
  }
}

}  // namespace file_explorer
