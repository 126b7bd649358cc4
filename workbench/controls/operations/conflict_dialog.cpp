#include "workbench/controls/operations/conflict_dialog.h"

#include <iterator>
#include <string_view>
#include <vector>

#include "workbench/controls/com/class_server.h"

namespace controls {
namespace {

// Dialog units.
constexpr short kWidth = 276;
constexpr short kHeight = 100;
constexpr short kMargin = 8;
constexpr short kButtonWidth = 62;
constexpr short kButtonHeight = 14;

// A dialog's template in memory: the control's modules share no resources.
class DialogTemplate {
 public:
  DialogTemplate(const wchar_t* caption, WORD controls) {
    Number(DWORD{DS_MODALFRAME | DS_CENTER | DS_SHELLFONT | WS_POPUP | WS_CAPTION | WS_SYSMENU});
    Number(DWORD{0});
    for (const WORD value : {controls, WORD{0}, WORD{0}, WORD{kWidth}, WORD{kHeight}, WORD{0}, WORD{0}})
      Word(value);
    Text(caption);
    Word(8);
    Text(L"MS Shell Dlg");
  }

  struct Place {
    short x, y, width, height;
  };
  void Control(WORD windowClass, DWORD style, const Place& place, WORD id, std::wstring_view text) {
    if (words_.size() % 2 != 0) Word(0);
    Number(DWORD{WS_CHILD | WS_VISIBLE} | style);
    Number(DWORD{0});
    for (const short value : {place.x, place.y, place.width, place.height}) Word(static_cast<WORD>(value));
    Word(id);
    Word(0xFFFF);
    Word(windowClass);
    Text(text);
    Word(0);
  }
  const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
  void Word(WORD value) { words_.push_back(value); }
  void Number(DWORD value) {
    Word(LOWORD(value));
    Word(HIWORD(value));
  }
  void Text(std::wstring_view text) {
    for (const wchar_t unit : text) Word(static_cast<WORD>(unit));
    Word(0);
  }

  std::vector<WORD> words_;  // aligned by the heap
};

constexpr WORD kButtonClass = 0x0080;
constexpr WORD kStaticClass = 0x0082;

DialogTemplate TemplateOf(const wchar_t* caption, const ConflictText& text, bool mayReplace) {
  DialogTemplate dialog(caption, 8);
  constexpr short kTextWidth = kWidth - 2 * kMargin;
  constexpr DWORD kLabel = SS_LEFT | SS_NOPREFIX;
  dialog.Control(kStaticClass, kLabel, {kMargin, 7, kTextWidth, 27}, kConflictHeading, text.heading);
  dialog.Control(kStaticClass, kLabel, {kMargin, 37, kTextWidth, 9}, kConflictIncoming, text.incoming);
  dialog.Control(kStaticClass, kLabel, {kMargin, 47, kTextWidth, 9}, kConflictPresent, text.present);
  dialog.Control(kButtonClass, BS_AUTOCHECKBOX | WS_TABSTOP, {kMargin, 62, kTextWidth, 10},
                 kConflictForAllBox, L"Do this for &all conflicts");
  struct Button {
    WORD id;
    std::wstring_view label;
    DWORD style;
  };
  const Button buttons[] = {
      {kConflictReplaceButton, text.replace, mayReplace ? BS_PUSHBUTTON : BS_PUSHBUTTON | DWORD{WS_DISABLED}},
      // What loses nothing is what Enter does.
      {kConflictSkipButton, L"&Skip", BS_DEFPUSHBUTTON},
      {kConflictKeepBothButton, L"&Keep Both", BS_PUSHBUTTON},
      {IDCANCEL, L"Cancel", BS_PUSHBUTTON},
  };
  short x = kMargin;
  for (const Button& button : buttons) {
    dialog.Control(kButtonClass, button.style | WS_TABSTOP, {x, 79, kButtonWidth, kButtonHeight}, button.id,
                   button.label);
    x = static_cast<short>(x + kButtonWidth + 4);
  }
  return dialog;
}

struct Reply {
  int id;
  base::ConflictAnswer answer;
};
constexpr Reply kReplies[] = {
    {kConflictReplaceButton, base::ConflictAnswer::kReplace},
    {kConflictSkipButton, base::ConflictAnswer::kSkip},
    {kConflictKeepBothButton, base::ConflictAnswer::kKeepBoth},
    {IDCANCEL, base::ConflictAnswer::kCancel},
};

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    SetFocus(GetDlgItem(dialog, kConflictSkipButton));
    return FALSE;
  }
  if (message != WM_COMMAND) return FALSE;
  auto* const reply = reinterpret_cast<base::ConflictReply*>(GetWindowLongPtrW(dialog, DWLP_USER));
  for (const Reply& row : kReplies) {
    if (row.id != LOWORD(wParam) || !reply) continue;
    reply->answer = row.answer;
    reply->forAll = IsDlgButtonChecked(dialog, kConflictForAllBox) == BST_CHECKED;
    EndDialog(dialog, row.id);
    return TRUE;
  }
  return FALSE;
}

}  // namespace

base::ConflictReply AskConflict(HWND owner, const wchar_t* caption, const ConflictText& text,
                                bool mayReplace) {
  // Also the answer of a dialog that could not be made, or whose owner went.
  base::ConflictReply reply;
  reply.answer = base::ConflictAnswer::kCancel;
  const DialogTemplate dialog = TemplateOf(caption, text, mayReplace);
  DialogBoxIndirectParamW(ModuleInstance(), dialog.get(), owner, &DialogProcedure,
                          reinterpret_cast<LPARAM>(&reply));
  return reply;
}

}  // namespace controls
