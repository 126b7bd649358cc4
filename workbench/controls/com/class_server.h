// What an in-process server needs besides its class: factory, exports, registration, type library.
#pragma once

#include <windows.h>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/com/registration.h"

namespace controls {

// The one class of a control module. Each module defines kServedClass.
struct ServedClass {
  const CLSID* classId;
  const IID* dispatchId;
  const IID* eventsId;
  const GUID* libraryId;
  const wchar_t* displayName;
  const wchar_t* programId;
  const wchar_t* dispatchName;
  const wchar_t* eventsName;
  DWORD miscStatus;
  // Makes an object and gives the wanted interface of it.
  HRESULT (*create)(REFIID iid, void** object);
};
extern const ServedClass kServedClass;

HINSTANCE ModuleInstance();

// Type information of one interface of the module's own type library (resource 1); null when it cannot be
// loaded.
ComRef<ITypeInfo> TypeInfoOf(const GUID& id);

// While it lives, windows that this thread creates get the common controls that the module's manifest asks
// for, whatever the host program uses.
class ActivationScope {
 public:
  ActivationScope();
  ~ActivationScope();
  ActivationScope(const ActivationScope&) = delete;
  ActivationScope& operator=(const ActivationScope&) = delete;

 private:
  ULONG_PTR cookie_ = 0;
  bool entered_ = false;
};

}  // namespace controls
