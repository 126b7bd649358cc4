// The host's services object, as the plug-in sees it.
//
// A host hands the plug-in the address of a HostServices: a row of interface objects. Interface number n lies at
// position n of the row; each interface object is exactly one pointer to a table of operations. An operation is called
// with the address of its interface object first and then its own arguments, in the platform's 64-bit calling
// convention. All calls are made on the host's user-interface thread. Positions that the plug-in does not use may be
// null and are never called.
//
// docs/host-contract.md explains the same tables to somebody who writes a host.
#pragma once

#include <windows.h>

#include <cstdint>
#include <type_traits>

namespace host {

using Operation = void (*)();

// One interface of the host: a pointer to its operations.
struct InterfaceObject {
  const Operation* operations;
};

inline constexpr int kInterfaceCount = 23;  // positions 0 to 22

// The row of interface objects. A host may have more of them behind these.
struct HostServices {
  InterfaceObject interfaces[kInterfaceCount];
};

// ---- Values that travel through the operations -----------------------------------------------------------------

inline constexpr std::uint32_t kHostFlagNoExplorer = 0x100;  // GetHostFlags: no explorer instance may be created
inline constexpr std::uint32_t kHostFlagProductA = 32;       // GetHostFlags: either bit set, the product is "Teskar",
inline constexpr std::uint32_t kHostFlagProductB = 64;       // else "Corvalent"
inline constexpr std::uint32_t kSecondFlagCloseAllowed = 0x20;  // GetSecondFlags: docked windows may be closed

// Window creation methods of the window manager.
inline constexpr std::uint16_t kMethodTabbedDocument = 0;
inline constexpr std::uint16_t kMethodDocked = 1;
inline constexpr std::uint16_t kMethodFloating = 2;
inline constexpr std::uint16_t kMethodCollapsible = 4;        // collapsible pop-up of its own
inline constexpr std::uint16_t kMethodTabbedCollapsible = 5;  // collapsible pop-up that shares its place as a tab
inline constexpr std::uint16_t kMethodHostDefault = 7;

// Docking positions of the window manager.
inline constexpr std::uint16_t kDockLeft = 0;
inline constexpr std::uint16_t kDockRight = 1;
inline constexpr std::uint16_t kDockTop = 2;
inline constexpr std::uint16_t kDockBottom = 3;

// Window states of a collapsible window.
inline constexpr std::int32_t kStateExpanded = 2;   // pinned open
inline constexpr std::int32_t kStateCollapsed = 3;  // shown as a tab at the edge only

// Sub-codes in the low 16 bits of the first parameter of the window manager's notification message. The second
// parameter is 0. Sub-codes 0 and 2 use the result: 0 says "toggled" (1) or not (0), 2 says "refuse" (1) or "close" (0).
inline constexpr std::uint16_t kNotifyToggle = 0;      // the user double-clicked the caption: toggle the state
inline constexpr std::uint16_t kNotifyClose = 2;       // the user asks to close the window
inline constexpr std::uint16_t kNotifyActivated = 8;   // the window became the active one
inline constexpr std::uint16_t kNotifyDocked = 10;     // the window was docked at another place
inline constexpr std::uint16_t kNotifyShown = 12;      // the window was shown after having been hidden
inline constexpr std::uint16_t kNotifyTabbed = 14;     // the window became the front tab
inline constexpr std::uint16_t kNotifyFloated = 18;    // the window was floated
inline constexpr std::uint16_t kNotifyStateSet = 23;   // the window was expanded or collapsed

// Code that SetWindowSize takes: width and height both count.
inline constexpr std::int32_t kSizeBoth = 3;

// Smallest buffer, in bytes, for the reason text of ValidateMatchPattern.
inline constexpr int kMatchReasonSize = 512;
// The flag that MatchPattern is called with: letters match without regard to case.
inline constexpr std::int32_t kMatchIgnoreCase = 1;

// The picture of a docked window's tab. The host copies the bitmap during the call.
struct DockedWindowBitmap {
  std::int32_t hasBitmap;      // 1: bitmap is valid
  HBITMAP bitmap;              // owned by the caller
  COLORREF transparentColor;   // 0x00BBGGRR
};

// What CreateDockedWindow says of the window's place.
struct DockedWindowPlacement {
  std::int32_t hasPlacement;  // 0: never placed before, the caller sets size and position; else the host placed it
  RECT rect;                  // the placement, in screen pixels, when hasPlacement is not 0
};

// ---- Operations ------------------------------------------------------------------------------------------------

// Names one operation by interface and position and fixes its signature at compile time.
template <int Interface, int Position, typename Signature>
struct OperationAt;

template <int Interface, int Position, typename Result_, typename... Arguments>
struct OperationAt<Interface, Position, Result_(Arguments...)> {
  static constexpr int kInterface = Interface;
  static constexpr int kPosition = Position;
  using Result = Result_;
  using Function = Result_ (*)(InterfaceObject*, Arguments...);
};

namespace op {

// Interface 0: the application.
// The host's main window; owner of the plug-in's message boxes and receiver of message 0x42E.
using GetMainWindow = OperationAt<0, 0, HWND()>;
// Full path of the host's profile file. The host's own text: valid until the next call, never freed by the caller.
using GetProfileFileName = OperationAt<0, 3, const char*()>;

// Interface 1: the utility panel.
// Adds a page (category, page GUID in registry form, title, second title, bitmap that the host copies, reserved 0,
// transparent colour 0x00BBGGRR, reserved 0 four times). Gives the page's window, owned by the host, or null.
using CreateUtilityPanel =
    OperationAt<1, 0,
                HWND(const char* category, const char* panelGuid, const char* title, const char* secondTitle,
                     HBITMAP bitmap, std::intptr_t reserved1, COLORREF transparentColor, std::intptr_t reserved2,
                     std::intptr_t reserved3, std::intptr_t reserved4, std::intptr_t reserved5)>;
// Removes a page and destroys its window. Unknown GUIDs are ignored.
using RemoveUtilityPanel = OperationAt<1, 1, void(const char* panelGuid)>;
// Brings a page to the front and shows the panel. Unknown GUIDs are ignored.
using ShowUtilityPanel = OperationAt<1, 16, void(const char* panelGuid)>;

// Interface 3: the window manager. Sizes and positions are in screen pixels.
// Hands a top-level window to the manager. Not 0 when the manager took it; it then owns the window's place, parent and
// caption until the window is destroyed. placement is filled in on success.
using CreateDockedWindow =
    OperationAt<3, 0,
                std::int32_t(const char* windowGuid, HWND window, const char* title, const char* secondTitle,
                             std::uint16_t creationMethod, std::uint16_t dockingPosition, std::intptr_t reserved1,
                             const DockedWindowBitmap* bitmap, std::uint32_t extraFlags, std::intptr_t reserved2,
                             std::intptr_t reserved3, std::intptr_t reserved4, DockedWindowPlacement* placement)>;
using SetWindowSize =
    OperationAt<3, 14, void(HWND window, std::int32_t width, std::int32_t height, std::int32_t code)>;
using SetWindowPosition = OperationAt<3, 16, void(HWND window, std::int32_t left, std::int32_t top)>;
using SetWindowState = OperationAt<3, 21, void(HWND window, std::int32_t state)>;
using GetWindowState = OperationAt<3, 22, std::int32_t(HWND window)>;
// Opens the manager's docking menu for the window at a screen position; returns when the menu is closed.
using ShowDockingMenu = OperationAt<3, 23, void(HWND window, std::int32_t x, std::int32_t y)>;
// Number of the message with which the manager notifies its windows (sub-codes above).
using GetNotificationMessage = OperationAt<3, 31, UINT()>;
// A rectangle that the host keeps under a GUID. Not 0 when there is one. right and bottom belong to the rectangle:
// its width is right - left + 1.
using GetStoredRectangle = OperationAt<3, 39, std::int32_t(const char* guid, RECT* rect)>;
// The host's current default creation method.
using GetDefaultCreationMethod = OperationAt<3, 40, std::uint16_t()>;
// Shows (not 0) or hides (0) a managed window at its place.
using ShowManagedWindow = OperationAt<3, 42, void(HWND window, std::int32_t show)>;

// Interface 9: the host's dialogs and colours.
// Shows a host dialog by its keyword, modal to owner; argument is the dialog's text argument or null. Not 0 when the
// dialog was shown; 0 for a keyword that the host does not know.
using ShowHostDialog =
    OperationAt<9, 10, std::int32_t(const char* keyword, HWND owner, const char* argument, std::intptr_t reserved1,
                                    std::intptr_t reserved2, std::intptr_t reserved3)>;
// Lets the user pick a colour; the three floats (0.0 to 1.0) are changed in place. Not 0 when they changed.
using PickColor =
    OperationAt<9, 11, std::int32_t(HWND dialog, const char* title, float* red, float* green, float* blue)>;
// Repaints an owner-drawn colour button of a dialog for a new colour.
using RepaintColorButton =
    OperationAt<9, 12, void(HWND dialog, std::int32_t controlId, float red, float green, float blue)>;
// Draws an owner-drawn colour button; called while WM_DRAWITEM is handled.
using DrawColorButton = OperationAt<9, 13, void(const DRAWITEMSTRUCT* item, float red, float green, float blue)>;

// Interface 12: redrawing, wildcards, other plug-ins.
// Brackets moves of panes: called before the moves and after each one, so that the host can keep its drawing in step.
using RedrawBracket = OperationAt<12, 10, void()>;
// Not 0 when the pattern is well formed; else reason (kMatchReasonSize bytes at least) gets a short phrase.
using ValidateMatchPattern = OperationAt<12, 13, std::int32_t(const char* pattern, char* reason)>;
// Not 0 when the whole name matches the pattern; flags is kMatchIgnoreCase. An ill-formed pattern matches nothing.
using MatchPattern = OperationAt<12, 14, std::int32_t(const char* pattern, const char* name, std::int32_t flags)>;
// Calls another plug-in's entry point with keyword and value arrays (ended by a null keyword, as the entry point's).
// Not 0 when a plug-in of that GUID took the call.
using CallPlugin =
    OperationAt<12, 15, std::int32_t(const char* pluginGuid, const char* const* keywords, void** values)>;

// Interface 13: facts about the host.
using GetSecondFlags = OperationAt<13, 1, std::uint32_t()>;
using GetHostFlags = OperationAt<13, 2, std::uint32_t()>;
using GetHostVersion =
    OperationAt<13, 10, void(std::int16_t* majorVersion, std::int16_t* minorVersion, std::int16_t* release,
                             std::int64_t* fourth)>;

// Interface 22: host registrations. Both are called, 4 before 1, to give a registration back.
using CloseRegistration = OperationAt<22, 4, void(void* registration)>;
using ReleaseRegistration = OperationAt<22, 1, void(void* registration)>;

}  // namespace op

// Calls Op on services. A host without that table or operation gives a value-initialised result.
template <typename Op, typename... Arguments>
typename Op::Result Call(HostServices* services, Arguments... arguments) {
  if (services != nullptr) {
    InterfaceObject& object = services->interfaces[Op::kInterface];
    if (object.operations != nullptr && object.operations[Op::kPosition] != nullptr) {
      return reinterpret_cast<typename Op::Function>(object.operations[Op::kPosition])(&object, arguments...);
    }
  }
  return typename Op::Result();
}

// The host's side: puts an implementation of Op into its table. The signature is checked at compile time.
template <typename Op>
void Bind(Operation* table, typename Op::Function function) {
  table[Op::kPosition] = reinterpret_cast<Operation>(function);
}

}  // namespace host
