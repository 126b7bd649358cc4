// Objects whose owner may let go of them while one of their own functions still runs: whoever calls code that
// isn't ours (a control, the host, a window's message loop) can find its object taken down when the call
// comes back.
#pragma once

#include <memory>

namespace base {

// Base of such an object T. It is made with `new` and owned by a held_ptr; T::TakeDown() noexcept releases
// what it has, and leaves an object whose functions do nothing. Its memory stays until the last Hold on it is
// gone. On one thread only.
class Holdable {
 public:
  Holdable(const Holdable&) = delete;
  Holdable& operator=(const Holdable&) = delete;

  void AddHold() const noexcept { ++holds_; }
  // True when that was the last one.
  bool DropHold() const noexcept { return --holds_ == 0; }

 protected:
  Holdable() = default;
  ~Holdable() = default;

 private:
  mutable int holds_ = 1;  // the owner's
};

// Keeps an object's memory for as long as a function that uses the object runs. Null is allowed.
template <class T>
class Hold {
 public:
  explicit Hold(T* object) noexcept : object_(object) {
    if (object_) object_->AddHold();
  }
  ~Hold() {
    if (object_ && object_->DropHold()) delete object_;
  }
  Hold(const Hold&) = delete;
  Hold& operator=(const Hold&) = delete;

 private:
  T* object_;
};

// What an owner does when it lets go.
template <class T>
struct TakeDownAndDrop {
  void operator()(T* object) const noexcept {
    object->TakeDown();
    if (object->DropHold()) delete object;
  }
};

template <class T>
using held_ptr = std::unique_ptr<T, TakeDownAndDrop<T>>;

template <class T, class... Arguments>
held_ptr<T> make_held(Arguments&&... arguments) {
  return held_ptr<T>(new T(static_cast<Arguments&&>(arguments)...));
}

}  // namespace base
