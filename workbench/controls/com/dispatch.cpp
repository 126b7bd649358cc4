#include "workbench/controls/com/dispatch.h"

#include <cstdint>
#include <cstring>
#include <new>

#include "workbench/controls/model/natural_compare.h"

namespace controls {
namespace {

const DispatchRow* FindRow(const DispatchTable& table, DISPID id, WORD flags, bool& idKnown) {
  idKnown = false;
  const DispatchRow* getter = nullptr;
  for (size_t i = 0; i < table.count; ++i) {
    const DispatchRow& row = table.rows[i];
    if (row.id != id) continue;
    idKnown = true;
    if (row.access == Access::kPut) {
      if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) return &row;
    } else if (flags & static_cast<WORD>(row.access)) {
      // Callers that cannot tell a method from a property ask for both: the method goes first.
      if (row.access == Access::kMethod) return &row;
      getter = &row;
    }
  }
  return getter;
}

void FillException(EXCEPINFO* exception, const wchar_t* source, const CallError& error) {
  std::memset(exception, 0, sizeof(*exception));
  exception->scode = error.code;
  exception->bstrSource = SysAllocString(source);
  exception->bstrDescription = SysAllocStringLen(error.text.data(), static_cast<UINT>(error.text.size()));
}

}  // namespace

const VARIANT& Call::arg(unsigned index) const {
  const VARIANT& given = params_->rgvarg[params_->cArgs - 1 - index];
  return given.vt == (VT_BYREF | VT_VARIANT) && given.pvarVal ? *given.pvarVal : given;
}

HRESULT Call::Bool(unsigned index, bool& value) const {
  const VARIANT& given = arg(index);
  if (given.vt == VT_BOOL) {
    value = given.boolVal != VARIANT_FALSE;
    return S_OK;
  }
  Variant changed;
  if (FAILED(VariantChangeType(&changed, const_cast<VARIANT*>(&given), 0, VT_BOOL)))
    return DISP_E_TYPEMISMATCH;
  value = changed.boolVal != VARIANT_FALSE;
  return S_OK;
}

HRESULT Call::Long(unsigned index, long& value) const {
  const VARIANT& given = arg(index);
  if (given.vt == VT_I4 || given.vt == VT_INT) {
    value = given.lVal;
    return S_OK;
  }
  Variant changed;
  if (FAILED(VariantChangeType(&changed, const_cast<VARIANT*>(&given), 0, VT_I4))) return DISP_E_TYPEMISMATCH;
  value = changed.lVal;
  return S_OK;
}

HRESULT Call::Text(unsigned index, std::wstring& value) const {
  const VARIANT& given = arg(index);
  if (given.vt != VT_BSTR) return DISP_E_TYPEMISMATCH;
  value.assign(given.bstrVal ? given.bstrVal : L"", SysStringLen(given.bstrVal));
  return S_OK;
}

HRESULT Call::Object(unsigned index, IUnknown*& value) const {
  const VARIANT& given = arg(index);
  if (given.vt == VT_EMPTY || given.vt == VT_NULL) {
    value = nullptr;
    return S_OK;
  }
  if (given.vt != VT_DISPATCH && given.vt != VT_UNKNOWN) return DISP_E_TYPEMISMATCH;
  value = given.punkVal;
  return S_OK;
}

HRESULT Call::PointerBits(unsigned index, const void*& value) const {
  const VARIANT& given = arg(index);
  if (given.vt != VT_R8) return DISP_E_TYPEMISMATCH;
  static_assert(sizeof(given.dblVal) == sizeof(value));
  std::memcpy(&value, &given.dblVal, sizeof(value));
  return S_OK;
}

HRESULT Call::ReturnBool(bool value) {
  if (!result_) return S_OK;
  result_->vt = VT_BOOL;
  result_->boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  return S_OK;
}

HRESULT Call::ReturnLong(long value) {
  if (!result_) return S_OK;
  result_->vt = VT_I4;
  result_->lVal = value;
  return S_OK;
}

HRESULT Call::ReturnShort(short value) {
  if (!result_) return S_OK;
  result_->vt = VT_I2;
  result_->iVal = value;
  return S_OK;
}

HRESULT Call::ReturnText(std::wstring_view value) {
  if (!result_) return S_OK;
  result_->bstrVal = SysAllocStringLen(value.data(), static_cast<UINT>(value.size()));
  if (!result_->bstrVal) return E_OUTOFMEMORY;
  result_->vt = VT_BSTR;
  return S_OK;
}

HRESULT Call::ReturnAddress(const void* value) {
  if (!result_) return S_OK;
  result_->vt = VT_R8;
  result_->dblVal = static_cast<double>(reinterpret_cast<uintptr_t>(value));
  return S_OK;
}

HRESULT Call::ReturnObject(IDispatch* value) {
  if (!result_) return S_OK;
  if (value) value->AddRef();
  result_->vt = VT_DISPATCH;
  result_->pdispVal = value;
  return S_OK;
}

HRESULT Call::ReturnVariant(const VARIANT& value) {
  return result_ ? VariantCopy(result_, const_cast<VARIANT*>(&value)) : S_OK;
}

HRESULT InvokeFromTable(const DispatchTable& table, void* self, const wchar_t* source, DISPID id, WORD flags,
                        DISPPARAMS* params, VARIANT* result, EXCEPINFO* exception,
                        UINT* badArgument) noexcept {
  if (!params) return DISP_E_PARAMNOTFOUND;
  bool idKnown = false;
  const DispatchRow* row = FindRow(table, id, flags, idKnown);
  if (!row) return DISP_E_MEMBERNOTFOUND;
  if (params->cArgs != row->arguments) return DISP_E_BADPARAMCOUNT;
  if (result) VariantInit(result);
  if (badArgument) *badArgument = 0;
  try {
    Call call(params, result);
    return row->handler(self, call);
  } catch (const CallError& error) {
    if (!exception) return error.code;
    FillException(exception, source, error);
    return DISP_E_EXCEPTION;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

HRESULT IdsFromTable(const DispatchTable& table, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  if (!names || !ids || count == 0) return E_INVALIDARG;
  for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
  for (size_t i = 0; i < table.count; ++i) {
    if (!EqualsIgnoringCase(table.rows[i].name, names[0])) continue;
    ids[0] = table.rows[i].id;
    return count == 1 ? S_OK : DISP_E_UNKNOWNNAME;
  }
  return DISP_E_UNKNOWNNAME;
}

}  // namespace controls
