// Arguments of host service calls as text, for the call log.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <type_traits>

#include "src/host/host_services.h"

namespace workbench {

std::string ArgumentText(const char* text);                        // "text" in quotes, or null
std::string ArgumentText(const RECT* rect);                        // left,top,right,bottom
std::string ArgumentText(const host::DockedWindowBitmap* bitmap);  // bitmap/colour, or none
std::string ArgumentText(float value);

template <typename Number>
requires std::is_integral_v<Number> std::string ArgumentText(Number value) {
  return std::to_string(value);
}

// Handles and other pointers: whether there is one. Addresses would differ from run to run.
template <typename Object>
std::string ArgumentText(Object* pointer) {
  return pointer == nullptr ? "null" : "set";
}

template <typename... Arguments>
std::string ArgumentList(Arguments... arguments) {
  std::string list;
  ((list += (list.empty() ? "" : ", ") + ArgumentText(arguments)), ...);
  return list;
}

}  // namespace workbench
