// Owners of GDI handles, and drawing through an off-screen bitmap.
#pragma once

#include <windows.h>

#include <utility>

namespace workbench {

template <typename Handle, auto Release>
class UniqueHandle {
 public:
  UniqueHandle() = default;
  explicit UniqueHandle(Handle handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(std::exchange(other.handle_, Handle())) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    reset(std::exchange(other.handle_, Handle()));
    return *this;
  }
  ~UniqueHandle() { reset(); }

  Handle get() const { return handle_; }
  explicit operator bool() const { return handle_ != Handle(); }
  Handle release() { return std::exchange(handle_, Handle()); }
  void reset(Handle handle = Handle()) {
    if (handle_ != Handle() && handle_ != handle) Release(handle_);
    handle_ = handle;
  }

 private:
  Handle handle_ = Handle();
};

using UniqueFont = UniqueHandle<HFONT, &DeleteObject>;
using UniqueBrush = UniqueHandle<HBRUSH, &DeleteObject>;
using UniquePen = UniqueHandle<HPEN, &DeleteObject>;
using UniqueBitmap = UniqueHandle<HBITMAP, &DeleteObject>;
using UniqueMenu = UniqueHandle<HMENU, &DestroyMenu>;
using UniqueModule = UniqueHandle<HMODULE, &FreeLibrary>;
using UniqueAccelerators = UniqueHandle<HACCEL, &DestroyAcceleratorTable>;

// Selects an object into a device context and puts the old one back.
class ObjectSelection {
 public:
  ObjectSelection(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
  ~ObjectSelection() { SelectObject(dc_, previous_); }
  ObjectSelection(const ObjectSelection&) = delete;
  ObjectSelection& operator=(const ObjectSelection&) = delete;

 private:
  HDC dc_;
  HGDIOBJ previous_;
};

// Painting of a window without flicker: draws into a bitmap that is shown in one step at the end.
class OffscreenPaint {
 public:
  explicit OffscreenPaint(HWND window);
  ~OffscreenPaint();
  OffscreenPaint(const OffscreenPaint&) = delete;
  OffscreenPaint& operator=(const OffscreenPaint&) = delete;

  HDC dc() const { return buffer_; }
  const RECT& client() const { return client_; }

 private:
  HWND window_;
  PAINTSTRUCT paint_ = {};
  RECT client_ = {};
  HDC buffer_ = nullptr;
  UniqueBitmap bitmap_;
  HGDIOBJ previous_ = nullptr;
};

}  // namespace workbench
