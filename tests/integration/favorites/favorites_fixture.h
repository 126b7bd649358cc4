// A favourites pane on a panel window of its own, with the user's directory in a folder that goes when the
// test ends.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "src/favorites/favorites_pane.h"
#include "tests/support/temp_directory.h"

namespace file_explorer {

inline std::string TextOfFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

// "Folder(child …)" as the tree control shows it below an item (null: everything).
inline std::string OutlineOf(HWND tree, HTREEITEM parent = nullptr) {
  std::string outline;
  auto item = reinterpret_cast<HTREEITEM>(
      SendMessageA(tree, TVM_GETNEXTITEM, parent ? TVGN_CHILD : TVGN_ROOT, reinterpret_cast<LPARAM>(parent)));
  for (; item != nullptr; item = reinterpret_cast<HTREEITEM>(SendMessageA(tree, TVM_GETNEXTITEM, TVGN_NEXT,
                                                                          reinterpret_cast<LPARAM>(item)))) {
    char text[256] = "";
    TVITEMA info = {};
    info.mask = TVIF_HANDLE | TVIF_TEXT;
    info.hItem = item;
    info.pszText = text;
    info.cchTextMax = sizeof(text);
    SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&info));
    const std::string below = OutlineOf(tree, item);
    outline += (outline.empty() ? "" : " ") + std::string(text) + (below.empty() ? "" : "(" + below + ")");
  }
  return outline;
}

class FavoritesFixture : public testing::Test {
 protected:
  FavoritesFixture() {
    SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", folder.narrow().c_str());
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = PanelProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "FavoritesTestPanel";
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    RegisterClassA(&windowClass);
    panel = CreateWindowExA(0, "FavoritesTestPanel", "", WS_POPUP, 40, 40, 300, 400, nullptr, nullptr,
                            windowClass.hInstance, nullptr);
    SetWindowLongPtrA(panel, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  ~FavoritesFixture() override {
    pane.reset();
    DestroyWindow(panel);
    SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", nullptr);
  }

  static LRESULT CALLBACK PanelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<FavoritesFixture*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    LRESULT result = 0;
    if (self != nullptr && self->pane &&
        self->pane->HandleMessage(window, message, wParam, lParam, &result)) {
      return result;
    }
    return DefWindowProcA(window, message, wParam, lParam);
  }

  void Create() {
    FavoritesServices services;
    services.instance = GetModuleHandleA(nullptr);
    services.mainWindow = [this] { return panel; };
    services.loadFile = [this](const char* path) { loaded.push_back(path); };
    services.openFolder = [this](const char* path) { opened.push_back(path); };
    services.hostFlags = [this] { return hostFlags; };
    pane = FavoritesPane::Create(panel, services);
    ASSERT_TRUE(pane);
    pane->Load();
  }
  // Favorites(Models(cube.obj) Textures wood.png) with keys {0} to {4}.
  void CreateWithSample() {
    PutFavorites(
        "K={0}\ns=49\ni=0\nd=Favorites\nE\n"
        "K={1}\ns=21\ni=0\nd=Models\np={0}\n"
        "K={2}\ns=4\ni=1\nd=cube.obj\nn=X:\\models\\cube.obj\np={1}\n"
        "K={3}\ns=21\ni=0\nd=Textures\np={0}\n"
        "K={4}\ns=4\ni=1\nd=wood.png\nn=X:\\textures\\wood.png\np={0}\n");
    Create();
  }
  void Show() {
    ShowWindow(panel, SW_SHOW);
    ShowWindow(pane->window(), SW_SHOW);
    UpdateWindow(pane->window());
  }

  std::string file() const { return folder.Join(std::string_view("favorites.dat")); }
  void PutFavorites(const std::string& text) const { std::ofstream(file(), std::ios::binary) << text; }
  std::string Shown() const { return OutlineOf(pane->window()); }
  CHalvoTreeView& tree() { return pane->tree(); }
  FavoriteRecord& Record(const char* key) { return *tree().FindByKey(key); }
  void Select(const char* key) { tree().Select(&Record(key)); }

  // Middle of the record's label, in the tree's client area.
  POINT PointOf(const char* key) {
    RECT rect = {};
    TreeControl(tree().window()).ItemRect(static_cast<HTREEITEM>(Record(key).treeItem), &rect);
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
  }
  // A real press and release of the left button inside the tree.
  void Click(const char* key) {
    const POINT point = PointOf(key);
    // The control waits for the release inside its handling of the press.
    PostMessageA(tree().window(), WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    SendMessageA(tree().window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
  }

  test_support::TempDirectory folder;
  HWND panel = nullptr;
  std::unique_ptr<FavoritesPane> pane;
  std::vector<std::string> loaded;
  std::vector<std::string> opened;
  std::uint32_t hostFlags = 32;
};

}  // namespace file_explorer
