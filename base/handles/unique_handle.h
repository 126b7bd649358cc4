// Owners of handles and foreign memory: one type for each kind, move-only, released when they go out of
// scope. Releasing keeps the thread's last error, so that an owner can end between a failing call and
// GetLastError.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <objbase.h>
#include <shlobj.h>

#include <utility>

namespace base {

template <typename Traits>
class UniqueHandle {
 public:
  using Handle = typename Traits::Handle;

  UniqueHandle() = default;
  explicit UniqueHandle(Handle handle) : handle_(handle) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    reset(other.release());
    return *this;
  }
  UniqueHandle(const UniqueHandle&) = delete;
  UniqueHandle& operator=(const UniqueHandle&) = delete;
  ~UniqueHandle() { reset(); }

  Handle get() const { return handle_; }
  explicit operator bool() const { return handle_ != Handle(); }
  Handle release() { return std::exchange(handle_, Handle()); }

  // Releases what is owned and owns `handle` from now on.
  void reset(Handle handle = Handle()) {
    const Handle old = std::exchange(handle_, handle);
    if (old == Handle() || old == handle) return;
    const DWORD lastError = GetLastError();
    Traits::Close(old);
    SetLastError(lastError);
  }

  // For functions that give a handle through an out parameter: releases what is owned first.
  Handle* put() {
    reset();
    return &handle_;
  }

 private:
  Handle handle_ = Handle();
};

template <typename HandleType, auto CloseFunction>
struct HandleTraits {
  using Handle = HandleType;
  static void Close(Handle handle) { CloseFunction(handle); }
};

struct GdiTraitsBase {
  static void Close(HGDIOBJ object) { DeleteObject(object); }
};
template <typename HandleType>
struct GdiTraits : GdiTraitsBase {
  using Handle = HandleType;
};

struct PidlTraits {
  using Handle = LPITEMIDLIST;
  static void Close(Handle list) { CoTaskMemFree(list); }
};

using unique_hwnd = UniqueHandle<HandleTraits<HWND, DestroyWindow>>;
using unique_hmenu = UniqueHandle<HandleTraits<HMENU, DestroyMenu>>;
using unique_himagelist = UniqueHandle<HandleTraits<HIMAGELIST, ImageList_Destroy>>;
using unique_hfont = UniqueHandle<GdiTraits<HFONT>>;
using unique_hbitmap = UniqueHandle<GdiTraits<HBITMAP>>;
using unique_hbrush = UniqueHandle<GdiTraits<HBRUSH>>;
using unique_file =
    UniqueHandle<HandleTraits<HANDLE, CloseHandle>>;  // null, not INVALID_HANDLE_VALUE, when empty
using unique_find = UniqueHandle<HandleTraits<HANDLE, FindClose>>;  // the same
using unique_pidl = UniqueHandle<PidlTraits>;  // an item identifier list of the task allocator

// The system says "none" with INVALID_HANDLE_VALUE, the owners with null.
inline unique_file OwnFile(HANDLE file) {
  return unique_file(file == INVALID_HANDLE_VALUE ? nullptr : file);
}
inline unique_find OwnFind(HANDLE find) {
  return unique_find(find == INVALID_HANDLE_VALUE ? nullptr : find);
}

}  // namespace base
