// Stands in for a function of the system in one module: what the module imports is replaced in its import
// table, in memory, for as long as the hook lives. Other modules go on calling the real one.
#pragma once

#include <windows.h>

namespace test_support {

class ImportHook {
 public:
  // importer: the module whose calls are to go to replacement, a function of the same type;
  // GetModuleHandle(nullptr) for what is linked into the test program. function: the name as exported,
  // "CreateFileW". A function that the module does not import leaves everything as it is.
  ImportHook(HMODULE importer, const char* function, void* replacement);
  template <typename Result, typename... Arguments>
  ImportHook(HMODULE importer, const char* function, Result(WINAPI* replacement)(Arguments...))
      : ImportHook(importer, function, reinterpret_cast<void*>(replacement)) {}
  ~ImportHook();
  ImportHook(const ImportHook&) = delete;
  ImportHook& operator=(const ImportHook&) = delete;

  bool installed() const { return slot_ != nullptr; }
  // What the module called before; null when it does not import the function.
  void* original() const { return original_; }

 private:
  void** slot_ = nullptr;
  void* original_ = nullptr;
};

}  // namespace test_support
