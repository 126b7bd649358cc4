#include "workbench/app/dialogs/about_dialog.h"

#include "workbench/app/dialogs/dialog_window.h"
#include "workbench/app/documents/view_window.h"

namespace workbench {
namespace {

constexpr WORD kNameLabel = 100;
constexpr WORD kModuleEdit = 101;
constexpr WORD kPathEdit = 102;
constexpr short kWidth = 270;
constexpr short kHeight = 136;

std::wstring FileName(const std::wstring& path) {
  return path.substr(path.find_last_of(L"\\/") + 1);
}

class AboutDialog : private ModalDialog {
 public:
  explicit AboutDialog(const AboutInformation& information) : information_(information) {}

  void Show(HWND owner) {
    DialogTemplate controls(L"About the Workbench", kWidth, kHeight);
    controls.AddLabel(L"Workbench", {12, 10, kWidth - 24, 18}, kNameLabel);
    controls.AddLabel(L"Version " + information_.workbenchVersion, {12, 30, kWidth - 24, 9});
    controls.AddLabel(L"A host for plug-ins that browse, show and load the files of 3D work.",
                      {12, 42, kWidth - 24, 9});
    controls.AddGroup(L"Loaded module", {7, 58, kWidth - 14, 50});
    controls.AddLabel(L"Module:", {15, 73, 38, 9});
    controls.AddEdit(kModuleEdit, {56, 71, kWidth - 71, 13}, true);
    controls.AddLabel(L"Path:", {15, 90, 38, 9});
    controls.AddEdit(kPathEdit, {56, 88, kWidth - 71, 13}, true);
    controls.AddButton(IDOK, L"OK", {kWidth - 60, kHeight - 21, 53, 14}, true);
    Run(owner, controls);
  }

 private:
  bool OnInitialise() override {
    nameFont_ = CreateMessageFont(170, true);
    SendDlgItemMessageW(window(), kNameLabel, WM_SETFONT, reinterpret_cast<WPARAM>(nameFont_.get()), FALSE);
    const bool loaded = !information_.modulePath.empty();
    std::wstring module = loaded ? FileName(information_.modulePath) : L"No module is loaded";
    if (loaded) {
      module += information_.moduleVersion.empty() ? L", version unknown"
                                                   : L", version " + information_.moduleVersion;
    }
    SetControlText(kModuleEdit, module);
    SetControlText(kPathEdit, information_.modulePath);
    SetFocus(Control(IDOK));
    return false;
  }

  void OnPressed(int id) override {
    if (id == IDOK || id == IDCANCEL) Close(id);
  }

  AboutInformation information_;
  UniqueFont nameFont_;
};

}  // namespace

void ShowAboutDialog(HWND owner, const AboutInformation& information) {
  AboutDialog(information).Show(owner);
}

}  // namespace workbench
