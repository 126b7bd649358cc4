#include "src/shellhost/event_arguments.h"

#include "src/shellhost/control_values.h"

namespace file_explorer {
namespace {

// The place of a by-reference argument, or of the value itself; null for an array.
template <class T>
const T* ValueOf(const VARIANT* argument, const T& value) noexcept {
  if (!argument || (argument->vt & (VT_ARRAY | VT_VECTOR))) return nullptr;
  return (argument->vt & VT_BYREF) ? static_cast<const T*>(argument->byref) : &value;
}

template <class T>
T* ReferenceOf(const VARIANT* argument) noexcept {
  if (!argument || (argument->vt & ~VT_TYPEMASK) != VT_BYREF) return nullptr;
  return static_cast<T*>(argument->byref);
}

}  // namespace

const VARIANT* EventArguments::Argument(UINT index, VARTYPE type) const noexcept {
  if (index >= count()) return nullptr;
  // The last argument comes first.
  const VARIANT& argument = parameters_.rgvarg[count() - 1 - index];
  return (argument.vt & VT_TYPEMASK) == type ? &argument : nullptr;
}

IDispatch* EventArguments::Object(UINT index) const noexcept {
  const VARIANT* const argument = Argument(index, VT_DISPATCH);
  return argument && argument->vt == VT_DISPATCH ? argument->pdispVal : nullptr;
}

std::optional<std::int64_t> EventArguments::Number(UINT index) const noexcept {
  const VARIANT* const argument = Argument(index, VT_I4);
  const LONG* const value = argument ? ValueOf(argument, argument->lVal) : nullptr;
  return value ? std::optional(EventNumber(*value)) : std::nullopt;
}

std::optional<std::int64_t> EventArguments::Flag(UINT index) const noexcept {
  const VARIANT* const argument = Argument(index, VT_BOOL);
  const VARIANT_BOOL* const value = argument ? ValueOf(argument, argument->boolVal) : nullptr;
  return value ? std::optional(EventFlag(*value)) : std::nullopt;
}

std::optional<BSTR> EventArguments::Text(UINT index) const noexcept {
  const VARIANT* const argument = Argument(index, VT_BSTR);
  const BSTR* const value = argument ? ValueOf(argument, argument->bstrVal) : nullptr;
  return value ? std::optional(*value) : std::nullopt;
}

VARIANT_BOOL* EventArguments::FlagReference(UINT index) const noexcept {
  return ReferenceOf<VARIANT_BOOL>(Argument(index, VT_BOOL));
}

LONG* EventArguments::NumberReference(UINT index) const noexcept {
  return ReferenceOf<LONG>(Argument(index, VT_I4));
}

}  // namespace file_explorer
