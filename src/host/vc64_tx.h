// The host's core library, vc64_tx.dll: memory, paths, environment, tokens and the file-format handler registry.
//
// Texts are 8-bit (the process's ANSI code page), NUL-terminated; sizes are in bytes and count the terminator.
// No function throws, crashes on null or over-long arguments, or changes state of the process. What a function does
// with a bad argument is said at each; "false" is 0, "true" is not 0.
// All functions may be called from any thread, except that handler callbacks run on the thread that asks for them.
#pragma once

#include <stddef.h>
#include <stdint.h>

#ifndef _WIN32  // logic that only needs the constants and types is compiled natively too
#define VC64_TX_API extern "C"
#elif defined(VC64_TX_BUILDS)
#define VC64_TX_API extern "C" __declspec(dllexport)
#else
#define VC64_TX_API extern "C" __declspec(dllimport)
#endif

// ---- Memory ----------------------------------------------------------------------------------------------------

// Zeroed memory of size bytes, released with Tx_Free_Memory; null when size is 0 or memory is short.
VC64_TX_API void* Tx_Alloc_Memory(size_t size);
// Like realloc; block may be null. On failure, or with size 0, null is returned and block stays as it was.
VC64_TX_API void* Tx_Realloc_Memory(void* block, size_t size);
// Releases a block of the two libraries. Null is ignored.
VC64_TX_API void Tx_Free_Memory(void* block);
// Blocks that are allocated now and not yet freed: for leak checks of a host.
VC64_TX_API size_t Tx_Inquire_Allocated_Blocks(void);

// ---- Paths and files -------------------------------------------------------------------------------------------

// Longest path, in bytes with its terminator, that the path functions write.
enum { kTxPathSize = 2048 };

// Writes folder + separator + name to result (resultSize bytes). One separator stands between the two whether or not
// folder ends in one; an empty name leaves the folder with a separator at its end ("c:" and "textures" give
// "c:\textures", "c:\a" and "" give "c:\a\"); an empty folder leaves the name alone. Null counts as empty. Separators
// that are there already are kept, both "/" and "\". False, with an empty result, when it does not fit.
VC64_TX_API int Tx_ConcatenatePathAndFilename(const char* folder, const char* name, char* result, size_t resultSize);
// Puts extension (".bak", or "bak") in place of the path's own, or behind a path that has none; pathSize is the
// buffer's size. A dot in a folder's name, or at the start of the name alone (".profile"), begins no extension.
// False, with the path unchanged, when the result does not fit or an argument is null.
VC64_TX_API int Tx_Check_File_Extension(char* path, size_t pathSize, const char* extension);
// True when the path ends in the extension (with its dot, as ".zip"), letters of any case. False for null or empty
// arguments.
VC64_TX_API int Tx_Check_For_File_Extension(const char* path, const char* extension);
// True when the name ends in one of the extensions of the list; entries are separated by ";", "," or blanks, and are
// written ".3ds", "3ds" or "*.3ds"; letters of any case.
VC64_TX_API int Tx_Compare_Multiple_File_Extensions(const char* fileName, const char* extensionList);
// The part behind the last separator or drive colon: the name with its extension. False, with an empty result, when it
// does not fit or path is null.
VC64_TX_API int Tx_ExtractBaseFileName(const char* path, char* result, size_t resultSize);
// The part before the base name, with its last separator; empty when there is none. False, with an empty result, when
// it does not fit or path is null.
VC64_TX_API int Tx_ExtractBaseFilePath(const char* path, char* result, size_t resultSize);
// True when path names an existing file or folder.
VC64_TX_API int Tx_File_Exists(const char* path);
// Adds "\" to a path that is not empty and does not end in a separator. False, path unchanged, when it does not fit.
VC64_TX_API int Tx_AppendPathSeparator(char* path, size_t pathSize);

// ---- Environment, tokens, GUIDs --------------------------------------------------------------------------------

// Value of a host environment variable; null when it is not set or empty. The library's own text, valid until this
// thread's next call of this function; never freed by the caller.
VC64_TX_API const char* Tx_Inquire_Environment(const char* name);
// Sets (value) or removes (null) a host environment variable. A variable that was never set falls back to the
// process's environment, a removed one does not. False for a null or empty name.
VC64_TX_API int Tx_Set_Environment(const char* name, const char* value);

// A keyword as a number; equal keywords (exact, case-sensitive) give equal tokens in one process. Never 0.
typedef int32_t TxToken;
// The token of a keyword; 0 for null or an empty text.
VC64_TX_API TxToken Tx_Inquire_Token(const char* keyword);

// Size of a GUID in registry form, "{8-4-4-4-12}", with its terminator.
enum { kTxGuidSize = 39 };
// Writes a fresh GUID in registry form, upper-case digits, to guid (kTxGuidSize bytes). False when guid is null.
VC64_TX_API int Tx_Create_GUID(char* guid);

// ---- File-format handler registry ------------------------------------------------------------------------------

// Type bits of handlers.
enum TxFileType {
  kTxTypeUnknown = 0x0001,  // claimed, but of no category
  kTxTypeBitmap2D = 0x0002,
  kTxTypeObject3D = 0x0004,
  kTxTypeVideo = 0x0008,
  kTxTypeAudio = 0x0010,
  kTxTypeArchive = 0x0020,
  kTxTypeText = 0x0040,
  kTxTypeSpreadsheet = 0x0080,
  kTxTypeDatabase = 0x0100,
  kTxTypePresentation = 0x0200,
  kTxTypeVector2D = 0x0400,
};

// Header callback of a viewer or importer: a negative result never claims a file by its header.
typedef int64_t (*TxVerifyHeaderCallback)(void);
// Execute callback: action (1: open the file), the handler's GUID, the file's path. The result 0 is success.
typedef int64_t (*TxExecuteCallback)(int16_t action, const char* handlerGuid, const char* path);

// Registers a file-format handler, or replaces the one of the same GUID in its place in plug-in order. Behind the GUID
// come groups, each a TxToken, its values and the int 1; an int 0 ends the call. Groups:
//   "enabled",         TxToken "on" or "off", 1
//   "function",        TxToken "importer", "exporter" or "viewer", 1
//   "type",            const int64_t* type bits (read during the call), 1
//   "filetypes",       const char* extension list, 1          (copied)
//   "descriptivename", const char* name, 1                    (copied)
//   "viewer" or "importer" or "exporter",
//                      TxToken "verifyheadercallback", TxVerifyHeaderCallback,
//                      TxToken "executecallback", TxExecuteCallback, 1
// True when the handler was registered; false, with nothing registered, for a null or empty GUID or at the first
// argument that is out of place (unknown group or value, null type, a group that does not end in 1). What no group says
// has its default: enabled, no function (in no list), type 0, no texts, no callbacks. GUIDs are equal in any case.
VC64_TX_API int Tx_FileFormatHandler(const char* handlerGuid, ...);
// Removes a handler; false when there is none of that GUID.
VC64_TX_API int Tx_Remove_FileFormatHandler(const char* handlerGuid);

// Handler lists: token "import" (importers), "export" (exporters), "viewer" (viewers) or "import_and_viewer".
// Only enabled handlers classify files. `reserved` is 0.

// All type bits of the enabled handlers of a list whose extensions match the name; 0 when none.
VC64_TX_API uint32_t Tx_FileFormatHandler_GetHandlerTypesFromFilenameExtension(TxToken list, const char* fileName,
                                                                              int reserved);
// How many enabled handlers of a list have a type bit in common with typeBits.
VC64_TX_API int Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats(TxToken list, uint32_t typeBits);
// Colour (0.0 to 1.0 each) of a type mask: that of the mask's most specific category, in the order 3D object, bitmap,
// vector, presentation, spreadsheet, database, video, audio, archive, text. False, outputs unchanged, when the mask
// has no category bit or an output is null.
VC64_TX_API int Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(uint32_t typeMask, float* red, float* green,
                                                                      float* blue);
// Sets the colour of one type bit; parts outside 0.0 to 1.0 are clamped. False when the bit is no single category.
VC64_TX_API int Tx_FileFormatHandler_SetAssociatedFileTypeHandlerColor(uint32_t typeBit, float red, float green,
                                                                      float blue);
// Puts all colours back to the factory defaults.
VC64_TX_API void Tx_FileFormatHandler_ResetAssociatedFileTypeHandlerColors(void);
// Sorts the registry: token "bypluginorder" (order of registration) or "byname". False for any other token.
VC64_TX_API int Tx_FileFormatHandler_SortList(TxToken order, int reserved1, int reserved2);
// The GUIDs of a list's handlers (disabled ones too) in the registry's order, at most limit. *guids is an array of
// texts; each text and the array are released by the caller with Tx_Free_Memory. Gives the number; 0, with *guids
// null, when there are none or an argument is bad.
VC64_TX_API int Tx_FileFormatHandler_Query_GUID_List(TxToken list, int limit, char*** guids);
// Reads values of a handler. Behind the GUID come pairs, ended by an int 0: TxToken "filetypes" or "descriptivename"
// with a const char** (the library's own text, valid until the handler changes; null when there is none), "enabled" or
// "function" with a TxToken*, "type" with an int64_t*, "executecallback" with a TxExecuteCallback*,
// "verifyheadercallback" with a TxVerifyHeaderCallback*. False for an unknown GUID or token or a null output; the
// outputs before it are filled in.
VC64_TX_API int Tx_Inquire_FileFormatHandler(const char* handlerGuid, ...);
// Switches a handler on or off; false for an unknown GUID.
VC64_TX_API int Tx_Enable_FileFormatHandler(const char* handlerGuid, int enabled);
