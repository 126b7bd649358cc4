// The recovery's calls on the real disk, each of them a step that a test may stop at.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "base/files/system_recovery_calls.h"

namespace test_support {

class SteppedRecoveryCalls final : public base::SystemRecoveryCalls {
 public:
  // Called before each step with its name; false: the step fails without having done anything.
  using Step = std::function<bool(const std::string& name)>;
  explicit SteppedRecoveryCalls(Step step) : step_(std::move(step)) {}

  Reading Read(const std::string& path, std::string* bytes) override {
    if (step_("read " + NameOf(path))) return SystemRecoveryCalls::Read(path, bytes);
    bytes->clear();
    return Reading::kFailed;
  }
  Writing Write(const std::string& path, std::string_view bytes) override {
    if (!step_("create " + NameOf(path))) return Writing::kRefused;
    SystemRecoveryCalls::Write(path, bytes.substr(0, bytes.size() / 2));
    if (!step_("write the rest of " + NameOf(path))) return Writing::kNoRoom;
    return SystemRecoveryCalls::Write(path, bytes);
  }
  void Flush(const std::string& path) override {
    if (step_("flush " + NameOf(path))) SystemRecoveryCalls::Flush(path);
  }
  bool Replace(const std::string& from, const std::string& to) override {
    return step_("rename " + NameOf(from)) && SystemRecoveryCalls::Replace(from, to);
  }
  bool Remove(const std::string& path) override {
    return step_("delete " + NameOf(path)) && SystemRecoveryCalls::Remove(path);
  }
  Locking Lock(const std::string& path) override {
    return step_("lock") ? SystemRecoveryCalls::Lock(path) : Locking::kImpossible;
  }

 private:
  static std::string NameOf(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

  const Step step_;
};

}  // namespace test_support
