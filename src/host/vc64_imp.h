// The host's import library, vc64_imp.dll: version strings, registry, tooltips, help, window placement, texts and the
// per-user application directory.
//
// Texts are 8-bit (the process's ANSI code page), NUL-terminated. A text that a function returns is the caller's and
// is released with Tx_Free_Memory. No function throws or crashes on null arguments; "true" is not 0.
// Window functions are called on the thread that owns the window.
#pragma once

#include <windows.h>

#ifdef VC64_IMP_BUILDS
#define VC64_IMP_API extern "C" __declspec(dllexport)
#else
#define VC64_IMP_API extern "C" __declspec(dllimport)
#endif

// The file's version as text, "major.minor.build.revision", from its version resource. Null when the file cannot be
// read or has none. Caller frees.
VC64_IMP_API char* Import_IO_GetVersionStringfromExeOrDLL(const char* path);
// Writes a text value below HKEY_CURRENT_USER, creating the key. False when an argument is null or the write fails.
VC64_IMP_API int Import_IO_Write_Key(const char* key, const char* valueName, const char* text);

// A tooltip control that shows the texts which its owner window answers TTN_GETDISPINFO with.
typedef struct ImportToolTipControl ImportToolTipControl;
// Null when owner is no window.
VC64_IMP_API ImportToolTipControl* Import_IO_ToolTipControl_CreateNew(HWND owner);
// Destroys the control and its window; null is ignored.
VC64_IMP_API void Import_IO_ToolTipControl_Delete(ImportToolTipControl* control);

// Opens the page of a topic of a help file. helpLocation is the help folder; the topics of "name.hlp" are the pages
// "<helpLocation>\name\<topic>.html". False when an argument is null or empty, the topic has no page, or nothing can
// show it.
VC64_IMP_API int Import_IO_DisplayHelpTopic(const char* helpLocation, const char* helpFile, const char* topic);
// Takes the opening of help pages over: opener gets the page's full path and says whether it showed it. Null restores
// the system's own way. Gives the previous opener.
typedef int (*ImportHelpOpener)(const char* pagePath);
VC64_IMP_API ImportHelpOpener Import_IO_SetHelpOpener(ImportHelpOpener opener);

// Moves a window to the middle of its owner (or parent; the screen's work area when there is none or it is
// minimised), kept inside the work area of that monitor. False when window is no window.
VC64_IMP_API int Import_IO_Center_Window(HWND window);

// A copy of the text; null for null. Caller frees.
VC64_IMP_API char* Import_IO_Copy_String(const char* text);
// Removes white space (blank, tab, line ends, vertical tab, form feed) from both ends, in place. Returns text.
VC64_IMP_API char* Import_IO_Strip_Whitespace(char* text);

// The directory in which the host's programs keep the current user's data, without a separator at its end; it is
// created when it is missing. mainWindow is the host's main window (may be null). Null when there is no such directory
// and none can be made. The environment variable HALVO_APPLICATION_DIRECTORY, when set, names another place (a portable
// installation). Caller frees.
VC64_IMP_API char* Import_IO_GetHalvoApplicationDirectoryForCurrentUser(HWND mainWindow);
