#include "workbench/app/dialogs/import_options_dialog.h"

#include <cstdint>
#include <string>

#include "src/host/vc64_tx.h"
#include "workbench/app/dialogs/dialog_window.h"
#include "base/text/code_page.h"
#include "workbench/app/dialogs/profile_text.h"

namespace workbench {
namespace {

struct TypeName {
  std::int64_t bit;
  const wchar_t* name;
};

constexpr TypeName kTypeNames[] = {
    {kTxTypeObject3D, L"3D object"},
    {kTxTypeBitmap2D, L"2D bitmap"},
    {kTxTypeVector2D, L"2D vector"},
    {kTxTypeText, L"Text"},
    {kTxTypeArchive, L"ZIP and archive"},
    {kTxTypeVideo, L"Video"},
    {kTxTypeAudio, L"Audio"},
    {kTxTypeSpreadsheet, L"Spreadsheet"},
    {kTxTypeDatabase, L"Database"},
    {kTxTypePresentation, L"Presentation"},
};

std::wstring TypeText(std::int64_t bits) {
  std::wstring text;
  for (const TypeName& type : kTypeNames) {
    if ((bits & type.bit) == 0) continue;
    if (!text.empty()) text += L", ";
    text += type.name;
  }
  return text.empty() ? L"Of no category" : text;
}

struct HandlerFacts {
  bool known = false;
  std::wstring name;
  std::wstring fileTypes;
  std::wstring type;
  bool enabled = false;
};

HandlerFacts InquireHandler(const std::string& guid) {
  HandlerFacts facts;
  const char* name = nullptr;
  const char* fileTypes = nullptr;
  TxToken enabled = 0;
  std::int64_t bits = 0;
  facts.known = !guid.empty() && Tx_Inquire_FileFormatHandler(
                                     guid.c_str(), Tx_Inquire_Token("descriptivename"), &name,
                                     Tx_Inquire_Token("filetypes"), &fileTypes, Tx_Inquire_Token("enabled"),
                                     &enabled, Tx_Inquire_Token("type"), &bits, 0) != 0;
  if (!facts.known) return facts;
  facts.name = name != nullptr ? base::WideFromNarrow(name) : L"";
  facts.fileTypes = fileTypes != nullptr ? base::WideFromNarrow(fileTypes) : L"";
  facts.type = TypeText(bits);
  facts.enabled = enabled == Tx_Inquire_Token("on");
  return facts;
}

constexpr short kWidth = 284;
constexpr short kHeight = 138;

class ImportOptionsDialog : private ModalDialog {
 public:
  explicit ImportOptionsDialog(std::string guid) : guid_(std::move(guid)), facts_(InquireHandler(guid_)) {}

  bool Show(HWND owner) {
    DialogTemplate controls(L"File Import Options", kWidth, kHeight);
    controls.AddGroup(L"Import converter", {7, 7, kWidth - 14, 102});
    constexpr struct {
      const wchar_t* label;
      int id;
    } kRows[] = {{L"&Name:", kHandlerNameEdit},
                 {L"&File types:", kHandlerFileTypesEdit},
                 {L"&Type:", kHandlerTypeEdit},
                 {L"&Identifier:", kHandlerGuidEdit}};
    short y = 20;
    for (const auto& row : kRows) {
      controls.AddLabel(row.label, {15, static_cast<short>(y + 2), 52, 9});
      controls.AddEdit(static_cast<WORD>(row.id), {70, y, kWidth - 85, 13}, true);
      y = static_cast<short>(y + 17);
    }
    controls.AddCheckBox(kHandlerEnabledBox, L"&Use this converter when files are imported",
                         {70, 92, kWidth - 85, 11});
    controls.AddButton(IDOK, L"OK", {kWidth - 116, kHeight - 21, 53, 14}, true);
    controls.AddButton(IDCANCEL, L"Cancel", {kWidth - 60, kHeight - 21, 53, 14});
    return Run(owner, controls) > 0;
  }

 private:
  bool OnInitialise() override {
    SetControlText(kHandlerNameEdit, !facts_.known         ? L"No converter of this identifier is registered"
                                     : facts_.name.empty() ? L"(no name)"
                                                           : facts_.name);
    SetControlText(kHandlerFileTypesEdit, facts_.fileTypes);
    SetControlText(kHandlerTypeEdit, facts_.type);
    SetControlText(kHandlerGuidEdit, base::WideFromNarrow(guid_));
    CheckDlgButton(window(), kHandlerEnabledBox, facts_.enabled ? BST_CHECKED : BST_UNCHECKED);
    EnableWindow(Control(kHandlerEnabledBox), facts_.known);
    SetFocus(Control(facts_.known ? kHandlerEnabledBox : IDOK));
    return false;
  }

  void OnPressed(int id) override {
    if (id == IDOK) {
      const bool enabled = IsChecked(kHandlerEnabledBox);
      if (facts_.known && enabled != facts_.enabled)
        Tx_Enable_FileFormatHandler(guid_.c_str(), enabled ? 1 : 0);
      Close(IDOK);
    }
    if (id == IDCANCEL) Close(IDCANCEL);
  }

  std::string guid_;
  HandlerFacts facts_;
};

}  // namespace

bool ShowImportOptionsDialog(HWND owner, const char* handlerGuid) {
  return ImportOptionsDialog(handlerGuid == nullptr ? "" : handlerGuid).Show(owner);
}

}  // namespace workbench
