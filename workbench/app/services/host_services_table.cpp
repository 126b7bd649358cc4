#include "workbench/app/services/host_services_table.h"

#include <algorithm>

namespace workbench {
namespace {

struct NamedOperation {
  int interfaceNumber;
  int position;
  const char* name;
};

template <typename Op>
constexpr NamedOperation Named(const char* name) {
  return {Op::kInterface, Op::kPosition, name};
}

constexpr NamedOperation kNames[] = {
    Named<host::op::GetMainWindow>("GetMainWindow"),
    Named<host::op::GetProfileFileName>("GetProfileFileName"),
    Named<host::op::CreateUtilityPanel>("CreateUtilityPanel"),
    Named<host::op::RemoveUtilityPanel>("RemoveUtilityPanel"),
    Named<host::op::ShowUtilityPanel>("ShowUtilityPanel"),
    Named<host::op::CreateDockedWindow>("CreateDockedWindow"),
    Named<host::op::SetWindowSize>("SetWindowSize"),
    Named<host::op::SetWindowPosition>("SetWindowPosition"),
    Named<host::op::SetWindowState>("SetWindowState"),
    Named<host::op::GetWindowState>("GetWindowState"),
    Named<host::op::ShowDockingMenu>("ShowDockingMenu"),
    Named<host::op::GetNotificationMessage>("GetNotificationMessage"),
    Named<host::op::GetStoredRectangle>("GetStoredRectangle"),
    Named<host::op::GetDefaultCreationMethod>("GetDefaultCreationMethod"),
    Named<host::op::ShowManagedWindow>("ShowManagedWindow"),
    Named<host::op::ShowHostDialog>("ShowHostDialog"),
    Named<host::op::PickColor>("PickColor"),
    Named<host::op::RepaintColorButton>("RepaintColorButton"),
    Named<host::op::DrawColorButton>("DrawColorButton"),
    Named<host::op::RedrawBracket>("RedrawBracket"),
    Named<host::op::ValidateMatchPattern>("ValidateMatchPattern"),
    Named<host::op::MatchPattern>("MatchPattern"),
    Named<host::op::CallPlugin>("CallPlugin"),
    Named<host::op::GetSecondFlags>("GetSecondFlags"),
    Named<host::op::GetHostFlags>("GetHostFlags"),
    Named<host::op::GetHostVersion>("GetHostVersion"),
    Named<host::op::CloseRegistration>("CloseRegistration"),
    Named<host::op::ReleaseRegistration>("ReleaseRegistration"),
};

}  // namespace

std::string OperationName(int interfaceNumber, int position) {
  for (const NamedOperation& known : kNames) {
    if (known.interfaceNumber == interfaceNumber && known.position == position) return known.name;
  }
  return std::to_string(interfaceNumber) + "/" + std::to_string(position);
}

HostServicesTable::HostServicesTable() {
  row_.owner = this;
  for (int i = 0; i < host::kInterfaceCount; ++i) row_.services.interfaces[i].operations = tables_[i];
}

host::Operation* HostServicesTable::Table(int interfaceNumber) {
  return tables_[interfaceNumber];
}

void HostServicesTable::RecordResult(size_t call, std::string result) {
  if (call < calls_.size()) calls_[call].result = std::move(result);
}

int HostServicesTable::CountCalls(const std::string& operation) const {
  return static_cast<int>(std::count_if(
      calls_.begin(), calls_.end(), [&](const ServiceCall& call) { return call.operation == operation; }));
}

std::string HostServicesTable::LastArguments(const std::string& operation) const {
  for (auto call = calls_.rbegin(); call != calls_.rend(); ++call) {
    if (call->operation == operation) return call->arguments;
  }
  return {};
}

}  // namespace workbench
