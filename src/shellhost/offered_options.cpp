#include "src/shellhost/offered_options.h"

#include "src/framework/com/com_guard.h"
#include "src/shellhost/control_access.h"

namespace file_explorer {
namespace {

// What the controls' type libraries call the options.
constexpr wchar_t kShowHiddenItems[] = L"ShowHiddenItems";
constexpr wchar_t kFullPath[] = L"FullPath";
constexpr wchar_t kShowVirtualFolders[] = L"ShowVirtualFolders";
constexpr wchar_t kCompletion[] = L"Completion";

}  // namespace

bool OfferControlOption(const ShellControlHost* host, const wchar_t* name, bool on) noexcept {
  const ComPtr<IDispatch> control = ControlOf(host);
  if (!control) return false;
  HRESULT known = E_FAIL;
  const bool returned = RunForeignCode([&] {
    DISPID id = DISPID_UNKNOWN;
    LPOLESTR asked = const_cast<LPOLESTR>(name);
    known = control->GetIDsOfNames(IID_NULL, &asked, 1, LOCALE_USER_DEFAULT, &id);
    if (SUCCEEDED(known)) PutFlag(control.Get(), id, on);
  });
  return returned && SUCCEEDED(known);
}

void OfferControlOptions(const ShellControlHost* folderView, const ShellControlHost* fileView,
                         const ShellControlHost* comboView, const OfferedOptions& options) noexcept {
  const base::Hold holdFolderView(folderView);
  const base::Hold holdFileView(fileView);
  const base::Hold holdComboView(comboView);
  OfferControlOption(folderView, kShowHiddenItems, options.treeShowHiddenItems != 0);
  OfferControlOption(fileView, kShowHiddenItems, options.fileViewShowHiddenItems != 0);
  OfferControlOption(comboView, kFullPath, options.comboViewShowFullPath != 0);
  OfferControlOption(comboView, kShowVirtualFolders, options.comboViewShowVirtualFolders != 0);
  OfferControlOption(comboView, kCompletion, options.comboViewCompletion != 0);
}

}  // namespace file_explorer
