#include "src/shellhost/event_sinks.h"

#include <shobjidl.h>

#include <array>

#include "src/framework/com/com_guard.h"
#include "src/framework/com/com_text.h"
#include "src/host/vc64_tx.h"
#include "src/shellhost/control_values.h"
#include "src/shellhost/event_arguments.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/shell_item.h"

namespace file_explorer {
namespace {

// One call of a host's callback. The callback is looked up late: reading the event's arguments calls the control,
// which may have the host taken down, and a host without a callback hears nothing.
struct EventCall {
  ShellControlHost* host;

  std::int64_t operator()(ControlEvent code, IDispatch* object = nullptr, std::int64_t a = 0,
                          std::int64_t b = 0, const std::optional<std::string>& path = std::nullopt) const {
    if (!host->callback) return 0;
    return host->callback(static_cast<std::int16_t>(code), host, object, a, b, 0, 0,
                          path ? path->c_str() : nullptr);
  }
};

// An event that the explorer hears about: how it is checked, decoded and answered.
struct EventEntry {
  DISPID id;
  void (*handle)(const EventCall& call, const EventArguments& arguments);
};

template <class Pointer>
std::int64_t AsNumber(Pointer pointer) {
  return static_cast<std::int64_t>(reinterpret_cast<std::intptr_t>(pointer));
}

// A text of an item; nothing when the item fails to give it, which is no reason to lose the event.
std::optional<std::string> TextOf(IDispatch* item, std::optional<std::string> (ShellItem::*read)() const) {
  try {
    return (ShellItem(item).*read)();
  } catch (const _com_error&) {
    return std::nullopt;
  }
}

// A file-system file that is neither a folder nor a shortcut. Items that don't say are none.
bool IsPlainFile(IDispatch* item) {
  return ShellItem(item).HasAttributes(SFGAO_FOLDER | SFGAO_LINK | SFGAO_FILESYSTEM) == SFGAO_FILESYSTEM;
}

bool IsArchiveName(const std::optional<std::string>& name) {
  return name && Tx_Check_For_File_Extension(name->c_str(), ".zip") != 0;
}

// ---- File view
// -------------------------------------------------------------------------------------------------

void OnClick(const EventCall& call, const EventArguments& arguments) {
  IDispatch* const item = arguments.Object(0);
  const auto p = arguments.Number(1);
  const auto q = arguments.Number(2);
  if (arguments.count() != 3 || !item || !p || !q || !IsPlainFile(item)) return;
  call(ControlEvent::kFileClicked, item, *p, *q, TextOf(item, &ShellItem::GetFullPath));
}

void OnDoubleClick(const EventCall& call, const EventArguments& arguments) {
  IDispatch* const item = arguments.Object(0);
  const auto p = arguments.Number(1);
  const auto q = arguments.Number(2);
  VARIANT_BOOL* const cancel = arguments.FlagReference(3);
  if (arguments.count() != 4 || !item || !p || !q || !cancel || !IsPlainFile(item)) return;
  *cancel = VARIANT_FALSE;  // stands also when the callback throws
  const std::int64_t handled =
      call(ControlEvent::kFileDoubleClicked, item, *p, *q, TextOf(item, &ShellItem::GetFullPath));
  *cancel = handled ? VARIANT_TRUE : VARIANT_FALSE;
}

// The folder that the file view shows; 0 when it doesn't say.
std::int64_t CurrentFolderNumber(ShellControlHost* host) {
  try {
    return AsNumber(GetCurrentFolder(host));
  } catch (const _com_error&) {
    return 0;
  }
}

void OnFolderChanged(const EventCall& call, const EventArguments& arguments) {
  const auto text = arguments.Text(0);
  if (arguments.count() != 1 || !text || !*text) return;
  call(ControlEvent::kFolderChanged, nullptr, CurrentFolderNumber(call.host), 0, DisplayBstr(*text));
}

void OnSelectionChanged(const EventCall& call, const EventArguments& arguments) {
  IDispatch* const object = arguments.Object(0);
  const auto flag = arguments.Flag(1);
  if (arguments.count() != 2 || !object || !flag) return;
  call(ControlEvent::kSelectionChanged, object, *flag);
}

// Raised for each item that is about to be shown: the item is asked for no more than it takes to decide.
void OnAskDefaultAction(const EventCall& call, const EventArguments& arguments) {
  IDispatch* const item = arguments.Object(0);
  if (arguments.count() != 1 || !item) return;
  const ULONG attributes = ShellItem(item).HasAttributes(SFGAO_FOLDER | SFGAO_FILESYSTEM);
  if (!(attributes & SFGAO_FILESYSTEM)) return;
  const auto name = TextOf(item, &ShellItem::GetName);
  // The shell reports a ZIP archive as a folder; to the explorer it is a file.
  if ((attributes & SFGAO_FOLDER) && !IsArchiveName(name)) return;
  call(ControlEvent::kAskDefaultAction, item, 0, 0, name);
}

void OnFileMenuCommand(const EventCall& call, const EventArguments& arguments) {
  IDispatch* const item = arguments.Object(0);
  const auto command = arguments.Number(1);
  if (arguments.count() != 2 || !item || !command) return;
  call(ControlEvent::kMenuCommand, item, *command, 0, TextOf(item, &ShellItem::GetNameAsPath));
}

void OnFileMenuOpening(const EventCall& call, const EventArguments& arguments) {
  IDispatch* const item = arguments.Object(0);
  if (arguments.count() != 1 || !item) return;
  call(ControlEvent::kFileMenuOpening, item, 0, 0, TextOf(item, &ShellItem::GetName));
}

void OnNotice(const EventCall& call, const EventArguments&) {
  call(ControlEvent::kNotice);
}

void OnContentChanged(const EventCall& call, const EventArguments&) {
  call(ControlEvent::kContentChanged);
}

void OnSorting(const EventCall& call, const EventArguments& arguments) {
  const auto text = arguments.Text(0);
  const auto column = arguments.Number(1);
  LONG* const answer = arguments.NumberReference(2);
  if (arguments.count() != 3 || !text || !column || !answer) return;
  *answer = kSortByControl;  // stands also when the callback throws
  const std::int64_t handled = call(ControlEvent::kSorting, nullptr, *column, 0, DisplayBstr(*text));
  *answer = handled ? kSortByComparison : kSortByControl;
}

void OnCompareItems(const EventCall& call, const EventArguments& arguments) {
  IDispatch* const first = arguments.Object(0);
  IDispatch* const second = arguments.Object(1);
  LONG* const order = arguments.NumberReference(2);
  if (arguments.count() != 3 || !first || !second || !order) return;
  call(ControlEvent::kCompareItems, first, AsNumber(second), AsNumber(order));
}

constexpr std::array kFileViewEvents = {
    EventEntry{file_view_event_id::kClick, OnClick},
    EventEntry{file_view_event_id::kDoubleClick, OnDoubleClick},
    EventEntry{file_view_event_id::kFolderChanged, OnFolderChanged},
    EventEntry{file_view_event_id::kSelectionChanged, OnSelectionChanged},
    EventEntry{file_view_event_id::kAskDefaultAction, OnAskDefaultAction},
    EventEntry{file_view_event_id::kMenuCommand, OnFileMenuCommand},
    EventEntry{file_view_event_id::kMenuOpening, OnFileMenuOpening},
    EventEntry{file_view_event_id::kNotice, OnNotice},
    EventEntry{file_view_event_id::kContentChanged, OnContentChanged},
    EventEntry{file_view_event_id::kSorting, OnSorting},
    EventEntry{file_view_event_id::kCompareItems, OnCompareItems},
};

// ---- Folder view
// -----------------------------------------------------------------------------------------------

void OnFolderMenuOpening(const EventCall& call, const EventArguments& arguments) {
  IDispatch* const item = arguments.Object(0);
  if (arguments.count() != 1 || !item) return;
  call(ControlEvent::kFolderMenuOpening, item, 0, 0, TextOf(item, &ShellItem::GetName));
}

void OnFolderMenuCommand(const EventCall& call, const EventArguments& arguments) {
  IDispatch* const item = arguments.Object(0);
  const auto command = arguments.Number(1);
  if (arguments.count() != 2 || !item || !command) return;
  const auto text = TextOf(item, &ShellItem::GetFolderText);
  call(ControlEvent::kMenuCommand, item, *command, text ? AsNumber(text->c_str()) : 0,
       TextOf(item, &ShellItem::GetNameAsPath));
}

constexpr std::array kFolderViewEvents = {
    EventEntry{folder_view_event_id::kMenuOpening, OnFolderMenuOpening},
    EventEntry{folder_view_event_id::kMenuCommand, OnFolderMenuCommand},
};

// ---- All sinks
// -------------------------------------------------------------------------------------------------

// Answers an event: known says whether the control's events have this DISPID at all, entries are those that
// go on to the host's callback.
HRESULT AnswerEvent(ShellControlHost* host, DISPID id, const DISPPARAMS* parameters,
                    bool (*known)(std::int32_t), std::span<const EventEntry> entries) noexcept {
  if (!parameters) return DISP_E_PARAMNOTFOUND;
  if (!known(id)) return DISP_E_MEMBERNOTFOUND;
  if (!host || !host->callback) return S_OK;
  const base::Hold hold(host);  // until the event is over, whatever the callback brings about
  for (const EventEntry& entry : entries) {
    if (entry.id != id) continue;
    // Whatever goes wrong on the way is not the control's business.
    ComEdge([&] {
      entry.handle({host}, EventArguments(*parameters));
      return S_OK;
    });
    break;
  }
  return S_OK;
}

}  // namespace

std::span<const InterfaceEntry> CFileViewSinkEvents::Interfaces() {
  using T = CFileViewSinkEvents;
  static constexpr std::array kEntries = {Exposes<T, IUnknown, _DFileViewEvents>(IID_IUnknown),
                                          Exposes<T, IDispatch, _DFileViewEvents>(IID_IDispatch),
                                          Exposes<T, _DFileViewEvents>(DIID_FileViewEvents)};
  return kEntries;
}

HRESULT CFileViewSinkEvents::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                    EXCEPINFO*, UINT*) {
  return AnswerEvent(host(), id, parameters, IsFileViewEvent, kFileViewEvents);
}

std::span<const InterfaceEntry> CFolderViewSinkEvents::Interfaces() {
  using T = CFolderViewSinkEvents;
  static constexpr std::array kEntries = {Exposes<T, IUnknown, _DFolderViewEvents>(IID_IUnknown),
                                          Exposes<T, IDispatch, _DFolderViewEvents>(IID_IDispatch),
                                          Exposes<T, _DFolderViewEvents>(DIID_FolderViewEvents)};
  return kEntries;
}

HRESULT CFolderViewSinkEvents::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                      EXCEPINFO*, UINT*) {
  return AnswerEvent(host(), id, parameters, IsFolderViewEvent, kFolderViewEvents);
}

std::span<const InterfaceEntry> CComboViewSinkEvents::Interfaces() {
  using T = CComboViewSinkEvents;
  static constexpr std::array kEntries = {Exposes<T, IUnknown, _DShComboBoxEvents>(IID_IUnknown),
                                          Exposes<T, IDispatch, _DShComboBoxEvents>(IID_IDispatch),
                                          Exposes<T, _DShComboBoxEvents>(DIID_ComboViewEvents)};
  return kEntries;
}

HRESULT CComboViewSinkEvents::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*,
                                     EXCEPINFO*, UINT*) {
  return AnswerEvent(host(), id, parameters, IsComboViewEvent, {});
}

}  // namespace file_explorer
