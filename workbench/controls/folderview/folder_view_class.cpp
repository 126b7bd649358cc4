// The class that this module serves.
#include "workbench/controls/com/class_server.h"
#include "workbench/controls/folderview/folder_view.h"

namespace controls {
namespace {

constexpr CLSID kClassId = {0x9EE4C13A, 0x551F, 0x440E, {0xB1, 0xED, 0xF4, 0xFA, 0x3C, 0x93, 0x5F, 0x4F}};
constexpr IID kDispatchId = {0x5B17B3F2, 0x89DA, 0x4045, {0x8D, 0xE1, 0xC4, 0xBA, 0xEE, 0x6F, 0xCC, 0x46}};
constexpr IID kEventsId = {0x6755F807, 0x572E, 0x4D81, {0x97, 0x61, 0x35, 0x48, 0xE3, 0x41, 0xCF, 0x55}};
constexpr GUID kLibraryId = {0x265F1179, 0x0001, 0x4121, {0xB0, 0x74, 0xF6, 0xF9, 0x27, 0x40, 0x41, 0x96}};

HRESULT Create(REFIID iid, void** object) {
  return ComObject<FolderView>::Create()->QueryInterface(iid, object);
}

}  // namespace

const ServedClass kServedClass = {
    &kClassId,
    &kDispatchId,
    &kEventsId,
    &kLibraryId,
    L"Shell FolderView Control",
    L"Ssware.ShellFolderView",
    L"_DFolderView",
    L"_DFolderViewEvents",
    OLEMISC_RECOMPOSEONRESIZE | OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_CANTLINKINSIDE |
        OLEMISC_SETCLIENTSITEFIRST,
    Create,
};

}  // namespace controls
