#include "src/explorer/pattern_selection.h"

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <string>

#include "src/host/vc64_imp.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {
namespace {

constexpr int kTextSize = 1024;

// One pattern of the box, made ready for many names.
class Selector {
 public:
  Selector(host::HostServices* services, const std::string& text) : services_(services) {
    if (text.front() == '"') {
      quoted_ = true;
      const size_t length = text.size() > 1 && text.back() == '"' ? text.size() - 2 : text.size() - 1;
      pattern_ = text.substr(1, length);
    } else {
      pattern_ = text;
      prefixPattern_ = text + "*";
      everything_ = text == "*" || text == "*.*";
    }
  }

  // name is lower-case.
  bool Selects(const char* name) const {
    if (quoted_) return pattern_ == name;
    return everything_ || Matches(pattern_, name) || Matches(prefixPattern_, name);
  }

 private:
  bool Matches(const std::string& pattern, const char* name) const {
    return host::Call<host::op::MatchPattern>(services_, pattern.c_str(), name, host::kMatchIgnoreCase) != 0;
  }

  host::HostServices* services_;
  std::string pattern_;
  std::string prefixPattern_;
  bool quoted_ = false;
  bool everything_ = false;
};

std::string BoxText(HWND edit) {
  std::array<char, kTextSize> text = {};
  GetWindowTextA(edit, text.data(), kTextSize);
  CharLowerA(text.data());
  return Import_IO_Strip_Whitespace(text.data());
}

void ReadItemText(HWND list, int index, char* text) {
  LVITEMA item = {};
  item.pszText = text;
  item.cchTextMax = kTextSize;
  text[0] = '\0';
  SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
  if (item.pszText != nullptr && item.pszText != text) lstrcpynA(text, item.pszText, kTextSize);
  CharLowerA(text);
}

void SetItemState(HWND list, int index, UINT mask, bool set) {
  LVITEMA item = {};
  item.stateMask = mask;
  item.state = set ? mask : 0;
  SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}

// The list tells its control of each change, so that the control's own selection agrees. What is right
// already is left alone.
void SelectItem(HWND list, int index, bool select) {
  const bool isSelected =
      SendMessageA(list, LVM_GETITEMSTATE, static_cast<WPARAM>(index), LVIS_SELECTED) != 0;
  if (isSelected != select) SetItemState(list, index, LVIS_SELECTED, select);
}

}  // namespace

void SelectItemsByPattern(host::HostServices* services, ShellControlHost* fileView, HWND edit) {
  const std::string text = BoxText(edit);
  const HWND list = GetListWindow(fileView);
  if (text.empty() || list == nullptr) return;
  // Every pass switches track-select on; kept as designed.
  SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_TRACKSELECT, LVS_EX_TRACKSELECT);
  const Selector selector(services, text);
  SendMessageA(list, WM_SETREDRAW, FALSE, 0);
  std::array<char, kTextSize> name = {};
  int lastSelected = -1;
  // The list can change meanwhile: its count is asked again behind every item.
  for (int i = 0; i < static_cast<int>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0)); ++i) {
    ReadItemText(list, i, name.data());
    const bool selects = selector.Selects(name.data());
    SelectItem(list, i, selects);
    if (selects) lastSelected = i;
  }
  // Each selected item would take the focus from the one before; only the last one keeps it. Moving it
  // through thousands of items takes minutes, so it goes there once.
  if (lastSelected >= 0) SetItemState(list, lastSelected, LVIS_FOCUSED, true);
  SendMessageA(list, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(list, nullptr, TRUE);
}

}  // namespace file_explorer
