#include "workbench/app/dialogs/drag_drop_dialog.h"

#include "workbench/app/dialogs/dialog_window.h"
#include "workbench/app/dialogs/profile_text.h"
#include "workbench/app/documents/file_facts.h"

namespace workbench {
namespace {

struct OptionEntry {
  const wchar_t* key;
  bool DragDropOptions::*value;
  WORD box;
  const wchar_t* text;
};

constexpr OptionEntry kOptions[] = {
    {L"Confirm_Move", &DragDropOptions::confirmMove, kConfirmMoveBox, L"Ask before dragged files are &moved"},
    {L"Confirm_Copy", &DragDropOptions::confirmCopy, kConfirmCopyBox,
     L"Ask before dragged files are &copied"},
    {L"Confirm_Open", &DragDropOptions::confirmOpen, kConfirmOpenBox,
     L"Ask before files that are dropped on the document area are &opened"},
    {L"Right_Button_Menu", &DragDropOptions::rightButtonMenu, kRightButtonMenuBox,
     L"Show a menu after dragging with the &right mouse button"},
};

constexpr short kWidth = 262;
constexpr short kHeight = 112;

ProfileSection Section(const std::string& profilePath) {
  return {profilePath, L"Drag-and-Drop"};
}

class DragDropDialog : private ModalDialog {
 public:
  explicit DragDropDialog(const std::string& profilePath) : profilePath_(profilePath) {}

  bool Show(HWND owner) {
    DialogTemplate controls(L"Drag & Drop Confirmations", kWidth, kHeight);
    controls.AddGroup(L"When files are dragged", {7, 7, kWidth - 14, 76});
    short y = 20;
    for (const OptionEntry& option : kOptions) {
      controls.AddCheckBox(option.box, option.text, {15, y, kWidth - 30, 11});
      y = static_cast<short>(y + 15);
    }
    controls.AddButton(IDOK, L"OK", {kWidth - 116, kHeight - 21, 53, 14}, true);
    controls.AddButton(IDCANCEL, L"Cancel", {kWidth - 60, kHeight - 21, 53, 14});
    return Run(owner, controls) > 0;
  }

 private:
  bool OnInitialise() override {
    const DragDropOptions options = LoadDragDropOptions(profilePath_);
    for (const OptionEntry& option : kOptions) {
      CheckDlgButton(window(), option.box, options.*option.value ? BST_CHECKED : BST_UNCHECKED);
    }
    return true;
  }

  void OnPressed(int id) override {
    if (id == IDOK && Save()) Close(IDOK);
    if (id == IDCANCEL) Close(IDCANCEL);
  }

  bool Save() {
    DragDropOptions options;
    for (const OptionEntry& option : kOptions) options.*option.value = IsChecked(option.box);
    if (SaveDragDropOptions(profilePath_, options)) return true;
    const std::wstring message = L"The options can't be saved. " + ErrorText(GetLastError());
    MessageBoxW(window(), message.c_str(), L"Error", MB_OK | MB_ICONERROR);
    return false;
  }

  std::string profilePath_;
};

}  // namespace

DragDropOptions LoadDragDropOptions(const std::string& profilePath) {
  DragDropOptions options;
  const ProfileSection section = Section(profilePath);
  for (const OptionEntry& option : kOptions) {
    options.*option.value = section.Number(option.key, options.*option.value ? 1 : 0) != 0;
  }
  return options;
}

bool SaveDragDropOptions(const std::string& profilePath, const DragDropOptions& options) {
  const ProfileSection section = Section(profilePath);
  for (const OptionEntry& option : kOptions) {
    if (!section.SetNumber(option.key, options.*option.value ? 1 : 0)) return false;
  }
  return true;
}

bool ShowDragDropDialog(HWND owner, const std::string& profilePath) {
  return DragDropDialog(profilePath).Show(owner);
}

}  // namespace workbench
