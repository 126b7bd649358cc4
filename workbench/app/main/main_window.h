// The main window's frame: menu, status line and the room between them.
#pragma once

#include <windows.h>

#include <string>

#include "workbench/app/main/commands.h"
#include "workbench/app/ui/theme.h"
#include "workbench/app/ui/window_base.h"

namespace workbench {

class MainWindowOwner {
 public:
  virtual void OnCommand(UINT command) = 0;
  virtual void OnViewMenuOpens(HMENU menu) = 0;
  virtual void OnAutoload() = 0;
  virtual void OnRoomChanged(const Rect& room) = 0;
  virtual void OnCloseRequested() = 0;
  virtual void OnFocusArrived() = 0;
  virtual void OnSessionEnds() = 0;
  virtual void OnColorsChanged() = 0;  // the system's; everything is painted again afterwards

 protected:
  ~MainWindowOwner() = default;
};

class MainWindow : public WindowBase<MainWindow> {
 public:
  static constexpr wchar_t kClassName[] = L"WorkbenchMainWindow";
  static std::span<const MessageHandler> Handlers();

  MainWindow(MainWindowOwner& owner, const Theme& theme);
  ~MainWindow() { DestroyNow(); }

  // Between menu and status line, in client coordinates.
  Rect Room() const;
  void SetMessage(const std::wstring& text);  // left part of the status line
  void SetSummary(const std::wstring& text);  // right part
  const std::wstring& message() const { return message_; }
  const std::wstring& summary() const { return summary_; }
  HWND statusBar() const { return status_; }
  HMENU menu() const { return menu_.get(); }
  // Handles the main window's keys; true when the message was one.
  bool TranslateKeys(MSG& message);

 private:
  void LayOutStatus();

  LRESULT OnSize(const Message&);
  LRESULT OnCommand(const Message&);
  LRESULT OnInitMenuPopup(const Message&);
  LRESULT OnAutoload(const Message&);
  LRESULT OnClose(const Message&);
  LRESULT OnSetFocus(const Message&);
  LRESULT OnEndSession(const Message&);
  LRESULT OnMinMax(const Message&);
  LRESULT OnErase(const Message&);
  LRESULT OnColorChange(const Message&);
  LRESULT OnSettingChange(const Message&);

  MainWindowOwner& owner_;
  const Theme& theme_;
  UniqueMenu menu_;
  UniqueAccelerators keys_;
  HWND status_ = nullptr;
  std::wstring message_;
  std::wstring summary_;
};

}  // namespace workbench
