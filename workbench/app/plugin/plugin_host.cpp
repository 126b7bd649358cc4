#include "workbench/app/plugin/plugin_host.h"

#include "base/text/narrow_path.h"
#include "workbench/app/main/format_viewers.h"
#include "workbench/app/ui/text_conversion.h"

namespace workbench {
namespace {

// The protocol's own limit on the text that goes with "initialize".
constexpr size_t kLongestHelpLocation = 259;

}  // namespace

PluginState PluginHost::LoadLibraryAt(const std::wstring& path) {
  if (GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES) return PluginState::Missing;
  apartment_.emplace();
  if (!apartment_->isOpen()) return PluginState::NoApartment;
  // The plug-in's own folder is searched for the libraries that it needs, the current folder is not.
  module_.reset(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
  if (!module_) {
    loadError_ = GetLastError();
    return PluginState::NotLoadable;
  }
  const FARPROC found = GetProcAddress(module_.get(), host::kEntryPointName);
  if (found == nullptr) return PluginState::NoEntryPoint;
  entry_ = reinterpret_cast<host::PluginEntryPoint>(reinterpret_cast<void*>(found));
  return PluginState::Running;
}

PluginState PluginHost::Load(const std::wstring& path, const std::wstring& helpLocation) {
  Unload();
  path_ = path;
  state_ = LoadLibraryAt(path);
  if (state_ != PluginState::Running) {
    FreeLibraryAndHandlers();
    return state_;
  }
  std::string help = base::NarrowPath(helpLocation).value_or(std::string());
  if (help.size() > kLongestHelpLocation) help.clear();
  void* value = help.data();
  if (Converse("initialize", value) == host::kStatusHostTooOld) {
    state_ = PluginState::Refused;
    return state_;
  }
  instance_ = nullptr;
  Converse("new_instance", instance_);
  return state_;
}

void PluginHost::Unload() {
  void* none = nullptr;
  if (isRunning()) Converse("destroy_instance", none);
  if (entry_ != nullptr) Converse("shutdown", none);
  entry_ = nullptr;
  instance_ = nullptr;
  FreeLibraryAndHandlers();
  if (isRunning()) state_ = PluginState::NotLoaded;
}

void PluginHost::FreeLibraryAndHandlers() {
  RemoveHandlersOf(module_.get());
  module_.reset();
  apartment_.reset();
}

std::uint32_t PluginHost::Say(const char* keyword, const void* value) {
  if (!isRunning()) return host::kStatusDone;
  void* slot = const_cast<void*>(value);
  return Converse(keyword, slot);
}

std::uint32_t PluginHost::Converse(const char* keyword, void*& value) {
  const char* const keywords[] = {"parent_hWnd", "parent_hInstance", keyword, nullptr};
  void* values[] = {mainWindow_, services_, value, nullptr};
  std::uint32_t status = host::kStatusDone;
  entry_(keywords, values, &status);
  value = values[2];
  return status;
}

std::wstring PluginHost::Problem() const {
  switch (state_) {
    case PluginState::Missing:
      return L"The plug-in was not found:\n" + path_;
    case PluginState::NotLoadable:
      return L"The plug-in could not be loaded (system error " + std::to_wstring(loadError_) + L"):\n" +
             path_;
    case PluginState::NoApartment:
      return L"The plug-in needs a COM single-threaded apartment, which this thread can't be:\n" + path_;
    case PluginState::NoEntryPoint:
      return L"This file is no plug-in (it has no entry point named " + base::WideFromNarrow(host::kEntryPointName) +
             L"):\n" + path_;
    case PluginState::Refused:
      return L"The plug-in requires a newer version of this program and was not started:\n" + path_;
    default:
      return {};
  }
}

}  // namespace workbench
