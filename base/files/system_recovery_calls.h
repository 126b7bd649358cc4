// The file system's calls for SaveRecovery.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "base/files/save_recovery.h"
#include "base/handles/unique_handle.h"

namespace base {

// Holds at most one lock at a time.
class SystemRecoveryCalls : public RecoveryCalls {
 public:
  Reading Read(const std::string& path, std::string* bytes) override;
  Writing Write(const std::string& path, std::string_view bytes) override;
  void Flush(const std::string& path) override;
  bool Replace(const std::string& from, const std::string& to) override;
  bool Remove(const std::string& path) override;
  Locking Lock(const std::string& path) override;
  void Unlock() override;
  void Pause() override;

 private:
  unique_file lock_;
  int refusals_ = 0;  // since the last answer that was clear
};

}  // namespace base
