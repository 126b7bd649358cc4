// The property bag and the error log that a control's initial properties come with.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <span>

#include "src/framework/com/com_object.h"
#include "src/shellhost/property_list.h"

namespace file_explorer {

class CPropertyBag : public IPropertyBag, public CComObjectRootEx<CComSingleThreadModel> {
 public:
  static std::span<const InterfaceEntry> Interfaces();

  // IPropertyBag. Names are compared without regard to case. Read gives E_INVALIDARG for a name that isn't
  // there and an empty value for one that holds an object.
  HRESULT STDMETHODCALLTYPE Read(LPCOLESTR name, VARIANT* value, IErrorLog* errors) override;
  HRESULT STDMETHODCALLTYPE Write(LPCOLESTR name, VARIANT* value) override;

 protected:
  virtual ~CPropertyBag() = default;

 private:
  PropertyList properties_;
};

// Takes every error and keeps none.
class CErrorLog : public IErrorLog, public CComObjectRootEx<CComSingleThreadModel> {
 public:
  static std::span<const InterfaceEntry> Interfaces();
  HRESULT STDMETHODCALLTYPE AddError(LPCOLESTR name, EXCEPINFO* error) override;

 protected:
  virtual ~CErrorLog() = default;
};

}  // namespace file_explorer
