// Loads one plug-in and holds the conversation with it, in the order that plug-ins may rely on.
#pragma once

#include <windows.h>

#include <objbase.h>

#include <optional>
#include <string>
#include <vector>

#include "src/host/host_services.h"
#include "src/host/plugin_protocol.h"
#include "workbench/app/ui/gdi_owners.h"

namespace workbench {

enum class PluginState {
  NotLoaded,    // no plug-in was asked for, or it was unloaded
  Missing,      // the file does not exist
  NotLoadable,  // the system refuses to load it
  NoEntryPoint,
  NoApartment,  // this thread is no COM single-threaded apartment and can't be made one
  Refused,  // it finds this host too old
  Running,  // its instance exists
};

// COM on this thread, as a single-threaded apartment, from construction to the end. Nested ones are allowed.
class Apartment {
 public:
  Apartment() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
  ~Apartment() {
    if (isOpen()) CoUninitialize();
  }
  Apartment(const Apartment&) = delete;
  Apartment& operator=(const Apartment&) = delete;
  bool isOpen() const { return SUCCEEDED(result_); }

 private:
  HRESULT result_;
};

// Everything on one thread: the plug-in is unloaded where it was loaded.
class PluginHost {
 public:
  // services must live longer than this object.
  PluginHost(HWND mainWindow, host::HostServices* services) : mainWindow_(mainWindow), services_(services) {}
  ~PluginHost() { Unload(); }
  PluginHost(const PluginHost&) = delete;
  PluginHost& operator=(const PluginHost&) = delete;

  // Loads the plug-in, lets it check this host and, unless it refuses, creates its instance. helpLocation is
  // handed over with "initialize".
  PluginState Load(const std::wstring& path, const std::wstring& helpLocation);
  // "destroy_instance" when there is an instance, "shutdown"; then the file-format handlers that lie in the library are
  // dropped, and the library goes. Does nothing when none is loaded.
  void Unload();

  // One call with a keyword and its value, behind the two handles that every call begins with. Gives the
  // status; host::kStatusDone, with nothing called, while no instance runs.
  std::uint32_t Say(const char* keyword, const void* value = nullptr);

  PluginState state() const { return state_; }
  bool isRunning() const { return state_ == PluginState::Running; }
  const std::wstring& path() const { return path_; }
  void* instance() const { return instance_; }
  // A sentence for the user about a plug-in that does not run; empty while it does or none was asked for.
  std::wstring Problem() const;

 private:
  PluginState LoadLibraryAt(const std::wstring& path);
  void FreeLibraryAndHandlers();
  // keywords and values without the two handles; the last value is read back.
  std::uint32_t Converse(const char* keyword, void*& value);

  HWND mainWindow_;
  host::HostServices* services_;
  std::optional<Apartment> apartment_;  // around the library
  UniqueModule module_;
  host::PluginEntryPoint entry_ = nullptr;
  PluginState state_ = PluginState::NotLoaded;
  std::wstring path_;
  DWORD loadError_ = 0;
  void* instance_ = nullptr;
};

}  // namespace workbench
