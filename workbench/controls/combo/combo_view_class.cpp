// The class that this module serves.
#include "workbench/controls/com/class_server.h"
#include "workbench/controls/combo/combo_view.h"

namespace controls {
namespace {

constexpr CLSID kClassId = {0x1451FB53, 0x9444, 0x4FB0, {0xB0, 0xAC, 0x44, 0xF5, 0x6E, 0xDB, 0xC3, 0x32}};
constexpr IID kDispatchId = {0x20B7F96F, 0x5D6D, 0x436C, {0x8E, 0x1B, 0x2C, 0x69, 0x52, 0x8C, 0x19, 0xBE}};
constexpr IID kEventsId = {0x10EAEFBF, 0xC1E8, 0x43E0, {0xA3, 0xFF, 0xF1, 0xEA, 0x28, 0x83, 0x92, 0x0D}};
constexpr GUID kLibraryId = {0x45E0E5F3, 0xE148, 0x43F6, {0xAF, 0x33, 0xBA, 0x13, 0xC5, 0xBC, 0x04, 0xF3}};

HRESULT Create(REFIID iid, void** object) {
  return ComObject<ComboView>::Create()->QueryInterface(iid, object);
}

}  // namespace

const ServedClass kServedClass = {
    &kClassId,
    &kDispatchId,
    &kEventsId,
    &kLibraryId,
    L"Shell ComboView Control",
    L"Ssware.ShellComboView",
    L"_DShComboBox",
    L"_DShComboBoxEvents",
    OLEMISC_RECOMPOSEONRESIZE | OLEMISC_INSIDEOUT | OLEMISC_ACTIVATEWHENVISIBLE | OLEMISC_CANTLINKINSIDE |
        OLEMISC_SETCLIENTSITEFIRST,
    Create,
};

}  // namespace controls
