// A reference to a COM object. The toolchain's own ComPtr takes a second reference in Attach and leaves the
// source of a move assignment holding its; this one doesn't.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <cstddef>
#include <type_traits>
#include <utility>

namespace file_explorer {

template <class T>
class ComPtr {
 public:
  ComPtr() noexcept = default;
  ComPtr(std::nullptr_t) noexcept {}
  // Takes a reference of its own.
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  ComPtr(U* object) noexcept : object_(object) {
    if (object_) object_->AddRef();
  }
  ComPtr(const ComPtr& other) noexcept : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(other.Detach()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  ComPtr(const ComPtr<U>& other) noexcept : ComPtr(other.Get()) {}
  template <class U, class = std::enable_if_t<std::is_convertible_v<U*, T*>>>
  ComPtr(ComPtr<U>&& other) noexcept : object_(other.Detach()) {}
  ComPtr& operator=(ComPtr other) noexcept {
    Swap(other);
    return *this;
  }
  ~ComPtr() { Reset(); }

  T* Get() const noexcept { return object_; }
  T* operator->() const noexcept { return object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }
  friend bool operator==(const ComPtr& a, std::nullptr_t) noexcept { return a.object_ == nullptr; }

  void Swap(ComPtr& other) noexcept { std::swap(object_, other.object_); }
  void Reset() noexcept {
    if (T* const object = Detach()) object->Release();
  }
  // Takes over the caller's reference.
  void Attach(T* object) noexcept {
    T* const before = std::exchange(object_, object);
    if (before) before->Release();
  }
  // Hands the reference to the caller.
  T* Detach() noexcept { return std::exchange(object_, nullptr); }
  // For out-parameters; what was held is released first.
  T** ReleaseAndGetAddressOf() noexcept {
    Reset();
    return &object_;
  }
  // Gives somebody else a reference.
  HRESULT CopyTo(T** object) const noexcept {
    if (object_) object_->AddRef();
    *object = object_;
    return S_OK;
  }

 private:
  T* object_ = nullptr;
};

}  // namespace file_explorer
