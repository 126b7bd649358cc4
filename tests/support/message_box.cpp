#include "tests/support/message_box.h"

#include <algorithm>
#include <utility>

#include "base/text/code_page.h"

namespace test_support {
namespace {

constexpr int kTextControl = 0xFFFF;

std::wstring WideTextOf(HWND window) {
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(static_cast<size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return text;
}

std::string TextOf(HWND window) { return base::DisplayNarrow(WideTextOf(window)); }

bool HasClass(HWND window, const char* name) {
  char buffer[64] = "";
  GetClassNameA(window, buffer, sizeof buffer);
  return lstrcmpiA(buffer, name) == 0;
}

UINT IconKind(HICON icon) {
  const std::pair<const char*, UINT> kinds[] = {{IDI_ERROR, MB_ICONERROR},
                                                {IDI_QUESTION, MB_ICONQUESTION},
                                                {IDI_EXCLAMATION, MB_ICONEXCLAMATION},
                                                {IDI_INFORMATION, MB_ICONINFORMATION}};
  for (const auto& [name, kind] : kinds) {
    if (icon == LoadIconA(nullptr, name)) return kind;
  }
  return 0;
}

struct Contents {
  std::vector<std::pair<LONG, int>> buttons;  // left edge, id
  HICON icon = nullptr;
};

BOOL CALLBACK ReadChild(HWND child, LPARAM parameter) {
  auto& contents = *reinterpret_cast<Contents*>(parameter);
  if (!(GetWindowLongPtrA(child, GWL_STYLE) & WS_VISIBLE)) return TRUE;
  if (HasClass(child, "Button")) {
    RECT rect;
    GetWindowRect(child, &rect);
    contents.buttons.emplace_back(rect.left, GetDlgCtrlID(child));
  } else if (HasClass(child, "Static")) {
    if (const LRESULT icon = SendMessageA(child, STM_GETICON, 0, 0))
      contents.icon = reinterpret_cast<HICON>(icon);
  }
  return TRUE;
}

}  // namespace

bool IsMessageBox(HWND window) {
  return HasClass(window, "#32770") && GetDlgItem(window, kTextControl) != nullptr;
}

MessageBoxContents ReadMessageBox(HWND window) {
  Contents contents;
  EnumChildWindows(window, ReadChild, reinterpret_cast<LPARAM>(&contents));
  std::sort(contents.buttons.begin(), contents.buttons.end());
  MessageBoxContents box;
  box.caption = TextOf(window);
  box.wideText = WideTextOf(GetDlgItem(window, kTextControl));
  box.text = base::DisplayNarrow(box.wideText);
  box.icon = contents.icon ? IconKind(contents.icon) : 0;
  box.owner = GetWindow(window, GW_OWNER);
  for (const auto& button : contents.buttons) box.buttons.push_back(button.second);
  return box;
}

int LeastHarmfulButton(const MessageBoxContents& box) {
  for (const int button : {IDCANCEL, IDNO}) {
    if (std::find(box.buttons.begin(), box.buttons.end(), button) != box.buttons.end()) return button;
  }
  return box.buttons.empty() ? IDOK : box.buttons.front();
}

}  // namespace test_support
