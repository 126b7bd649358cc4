// Registering, creating, linking and removing the three shell controls.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include <memory>

#include "src/shellhost/property_list.h"
#include "src/shellhost/shell_control_host.h"

namespace file_explorer {

// What tells the three controls apart.
struct ShellControlClass {
  const char* displayName;
  const char* fileName;
  const CLSID* classId;
  const IID* dispatchId;
  const IID* eventId;
  // Makes the sink of the control's events and gives its ControlEventSink side too.
  ComPtr<IDispatch> (*createSink)(ControlEventSink** side);
};
extern const ShellControlClass kFileViewClass;
extern const ShellControlClass kFolderViewClass;
extern const ShellControlClass kComboViewClass;

// Load the control's file by its bare name (the normal search order decides where) and let it register
// itself. 1 when the file was loaded, whatever its registration says; 0 when not. The file stays loaded. Each
// also initialises COM on the thread (undone by ReleaseShellControlState).
int RegisterFileViewControl();
int RegisterFolderViewControl();
int RegisterComboViewControl();
// What the three have in common.
int RegisterShellControl(const ShellControlClass& controlClass);

// Registers file view and combo view, in this order, the first time in the module's life and never again,
// whatever comes of it. An exception of a registration goes to the caller, and the next call tries again.
using ControlRegistration = int (*)();
void RegisterFilePaneControls(ControlRegistration fileView = RegisterFileViewControl,
                              ControlRegistration comboView = RegisterComboViewControl);

// Make a control in parentWindow, which it fills. Null when it could not be made; the user was told then. A
// property that the control refuses raises _com_error.
ShellControlPtr CreateFileViewHost(HWND parentWindow, PropertyList properties,
                                                     ExplorerWindow* owner, ControlEventCallback callback);
// The owner sets callback and owner of these two.
ShellControlPtr CreateFolderViewHost(HWND parentWindow);
ShellControlPtr CreateComboViewHost(HWND parentWindow);

// The steps that the three have in common. On return host.site is null when there is no control.
void CreateShellControl(ShellControlHost& host, const ShellControlClass& controlClass, HWND parentWindow,
                        PropertyList properties);
// Gets the control's dispatch interface and connects the event sink. False when the control lacks one of the
// two.
bool ConnectShellControl(ShellControlHost& host);

// Follows the pane: rect is in client pixels of the parent window.
void ResizeShellControl(ShellControlHost* host, const RECT& rect);
// Shows or hides the control's window. Nothing for a host without a control.
void ShowShellControl(ShellControlHost* host, bool visible);

// Ties tree, list and path box together: combo view to folder view, then folder view to file view. A host
// that is null or has no control is left out. May be called again when a control comes later.
void LinkShellControls(ShellControlHost* comboView, ShellControlHost* folderView, ShellControlHost* fileView);

// Values of the user's options that the controls take; 0 is off, anything else on.
struct ControlOptions {
  int treeShowFiles = 0;               // "TreeView_ShowFiles"
  int treeShowVirtualFolders = 0;      // "TreeView_ShowVirtualFolders"
  int treeAllowDragAndDrop = 0;        // "TreeView_AllowDragandDrop"
  int fileViewShowVirtualFolders = 0;  // "FileView_ShowVirtualFolders"
  int fileViewShowFolders = 0;         // "FileView_ShowFolders"
  int fileViewAllowDragAndDrop = 0;    // "FileView_AllowDragandDrop"
  int fileViewShowGridLines = 0;       // "FileView_ShowGridLines"
};
// Sends the options to the controls that exist, folder view first. The caller pushes the category colours
// afterwards.
void ApplyControlOptions(ShellControlHost* folderView, ShellControlHost* fileView,
                         const ControlOptions& options);

// A new font for the controls: "MS Sans Serif", 9 points. Null when it can't be made.
ComPtr<IFontDisp> CreateControlFont();

// Gives up what the controls share: the font, and the COM initialisations of the registrations on this
// thread. Call it when the last host is gone. The files that were loaded stay loaded.
void ReleaseShellControlState() noexcept;

}  // namespace file_explorer
