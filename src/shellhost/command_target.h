// IOleCommandTarget from a table of commands.
#pragma once

#include <windows.h>

#include <docobj.h>

#include <algorithm>
#include <span>

#include "src/framework/com/com_guard.h"

namespace file_explorer {

// One command of a class T.
template <class T>
struct CommandEntry {
  const GUID* group;  // null: the standard group
  ULONG id;
  DWORD flags;  // OLECMDF_... that QueryStatus reports besides "supported"
  HRESULT (T::*execute)(DWORD option, VARIANT* in, VARIANT* out);
};

// Base of T, which has a static std::span<const CommandEntry<T>> Commands().
template <class T>
class IOleCommandTargetImpl : public IOleCommandTarget {
 public:
  HRESULT STDMETHODCALLTYPE QueryStatus(const GUID* group, ULONG count, OLECMD commands[],
                                        OLECMDTEXT* text) override {
    if (!commands) return E_INVALIDARG;
    if (text && text->cmdtextf != OLECMDTEXTF_NONE) text->cwActual = 0;  // no command has a text
    for (OLECMD& command : std::span(commands, count)) {
      const CommandEntry<T>* entry = Find(group, command.cmdID);
      command.cmdf = entry ? OLECMDF_SUPPORTED | entry->flags : 0;
    }
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE Exec(const GUID* group, DWORD id, DWORD option, VARIANT* in,
                                 VARIANT* out) override {
    if (const CommandEntry<T>* entry = Find(group, id)) {
      return ComEdge([&] { return (static_cast<T*>(this)->*entry->execute)(option, in, out); });
    }
    const auto commands = T::Commands();
    const bool groupKnown = std::any_of(commands.begin(), commands.end(),
                                        [&](const auto& entry) { return SameGroup(entry.group, group); });
    return groupKnown || !group ? OLECMDERR_E_NOTSUPPORTED : OLECMDERR_E_UNKNOWNGROUP;
  }

 protected:
  ~IOleCommandTargetImpl() = default;

 private:
  static bool SameGroup(const GUID* a, const GUID* b) { return a == b || (a && b && IsEqualGUID(*a, *b)); }
  static const CommandEntry<T>* Find(const GUID* group, ULONG id) {
    for (const CommandEntry<T>& entry : T::Commands()) {
      if (entry.id == id && SameGroup(entry.group, group)) return &entry;
    }
    return nullptr;
  }
};

}  // namespace file_explorer
