// A history view on a panel window of its own, with its files in a folder that goes when the test ends.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <memory>
#include <string>
#include <vector>

#include "src/framework/command_ids.h"
#include "src/history/history_view.h"
#include "tests/integration/history/history_test_folder.h"

namespace file_explorer {

inline constexpr int kViewId = 32000;

class HistoryViewTest : public testing::Test {
 protected:
  HistoryViewTest() {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = PanelProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "HistoryTestPanel";
    windowClass.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
    RegisterClassA(&windowClass);
    panel = CreateWindowExA(0, "HistoryTestPanel", "", WS_POPUP, 40, 40, 420, 400, nullptr, nullptr,
                            windowClass.hInstance, nullptr);
    SetWindowLongPtrA(panel, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  ~HistoryViewTest() override {
    view.reset();
    DestroyWindow(panel);
  }

  static LRESULT CALLBACK PanelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<HistoryViewTest*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (self != nullptr && self->view && self->view->HandleMessage(window, message, wParam, lParam))
      return TRUE;
    if (self != nullptr && self->view && message == WM_COMMAND && lParam == 0) {
      self->view->HandleCommand(LOWORD(wParam), self->toolbar, window);
    }
    return DefWindowProcA(window, message, wParam, lParam);
  }

  void Create() {
    HistoryServices services;
    services.instance = GetModuleHandleA(nullptr);
    services.profilePath = [this] { return folder.profile(); };
    services.mainWindow = [this] { return panel; };
    services.loadFile = [this](const char* path) { loaded.push_back(path); };
    view = CHistoryView::Create(panel, kViewId, services);
    ASSERT_TRUE(view);
  }
  void Show() {
    ShowWindow(panel, SW_SHOW);
    ShowWindow(view->window(), SW_SHOW);
    UpdateWindow(view->window());
  }

  // The history's toolbar, as far as its commands change it.
  void CreateToolbar() {
    toolbar = CreateWindowExA(0, TOOLBARCLASSNAMEA, "", WS_CHILD | CCS_NOPARENTALIGN | CCS_NORESIZE, 0, 0,
                              200, 30, panel, nullptr, GetModuleHandleA(nullptr), nullptr);
    SendMessageA(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    TBBUTTON buttons[2] = {};
    buttons[0].idCommand = kCommandHistorySorting;
    buttons[1].idCommand = kCommandHistoryIcons;
    buttons[1].fsStyle = BTNS_CHECK;
    for (TBBUTTON& button : buttons) button.fsState = TBSTATE_ENABLED;
    SendMessageA(toolbar, TB_ADDBUTTONSA, 2, reinterpret_cast<LPARAM>(buttons));
  }

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageA(view->window(), message, wParam, lParam);
  }
  std::vector<std::string> Rows() const {
    std::vector<std::string> rows;
    for (LRESULT row = 0; row < Send(LB_GETCOUNT); ++row) {
      char text[512] = "";
      Send(LB_GETTEXT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(text));
      rows.push_back(text);
    }
    return rows;
  }
  void Add(const char* path) { EXPECT_TRUE(view->AddPathToHistory(path)); }
  // The notification of the list box, as after a click.
  void ReportSelection(int row) {
    Send(LB_SETCURSEL, static_cast<WPARAM>(row));
    SendMessageA(panel, WM_COMMAND, MAKEWPARAM(kViewId, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(view->window()));
  }
  void Click(int row) {
    RECT rect = {};
    Send(LB_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&rect));
    const LPARAM point = MAKELPARAM(rect.left + 30, rect.top + 5);
    Send(WM_LBUTTONDOWN, MK_LBUTTON, point);
    Send(WM_LBUTTONUP, 0, point);
  }
  std::string Setting(const char* key) const {
    char text[32] = "";
    GetPrivateProfileStringA("History", key, "", text, sizeof(text), folder.profile().c_str());
    return text;
  }

  HistoryTestFolder folder;
  HWND panel = nullptr;
  HWND toolbar = nullptr;
  base::held_ptr<CHistoryView> view;
  std::vector<std::string> loaded;
};

}  // namespace file_explorer
