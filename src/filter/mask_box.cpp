#include "src/filter/mask_box.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

#include "base/text/code_page.h"
#include "src/host/vc64_imp.h"

namespace file_explorer {
namespace {

constexpr int kTextSize = 1024 + 1;  // characters of a box's text, with the terminator
constexpr char kPatternErrorCaption[] = "Pattern Error";

// The wide messages throughout: the 8-bit ones bend letters, and some platforms end the program over a long
// entry.
std::wstring TextOf(HWND combo) {
  std::array<wchar_t, kTextSize> text = {};
  GetWindowTextW(combo, text.data(), kTextSize);
  return text.data();
}

// Of a stored list, so that it has no letter which the code page lacks.
std::string EntryOf(HWND combo, int index) {
  const LRESULT length = SendMessageW(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
  if (length <= 0) return {};
  std::wstring text(static_cast<size_t>(length) + 1, L'\0');
  const LRESULT read =
      SendMessageW(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
  text.resize(read > 0 ? static_cast<size_t>(read) : 0);
  return base::DisplayNarrow(text);
}

std::vector<std::string> EntriesOf(HWND combo) {
  std::vector<std::string> entries;
  const int count = static_cast<int>(SendMessageA(combo, CB_GETCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) entries.push_back(EntryOf(combo, i));
  return entries;
}

}  // namespace

void FillMaskCombo(HWND combo, MaskKind kind, const char* storedList, bool reset) {
  const MaskBoxContents contents = ContentsOfMaskBox(kind, storedList, reset);
  SendMessageA(combo, CB_RESETCONTENT, 0, 0);
  SendMessageA(combo, WM_SETREDRAW, FALSE, 0);
  for (const std::string& entry : contents.entries) {
    SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(base::WideFromNarrow(entry).c_str()));
  }
  SendMessageA(combo, WM_SETREDRAW, TRUE, 0);
  if (contents.editText) SetWindowTextW(combo, base::WideFromNarrow(*contents.editText).c_str());
  InvalidateRect(combo, nullptr, TRUE);
}

bool StoreMaskCombo(HWND dialog, host::HostServices* services, MaskKind kind, HWND combo,
                    unique_host_text* list) {
  const auto isValid = [services](const std::string& pattern, std::string* reason) {
    std::array<char, host::kMatchReasonSize> text = {};
    if (host::Call<host::op::ValidateMatchPattern>(services, pattern.c_str(), text.data()) != 0) return true;
    text.back() = '\0';
    *reason = text.data();
    return false;
  };
  const std::wstring text = TextOf(combo);
  // What the code page lacks stays visible, so that the pattern with it can be named as the one that is
  // refused.
  const bool isExpressible = base::ExactNarrow(text).has_value();
  const auto isTaken = [&](const std::string& pattern, std::string* reason) {
    if (isExpressible || pattern.find('?') == std::string::npos) return isValid(pattern, reason);
    *reason = "'" + pattern + "' has a letter that the code page of this computer lacks";
    return false;
  };
  const StoredMask mask = MakeStoredMask(kind, base::DisplayNarrow(text), EntriesOf(combo), isTaken);
  if (!mask.complaint.empty()) {
    MessageBoxA(dialog, mask.complaint.c_str(), kPatternErrorCaption, MB_OK);
    SetFocus(combo);
    return false;
  }
  *list = unique_host_text(mask.text ? Import_IO_Copy_String(mask.text->c_str()) : nullptr);
  return true;
}

}  // namespace file_explorer
