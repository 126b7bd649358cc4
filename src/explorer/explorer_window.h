// The docked explorer window: command toolbar, path combo box and file view.
#pragma once

#include <windows.h>

#include <memory>
#include <span>
#include <string>

#include "base/handles/held.h"
#include "src/framework/command_ids.h"
#include "src/explorer/group_sort.h"
#include "src/explorer/item_colors.h"
#include "src/explorer/pattern_box.h"
#include "src/explorer/tab_order.h"
#include "src/framework/unique_handle.h"
#include "src/shellhost/shell_controls.h"

namespace file_explorer {

struct ExplorerState;

// Functions that call a control or the host may find the window taken down when the call comes back; see base::Holdable.
class ExplorerWindow : public base::Holdable {
 public:
  // Consulted first for every message; sets *handled when its result is the answer.
  using MessageHook = LRESULT (*)(ExplorerWindow& window, UINT message, WPARAM wParam, LPARAM lParam, bool* handled);
  // Consulted first for every event of the file view, with the arguments of ControlEventCallback.
  using FileViewEventHook = std::int64_t (*)(ExplorerWindow& window, ControlEvent code, ShellControlHost* host,
                                             IDispatch* object, std::int64_t a, std::int64_t b, std::int64_t c,
                                             std::int64_t d, const char* path, bool* handled);

  // What the window is handed to the host with. Texts are copied.
  struct DockingRequest {
    const char* title;
    const char* secondTitle;
    const char* windowGuid;
    bool show;
    const char* bitmapName;  // resource of the module, or null
    std::uint16_t creationMethod;
    std::uint16_t dockingPosition;
    std::uint32_t extraFlags;
  };

  // state outlives the window. startDirectory is copied. The first construction in the process registers the window
  // class; it stays registered until UnregisterWindowClass.
  ExplorerWindow(ExplorerState& state, LPCITEMIDLIST startDirectory);
  ~ExplorerWindow();
  // Saves the display mode, then destroys the shell controls and the window. Once.
  void TakeDown() noexcept;

  static void UnregisterWindowClass(HINSTANCE instance);

  // Creates the window and hands it to the host's window manager; false when either refuses.
  bool CreateAndDock(const DockingRequest& request);
  void SetMessageHook(MessageHook hook) { messageHook_ = hook; }
  void SetFileViewEventHook(FileViewEventHook hook) { fileViewEventHook_ = hook; }
  // Makes the command toolbar (with toolbarId) and the file pane; false when either can't be made.
  bool CreateToolbar(int toolbarId, int commandBase);
  void SetPanelGuid(const char* guid) { panelGuid_ = guid; }
  // Tells the window that the folder tree exists now (or no longer: null), and links the three controls.
  void SetFolderViewHost(ShellControlHost* folderView);

  // Places toolbar, combo box and file view in a client area of this size.
  void Relayout(int width, int height);
  // Makes sure that the file pane is built and placed.
  void ResynchronisePanes();
  // Makes the window visible in front of its siblings.
  void BringForward();

  void SetDisplayMode(int mode);
  void ApplyDisplayMode();

  ExplorerState& state() const { return state_; }
  HWND window() const { return window_.get(); }
  HWND toolbar() const { return toolbar_; }
  int displayMode() const { return displayMode_; }
  PatternBox& patternBox() { return patternBox_; }
  GroupSort& groupSort() { return groupSort_; }
  ShellControlHost* fileView() const { return fileView_.get(); }
  ShellControlHost* comboView() const { return comboView_.get(); }
  LPCITEMIDLIST startDirectory() const { return startDirectory_.get(); }
  MessageHook messageHook() const { return messageHook_; }
  FileViewEventHook fileViewEventHook() const { return fileViewEventHook_; }
  const std::string& panelGuid() const { return panelGuid_; }

 private:
  struct MessageHandler {
    UINT message;
    LRESULT (ExplorerWindow::*handler)(HWND window, WPARAM wParam, LPARAM lParam);
  };

  static LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static void RegisterWindowClass(HINSTANCE instance);
  static bool IsObjectOf(const ExplorerWindow* object, HWND window);
  static std::span<const MessageHandler> MessageHandlers();
  LRESULT Dispatch(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT OnManagerNotification(WPARAM wParam);
  LRESULT OnManagerToggle();
  LRESULT OnManagerClose();
  LRESULT OnCommand(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnSystemCommand(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnIgnored(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnNotify(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnNotifyFormat(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnCreate(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnSize(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnEraseBackground(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnSetFocus(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnNextControl(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnClipboardUpdate(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnColorChange(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnSettingChange(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnDestroy(HWND window, WPARAM wParam, LPARAM lParam);
  LRESULT OnEndOfWindow(HWND window, WPARAM wParam, LPARAM lParam);
  bool BuildFilePane();
  HWND ListWindow() const;
  int ToolbarHeight();
  void PlaceForTheFirstTime(std::uint16_t creationMethod);
  void DestroyFilePane();

  ExplorerState& state_;
  int displayMode_;
  int commandBase_ = kDefaultCommandBase;
  unique_pidl startDirectory_;
  std::string title_;
  std::string secondTitle_;
  std::string windowGuid_;
  std::string panelGuid_;
  bool suppressHostMessages_ = false;  // while the host shows the window for the first time
  bool filePaneTried_ = false;
  bool isTakenDown_ = false;
  MessageHook messageHook_ = nullptr;
  FileViewEventHook fileViewEventHook_ = nullptr;
  ShellControlHost* folderView_ = nullptr;  // the selector area's
  unique_himagelist images_;
  unique_hwnd window_;
  HWND toolbar_ = nullptr;  // a child of the window
  PatternBox patternBox_;
  ShellControlPtr comboView_;
  ShellControlPtr fileView_;
  GroupSort groupSort_;
  ItemColors itemColors_;
  ViewTabKey listTab_{static_cast<UINT>(LVN_KEYDOWN)};
};

}  // namespace file_explorer
