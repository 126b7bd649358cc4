#include "src/filter/masks_dialog.h"

#include "src/filter/category_lookup.h"
#include "src/filter/mask_box.h"
#include "src/filter/type_filter.h"
#include "src/framework/module_context.h"
#include "src/host/vc64_imp.h"

namespace file_explorer {
namespace {

constexpr char kTemplateName[] = "EXPLOREFILESELECTIONMASKSDIALOG";
constexpr int kHelpButton = 901;
constexpr int kShowVirtualFolders = 908;
constexpr int kShowFolders = 909;
constexpr int kInclusionCombo = 1000;
constexpr int kExclusionCombo = 1001;
constexpr int kResetButton = 1002;
constexpr int kTypeFilterList = 1003;
constexpr UINT kFillMessage = WM_APP + 1;  // fills the controls once the dialog stands in its place
constexpr WPARAM kLongestText = 1024;

class DialogWindow {
 public:
  explicit DialogWindow(const MasksDialog& dialog)
      : dialog_(dialog),
        foldersBefore_(*dialog.showFolders),
        virtualFoldersBefore_(*dialog.showVirtualFolders) {}

  void Show(HWND parent) {
    DialogBoxParamA(dialog_.instance, kTemplateName, parent, Procedure, reinterpret_cast<LPARAM>(this));
  }

  bool FoldersChanged() const {
    return foldersBefore_ != *dialog_.showFolders || virtualFoldersBefore_ != *dialog_.showVirtualFolders;
  }

 private:
  struct CommandRow {
    int id;
    WORD notification;
    void (DialogWindow::*handler)();
  };

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ModuleContext context;
    try {
      if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        reinterpret_cast<DialogWindow*>(lParam)->window_ = window;
      }
      auto* const self = reinterpret_cast<DialogWindow*>(GetWindowLongPtrA(window, DWLP_USER));
      return self != nullptr ? self->HandleMessage(message, wParam) : FALSE;
    } catch (...) {
      EndDialog(window, 0);
      return TRUE;
    }
  }

  INT_PTR HandleMessage(UINT message, WPARAM wParam) {
    if (message == WM_INITDIALOG) return OnInitDialog();
    if (message == kFillMessage) return OnFill();
    if (message == WM_COMMAND) return OnCommand(LOWORD(wParam), HIWORD(wParam));
    return FALSE;
  }

  INT_PTR OnInitDialog() {
    Import_IO_Center_Window(window_);
    SendMessageA(window_, kFillMessage, 0, 0);
    return TRUE;
  }

  INT_PTR OnFill() {
    SendDlgItemMessageA(window_, kInclusionCombo, CB_LIMITTEXT, kLongestText, 0);
    SendDlgItemMessageA(window_, kExclusionCombo, CB_LIMITTEXT, kLongestText, 0);
    FillMasks(false);
    ShowCheck(kShowFolders, *dialog_.showFolders);
    ShowCheck(kShowVirtualFolders, *dialog_.showVirtualFolders);
    FillTypeFilters();
    return TRUE;
  }

  void FillMasks(bool reset) {
    FillMaskCombo(Control(kInclusionCombo), MaskKind::Inclusion, dialog_.inclusionList->get(), reset);
    FillMaskCombo(Control(kExclusionCombo), MaskKind::Exclusion, dialog_.exclusionList->get(), reset);
  }

  void FillTypeFilters() {
    const HWND list = Control(kTypeFilterList);
    for (const TypeFilter* const filter : OfferedTypeFilters(IsFormatRegistered)) {
      SendMessageA(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(filter->text));
    }
    const WPARAM position = *dialog_.filteringMethod < TypeFilters().size() ? *dialog_.filteringMethod : 0U;
    SendMessageA(list, CB_SETCURSEL, position, 0);
  }

  // There is no row for a cancel command: Escape and the close box leave the dialog open.
  INT_PTR OnCommand(int id, WORD notification) {
    static constexpr CommandRow kRows[] = {
        {IDOK, BN_CLICKED, &DialogWindow::OnOk},
        {kResetButton, BN_CLICKED, &DialogWindow::OnReset},
        {kInclusionCombo, CBN_KILLFOCUS, &DialogWindow::OnLeaveInclusion},
        {kExclusionCombo, CBN_KILLFOCUS, &DialogWindow::OnLeaveExclusion},
        {kTypeFilterList, CBN_SELCHANGE, &DialogWindow::OnTypeFilter},
        {kShowFolders, BN_CLICKED, &DialogWindow::OnShowFolders},
        {kShowVirtualFolders, BN_CLICKED, &DialogWindow::OnShowVirtualFolders},
        {kHelpButton, BN_CLICKED, &DialogWindow::OnHelp},
    };
    for (const CommandRow& row : kRows) {
      if (row.id != id || row.notification != notification) continue;
      (this->*row.handler)();
      return TRUE;
    }
    return FALSE;
  }

  void OnOk() {
    // A list that is stored stays stored when the next one is refused.
    if (!StoreMaskCombo(window_, dialog_.services, MaskKind::Inclusion, Control(kInclusionCombo),
                        dialog_.inclusionList) ||
        !StoreMaskCombo(window_, dialog_.services, MaskKind::Exclusion, Control(kExclusionCombo),
                        dialog_.exclusionList)) {
      return;
    }
    dialog_.save();
    EndDialog(window_, IDOK);
  }

  // Not every system takes the selection away from a box that loses the focus.
  void OnLeaveInclusion() {
    SendDlgItemMessageA(window_, kInclusionCombo, CB_SETEDITSEL, 0, MAKELPARAM(0, 0));
  }
  void OnLeaveExclusion() {
    SendDlgItemMessageA(window_, kExclusionCombo, CB_SETEDITSEL, 0, MAKELPARAM(0, 0));
  }

  void OnReset() { FillMasks(true); }

  void OnTypeFilter() {
    const LRESULT position = SendDlgItemMessageA(window_, kTypeFilterList, CB_GETCURSEL, 0, 0);
    if (position >= 0) *dialog_.filteringMethod = static_cast<std::uint16_t>(position);
  }

  void OnShowFolders() { Flip(kShowFolders, dialog_.showFolders); }
  void OnShowVirtualFolders() { Flip(kShowVirtualFolders, dialog_.showVirtualFolders); }

  void OnHelp() {
    Import_IO_DisplayHelpTopic(dialog_.helpLocation.c_str(), "ui_file_explorer.hlp",
                               "file selection masks dialog box");
  }

  void Flip(int id, std::int32_t* setting) {
    *setting = *setting == 0 ? 1 : 0;
    ShowCheck(id, *setting);
  }

  void ShowCheck(int id, std::int32_t setting) {
    CheckDlgButton(window_, id, setting != 0 ? BST_CHECKED : BST_UNCHECKED);
  }

  HWND Control(int id) const { return GetDlgItem(window_, id); }

  const MasksDialog& dialog_;
  const std::int32_t foldersBefore_;
  const std::int32_t virtualFoldersBefore_;
  HWND window_ = nullptr;
};

}  // namespace

bool RunFileSelectionMasksDialog(HWND parent, const MasksDialog& dialog) {
  DialogWindow window(dialog);
  window.Show(parent);
  return window.FoldersChanged();
}

}  // namespace file_explorer
