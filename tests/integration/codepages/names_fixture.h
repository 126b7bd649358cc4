// The explorer on a folder of files whose names differ only in letters that an 8-bit code page lacks or
// bends.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "base/text/code_page.h"
#include "base/text/narrow_path.h"
#include "tests/integration/fileops/fileops_fixture.h"

namespace code_page_test {

using test_support::WaitUntil;

// With code page 1252: what it has, what it lacks, and what it would bend into one of the others.
inline const std::vector<std::wstring> kNames = {
    L"plan.obj",
    L"pl\u0101n.obj",
    L"a.obj",
    L"\uFF41.obj",
    L"caf\u00E9.obj",
    L"caf\u0117.obj",
    L"\u0441\u0442\u0430\u043D.obj",
    L"\u30E2\u30C7\u30EB.obj",
};

inline bool IsUtf8Process() {
  return GetACP() == CP_UTF8;
}

class NamesTest : public fileops_test::FileOpsTest {
 protected:
  // Each file's content is its name in UTF-16, so that every file says which one it is.
  static std::string ContentFor(const std::wstring& name) {
    return {reinterpret_cast<const char*>(name.data()), name.size() * sizeof(wchar_t)};
  }
  void Begin() {
    for (const std::wstring& name : kNames) fixture_.directory().AddFile(L"files\\" + name, ContentFor(name));
    Start(kNames.size());
  }

  // The name of the file that a path of the 8-bit world leads to; empty when it leads nowhere.
  std::wstring FileBehind(const std::string& path) {
    const std::string content = Content(path);
    for (const std::wstring& name : kNames) {
      if (content == ContentFor(name)) return name;
    }
    return {};
  }

  std::wstring RowName(int row) const {
    std::array<wchar_t, 512> text = {};
    LVITEMW item = {};
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageW(list(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return item.pszText;
  }
  int RowOf(const std::wstring& name) const {
    const int count = static_cast<int>(SendMessageW(list(), LVM_GETITEMCOUNT, 0, 0));
    for (int row = 0; row < count; ++row) {
      if (RowName(row) == name) return row;
    }
    return -1;
  }
  std::vector<std::wstring> SelectedRows() const {
    std::vector<std::wstring> names;
    int row = -1;
    while ((row = static_cast<int>(
                SendMessageW(list(), LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED))) >= 0) {
      names.push_back(RowName(row));
    }
    return names;
  }
  void SelectRows(const std::vector<std::wstring>& names) {
    LVITEMW item = {};
    item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
    SendMessageW(list(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
    item.state = item.stateMask;
    for (const std::wstring& name : names) {
      ASSERT_GE(RowOf(name), 0) << base::DisplayNarrow(name);
      SendMessageW(list(), LVM_SETITEMSTATE, static_cast<WPARAM>(RowOf(name)),
                   reinterpret_cast<LPARAM>(&item));
    }
    test_support::PumpMessages();
  }
  POINT LabelOf(const std::wstring& name) const {
    RECT label = {};
    label.left = LVIR_LABEL;
    SendMessageW(list(), LVM_GETITEMRECT, static_cast<WPARAM>(RowOf(name)), reinterpret_cast<LPARAM>(&label));
    return {label.left + 4, (label.top + label.bottom) / 2};
  }
  void DoubleClickRow(const std::wstring& name) {
    const POINT at = LabelOf(name);
    const LPARAM point = MAKELPARAM(at.x, at.y);
    PostMessageW(list(), WM_LBUTTONDOWN, MK_LBUTTON, point);
    PostMessageW(list(), WM_LBUTTONUP, 0, point);
    PostMessageW(list(), WM_LBUTTONDBLCLK, MK_LBUTTON, point);
    PostMessageW(list(), WM_LBUTTONUP, 0, point);
  }
  // Chooses an item of the row's context menu.
  void ChooseFor(const std::wstring& name, const std::string& caption) {
    POINT point = LabelOf(name);
    ClientToScreen(list(), &point);
    const size_t before = driver_.menus().size();
    driver_.ChooseFromMenu(caption);
    PostMessageW(GetParent(list()), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list()),
                 MAKELPARAM(point.x, point.y));
    ASSERT_TRUE(WaitUntil([&] { return driver_.menus().size() > before; }));
    test_support::PumpMessages();
  }
};

}  // namespace code_page_test
