// Where windows' places are remembered: one section of the workbench's profile file, one line a window GUID.
#pragma once

#include <optional>
#include <string>

#include "workbench/app/layout/placement_text.h"

namespace workbench {

class PlacementStore {
 public:
  // An empty path remembers nothing.
  explicit PlacementStore(std::wstring profilePath) : path_(std::move(profilePath)) {}

  // Nothing for an unknown GUID and for a text that makes no sense.
  std::optional<Placement> Load(const std::string& guid) const;
  void Save(const std::string& guid, const Placement& placement) const;
  void Clear() const;  // forgets every place
  // Free texts of the same section (the main window's own place).
  std::wstring LoadText(const wchar_t* key) const;
  void SaveText(const wchar_t* key, const std::wstring& text) const;

 private:
  std::wstring path_;
};

}  // namespace workbench
