// The border between our code, which may throw, and COM, which may not: nothing is thrown across an interface
// method.
#pragma once

#include <windows.h>

#include <memory>
#include <new>
#include <type_traits>

#include "src/framework/com/com_dispatch.h"
#include "src/framework/com/com_owners.h"

namespace file_explorer {

// Runs the body of an interface method. A _com_error gives its code, shortage of memory E_OUTOFMEMORY,
// anything else E_FAIL.
template <class Body>
HRESULT ComEdge(Body&& body) noexcept {
  try {
    return body();
  } catch (const _com_error& error) {
    return FAILED(error.Error()) ? error.Error() : E_FAIL;
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

namespace com_detail {
bool RunGuarded(void (*body)(void*), void* context) noexcept;
}

// Runs calls into code that isn't ours. False when an exception came out of it: one of ours, or one of
// another compiler's run-time or of the processor, which `catch` alone doesn't see. In the last two cases
// objects of the frames in between are not destroyed.
template <class Calls>
bool RunForeignCode(Calls&& calls) noexcept {
  using Body = std::remove_reference_t<Calls>;
  return com_detail::RunGuarded([](void* context) { (*static_cast<Body*>(context))(); },
                                std::addressof(calls));
}

// An exception came out of code that isn't ours.
struct ForeignException {};

// The same, throwing ForeignException. Owners belong into the frames outside, so that they are destroyed in
// any case.
template <class Calls>
void CallForeignCode(Calls&& calls) {
  if (!RunForeignCode(calls)) throw ForeignException();
}

// QueryFor of an object that isn't ours.
template <class Interface>
ComPtr<Interface> AskFor(IUnknown* object) {
  ComPtr<Interface> result;
  CallForeignCode([&] { result = QueryFor<Interface>(object); });
  return result;
}

}  // namespace file_explorer
