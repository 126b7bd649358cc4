// A plug-in that writes down what the host tells it. The functions behind the entry point are found by their
// names.
#pragma once

#include <cstdint>

namespace fake_plugin {

// What is written down, one line a keyword: "keyword" or "keyword=text", "--" between calls.
using LogFunction = const char* (*)();
inline constexpr char kLogName[] = "FakePlugin_Log";
using ClearFunction = void (*)();
inline constexpr char kClearName[] = "FakePlugin_Clear";
// The status of the next calls that hold "initialize".
using SetInitializeStatusFunction = void (*)(std::uint32_t);
inline constexpr char kSetInitializeStatusName[] = "FakePlugin_SetInitializeStatus";

// Registers a viewer whose callbacks lie in the plug-in.
inline constexpr char kRegisterHandlerName[] = "FakePlugin_RegisterHandler";  // a ClearFunction
inline constexpr char kHandlerGuid[] = "{5D1B7A10-2C44-4E0E-9A61-0B771F28D398}";
// Whether the thread was a COM single-threaded apartment at the last "initialize".
using WasInApartmentFunction = int (*)();
inline constexpr char kWasInApartmentName[] = "FakePlugin_WasInApartment";

}  // namespace fake_plugin
