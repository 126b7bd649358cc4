#include "src/settings/options_dialog.h"

#include <utility>

#include "src/framework/module_context.h"
#include "src/host/vc64_imp.h"
#include "src/host/vc64_tx.h"
#include "src/settings/home_directory_browse.h"
#include "src/settings/options_logic.h"
#include "src/settings/settings_store.h"

namespace file_explorer {
namespace {

constexpr char kTemplate[] = "ExploreOptionsDialog";
constexpr char kHandlerList[] = "import_and_viewer";
constexpr char kDragDropDialog[] = "StartupPreferencesOptionsDialogBox-DragDropTab";
constexpr char kHelpFile[] = "ui_file_explorer.hlp";
constexpr char kHelpTopic[] = "folder options";
constexpr char kResetQuestion[] =
    "This will reset the values of this dialog box to their power-up defaults.\n\n"
    "Are you sure you want to do this?";
constexpr char kResetCaption[] = "Confirmation Request";
constexpr WPARAM kMethodListWidth = 200;  // pixels, when dropped down

bool IsRegistered(std::uint32_t typeBit) {
  return Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats(Tx_Inquire_Token(kHandlerList),
                                                                     typeBit) > 0;
}

class OptionsWindow {
 public:
  explicit OptionsWindow(const OptionsDialogContext& context)
      : context_(context), settings_(*context.settings) {}

  INT_PTR Show(HWND owner, HINSTANCE instance) {
    return DialogBoxParamA(instance, kTemplate, owner, Procedure, reinterpret_cast<LPARAM>(this));
  }

 private:
  struct CommandRow {
    int id;
    WORD notification;
    void (OptionsWindow::*handler)();
  };

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const ModuleContext module;
    try {
      if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        reinterpret_cast<OptionsWindow*>(lParam)->window_ = window;
      }
      auto* const self = reinterpret_cast<OptionsWindow*>(GetWindowLongPtrA(window, DWLP_USER));
      return self != nullptr ? self->HandleMessage(message, wParam, lParam) : FALSE;
    } catch (...) {
      return TRUE;  // the control's command is lost; the dialog and what was changed before stay
    }
  }

  INT_PTR HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) return OnInitDialog();
    if (message == WM_COMMAND) return OnCommand(LOWORD(wParam), HIWORD(wParam));
    if (message == WM_DRAWITEM) return OnDrawItem(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    return FALSE;
  }

  INT_PTR OnInitDialog() {
    Import_IO_Center_Window(window_);
    category_ = FileCategory::Object3D;
    FillControls();
    // Kept for the profile's sake and out of the user's sight.
    ShowWindow(Control(kOptionsTreeShowsHiddenFiles), SW_HIDE);
    return TRUE;
  }

  INT_PTR OnCommand(int id, WORD notification) {
    static constexpr CommandRow kRows[] = {
        {kOptionsBrowse, BN_CLICKED, &OptionsWindow::OnBrowse},
        {kOptionsSetToCurrent, BN_CLICKED, &OptionsWindow::OnSetToCurrent},
        {kOptionsCreationMethod, CBN_SELCHANGE, &OptionsWindow::OnCreationMethod},
        {kOptionsDockingPosition, CBN_SELCHANGE, &OptionsWindow::OnDockingPosition},
        {kOptionsCategory, CBN_SELCHANGE, &OptionsWindow::OnCategory},
        {kOptionsColor, BN_CLICKED, &OptionsWindow::OnColor},
        {kOptionsDragDropConfirmations, BN_CLICKED, &OptionsWindow::OnDragDropConfirmations},
        {kOptionsReset, BN_CLICKED, &OptionsWindow::OnReset},
        {kOptionsHelp, BN_CLICKED, &OptionsWindow::OnHelp},
        {kOptionsOk, BN_CLICKED, &OptionsWindow::OnOk},
    };
    for (const CommandRow& row : kRows) {
      if (row.id != id || row.notification != notification) continue;
      (this->*row.handler)();
      return TRUE;
    }
    const OptionsCheckBox* const box = FindOptionsCheckBox(id);
    if (box == nullptr || notification != BN_CLICKED) return FALSE;
    FlipOption(&settings_, *box);
    ShowOption(*box);
    return TRUE;
  }

  INT_PTR OnDrawItem(const DRAWITEMSTRUCT* item) {
    if (item->CtlID != static_cast<UINT>(kOptionsColor)) return FALSE;
    const CategoryColor& color = Color();
    host::Call<host::op::DrawColorButton>(context_.services, item, color.red, color.green, color.blue);
    return TRUE;
  }

  void FillControls() {
    ShowHomeDirectory();
    FillCreationMethods();
    FillList(kOptionsDockingPosition, DockingPositionEntries());
    // A position from elsewhere that the list does not have selects nothing, and stays until one is chosen.
    Send(kOptionsDockingPosition, CB_SETCURSEL, settings_.newWindowDockingPosition, 0);
    for (const OptionsCheckBox& box : OptionsCheckBoxes()) ShowOption(box);
    FillCategories();
    RepaintColor();
  }

  void FillList(int id, std::span<const char* const> entries) {
    Send(id, CB_RESETCONTENT, 0, 0);
    for (const char* const entry : entries) Send(id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
  }

  void FillCreationMethods() {
    Send(kOptionsCreationMethod, WM_SETREDRAW, FALSE, 0);
    FillList(kOptionsCreationMethod, CreationMethodEntries());
    Send(kOptionsCreationMethod, WM_SETREDRAW, TRUE, 0);
    Send(kOptionsCreationMethod, CB_SETDROPPEDWIDTH, kMethodListWidth, 0);
    Send(kOptionsCreationMethod, CB_SETCURSEL,
         static_cast<WPARAM>(CreationMethodIndex(settings_.newWindowCreationMethod)), 0);
  }

  void FillCategories() {
    Send(kOptionsCategory, CB_RESETCONTENT, 0, 0);
    for (const FileCategory category : OfferedCategories(IsRegistered)) {
      const char* const label = FileCategories()[static_cast<size_t>(category)].label;
      const LRESULT index = Send(kOptionsCategory, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(label));
      Send(kOptionsCategory, CB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(category));
    }
    Send(kOptionsCategory, CB_SETCURSEL, 0, 0);
  }

  void ShowOption(const OptionsCheckBox& box) {
    CheckDlgButton(window_, box.id, settings_.*box.flag != 0 ? BST_CHECKED : BST_UNCHECKED);
  }

  void ShowHomeDirectory() {
    SetDlgItemTextA(window_, kOptionsHomeDirectory,
                    settings_.homeDirectoryName ? settings_.homeDirectoryName.get() : "");
  }

  void RepaintColor() {
    const CategoryColor& color = Color();
    host::Call<host::op::RepaintColorButton>(context_.services, window_, std::int32_t{kOptionsColor},
                                             color.red, color.green, color.blue);
  }

  void OnBrowse() {
    ChooseHomeDirectory(window_, &settings_);
    ShowHomeDirectory();
  }

  void OnSetToCurrent() {
    unique_pidl folder = context_.currentFolder ? context_.currentFolder() : unique_pidl();
    if (!folder) return;
    settings_.homeDirectory = std::move(folder);
    RefreshHomeDirectoryName(&settings_);
    ShowHomeDirectory();
  }

  void OnCreationMethod() {
    settings_.newWindowCreationMethod = CreationMethodOf(Selected(kOptionsCreationMethod));
  }

  void OnDockingPosition() {
    const int index = Selected(kOptionsDockingPosition);
    if (index >= 0) settings_.newWindowDockingPosition = static_cast<std::uint16_t>(index);
  }

  void OnCategory() {
    const LRESULT number =
        Send(kOptionsCategory, CB_GETITEMDATA, static_cast<WPARAM>(Selected(kOptionsCategory)), 0);
    if (number < 0 || number >= kFileCategoryCount) return;
    category_ = static_cast<FileCategory>(number);
    RepaintColor();
  }

  void OnColor() {
    CategoryColor& color = Color();
    const char* const title = FileCategories()[static_cast<size_t>(category_)].chooserTitle;
    if (host::Call<host::op::PickColor>(context_.services, window_, title, &color.red, &color.green,
                                        &color.blue)) {
      RepaintColor();
    }
  }

  void OnDragDropConfirmations() {
    host::Call<host::op::ShowHostDialog>(context_.services, static_cast<const char*>(kDragDropDialog),
                                         window_, static_cast<const char*>(nullptr), std::intptr_t{0},
                                         std::intptr_t{0}, std::intptr_t{0});
  }

  void OnReset() {
    if (MessageBoxA(window_, kResetQuestion, kResetCaption, MB_YESNO | MB_ICONQUESTION) != IDYES) return;
    ResetToPowerUpDefaults(&settings_);
    category_ = FileCategory::Object3D;
    FillControls();
  }

  void OnHelp() { Import_IO_DisplayHelpTopic(context_.helpLocation.c_str(), kHelpFile, kHelpTopic); }

  void OnOk() {
    EndDialog(window_, IDOK);  // takes effect when this message is done, whatever becomes of the save
    if (context_.save) context_.save();
  }

  HWND Control(int id) const { return GetDlgItem(window_, id); }
  LRESULT Send(int id, UINT message, WPARAM wParam, LPARAM lParam) const {
    return SendDlgItemMessageA(window_, id, message, wParam, lParam);
  }
  int Selected(int id) const { return static_cast<int>(Send(id, CB_GETCURSEL, 0, 0)); }
  CategoryColor& Color() const { return settings_.colors[static_cast<size_t>(category_)]; }

  const OptionsDialogContext& context_;
  ExplorerSettings& settings_;
  HWND window_ = nullptr;
  FileCategory category_ = FileCategory::Object3D;
};

}  // namespace

bool RunOptionsDialog(HWND owner, HINSTANCE instance, const OptionsDialogContext& context) {
  return OptionsWindow(context).Show(owner, instance) == IDOK;
}

}  // namespace file_explorer
