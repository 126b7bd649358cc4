// COM objects of ours: CComObject<T> gives a class T its reference count, its QueryInterface (from a table of
// T) and its destruction. T derives from its interfaces and from CComObjectRootEx<CComSingleThreadModel>, has
// a protected virtual destructor, and a public static
//   std::span<const InterfaceEntry> Interfaces();
// whose first entry is the object's identity (IUnknown).
#pragma once

#include <windows.h>

#include <span>
#include <utility>

#include "src/framework/com/com_owners.h"

namespace file_explorer {

// Objects of this module that are alive now; for leak checks.
LONG LiveComObjects() noexcept;

// Objects that live on one thread. The count is interlocked all the same: a reference may be dropped on
// another one (a marshalled proxy's clean-up).
struct CComSingleThreadModel {
  static ULONG Increment(LONG* count) noexcept { return static_cast<ULONG>(InterlockedIncrement(count)); }
  static ULONG Decrement(LONG* count) noexcept { return static_cast<ULONG>(InterlockedDecrement(count)); }
};

// One row of a QueryInterface table.
struct InterfaceEntry {
  const IID* iid;
  void* (*cast)(void* object);  // from the class T to the interface
};

// The row that gives Interface of class T. Via names the base to go through when Interface is a base of
// several.
template <class T, class Interface, class Via = Interface>
constexpr InterfaceEntry Exposes(const IID& iid) {
  return {&iid, [](void* object) -> void* {
            return static_cast<Interface*>(static_cast<Via*>(static_cast<T*>(object)));
          }};
}

// Looks iid up and gives the interface without a reference, or null.
void* FindInterface(void* object, std::span<const InterfaceEntry> entries, REFIID iid) noexcept;

namespace com_detail {
void CountObject(LONG change) noexcept;
}

template <class ThreadModel>
class CComObjectRootEx {
 public:
  CComObjectRootEx(const CComObjectRootEx&) = delete;
  CComObjectRootEx& operator=(const CComObjectRootEx&) = delete;

 protected:
  CComObjectRootEx() noexcept { com_detail::CountObject(1); }
  ~CComObjectRootEx() { com_detail::CountObject(-1); }

  // Called once before the destructors, with the object still whole; may be hidden by T. References that are
  // taken and dropped meanwhile don't destroy the object again.
  void FinalRelease() noexcept {}

  ULONG InternalAddRef() noexcept { return ThreadModel::Increment(&references_); }
  ULONG InternalRelease() noexcept { return ThreadModel::Decrement(&references_); }
  void HoldWhileDying() noexcept { references_ = 0x40000000; }

 private:
  LONG references_ = 0;
};

template <class T>
class CComObject final : public T {
 public:
  // A new object with one reference. Throws what the constructor throws (std::bad_alloc when memory is
  // short).
  template <class... Arguments>
  static ComPtr<CComObject> New(Arguments&&... arguments) {
    ComPtr<CComObject> object(new CComObject(std::forward<Arguments>(arguments)...));
    return object;
  }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
    if (!object) return E_POINTER;
    *object = FindInterface(static_cast<T*>(this), T::Interfaces(), iid);
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return this->InternalAddRef(); }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = this->InternalRelease();
    if (left == 0) {
      this->HoldWhileDying();
      this->FinalRelease();
      delete this;
    }
    return left;
  }

 private:
  template <class... Arguments>
  explicit CComObject(Arguments&&... arguments) : T(std::forward<Arguments>(arguments)...) {}
  ~CComObject() override = default;
};

}  // namespace file_explorer
