// The host's services object: the row of interface tables that a plug-in calls, filled from functions.
//
// For tests every call can be recorded, and single operations can be replaced or taken away, while everything
// else stays the real thing.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "src/host/host_services.h"
#include "workbench/app/services/argument_text.h"

namespace workbench {

// One recorded call: the operation's name, its arguments and its result as text.
struct ServiceCall {
  std::string operation;
  std::string arguments;
  std::string result;  // empty for an operation without one
};

// The name of an operation as host_services.h has it; "interface/position" for one that has none there.
std::string OperationName(int interfaceNumber, int position);

template <typename Function>
struct OperationTraits;

template <typename Result_, typename... Arguments>
struct OperationTraits<Result_ (*)(host::InterfaceObject*, Arguments...)> {
  using Callable = std::function<Result_(Arguments...)>;
};

template <typename Op>
using OperationCallable = typename OperationTraits<typename Op::Function>::Callable;

class HostServicesTable {
 public:
  HostServicesTable();
  HostServicesTable(const HostServicesTable&) = delete;
  HostServicesTable& operator=(const HostServicesTable&) = delete;

  // What the plug-in gets. Valid as long as this object.
  host::HostServices* services() { return &row_.services; }

  // Gives an operation its implementation. An operation without one is null in its table.
  template <typename Op>
  void Provide(OperationCallable<Op> implementation) {
    SlotFor<Op>().implementation = std::move(implementation);
    host::Bind<Op>(Table(Op::kInterface), &Thunk<typename Op::Function>::template Run<Op>);
  }

  // Puts another function in an operation's place until ClearOverride.
  template <typename Op>
  void Override(OperationCallable<Op> replacement) {
    SlotFor<Op>().replacement = std::move(replacement);
  }
  template <typename Op>
  void ClearOverride() {
    SlotFor<Op>().replacement = nullptr;
  }
  // Makes the operation's table position null, as in a host that does not have it.
  template <typename Op>
  void Remove() {
    Table(Op::kInterface)[Op::kPosition] = nullptr;
  }

  void SetRecording(bool on) { recording_ = on; }
  const std::vector<ServiceCall>& calls() const { return calls_; }
  void ClearCalls() { calls_.clear(); }
  int CountCalls(const std::string& operation) const;
  // Arguments of the last call of an operation; empty when there was none.
  std::string LastArguments(const std::string& operation) const;

 private:
  static constexpr int kTableSize = 64;

  // The row as the plug-in sees it, with the way back to this object behind it.
  struct Row {
    host::HostServices services;
    HostServicesTable* owner;
  };

  struct SlotBase {
    virtual ~SlotBase() = default;
  };
  template <typename Callable>
  struct Slot : SlotBase {
    Callable implementation;
    Callable replacement;
  };

  template <typename Op>
  Slot<OperationCallable<Op>>& SlotFor() {
    auto& slot = slots_[{Op::kInterface, Op::kPosition}];
    if (slot == nullptr) slot = std::make_unique<Slot<OperationCallable<Op>>>();
    return static_cast<Slot<OperationCallable<Op>>&>(*slot);
  }

  template <typename Function>
  struct Thunk;
  template <typename Result_, typename... Arguments>
  struct Thunk<Result_ (*)(host::InterfaceObject*, Arguments...)> {
    // Called by the plug-in. Nothing is thrown back into it: a failed operation gives an empty result.
    template <typename Op>
    static Result_ Run(host::InterfaceObject* object, Arguments... arguments) {
      try {
        auto* row = reinterpret_cast<Row*>(object - Op::kInterface);
        return row->owner->template Invoke<Op, Result_>(arguments...);
      } catch (...) {
        return Result_();
      }
    }
  };

  template <typename Op, typename Result_, typename... Arguments>
  Result_ Invoke(Arguments... arguments) {
    Slot<OperationCallable<Op>>& slot = SlotFor<Op>();
    // A copy: the function may be replaced while it runs.
    const OperationCallable<Op> function = slot.replacement ? slot.replacement : slot.implementation;
    const size_t call = Record<Op>(arguments...);
    if constexpr (std::is_void_v<Result_>) {
      if (function) function(arguments...);
    } else {
      const Result_ result = function ? function(arguments...) : Result_();
      RecordResult(call, ArgumentText(result));
      return result;
    }
  }

  template <typename Op, typename... Arguments>
  size_t Record(Arguments... arguments) {
    if (!recording_) return kNotRecorded;
    calls_.push_back({OperationName(Op::kInterface, Op::kPosition), ArgumentList(arguments...), {}});
    return calls_.size() - 1;
  }
  void RecordResult(size_t call, std::string result);
  host::Operation* Table(int interfaceNumber);

  static constexpr size_t kNotRecorded = static_cast<size_t>(-1);

  Row row_ = {};
  host::Operation tables_[host::kInterfaceCount][kTableSize] = {};
  std::map<std::pair<int, int>, std::unique_ptr<SlotBase>> slots_;
  bool recording_ = false;
  std::vector<ServiceCall> calls_;
};

}  // namespace workbench
