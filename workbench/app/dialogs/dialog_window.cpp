#include "workbench/app/dialogs/dialog_window.h"

#include <algorithm>

namespace workbench {
namespace {

constexpr WORD kButtonClass = 0x0080;
constexpr WORD kEditClass = 0x0081;
constexpr WORD kStaticClass = 0x0082;
constexpr std::size_t kItemCountAt = 8;  // in words, from the start of an extended template

struct MessageFont {
  std::wstring face;
  WORD points;
};

MessageFont SystemMessageFont() {
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSY);
  ReleaseDC(nullptr, screen);
  const int points = MulDiv(std::abs(metrics.lfMessageFont.lfHeight), 72, dpi > 0 ? dpi : 96);
  return {metrics.lfMessageFont.lfFaceName, static_cast<WORD>(std::max(points, 9))};
}

}  // namespace

DialogTemplate::DialogTemplate(const std::wstring& title, short width, short height) {
  const MessageFont font = SystemMessageFont();
  PutWord(1);       // version
  PutWord(0xFFFF);  // extended
  PutLong(0);       // help id
  PutLong(0);       // extended style
  PutLong(DS_MODALFRAME | DS_SETFONT | DS_NOFAILCREATE | WS_POPUP | WS_CAPTION | WS_SYSMENU);
  PutWord(0);  // number of controls, counted up by Add
  PutWord(0);
  PutWord(0);
  PutWord(static_cast<WORD>(width));
  PutWord(static_cast<WORD>(height));
  PutWord(0);  // no menu
  PutWord(0);  // the usual class
  PutText(title);
  PutWord(font.points);
  PutWord(FW_NORMAL);
  PutWord(DEFAULT_CHARSET << 8);  // not italic
  PutText(font.face);
}

void DialogTemplate::PutLong(DWORD value) {
  PutWord(LOWORD(value));
  PutWord(HIWORD(value));
}

void DialogTemplate::PutText(const std::wstring& text) {
  for (const wchar_t c : text) PutWord(c);
  PutWord(0);
}

void DialogTemplate::Add(WORD classAtom, DWORD style, const std::wstring& text, DialogArea area, WORD id) {
  if (words_.size() % 2 != 0) PutWord(0);  // controls start at multiples of four bytes
  PutLong(0);                              // help id
  PutLong(classAtom == kEditClass ? WS_EX_CLIENTEDGE : 0);
  PutLong(style | WS_CHILD | WS_VISIBLE);
  PutWord(static_cast<WORD>(area.x));
  PutWord(static_cast<WORD>(area.y));
  PutWord(static_cast<WORD>(area.width));
  PutWord(static_cast<WORD>(area.height));
  PutLong(id == 0xFFFF ? 0xFFFFFFFF : id);
  PutWord(0xFFFF);
  PutWord(classAtom);
  PutText(text);
  PutWord(0);  // no creation data
  ++words_[kItemCountAt];
}

void DialogTemplate::AddLabel(const std::wstring& text, DialogArea area, WORD id, DWORD style) {
  Add(kStaticClass, SS_LEFT | style, text, area, id);
}

void DialogTemplate::AddEdit(WORD id, DialogArea area, bool readOnly) {
  Add(kEditClass, ES_AUTOHSCROLL | WS_TABSTOP | (readOnly ? ES_READONLY : 0), L"", area, id);
}

void DialogTemplate::AddCheckBox(WORD id, const std::wstring& text, DialogArea area) {
  Add(kButtonClass, BS_AUTOCHECKBOX | WS_TABSTOP, text, area, id);
}

void DialogTemplate::AddButton(WORD id, const std::wstring& text, DialogArea area, bool isDefault) {
  Add(kButtonClass, (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON) | WS_TABSTOP, text, area, id);
}

void DialogTemplate::AddGroup(const std::wstring& text, DialogArea area) {
  Add(kButtonClass, BS_GROUPBOX, text, area, 0xFFFF);
}

void DialogTemplate::AddLine(DialogArea area) {
  Add(kStaticClass, SS_ETCHEDHORZ, L"", area, 0xFFFF);
}

INT_PTR ModalDialog::Run(HWND owner, const DialogTemplate& dialogTemplate) {
  return DialogBoxIndirectParamW(GetModuleHandleW(nullptr), dialogTemplate.get(), owner, Procedure,
                                 reinterpret_cast<LPARAM>(this));
}

std::wstring ModalDialog::ControlText(int id) const {
  const HWND control = Control(id);
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
  text.resize(static_cast<std::size_t>(GetWindowTextW(control, text.data(), static_cast<int>(text.size()))));
  return text;
}

INT_PTR CALLBACK ModalDialog::Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    reinterpret_cast<ModalDialog*>(lParam)->window_ = dialog;
  }
  auto* self = reinterpret_cast<ModalDialog*>(GetWindowLongPtrW(dialog, DWLP_USER));
  if (self == nullptr) return FALSE;
  try {
    return self->HandleMessage(message, wParam);
  } catch (...) {
    // Nothing may pass through Windows' own frames; the dialog stays open.
    return FALSE;
  }
}

INT_PTR ModalDialog::HandleMessage(UINT message, WPARAM wParam) {
  switch (message) {
    case WM_INITDIALOG:
      CenterOnOwner();
      return OnInitialise() ? TRUE : FALSE;
    case WM_COMMAND:
      if (HIWORD(wParam) != BN_CLICKED) return FALSE;
      OnPressed(LOWORD(wParam));
      return TRUE;
    default:
      return FALSE;
  }
}

void ModalDialog::CenterOnOwner() const {
  RECT dialog = {};
  RECT area = {};
  GetWindowRect(window_, &dialog);
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  const HWND owner = GetWindow(window_, GW_OWNER);
  GetMonitorInfoW(MonitorFromWindow(owner != nullptr ? owner : window_, MONITOR_DEFAULTTONEAREST), &monitor);
  if (owner == nullptr || IsIconic(owner) || !GetWindowRect(owner, &area)) area = monitor.rcWork;
  const RECT& work = monitor.rcWork;
  const LONG width = dialog.right - dialog.left;
  const LONG height = dialog.bottom - dialog.top;
  const LONG x = std::max(work.left, std::min((area.left + area.right - width) / 2, work.right - width));
  const LONG y = std::max(work.top, std::min((area.top + area.bottom - height) / 2, work.bottom - height));
  SetWindowPos(window_, nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace workbench
