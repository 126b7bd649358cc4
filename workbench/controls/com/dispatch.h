// IDispatch by a hand-written table: a property that a container reads for each of 100,000 items must cost
// nanoseconds.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <string_view>

#include "workbench/controls/com/bstr.h"

namespace controls {

// A failure with a sentence for the user; the dispatch entry turns it into EXCEPINFO.
struct CallError {
  HRESULT code;
  std::wstring text;
};

// The arguments and the result of one Invoke. Arguments are numbered in declaration order from 0. A put value
// is the last argument.
class Call {
 public:
  Call(DISPPARAMS* params, VARIANT* result) : params_(params), result_(result) {}

  unsigned count() const { return params_->cArgs; }
  // The raw argument; one level of "by reference VARIANT" is followed.
  const VARIANT& arg(unsigned index) const;

  // Conversions follow the rules of VariantChangeType; a failure is DISP_E_TYPEMISMATCH.
  HRESULT Bool(unsigned index, bool& value) const;
  HRESULT Long(unsigned index, long& value) const;
  HRESULT Text(unsigned index, std::wstring& value) const;
  // Any object; the pointer is borrowed for the call.
  HRESULT Object(unsigned index, IUnknown*& value) const;
  // An 8-byte value whose bits are a pointer.
  HRESULT PointerBits(unsigned index, const void*& value) const;

  HRESULT ReturnBool(bool value);
  HRESULT ReturnLong(long value);
  HRESULT ReturnShort(short value);
  HRESULT ReturnText(std::wstring_view value);
  // An address as a number.
  HRESULT ReturnAddress(const void* value);
  // Adds a reference; null gives an object value of null.
  HRESULT ReturnObject(IDispatch* value);
  HRESULT ReturnVariant(const VARIANT& value);

 private:
  DISPPARAMS* params_;
  VARIANT* result_;
};

enum class Access : WORD {
  kMethod = DISPATCH_METHOD,
  kGet = DISPATCH_PROPERTYGET,
  kPut = DISPATCH_PROPERTYPUT
};

// One member. Rows of one id stand together.
struct DispatchRow {
  DISPID id;
  const wchar_t* name;
  Access access;
  unsigned arguments;  // of a put: the value included
  HRESULT (*handler)(void* self, Call& call);
};

struct DispatchTable {
  const DispatchRow* rows;
  size_t count;
};

template <typename T, HRESULT (T::*Method)(Call&)>
HRESULT CallMember(void* self, Call& call) {
  return (static_cast<T*>(self)->*Method)(call);
}

// Answers IDispatch::Invoke and GetIDsOfNames from a table. Nothing is thrown out of them.
HRESULT InvokeFromTable(const DispatchTable& table, void* self, const wchar_t* source, DISPID id, WORD flags,
                        DISPPARAMS* params, VARIANT* result, EXCEPINFO* exception,
                        UINT* badArgument) noexcept;
HRESULT IdsFromTable(const DispatchTable& table, LPOLESTR* names, UINT count, DISPID* ids) noexcept;

}  // namespace controls
