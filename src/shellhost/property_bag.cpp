#include "src/shellhost/property_bag.h"

#include <array>

#include "src/framework/com/com_guard.h"

namespace file_explorer {

std::span<const InterfaceEntry> CPropertyBag::Interfaces() {
  static constexpr std::array kEntries = {Exposes<CPropertyBag, IUnknown, IPropertyBag>(IID_IUnknown),
                                          Exposes<CPropertyBag, IPropertyBag>(IID_IPropertyBag)};
  return kEntries;
}

HRESULT CPropertyBag::Read(LPCOLESTR name, VARIANT* value, IErrorLog*) {
  if (!name || !value) return E_INVALIDARG;
  VariantInit(value);
  const PropertyList::Entry* entry = properties_.Find(name);
  if (!entry) return E_INVALIDARG;
  if (entry->value->vt == VT_UNKNOWN) return S_OK;
  return VariantCopy(value, const_cast<VARIANT*>(&entry->value.get()));
}

HRESULT CPropertyBag::Write(LPCOLESTR name, VARIANT* value) {
  if (!name || !value) return E_INVALIDARG;
  return ComEdge([&] {
    if (PropertyList::Entry* entry = properties_.Find(name)) return entry->value.CopyFrom(*value);
    properties_.Append(name, *value);
    return S_OK;
  });
}

std::span<const InterfaceEntry> CErrorLog::Interfaces() {
  static constexpr std::array kEntries = {Exposes<CErrorLog, IUnknown, IErrorLog>(IID_IUnknown),
                                          Exposes<CErrorLog, IErrorLog>(IID_IErrorLog)};
  return kEntries;
}

HRESULT CErrorLog::AddError(LPCOLESTR, EXCEPINFO*) {
  return S_OK;
}

}  // namespace file_explorer
