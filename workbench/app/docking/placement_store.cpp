#include "workbench/app/docking/placement_store.h"

#include <windows.h>

#include "workbench/app/ui/text_conversion.h"

namespace workbench {
namespace {

constexpr wchar_t kSection[] = L"Workbench-Layout";
constexpr DWORD kLongestText = 1024;

// A key may not hold "=" or line ends; such a GUID is not remembered.
bool IsUsableKey(const std::string& guid) {
  return !guid.empty() && guid.size() < 200 && guid.find_first_of("=\r\n[];") == std::string::npos;
}

}  // namespace

std::wstring PlacementStore::LoadText(const wchar_t* key) const {
  if (path_.empty()) return {};
  wchar_t text[kLongestText] = L"";
  const DWORD length = GetPrivateProfileStringW(kSection, key, L"", text, kLongestText, path_.c_str());
  return std::wstring(text, length);
}

void PlacementStore::SaveText(const wchar_t* key, const std::wstring& text) const {
  if (!path_.empty()) WritePrivateProfileStringW(kSection, key, text.c_str(), path_.c_str());
}

std::optional<Placement> PlacementStore::Load(const std::string& guid) const {
  if (!IsUsableKey(guid)) return std::nullopt;
  return ReadPlacement(base::DisplayNarrow(LoadText(base::WideFromNarrow(guid).c_str())));
}

void PlacementStore::Save(const std::string& guid, const Placement& placement) const {
  if (IsUsableKey(guid)) SaveText(base::WideFromNarrow(guid).c_str(), base::WideFromNarrow(WritePlacement(placement)));
}

void PlacementStore::Clear() const {
  if (!path_.empty()) WritePrivateProfileStringW(kSection, nullptr, nullptr, path_.c_str());
}

}  // namespace workbench
