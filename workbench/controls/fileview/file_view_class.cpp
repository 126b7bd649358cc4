// The class that this module serves.
#include "workbench/controls/com/class_server.h"
#include "workbench/controls/fileview/file_view.h"

namespace controls {
namespace {

constexpr CLSID kClassId = {0x0A7A7240, 0xD038, 0x4B9F, {0xB3, 0xB1, 0x7F, 0xEF, 0xFE, 0x5F, 0x9E, 0xD6}};
constexpr IID kDispatchId = {0xE58CFE4E, 0x2258, 0x4666, {0xAE, 0x59, 0x8C, 0x48, 0x66, 0x0C, 0xF0, 0x98}};
constexpr IID kEventsId = {0x36310332, 0x3B34, 0x4989, {0x93, 0x39, 0x32, 0x8D, 0x0C, 0x37, 0x99, 0x6A}};
constexpr GUID kLibraryId = {0x3F67717B, 0x3617, 0x4D28, {0x84, 0x5B, 0x27, 0xCD, 0x32, 0x6F, 0x6F, 0xDC}};

HRESULT Create(REFIID iid, void** object) {
  return ComObject<FileView>::Create()->QueryInterface(iid, object);
}

}  // namespace

const ServedClass kServedClass = {
    &kClassId,
    &kDispatchId,
    &kEventsId,
    &kLibraryId,
    L"Shell FileView Control",
    L"Ssware.ShellFileView",
    L"_DFileView",
    L"_DFileViewEvents",
    OLEMISC_RECOMPOSEONRESIZE | OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_CANTLINKINSIDE |
        OLEMISC_SETCLIENTSITEFIRST,
    Create,
};

}  // namespace controls
