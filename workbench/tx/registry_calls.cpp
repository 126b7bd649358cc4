#include <cstring>
#include <string>
#include <vector>

#include "workbench/tx/library.h"

using namespace workbench::tx;

namespace {

// A started argument list that is ended in any case.
class Arguments : public ArgumentList {
 public:
  ~Arguments() { va_end(list); }
};

// Copies the texts into host memory; null, with nothing left behind, when memory is short.
char** CopyTexts(const std::vector<std::string>& texts) {
  auto** copies = static_cast<char**>(Tx_Alloc_Memory(texts.size() * sizeof(char*)));
  if (!copies) return nullptr;
  for (size_t i = 0; i < texts.size(); ++i) {
    copies[i] = static_cast<char*>(Tx_Alloc_Memory(texts[i].size() + 1));
    if (!copies[i]) {
      for (size_t j = 0; j < i; ++j) Tx_Free_Memory(copies[j]);
      Tx_Free_Memory(copies);
      return nullptr;
    }
    std::memcpy(copies[i], texts[i].c_str(), texts[i].size() + 1);
  }
  return copies;
}

}  // namespace

int Tx_FileFormatHandler(const char* handlerGuid, ...) {
  Arguments arguments;
  va_start(arguments.list, handlerGuid);
  return Guarded(0, [&]() -> int {
    if (!handlerGuid || !*handlerGuid) return 0;
    Handler handler;
    handler.guid = handlerGuid;
    const LockedState state;
    return state->keywords.ReadGroups(arguments, handler) && state->registry.Register(std::move(handler));
  });
}

int Tx_Remove_FileFormatHandler(const char* handlerGuid) {
  return Guarded(0, [&]() -> int { return handlerGuid && LockedState()->registry.Remove(handlerGuid); });
}

int Tx_Enable_FileFormatHandler(const char* handlerGuid, int enabled) {
  return Guarded(
      0, [&]() -> int { return handlerGuid && LockedState()->registry.Enable(handlerGuid, enabled != 0); });
}

uint32_t Tx_FileFormatHandler_GetHandlerTypesFromFilenameExtension(TxToken list, const char* fileName, int) {
  return Guarded(uint32_t{0}, [&]() -> uint32_t {
    if (!fileName) return 0;
    const LockedState state;
    const auto handlers = state->keywords.ListOf(list);
    return handlers ? state->registry.TypesOfName(*handlers, fileName) : 0;
  });
}

int Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats(TxToken list, uint32_t typeBits) {
  return Guarded(0, [&]() -> int {
    const LockedState state;
    const auto handlers = state->keywords.ListOf(list);
    return handlers ? state->registry.CountOfType(*handlers, typeBits) : 0;
  });
}

int Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(uint32_t typeMask, float* red, float* green,
                                                           float* blue) {
  return Guarded(0, [&]() -> int {
    if (!red || !green || !blue) return 0;
    const LockedState state;
    const Color* color = state->colors.Of(typeMask);
    if (!color) return 0;
    *red = color->red;
    *green = color->green;
    *blue = color->blue;
    return 1;
  });
}

int Tx_FileFormatHandler_SetAssociatedFileTypeHandlerColor(uint32_t typeBit, float red, float green,
                                                           float blue) {
  return Guarded(0, [&]() -> int { return LockedState()->colors.Set(typeBit, {red, green, blue}); });
}

void Tx_FileFormatHandler_ResetAssociatedFileTypeHandlerColors(void) {
  Guarded(0, [] {
    LockedState()->colors.Reset();
    return 1;
  });
}

int Tx_FileFormatHandler_SortList(TxToken order, int, int) {
  return Guarded(0, [&]() -> int {
    const LockedState state;
    if (order == state->keywords.byPluginOrder()) {
      state->registry.SortByPluginOrder();
    } else if (order == state->keywords.byName()) {
      state->registry.SortByName();
    } else {
      return 0;
    }
    return 1;
  });
}

int Tx_FileFormatHandler_Query_GUID_List(TxToken list, int limit, char*** guids) {
  if (!guids) return 0;
  *guids = nullptr;
  return Guarded(0, [&]() -> int {
    if (limit <= 0) return 0;
    std::vector<std::string> found;
    {
      const LockedState state;
      if (const auto handlers = state->keywords.ListOf(list)) {
        found = state->registry.Guids(*handlers, static_cast<size_t>(limit));
      }
    }
    *guids = CopyTexts(found);
    return *guids ? static_cast<int>(found.size()) : 0;
  });
}

int Tx_Inquire_FileFormatHandler(const char* handlerGuid, ...) {
  Arguments arguments;
  va_start(arguments.list, handlerGuid);
  return Guarded(0, [&]() -> int {
    if (!handlerGuid) return 0;
    const LockedState state;
    const Handler* handler = state->registry.Find(handlerGuid);
    return handler && state->keywords.WriteValues(*handler, arguments);
  });
}
