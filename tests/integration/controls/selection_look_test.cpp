// What is selected can be told from the rest whether the view has the focus or not.
#include <windows.h>

#include <commctrl.h>

#include <gtest/gtest.h>

#include "tests/integration/controls/control_container.h"
#include "tests/support/high_contrast.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"
#include "workbench/controls/shell/selection_look.h"

namespace controls_test {
namespace {

using test_support::TempDirectory;
using test_support::WaitUntil;

int CountPixels(HWND window, const RECT& area, COLORREF color) {
  InvalidateRect(window, nullptr, FALSE);
  UpdateWindow(window);
  const HDC dc = GetDC(window);
  int count = 0;
  for (LONG y = area.top; y < area.bottom; ++y) {
    for (LONG x = area.left; x < area.right; ++x) count += GetPixel(dc, x, y) == color;
  }
  ReleaseDC(window, dc);
  return count;
}

TEST(SelectionLook, AnUnfocusedListShadesItsSelectedRows) {
  TempDirectory folder;
  folder.AddFile(L"a.txt");
  folder.AddFile(L"b.txt");
  Hosted view(kFileView);
  ASSERT_TRUE(view.GoAndWait(folder.path()));
  LVITEMW item = {};
  item.state = item.stateMask = LVIS_SELECTED;
  SendMessageW(view.list(), LVM_SETITEMSTATE, 1, reinterpret_cast<LPARAM>(&item));
  SetFocus(view.frame());
  ASSERT_NE(GetFocus(), view.list());
  const auto shaded = [&](int row) {
    RECT area = {};
    area.left = LVIR_LABEL;
    SendMessageW(view.list(), LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
    return CountPixels(view.list(), area, controls::InactiveSelectionColor());
  };
  EXPECT_GT(shaded(1), 100);
  EXPECT_EQ(shaded(0), 0);
  SetFocus(view.list());
  EXPECT_EQ(shaded(1), 0) << "with the focus it has the system's colour";
}

TEST(SelectionLook, InHighContrastASelectionHasTheSystemsColour) {
  TempDirectory folder;
  folder.AddFile(L"a.txt");
  Hosted view(kFileView);
  ASSERT_TRUE(view.GoAndWait(folder.path()));
  LVITEMW item = {};
  item.state = item.stateMask = LVIS_SELECTED;
  SendMessageW(view.list(), LVM_SETITEMSTATE, 0, reinterpret_cast<LPARAM>(&item));
  SetFocus(view.frame());
  RECT area = {};
  area.left = LVIR_LABEL;
  SendMessageW(view.list(), LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&area));
  const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
  ASSERT_NE(highlight, controls::InactiveSelectionColor());
  {
    const test_support::HighContrast contrast(ModuleOf(kFileView));
    ASSERT_TRUE(contrast.installed());
    EXPECT_GT(CountPixels(view.list(), area, highlight), 100);
    EXPECT_EQ(CountPixels(view.list(), area, controls::InactiveSelectionColor()), 0);
  }
  EXPECT_GT(CountPixels(view.list(), area, controls::InactiveSelectionColor()), 100) << "and back again";
}

TEST(SelectionLook, AnUnfocusedTreeShadesItsSelectedFolder) {
  Hosted tree(kFolderView);
  const HWND list = FindWindowExW(tree.window(), nullptr, WC_TREEVIEWW, nullptr);
  ASSERT_NE(list, nullptr);
  const auto selected = [&] {
    return reinterpret_cast<HTREEITEM>(SendMessageW(list, TVM_GETNEXTITEM, TVGN_CARET, 0));
  };
  if (selected() == nullptr) {
    SendMessageW(list, TVM_SELECTITEM, TVGN_CARET, SendMessageW(list, TVM_GETNEXTITEM, TVGN_ROOT, 0));
  }
  ASSERT_TRUE(WaitUntil([&] { return selected() != nullptr; }));
  const auto shaded = [&] {
    RECT label = {};
    *reinterpret_cast<HTREEITEM*>(&label) = selected();
    SendMessageW(list, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&label));
    return CountPixels(list, label, controls::InactiveSelectionColor());
  };
  SetFocus(tree.frame());
  ASSERT_NE(GetFocus(), list);
  EXPECT_GT(shaded(), 100);
  SetFocus(list);
  EXPECT_EQ(shaded(), 0) << "with the focus it has the system's colour";
}

}  // namespace
}  // namespace controls_test
