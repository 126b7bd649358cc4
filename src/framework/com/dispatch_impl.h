// IDispatch of an object whose members a type library describes.
#pragma once

#include "src/framework/com/com_guard.h"
#include "src/framework/com/com_owners.h"

namespace file_explorer {

// The description of an interface in a registered type library.
HRESULT LoadTypeInformation(REFGUID library, WORD major, WORD minor, REFIID iid, LCID locale,
                            ITypeInfo** information);

// Base of a class that implements dispatch interface I (an IDispatch without own methods). Describes the
// interface by the type library that is registered when somebody asks; Invoke stays with the derived class.
template <class I, const IID* iid, const GUID* library, WORD major, WORD minor>
class IDispatchImpl : public I {
 public:
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** information) override {
    if (!information) return E_POINTER;
    *information = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return LoadTypeInformation(*library, major, minor, *iid, locale, information);
  }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override {
    if (!names || !ids) return E_POINTER;
    ComPtr<ITypeInfo> information;
    const HRESULT result =
        LoadTypeInformation(*library, major, minor, *iid, locale, information.ReleaseAndGetAddressOf());
    return FAILED(result) ? result : information->GetIDsOfNames(names, count, ids);
  }

 protected:
  IDispatchImpl() = default;
  virtual ~IDispatchImpl() = default;
};

}  // namespace file_explorer
