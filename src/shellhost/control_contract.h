// What the three shell controls agree on with whoever hosts them: class and interface ids, and the dispatch
// ids of their properties, methods and events by meaning. docs/controls-contract.md has the whole table.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace file_explorer {

// ---- File view: the file list
// ----------------------------------------------------------------------------------
inline constexpr CLSID CLSID_FileViewControl = {
    0x0A7A7240, 0xD038, 0x4B9F, {0xB3, 0xB1, 0x7F, 0xEF, 0xFE, 0x5F, 0x9E, 0xD6}};
inline constexpr IID DIID_FileViewControl = {
    0xE58CFE4E, 0x2258, 0x4666, {0xAE, 0x59, 0x8C, 0x48, 0x66, 0x0C, 0xF0, 0x98}};
inline constexpr IID DIID_FileViewEvents = {
    0x36310332, 0x3B34, 0x4989, {0x93, 0x39, 0x32, 0x8D, 0x0C, 0x37, 0x99, 0x6A}};
inline constexpr GUID LIBID_FileViewControl = {
    0x3F67717B, 0x3617, 0x4D28, {0x84, 0x5B, 0x27, 0xCD, 0x32, 0x6F, 0x6F, 0xDC}};

// ---- Folder view: the folder tree
// ------------------------------------------------------------------------------
inline constexpr CLSID CLSID_FolderViewControl = {
    0x9EE4C13A, 0x551F, 0x440E, {0xB1, 0xED, 0xF4, 0xFA, 0x3C, 0x93, 0x5F, 0x4F}};
inline constexpr IID DIID_FolderViewControl = {
    0x5B17B3F2, 0x89DA, 0x4045, {0x8D, 0xE1, 0xC4, 0xBA, 0xEE, 0x6F, 0xCC, 0x46}};
inline constexpr IID DIID_FolderViewEvents = {
    0x6755F807, 0x572E, 0x4D81, {0x97, 0x61, 0x35, 0x48, 0xE3, 0x41, 0xCF, 0x55}};
inline constexpr GUID LIBID_FolderViewControl = {
    0x265F1179, 0x0001, 0x4121, {0xB0, 0x74, 0xF6, 0xF9, 0x27, 0x40, 0x41, 0x96}};

// ---- Combo view: the path combo box
// ----------------------------------------------------------------------------
inline constexpr CLSID CLSID_ComboViewControl = {
    0x1451FB53, 0x9444, 0x4FB0, {0xB0, 0xAC, 0x44, 0xF5, 0x6E, 0xDB, 0xC3, 0x32}};
inline constexpr IID DIID_ComboViewControl = {
    0x20B7F96F, 0x5D6D, 0x436C, {0x8E, 0x1B, 0x2C, 0x69, 0x52, 0x8C, 0x19, 0xBE}};
inline constexpr IID DIID_ComboViewEvents = {
    0x10EAEFBF, 0xC1E8, 0x43E0, {0xA3, 0xFF, 0xF1, 0xEA, 0x28, 0x83, 0x92, 0x0D}};
inline constexpr GUID LIBID_ComboViewControl = {
    0x45E0E5F3, 0xE148, 0x43F6, {0xAF, 0x33, 0xBA, 0x13, 0xC5, 0xBC, 0x04, 0xF3}};

// The event interfaces: dispatch only, no members of their own.
struct _DFileViewEvents : public IDispatch {};
struct _DFolderViewEvents : public IDispatch {};
struct _DShComboBoxEvents : public IDispatch {};

// ---- Dispatch ids of the controls
// ------------------------------------------------------------------------------
namespace file_view_id {
inline constexpr DISPID kGridLines = 4;        // BOOL
inline constexpr DISPID kColumnHeaders = 6;    // BOOL
inline constexpr DISPID kSingleSelection = 7;  // BOOL; FALSE: many items at once
inline constexpr DISPID kInPlaceRename = 8;    // BOOL
inline constexpr DISPID kViewStyle = 9;  // I4; 0 large icons, 1 details, 2 small icons, 3 list, 4 thumbnails
inline constexpr DISPID kContextMenu = 11;         // BOOL; the shell's context menu
inline constexpr DISPID kHeaderSort = 13;          // BOOL; sorting by a click on a header
inline constexpr DISPID kFullRowSelect = 14;       // BOOL
inline constexpr DISPID kVirtualFolders = 15;      // BOOL
inline constexpr DISPID kFolders = 17;             // BOOL
inline constexpr DISPID kArchivesAsFolders = 19;   // BOOL; ZIP archives open as folders
inline constexpr DISPID kCurrentFolder = 21;       // R8; PIDL of the folder that is shown
inline constexpr DISPID kInfoTips = 22;            // BOOL
inline constexpr DISPID kKeyboard = 23;            // BOOL; navigation and commands by keys
inline constexpr DISPID kListWindow = 26;          // I4; read only, handle of the inner list
inline constexpr DISPID kDragAndDrop = 27;         // BOOL
inline constexpr DISPID kThumbnailQuality = 35;    // I4
inline constexpr DISPID kFont = 37;                // object
inline constexpr DISPID kGoUp = 44;                // method
inline constexpr DISPID kItem = 47;                // object; argument I4, from 1
inline constexpr DISPID kFirstSelectedItem = 48;   // object
inline constexpr DISPID kNextSelectedItem = 49;    // object; after the last that 48 or 49 gave
inline constexpr DISPID kExecuteOnSelection = 50;  // method; argument I4
inline constexpr DISPID kExecuteOnFolder = 51;     // method; argument I4
inline constexpr DISPID kItemCount = 52;           // I4; read only
inline constexpr DISPID kSelectedCount = 53;       // I4; read only
inline constexpr DISPID kRefresh = 56;             // method
inline constexpr DISPID kNewFolder = 58;           // method; argument BOOL, result BOOL
inline constexpr DISPID kCurrentFolderItem = 69;   // object; the folder that is shown, as an item
inline constexpr DISPID kAddMenuItem = 70;         // method; arguments BSTR caption, BSTR verb, result I4
}  // namespace file_view_id

namespace folder_view_id {
inline constexpr DISPID kShowFiles = 4;             // BOOL
inline constexpr DISPID kVirtualFolders = 5;        // BOOL
inline constexpr DISPID kSelectedFolder = 7;        // object
inline constexpr DISPID kLines = 13;                // BOOL
inline constexpr DISPID kButtons = 14;              // BOOL
inline constexpr DISPID kShowSelectionAlways = 18;  // BOOL
inline constexpr DISPID kInPlaceRename = 19;        // BOOL
inline constexpr DISPID kContextMenu = 21;          // BOOL
inline constexpr DISPID kDragAndDrop = 22;          // BOOL
inline constexpr DISPID kTreeWindow = 23;           // I4; read only, handle of the inner tree
inline constexpr DISPID kLinkedFileView = 24;       // object
inline constexpr DISPID kAddMenuItem = 25;          // method; arguments BSTR caption, BSTR verb, result I4
inline constexpr DISPID kNewFolder = 26;            // method; under the selected folder, then in-place rename
inline constexpr DISPID kFont = 31;                 // object
}  // namespace folder_view_id

namespace combo_view_id {
inline constexpr DISPID kDropDownRows = 1;      // I2
inline constexpr DISPID kFullPath = 2;          // BOOL
inline constexpr DISPID kVirtualFolders = 4;    // BOOL
inline constexpr DISPID kHistory = 7;           // BOOL
inline constexpr DISPID kLinkedFolderView = 8;  // object
inline constexpr DISPID kIcons = 12;            // BOOL
inline constexpr DISPID kComboWindow = 13;      // I4; read only, handle of the combo box
inline constexpr DISPID kCompletion = 14;       // BOOL
inline constexpr DISPID kEnterNavigates = 15;   // BOOL
inline constexpr DISPID kBorderStyle = 16;      // I4
inline constexpr DISPID kFont = DISPID_FONT;    // object
}  // namespace combo_view_id

// Items of the file view and folders of the folder view.
namespace item_id {
inline constexpr DISPID kName = 1;            // BSTR; the file-system path
inline constexpr DISPID kFullPath = 4;        // BSTR; the file-system path
inline constexpr DISPID kSortKey = 9;         // VARIANT
inline constexpr DISPID kSelected = 12;       // BOOL
inline constexpr DISPID kParentFolder = 16;   // method of a folder; object, or nothing at the root
inline constexpr DISPID kAttributes = 18;     // I4; argument I4: the SFGAO bits that are asked for
inline constexpr DISPID kDefaultAction = 19;  // method
inline constexpr DISPID kPidl = 21;           // R8
inline constexpr DISPID kFolderText = 23;     // BSTR; of a folder of the folder view
}  // namespace item_id

// ---- Dispatch ids of the events that the explorer reacts to
// ----------------------------------------------------
namespace file_view_event_id {
inline constexpr DISPID kClick = 1;
inline constexpr DISPID kDoubleClick = 2;
inline constexpr DISPID kFolderChanged = 3;
inline constexpr DISPID kSelectionChanged = 10;
inline constexpr DISPID kAskDefaultAction = 12;  // raised for each item that is about to be shown
inline constexpr DISPID kMenuCommand = 14;
inline constexpr DISPID kMenuOpening = 15;
inline constexpr DISPID kNotice = 17;
inline constexpr DISPID kContentChanged = 18;
inline constexpr DISPID kSorting = 19;
inline constexpr DISPID kCompareItems = 20;
}  // namespace file_view_event_id

namespace folder_view_event_id {
inline constexpr DISPID kMenuOpening = 13;
inline constexpr DISPID kMenuCommand = 14;
}  // namespace folder_view_event_id

// Answer of the file view's sorting event: sort through the comparison event, or as the control does.
inline constexpr LONG kSortByComparison = 3;
inline constexpr LONG kSortByControl = 0;

}  // namespace file_explorer
