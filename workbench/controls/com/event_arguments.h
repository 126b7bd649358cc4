// The arguments of one event, filled in declaration order and kept in the order of DISPPARAMS.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>

namespace controls {

// Objects are borrowed for the event; texts are owned.
template <unsigned Count>
class EventArguments {
 public:
  EventArguments() {
    for (VARIANT& value : values_) VariantInit(&value);
  }
  ~EventArguments() {
    for (VARIANT& value : values_) {
      if (value.vt == VT_BSTR) SysFreeString(value.bstrVal);
    }
  }
  EventArguments(const EventArguments&) = delete;
  EventArguments& operator=(const EventArguments&) = delete;

  EventArguments& Object(IDispatch* object) {
    VARIANT& value = Next(VT_DISPATCH);
    value.pdispVal = object;
    return *this;
  }
  EventArguments& Long(long number) {
    Next(VT_I4).lVal = number;
    return *this;
  }
  EventArguments& Bool(bool truth) {
    Next(VT_BOOL).boolVal = truth ? VARIANT_TRUE : VARIANT_FALSE;
    return *this;
  }
  EventArguments& Text(std::wstring_view text) {
    Next(VT_BSTR).bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return *this;
  }
  // The sink may write through these two.
  EventArguments& LongByReference(long* number) {
    Next(VT_I4 | VT_BYREF).plVal = number;
    return *this;
  }
  EventArguments& BoolByReference(VARIANT_BOOL* truth) {
    Next(VT_BOOL | VT_BYREF).pboolVal = truth;
    return *this;
  }

  VARIANT* values() { return values_; }
  static constexpr UINT count() { return Count; }

 private:
  VARIANT& Next(int type) {
    VARIANT& value = values_[Count - 1 - filled_++];
    value.vt = static_cast<VARTYPE>(type);
    return value;
  }
  VARIANT values_[Count];
  unsigned filled_ = 0;
};

}  // namespace controls
