// Watches what a module calls: texts that it draws through GDI's 8-bit functions, and other machines that it
// asks for files. Both work here and fail elsewhere: GDI's 8-bit functions do not follow a UTF-8 code page,
// and a machine that is gone keeps the thread waiting for half a minute.
#pragma once

#include <windows.h>

#include <shlobj.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/support/import_hook.h"

namespace test_support {

class CallWatch {
 public:
  // One at a time. Watches the calls of the thread that makes it.
  explicit CallWatch(HMODULE module);
  ~CallWatch();
  CallWatch(const CallWatch&) = delete;
  CallWatch& operator=(const CallWatch&) = delete;

  // How many functions the module imports of those that are watched.
  size_t watched() const { return hooks_.size(); }
  // "Function: text" for each call of an 8-bit text function of GDI with a byte above 0x7F.
  const std::vector<std::string>& narrowTexts() const { return narrowTexts_; }
  // "Function: path" for each call about a file or folder of another machine ("\\server\share\...").
  const std::vector<std::string>& remoteCalls() const { return remoteCalls_; }

 private:
  template <typename Watched>
  void Add(HMODULE module);

  std::vector<std::unique_ptr<ImportHook>> hooks_;
  std::vector<std::string> narrowTexts_;
  std::vector<std::string> remoteCalls_;

  friend struct CallChecks;
};

}  // namespace test_support
