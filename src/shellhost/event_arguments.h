// Inside this folder: checking and reading the arguments of an event.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>
#include <optional>
#include <string>

#include "src/framework/com/com_owners.h"

namespace file_explorer {

// The arguments of one event, counted from 0 in declaration order. Reading one that is missing or of another
// type gives nothing. A plain value may also come by reference.
class EventArguments {
 public:
  explicit EventArguments(const DISPPARAMS& parameters) noexcept : parameters_(parameters) {}

  UINT count() const noexcept { return parameters_.rgvarg ? parameters_.cArgs : 0; }

  // An object (VT_DISPATCH exactly), borrowed; null also when the event carries a null object.
  IDispatch* Object(UINT index) const noexcept;
  // A VT_I4 and a VT_BOOL as a ControlEventCallback gets them.
  std::optional<std::int64_t> Number(UINT index) const noexcept;
  std::optional<std::int64_t> Flag(UINT index) const noexcept;
  // A VT_BSTR, borrowed; the text itself may be null.
  std::optional<BSTR> Text(UINT index) const noexcept;
  // Where the control expects an answer: VT_BOOL and VT_I4 by reference. Null when it gave no place for it.
  VARIANT_BOOL* FlagReference(UINT index) const noexcept;
  LONG* NumberReference(UINT index) const noexcept;

 private:
  // The argument when its type without the modifiers is the given one.
  const VARIANT* Argument(UINT index, VARTYPE type) const noexcept;

  const DISPPARAMS& parameters_;
};

}  // namespace file_explorer
