#include "src/framework/com/com_dispatch.h"

#include <cstdarg>
#include <cwchar>
#include <memory>

#include "src/framework/com/com_owners.h"

namespace file_explorer {
namespace {

// Reads the next variable argument as a value of the given type. The variant borrows it.
VARIANT NextArgument(VARTYPE type, va_list& arguments) {
  VARIANT value;
  VariantInit(&value);
  if (type == VT_VARIANT) return *va_arg(arguments, const VARIANT*);
  value.vt = type;
  if (type & VT_BYREF) {
    value.byref = va_arg(arguments, void*);
    return value;
  }
  switch (type) {
    case VT_I1:
    case VT_UI1:
      value.bVal = static_cast<BYTE>(va_arg(arguments, int));
      break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      value.iVal = static_cast<SHORT>(va_arg(arguments, int));
      break;
    case VT_R4:
      value.fltVal = static_cast<float>(va_arg(arguments, double));
      break;
    case VT_R8:
    case VT_DATE:
      value.dblVal = va_arg(arguments, double);
      break;
    case VT_I8:
    case VT_UI8:
      value.llVal = va_arg(arguments, LONGLONG);
      break;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      value.byref = va_arg(arguments, void*);
      break;
    default:
      value.lVal = va_arg(arguments, LONG);
      break;
  }
  return value;
}

// What an object said about its failure, with the texts owned.
struct Exception {
  EXCEPINFO info = {};
  ~Exception() {
    SysFreeString(info.bstrSource);
    SysFreeString(info.bstrDescription);
    SysFreeString(info.bstrHelpFile);
  }
};

ComPtr<IErrorInfo> ToErrorInfo(const EXCEPINFO& info) {
  ComPtr<ICreateErrorInfo> writer;
  if (FAILED(CreateErrorInfo(writer.ReleaseAndGetAddressOf()))) return nullptr;
  writer->SetDescription(info.bstrDescription);
  writer->SetSource(info.bstrSource);
  writer->SetHelpFile(info.bstrHelpFile);
  writer->SetHelpContext(info.dwHelpContext);
  return QueryFor<IErrorInfo>(writer.Get());
}

[[noreturn]] void RaiseException(Exception& exception) {
  EXCEPINFO& info = exception.info;
  if (info.pfnDeferredFillIn) info.pfnDeferredFillIn(&info);
  HRESULT code = info.scode;
  if (SUCCEEDED(code)) code = info.wCode ? _com_error::WCodeToHRESULT(info.wCode) : DISP_E_EXCEPTION;
  throw _com_error(code, ToErrorInfo(info).Get(), true);
}

[[noreturn]] void RaiseFailure(HRESULT code, IDispatch* object) {
  ComPtr<IErrorInfo> error;
  const auto support = QueryFor<ISupportErrorInfo>(object);
  if (support && support->InterfaceSupportsErrorInfo(IID_IDispatch) == S_OK) {
    GetErrorInfo(0, error.ReleaseAndGetAddressOf());
  }
  throw _com_error(code, error.Get(), true);
}

// Makes the call and gives its code; result may be null. Raises what the object calls an exception.
HRESULT CallInvoke(IDispatch* object, DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result) {
  if (!object) throw _com_error(E_POINTER);
  Exception exception;
  UINT badArgument = 0;
  const HRESULT code = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, parameters, result,
                                      &exception.info, &badArgument);
  if (code == DISP_E_EXCEPTION) RaiseException(exception);
  return code;
}

void Invoke(IDispatch* object, DISPID id, WORD flags, DISPPARAMS* parameters, VARIANT* result) {
  const HRESULT code = CallInvoke(object, id, flags, parameters, result);
  if (FAILED(code)) RaiseFailure(code, object);
}

bool IsObject(VARTYPE type) {
  return type == VT_DISPATCH || type == VT_UNKNOWN;
}

// Brings an answer to the wanted type and writes it to where the caller wants it.
void StoreResult(OwnedVariant& answer, VARTYPE type, void* result) {
  if (type == VT_VARIANT) {
    *static_cast<VARIANT*>(result) = answer.release();
    return;
  }
  if (IsObject(type) && (answer->vt == VT_EMPTY || answer->vt == VT_NULL)) {
    *static_cast<IUnknown**>(result) = nullptr;
    return;
  }
  if (answer->vt != type) {
    const HRESULT code = VariantChangeType(answer.operator->(), answer.operator->(), 0, type);
    if (FAILED(code)) throw _com_error(code);
  }
  const VARIANT value = answer.release();
  switch (type) {
    case VT_I1:
    case VT_UI1:
      *static_cast<BYTE*>(result) = value.bVal;
      break;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      *static_cast<SHORT*>(result) = value.iVal;
      break;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      *static_cast<LONG*>(result) = value.lVal;
      break;
    default:
      *static_cast<LONGLONG*>(result) = value.llVal;
      break;
  }
}

// The arguments of one call, in the reverse order that automation wants. Calls with a few arguments, which are
// made for each item of a folder, allocate nothing.
class ArgumentBlock {
 public:
  ArgumentBlock(const wchar_t* types, va_list& arguments) : count_(types ? std::wcslen(types) : 0) {
    if (count_ > kFew) many_ = std::make_unique<VARIANT[]>(count_);
    for (size_t i = 0; i < count_; ++i) {
      values()[count_ - 1 - i] = NextArgument(static_cast<VARTYPE>(types[i]), arguments);
    }
  }

  VARIANT* values() { return many_ ? many_.get() : few_; }
  UINT count() const { return static_cast<UINT>(count_); }

 private:
  static constexpr size_t kFew = 4;

  size_t count_;
  VARIANT few_[kFew];
  std::unique_ptr<VARIANT[]> many_;
};

}  // namespace
}  // namespace file_explorer

HRESULT WINAPI _com_dispatch_propget(IDispatch* object, DISPID id, VARTYPE type, void* result) {
  return _com_dispatch_method(object, id, DISPATCH_PROPERTYGET, type, result, nullptr);
}

#ifdef __clang__
// comdef.h fixes the signatures. On this platform the last named parameter takes a whole slot whatever its
// type.
#pragma clang diagnostic ignored "-Wvarargs"
#endif

HRESULT __cdecl _com_dispatch_propput(IDispatch* object, DISPID id, VARTYPE type, ...) {
  // Whoever owns the object may let go of it during the call.
  const file_explorer::ComPtr<IDispatch> alive(object);
  va_list arguments;
  va_start(arguments, type);
  VARIANT value = file_explorer::NextArgument(type, arguments);
  va_end(arguments);
  DISPID named = DISPID_PROPERTYPUT;
  DISPPARAMS parameters = {&value, &named, 1, 1};
  HRESULT code = file_explorer::CallInvoke(object, id, DISPATCH_PROPERTYPUT, &parameters, nullptr);
  // An object property may be declared as "put by reference" only.
  if (code == DISP_E_MEMBERNOTFOUND && file_explorer::IsObject(value.vt)) {
    code = file_explorer::CallInvoke(object, id, DISPATCH_PROPERTYPUTREF, &parameters, nullptr);
  }
  if (FAILED(code)) file_explorer::RaiseFailure(code, object);
  return S_OK;
}

HRESULT __cdecl _com_dispatch_method(IDispatch* object, DISPID id, WORD flags, VARTYPE resultType,
                                     void* result, const wchar_t* argumentTypes, ...) {
  const file_explorer::ComPtr<IDispatch> alive(object);
  va_list arguments;
  va_start(arguments, argumentTypes);
  file_explorer::ArgumentBlock values(argumentTypes, arguments);
  va_end(arguments);
  DISPPARAMS parameters = {values.count() == 0 ? nullptr : values.values(), nullptr, values.count(), 0};
  const bool wantsResult = resultType != VT_EMPTY && result;
  file_explorer::OwnedVariant answer;
  file_explorer::Invoke(object, id, flags, &parameters, wantsResult ? answer.put() : nullptr);
  if (wantsResult) file_explorer::StoreResult(answer, resultType, result);
  return S_OK;
}
