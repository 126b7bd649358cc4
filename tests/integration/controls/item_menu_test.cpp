// A context menu that the shell has entries in, against a scripted menu of the shell.
#include "workbench/controls/shell/item_menu.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <commctrl.h>
#include <shellapi.h>

#include <functional>
#include <string>
#include <vector>

#include "tests/support/wait_until.h"

namespace controls_test {
namespace {

using controls::ItemMenu;
using testing::Contains;

constexpr LRESULT kKeyAnswer = MAKELRESULT(3, MNC_SELECT);

// An extension's menu. It logs what it is asked.
class ScriptedMenu final : public IContextMenu3 {
 public:
  bool hasNewest = true;
  std::vector<UINT> messages;  // through either interface
  bool usedNewest = false;
  std::wstring folder;
  std::string narrowFolder;
  DWORD mask = 0;

  STDMETHODIMP QueryInterface(REFIID iid, void** object) override {
    const bool known = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IContextMenu) ||
                       IsEqualIID(iid, IID_IContextMenu2) ||
                       (hasNewest && IsEqualIID(iid, IID_IContextMenu3));
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP QueryContextMenu(HMENU menu, UINT position, UINT first, UINT, UINT) override {
    InsertMenuW(menu, position, MF_BYPOSITION | MF_STRING, first, L"Entry");
    return MAKE_HRESULT(SEVERITY_SUCCESS, 0, 1);
  }
  STDMETHODIMP InvokeCommand(CMINVOKECOMMANDINFO* info) override {
    mask = info->fMask;
    if (info->lpDirectory != nullptr) narrowFolder = info->lpDirectory;
    const auto* const wide = reinterpret_cast<const CMINVOKECOMMANDINFOEX*>(info);
    if (info->cbSize >= sizeof(*wide) && wide->lpDirectoryW != nullptr) folder = wide->lpDirectoryW;
    return S_OK;
  }
  STDMETHODIMP GetCommandString(UINT_PTR, UINT, UINT*, char*, UINT) override { return E_NOTIMPL; }
  STDMETHODIMP HandleMenuMsg(UINT message, WPARAM, LPARAM) override {
    messages.push_back(message);
    return S_OK;
  }
  STDMETHODIMP HandleMenuMsg2(UINT message, WPARAM, LPARAM, LRESULT* result) override {
    messages.push_back(message);
    usedNewest = true;
    if (message == WM_MENUCHAR) *result = kKeyAnswer;
    return S_OK;
  }
};

// The folder whose items the menu is for.
class ScriptedFolder final : public IShellFolder {
 public:
  explicit ScriptedFolder(IContextMenu* menu) : menu_(menu) {}
  STDMETHODIMP QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  STDMETHODIMP_(ULONG) AddRef() override { return 2; }
  STDMETHODIMP_(ULONG) Release() override { return 1; }
  STDMETHODIMP ParseDisplayName(HWND, IBindCtx*, LPWSTR, ULONG*, LPITEMIDLIST*, ULONG*) override {
    return E_NOTIMPL;
  }
  STDMETHODIMP EnumObjects(HWND, SHCONTF, IEnumIDList**) override { return E_NOTIMPL; }
  STDMETHODIMP BindToObject(LPCITEMIDLIST, IBindCtx*, REFIID, void**) override { return E_NOTIMPL; }
  STDMETHODIMP BindToStorage(LPCITEMIDLIST, IBindCtx*, REFIID, void**) override { return E_NOTIMPL; }
  STDMETHODIMP CompareIDs(LPARAM, LPCITEMIDLIST, LPCITEMIDLIST) override { return E_NOTIMPL; }
  STDMETHODIMP CreateViewObject(HWND, REFIID, void**) override { return E_NOTIMPL; }
  STDMETHODIMP GetAttributesOf(UINT, LPCITEMIDLIST*, SFGAOF*) override { return E_NOTIMPL; }
  STDMETHODIMP GetUIObjectOf(HWND, UINT, LPCITEMIDLIST*, REFIID, UINT*, void** object) override {
    *object = menu_;
    return S_OK;
  }
  STDMETHODIMP GetDisplayNameOf(LPCITEMIDLIST, SHGDNF, STRRET*) override { return E_NOTIMPL; }
  STDMETHODIMP SetNameOf(HWND, LPCITEMIDLIST, LPCOLESTR, SHGDNF, LPITEMIDLIST*) override { return E_NOTIMPL; }

 private:
  IContextMenu* menu_;
};

std::function<void()> whileOpen;

void CALLBACK OnTimer(HWND window, UINT, UINT_PTR id, DWORD) {
  if (!FindWindowA("#32768", nullptr)) return;  // not open yet
  KillTimer(window, id);
  whileOpen();
  EndMenu();
}

class ItemMenuTest : public testing::Test {
 protected:
  void SetUp() override {
    owner_ = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr,
                             nullptr, nullptr);
    LPCITEMIDLIST child = nullptr;
    ASSERT_TRUE(menu_.AddShellEntries(owner_, folder_, 1, &child, false));
  }
  void TearDown() override { DestroyWindow(owner_); }
  void Track(std::function<void()> visit) {
    whileOpen = std::move(visit);
    SetTimer(owner_, 1, USER_TIMER_MINIMUM, OnTimer);
    menu_.Track(owner_, {10, 10});
  }

  HWND owner_ = nullptr;
  ScriptedMenu shell_;
  ScriptedFolder folder_{&shell_};
  ItemMenu menu_;
};

TEST_F(ItemMenuTest, TheNewestInterfaceGetsTheMessagesAndGivesTheAnswers) {
  LRESULT key = 0;
  LRESULT drawn = 0;
  Track([&] {
    key = SendMessageW(owner_, WM_MENUCHAR, MAKEWPARAM('q', MF_POPUP), 0);
    MEASUREITEMSTRUCT measure = {};
    measure.CtlType = ODT_MENU;
    drawn = SendMessageW(owner_, WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measure));
  });
  EXPECT_EQ(key, kKeyAnswer);
  EXPECT_EQ(drawn, TRUE);
  EXPECT_TRUE(shell_.usedNewest);
  EXPECT_THAT(shell_.messages, Contains(WM_INITMENUPOPUP)) << "submenus are filled when they open";
  EXPECT_THAT(shell_.messages, Contains(WM_MENUCHAR));
  EXPECT_THAT(shell_.messages, Contains(WM_MEASUREITEM));
}

TEST_F(ItemMenuTest, AnOlderInterfaceGetsWhatItKnows) {
  shell_.hasNewest = false;
  Track([&] {
    SendMessageW(owner_, WM_MENUCHAR, MAKEWPARAM('q', MF_POPUP), 0);
    MEASUREITEMSTRUCT measure = {};
    SendMessageW(owner_, WM_MEASUREITEM, 0, reinterpret_cast<LPARAM>(&measure));
  });
  EXPECT_FALSE(shell_.usedNewest);
  EXPECT_THAT(shell_.messages, Contains(WM_MEASUREITEM));
  EXPECT_THAT(shell_.messages, testing::Not(Contains(WM_MENUCHAR))) << "keys came with the newest interface";
}

TEST_F(ItemMenuTest, MessagesOfTheOwnersControlsAndOfOtherTimesAreTheOwners) {
  Track([&] {
    MEASUREITEMSTRUCT measure = {};
    SendMessageW(owner_, WM_MEASUREITEM, 7, reinterpret_cast<LPARAM>(&measure));
  });
  EXPECT_THAT(shell_.messages, testing::Not(Contains(WM_MEASUREITEM)));
  shell_.messages.clear();
  SendMessageW(owner_, WM_INITMENUPOPUP, 0, 0);
  EXPECT_TRUE(shell_.messages.empty());
}

TEST_F(ItemMenuTest, WhatTheShellStartsStartsInTheItemsFolder) {
  ASSERT_EQ(menu_.InvokeShell(owner_, ItemMenu::kFirstShell, L"C:\\some folder"), S_OK);
  EXPECT_EQ(shell_.folder, L"C:\\some folder");
  EXPECT_EQ(shell_.narrowFolder, "C:\\some folder");
  EXPECT_NE(shell_.mask & CMIC_MASK_UNICODE, 0u);
}

}  // namespace
}  // namespace controls_test
