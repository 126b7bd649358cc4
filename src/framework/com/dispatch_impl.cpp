#include "src/framework/com/dispatch_impl.h"

namespace file_explorer {

HRESULT LoadTypeInformation(REFGUID library, WORD major, WORD minor, REFIID iid, LCID locale,
                            ITypeInfo** information) {
  ComPtr<ITypeLib> typeLibrary;
  const HRESULT result = LoadRegTypeLib(library, major, minor, locale, typeLibrary.ReleaseAndGetAddressOf());
  return FAILED(result) ? result : typeLibrary->GetTypeInfoOfGuid(iid, information);
}

}  // namespace file_explorer
