// One hosted shell control, and how its events reach the explorer.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <cstdint>

#include "base/handles/held.h"
#include "src/framework/com/com_owners.h"

namespace file_explorer {

class ExplorerWindow;
class ControlEventSink;
struct ShellControlClass;
struct ShellControlHost;

// What a control event means to the explorer.
enum class ControlEvent : std::int16_t {
  kFileClicked = 0,         // object item; a, b: the event's numbers; path
  kFileDoubleClicked = 1,   // the same; a non-zero result stops the control's own action
  kFolderChanged = 2,       // a: the PIDL of the folder, the control's own; path: the event's text
  kSelectionChanged = 16,   // object; a: 0 or -1
  kAskDefaultAction = 18,   // object item; path
  kFolderMenuOpening = 19,  // object item; path
  kMenuCommand = 20,      // object item; a: the command; path; folder view: b, the address of the item's text
  kFileMenuOpening = 21,  // object item; path
  kNotice = 23,           // no arguments
  kContentChanged = 24,   // no arguments
  kSorting = 25,          // a: the column; path: the event's text; non-zero: sort through kCompareItems
  kCompareItems = 26,     // object: first item; a: second item (IDispatch*); b: address of the LONG to write
};

// Receives every control event. `code` is a ControlEvent. object (may be null) and path (8-bit, may be null)
// are borrowed and live during the call only; unused numbers are 0. Non-zero: handled. The host may be
// taken down during the call.
using ControlEventCallback = std::int64_t (*)(std::int16_t code, ShellControlHost* host, IDispatch* object,
                                              std::int64_t a, std::int64_t b, std::int64_t c, std::int64_t d,
                                              const char* path);

// Taking a host down takes its control down, in this order: the explorer hears no more events; the control
// drops its reference to the sink; the dispatch interface goes; the site is detached (deactivates, closes and
// releases the control); the site and the sink go. Every operation on what is left does nothing. Whoever calls
// the control more than once holds the host (base::Hold): the control may let the owner take it down meanwhile.
struct ShellControlHost : base::Holdable {
  ShellControlHost() = default;
  ~ShellControlHost() { TakeDown(); }
  void TakeDown() noexcept;

  ComPtr<IUnknown>
      site;  // of a CControlSite; null when creation failed, and then every operation does nothing
  HWND parentWindow = nullptr;
  void* reserved = nullptr;
  ComPtr<IDispatch> sink;
  ComPtr<IDispatch> control;  // the control's dispatch interface
  ControlEventCallback callback = nullptr;
  ExplorerWindow* owner = nullptr;

  const ShellControlClass* controlClass = nullptr;
  ControlEventSink* eventSink = nullptr;  // the sink, by the side that knows its host
  AdviseConnection connection;
};

// Owns a host and takes it down when it goes.
using ShellControlPtr = base::held_ptr<ShellControlHost>;

}  // namespace file_explorer
