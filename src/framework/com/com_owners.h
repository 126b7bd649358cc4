// Owners of what COM hands out: texts, variants, task memory, connections. (Item identifier lists have
// unique_pidl.) Nothing else calls SysFreeString, VariantClear or CoTaskMemFree.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <objbase.h>
#include <oleauto.h>
#include <shtypes.h>

#include <memory>
#include <utility>

#include "src/framework/com/com_ptr.h"

namespace file_explorer {

struct TaskMemoryDeleter {
  void operator()(void* memory) const noexcept { CoTaskMemFree(memory); }
};
// Memory of the task allocator, as StringFromCLSID gives it.
template <class T>
using UniqueTaskMemory = std::unique_ptr<T, TaskMemoryDeleter>;

// A BSTR with one owner; may be null.
class UniqueBstr {
 public:
  UniqueBstr() noexcept = default;
  explicit UniqueBstr(BSTR text) noexcept : text_(text) {}  // takes the text over
  UniqueBstr(UniqueBstr&& other) noexcept : text_(other.release()) {}
  UniqueBstr& operator=(UniqueBstr&& other) noexcept {
    if (this != &other) reset(other.release());
    return *this;
  }
  ~UniqueBstr() { reset(); }

  BSTR get() const noexcept { return text_; }
  explicit operator bool() const noexcept { return text_ != nullptr; }
  BSTR release() noexcept { return std::exchange(text_, nullptr); }
  void reset(BSTR text = nullptr) noexcept { SysFreeString(std::exchange(text_, text)); }
  // For out-parameters; what was held is freed first.
  BSTR* put() noexcept {
    reset();
    return &text_;
  }

 private:
  BSTR text_ = nullptr;
};

// A VARIANT that is cleared when it goes.
class OwnedVariant {
 public:
  OwnedVariant() noexcept { VariantInit(&value_); }
  OwnedVariant(OwnedVariant&& other) noexcept : value_(other.value_) { VariantInit(&other.value_); }
  OwnedVariant& operator=(OwnedVariant&& other) noexcept {
    std::swap(value_, other.value_);
    return *this;
  }
  ~OwnedVariant() { VariantClear(&value_); }

  const VARIANT& get() const noexcept { return value_; }
  const VARIANT* operator->() const noexcept { return &value_; }
  VARIANT* operator->() noexcept { return &value_; }
  // For out-parameters; what was held is cleared first.
  VARIANT* put() noexcept {
    VariantClear(&value_);
    return &value_;
  }
  // Gives the content to somebody else, who clears it.
  VARIANT release() noexcept {
    const VARIANT value = value_;
    VariantInit(&value_);
    return value;
  }
  // A copy of value; on failure what was held stays.
  HRESULT CopyFrom(const VARIANT& value) noexcept {
    OwnedVariant copy;
    const HRESULT result = VariantCopy(&copy.value_, const_cast<VARIANT*>(&value));
    if (SUCCEEDED(result)) std::swap(value_, copy.value_);
    return result;
  }

 private:
  VARIANT value_;
};

// The interface of an object, or null; object may be null.
template <class Interface>
ComPtr<Interface> QueryFor(IUnknown* object, REFIID iid) {
  ComPtr<Interface> result;
  void* raw = nullptr;
  if (object && SUCCEEDED(object->QueryInterface(iid, &raw))) result.Attach(static_cast<Interface*>(raw));
  return result;
}
template <class Interface>
ComPtr<Interface> QueryFor(IUnknown* object) {
  return QueryFor<Interface>(object, __uuidof(Interface));
}

// An event sink that is connected to a source; disconnects when it goes.
class AdviseConnection {
 public:
  AdviseConnection() noexcept = default;
  AdviseConnection(const AdviseConnection&) = delete;
  AdviseConnection& operator=(const AdviseConnection&) = delete;
  ~AdviseConnection() { Disconnect(); }

  // Connects sink to the source's connection point of an event interface. E_NOINTERFACE without a container
  // of connection points, else what the source answers. A connection that stands is given up first.
  HRESULT Connect(IUnknown* source, REFIID eventInterface, IUnknown* sink);
  void Disconnect() noexcept;
  bool IsConnected() const noexcept { return point_ != nullptr; }

 private:
  ComPtr<IUnknown> point_;  // an IConnectionPoint
  DWORD cookie_ = 0;
};

}  // namespace file_explorer
