// Modal dialogs from templates that are built in memory, in the system's message font and therefore in its
// size.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace workbench {

// Places and sizes are in dialog units.
struct DialogArea {
  short x;
  short y;
  short width;
  short height;
};

class DialogTemplate {
 public:
  DialogTemplate(const std::wstring& title, short width, short height);

  // Controls come in tab order. `group` begins a group of the arrow keys.
  void AddLabel(const std::wstring& text, DialogArea area, WORD id = 0xFFFF, DWORD style = 0);
  void AddEdit(WORD id, DialogArea area, bool readOnly);
  void AddCheckBox(WORD id, const std::wstring& text, DialogArea area);
  void AddButton(WORD id, const std::wstring& text, DialogArea area, bool isDefault = false);
  void AddGroup(const std::wstring& text, DialogArea area);
  void AddLine(DialogArea area);  // a thin rule

  const DLGTEMPLATE* get() const { return reinterpret_cast<const DLGTEMPLATE*>(words_.data()); }

 private:
  void Add(WORD classAtom, DWORD style, const std::wstring& text, DialogArea area, WORD id);
  void PutWord(WORD word) { words_.push_back(word); }
  void PutLong(DWORD value);
  void PutText(const std::wstring& text);

  std::vector<WORD> words_;
};

// Base of the dialogs here. Enter presses the default button, Escape and the close box mean Cancel.
class ModalDialog {
 public:
  ModalDialog() = default;
  virtual ~ModalDialog() = default;
  ModalDialog(const ModalDialog&) = delete;
  ModalDialog& operator=(const ModalDialog&) = delete;

 protected:
  // Shows the dialog in the middle of its owner. The value that Close got, which is above 0; 0 or -1 when it could not be shown.
  INT_PTR Run(HWND owner, const DialogTemplate& dialogTemplate);
  void Close(INT_PTR result) { EndDialog(window_, result); }

  HWND window() const { return window_; }
  HWND Control(int id) const { return GetDlgItem(window_, id); }
  std::wstring ControlText(int id) const;
  void SetControlText(int id, const std::wstring& text) const { SetDlgItemTextW(window_, id, text.c_str()); }
  bool IsChecked(int id) const { return IsDlgButtonChecked(window_, id) == BST_CHECKED; }

  // Before the dialog shows. True lets the first control have the focus, false when SetFocus was called.
  virtual bool OnInitialise() { return true; }
  // A button was pressed.
  virtual void OnPressed(int id) = 0;

 private:
  static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR HandleMessage(UINT message, WPARAM wParam);
  void CenterOnOwner() const;

  HWND window_ = nullptr;
};

}  // namespace workbench
