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

}  // namespace fake_plugin
