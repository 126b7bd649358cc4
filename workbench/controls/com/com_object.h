// Reference counting and ownership of COM objects.
#pragma once

#include <windows.h>

#include <ocidl.h>
#include <ole2.h>
#include <olectl.h>

#include <atomic>
#include <new>
#include <utility>

namespace controls {

// What keeps the module loaded: living objects, running threads, locks. DllCanUnloadNow asks for the sum.
class ModuleLock {
 public:
  ModuleLock() { ++count_; }
  ~ModuleLock() { --count_; }
  ModuleLock(const ModuleLock&) = delete;
  ModuleLock& operator=(const ModuleLock&) = delete;

  static long count() { return count_.load(); }
  static void Add() { ++count_; }
  static void Remove() { --count_; }

 private:
  static inline std::atomic<long> count_{0};
};

// One row of a class's interface table: the interface's id and how to get it from the object.
template <typename T>
struct InterfaceRow {
  const IID* iid;
  void* (*get)(T*);
};

template <typename T, typename Interface>
constexpr InterfaceRow<T> Row(const IID& iid) {
  return {&iid, [](T* object) -> void* { return static_cast<Interface*>(object); }};
}

template <typename T, size_t N>
void* FindInterface(const InterfaceRow<T> (&rows)[N], T* object, REFIID iid) {
  for (const InterfaceRow<T>& row : rows) {
    if (IsEqualIID(*row.iid, iid)) return row.get(object);
  }
  return nullptr;
}

// An owning interface pointer.
template <typename T>
class ComRef {
 public:
  ComRef() = default;
  ComRef(std::nullptr_t) {}
  ComRef(T* pointer) : pointer_(pointer) {
    if (pointer_) pointer_->AddRef();
  }
  ComRef(const ComRef& other) : ComRef(other.pointer_) {}
  ComRef(ComRef&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ~ComRef() { reset(); }
  ComRef& operator=(ComRef other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }

  static ComRef Attach(T* pointer) {
    ComRef result;
    result.pointer_ = pointer;
    return result;
  }

  T* get() const { return pointer_; }
  T* operator->() const { return pointer_; }
  explicit operator bool() const { return pointer_ != nullptr; }
  // For out parameters: empties the pointer first.
  T** put() {
    reset();
    return &pointer_;
  }
  void** put_void() { return reinterpret_cast<void**>(put()); }
  T* detach() { return std::exchange(pointer_, nullptr); }
  void reset() {
    if (T* old = std::exchange(pointer_, nullptr)) old->Release();
  }

  template <typename Other>
  ComRef<Other> As(const IID& iid) const {
    ComRef<Other> result;
    if (pointer_) pointer_->QueryInterface(iid, result.put_void());
    return result;
  }

 private:
  T* pointer_ = nullptr;
};

// Gives T its reference count and QueryInterface. T has `void* Interface(REFIID)` (null when it lacks the
// interface) and never a public destructor; objects live on the heap only.
template <typename T>
class ComObject final : public T {
 public:
  template <typename... Args>
  static ComRef<ComObject> Create(Args&&... args) {
    return ComRef<ComObject>::Attach(new ComObject(std::forward<Args>(args)...));
  }

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    if (!object) return E_POINTER;
    *object = T::Interface(iid);
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return static_cast<ULONG>(++references_); }
  STDMETHODIMP_(ULONG) Release() override {
    const long left = --references_;
    if (left != 0) return static_cast<ULONG>(left);
    // The destructor may hand this object out once more (a link that is undone): it must not be destroyed
    // twice.
    references_ = 1000;
    delete this;
    return 0;
  }

 private:
  template <typename... Args>
  explicit ComObject(Args&&... args) : T(std::forward<Args>(args)...) {}
  ~ComObject() override = default;

  std::atomic<long> references_{1};
  ModuleLock lock_;
};

// Runs the body of a COM method: nothing is thrown out of it.
template <typename Body>
HRESULT Guarded(Body&& body) noexcept {
  try {
    return body();
  } catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
  } catch (...) {
    return E_FAIL;
  }
}

}  // namespace controls
