#include "src/explorer/pattern_selection.h"

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <cwchar>
#include <string>
#include <string_view>

#include "base/text/code_page.h"
#include "base/text/letter_case.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {
namespace {

constexpr int kLongestText = 1024;  // characters, of the box and of an item
using TextBuffer = std::array<wchar_t, kLongestText + 1>;

// In the code page. A letter that it lacks becomes a question mark that stands for itself, as names show it;
// it must neither be bent into another letter nor stand for any.
std::string NarrowPattern(std::wstring_view text) {
  if (auto exact = base::ExactNarrow(text)) return *std::move(exact);
  std::string pattern;
  for (const wchar_t letter : text) pattern += base::ExactNarrow({&letter, 1}).value_or("\\?");
  return pattern;
}

// One pattern of the box, made ready for many names.
class Selector {
 public:
  Selector(host::HostServices* services, const std::wstring& text) : services_(services) {
    if (text.front() == L'"') {
      quoted_ = true;
      const size_t length = text.size() > 1 && text.back() == L'"' ? text.size() - 2 : text.size() - 1;
      wholeName_ = text.substr(1, length);
    } else {
      pattern_ = NarrowPattern(text);
      prefixPattern_ = pattern_ + "*";
      everything_ = text == L"*" || text == L"*.*";
    }
  }

  // name is lower-case.
  bool Selects(std::wstring_view name) {
    if (quoted_) return wholeName_ == name;
    if (everything_) return true;
    base::DisplayNarrow(name, &narrowName_);
    return Matches(pattern_) || Matches(prefixPattern_);
  }

 private:
  bool Matches(const std::string& pattern) const {
    return host::Call<host::op::MatchPattern>(services_, pattern.c_str(), narrowName_.c_str(),
                                              host::kMatchIgnoreCase) != 0;
  }

  host::HostServices* services_;
  std::wstring wholeName_;
  std::string pattern_;
  std::string prefixPattern_;
  std::string narrowName_;  // its room is used again for each name
  bool quoted_ = false;
  bool everything_ = false;
};

// Lower-case, without blanks around it.
std::wstring BoxText(HWND edit) {
  constexpr std::wstring_view kWhiteSpace = L" \t\r\n\v\f";
  TextBuffer buffer = {};
  GetWindowTextW(edit, buffer.data(), static_cast<int>(buffer.size()));
  const std::wstring text = base::LowerCase(buffer.data());
  const size_t first = text.find_first_not_of(kWhiteSpace);
  if (first == std::wstring::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

// In small letters. Wide: the small form of a letter has one unit as its capital has, while its bytes may be
// more.
std::wstring_view ReadItemText(HWND list, int index, TextBuffer& buffer) {
  LVITEMW item = {};
  item.pszText = buffer.data();
  item.cchTextMax = static_cast<int>(buffer.size());
  buffer[0] = L'\0';
  SendMessageW(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
  if (item.pszText != nullptr && item.pszText != buffer.data()) {
    lstrcpynW(buffer.data(), item.pszText, static_cast<int>(buffer.size()));
  }
  return {buffer.data(), CharLowerBuffW(buffer.data(), static_cast<DWORD>(std::wcslen(buffer.data())))};
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
  const std::wstring text = BoxText(edit);
  const HWND list = GetListWindow(fileView);
  if (text.empty() || list == nullptr) return;
  // Every pass switches track-select on; kept as designed.
  SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_TRACKSELECT, LVS_EX_TRACKSELECT);
  Selector selector(services, text);
  SendMessageA(list, WM_SETREDRAW, FALSE, 0);
  TextBuffer buffer = {};
  int lastSelected = -1;
  // The list can change meanwhile: its count is asked again behind every item.
  for (int i = 0; i < static_cast<int>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0)); ++i) {
    const bool selects = selector.Selects(ReadItemText(list, i, buffer));
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
