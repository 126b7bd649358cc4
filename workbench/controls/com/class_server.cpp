#include "workbench/controls/com/class_server.h"

#include <cwchar>

namespace controls {
namespace {

HINSTANCE g_instance = nullptr;
HANDLE g_activation = INVALID_HANDLE_VALUE;
DWORD g_offer = 0;  // cookie of the class object that was registered last; 0 for none

class ClassFactory : public IClassFactory {
 public:
  void* Interface(REFIID iid) {
    static constexpr InterfaceRow<ClassFactory> kRows[] = {
        Row<ClassFactory, IClassFactory>(IID_IUnknown),
        Row<ClassFactory, IClassFactory>(IID_IClassFactory),
    };
    return FindInterface(kRows, this, iid);
  }
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return Guarded([&] { return kServedClass.create(iid, object); });
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    lock ? ModuleLock::Add() : ModuleLock::Remove();
    return S_OK;
  }

 protected:
  ClassFactory() = default;
  virtual ~ClassFactory() = default;
};

// The factory that is handed to COM itself; it must not keep the module from being unloaded.
class StaticFactory final : public IClassFactory {
 public:
  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (!object) return E_POINTER;
    const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IClassFactory);
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) override {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    return Guarded([&] { return kServedClass.create(iid, object); });
  }
  STDMETHODIMP LockServer(BOOL lock) override {
    lock ? ModuleLock::Add() : ModuleLock::Remove();
    return S_OK;
  }
};
StaticFactory g_staticFactory;

ControlRegistration RegistrationOfThisModule() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(g_instance, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) {
      path.resize(length);
      break;
    }
    path.resize(path.size() * 2);
  }
  return {*kServedClass.classId,     *kServedClass.dispatchId,
          *kServedClass.eventsId,    *kServedClass.libraryId,
          kServedClass.displayName,  kServedClass.programId,
          kServedClass.dispatchName, kServedClass.eventsName,
          kServedClass.miscStatus,   path,
          FileVersionOf(path)};
}

// Both roots of the class registrations. The merged view is not used: where it lacks the user's part, as in
// Wine, a look there would miss our own entries.
class ClassRoots {
 public:
  ClassRoots() {
    RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr,
                    &user_, nullptr);
    RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes", 0, KEY_READ, &machine_);
  }
  ~ClassRoots() {
    if (user_) RegCloseKey(user_);
    if (machine_) RegCloseKey(machine_);
  }
  ClassRoots(const ClassRoots&) = delete;
  ClassRoots& operator=(const ClassRoots&) = delete;

  HKEY user() const { return user_; }
  HKEY machine() const { return machine_; }

 private:
  HKEY user_ = nullptr;
  HKEY machine_ = nullptr;
};

// COM that does not look into the user's part of the registry (Wine 8) gets the factory for the calling
// thread's apartment instead, so that registering and creating in one process works there too. The thread
// must have initialised COM; the entry goes with its apartment.
void OfferToThisApartment() {
  ComRef<IClassFactory> known;
  if (SUCCEEDED(CoGetClassObject(*kServedClass.classId, CLSCTX_INPROC_SERVER, nullptr, IID_IClassFactory,
                                 known.put_void()))) {
    return;
  }
  // COM keeps the factory's address until the apartment ends, so the module stays.
  HMODULE pinned = nullptr;
  if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                          reinterpret_cast<LPCWSTR>(&g_staticFactory), &pinned)) {
    return;
  }
  if (FAILED(CoRegisterClassObject(*kServedClass.classId, &g_staticFactory, CLSCTX_INPROC_SERVER,
                                   REGCLS_MULTIPLEUSE, &g_offer))) {
    g_offer = 0;
  }
}

void WithdrawOffer() {
  if (g_offer != 0) CoRevokeClassObject(g_offer);
  g_offer = 0;
}

void CreateActivation() {
  ACTCTXW request = {};
  request.cbSize = sizeof(request);
  request.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  request.hModule = g_instance;
  request.lpResourceName = MAKEINTRESOURCEW(2);
  g_activation = CreateActCtxW(&request);
}

}  // namespace

HINSTANCE ModuleInstance() {
  return g_instance;
}

ComRef<ITypeInfo> TypeInfoOf(const GUID& id) {
  ComRef<ITypeInfo> info;
  wchar_t path[1024];
  const DWORD length = GetModuleFileNameW(g_instance, path, 1024);
  if (length == 0 || length >= 1024) return info;
  ComRef<ITypeLib> library;
  if (SUCCEEDED(LoadTypeLibEx(path, REGKIND_NONE, library.put()))) library->GetTypeInfoOfGuid(id, info.put());
  return info;
}

ActivationScope::ActivationScope() {
  entered_ = g_activation != INVALID_HANDLE_VALUE && ActivateActCtx(g_activation, &cookie_);
}

ActivationScope::~ActivationScope() {
  if (entered_) DeactivateActCtx(0, cookie_);
}

}  // namespace controls

using namespace controls;

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
  if (!object) return E_POINTER;
  *object = nullptr;
  if (!IsEqualCLSID(classId, *kServedClass.classId)) return CLASS_E_CLASSNOTAVAILABLE;
  return Guarded([&] { return ComObject<ClassFactory>::Create()->QueryInterface(iid, object); });
}

STDAPI DllCanUnloadNow() {
  return ModuleLock::count() == 0 ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
  return Guarded([] {
    const ClassRoots roots;
    if (!roots.user()) return static_cast<HRESULT>(SELFREG_E_CLASS);
    const RegistrationResult result =
        RegisterControl(RegistrationOfThisModule(), roots.user(), roots.machine());
    if (result == RegistrationResult::kFailed) return static_cast<HRESULT>(SELFREG_E_CLASS);
    if (result == RegistrationResult::kWritten) OfferToThisApartment();
    return S_OK;
  });
}

STDAPI DllUnregisterServer() {
  return Guarded([] {
    WithdrawOffer();
    const ClassRoots roots;
    if (!roots.user()) return S_OK;
    return UnregisterControl(RegistrationOfThisModule(), roots.user())
               ? S_OK
               : static_cast<HRESULT>(SELFREG_E_CLASS);
  });
}

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* reserved) {
  if (reason == DLL_PROCESS_ATTACH) {
    g_instance = instance;
    DisableThreadLibraryCalls(instance);
    CreateActivation();
  } else if (reason == DLL_PROCESS_DETACH && !reserved && g_activation != INVALID_HANDLE_VALUE) {
    ReleaseActCtx(g_activation);
  }
  return TRUE;
}
