// What the host's registry of formats says of a file name: kinds, colour and import handler.
#pragma once

#include <windows.h>

#include <cstdint>
#include <optional>
#include <string>

namespace file_explorer {

// The type bits of all importers and viewers that take the name's extension; 0 when none does.
std::uint32_t CategoryTypeMask(const char* fileName);

// True when the host has an importer or viewer of the type.
bool IsFormatRegistered(std::uint32_t typeBit);

// The colour in which a file of this name is shown, 0x00BBGGRR: the host's colour of the name's whole type
// mask, so that the host decides for files of several types. None for a file of no known type.
std::optional<COLORREF> CategoryColorFor(const char* fileName);

// The enabled importer that takes the name's extension; of several, the first in plug-in order. False, with
// an empty text, when there is none. Sorts the host's registry by plug-in order.
bool FindImportHandler(const char* fileName, std::string* guid);

}  // namespace file_explorer
