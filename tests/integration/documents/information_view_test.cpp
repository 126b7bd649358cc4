#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "tests/integration/documents/view_host.h"
#include "tests/support/temp_directory.h"

namespace document_tests {
namespace {

using test_support::TempDirectory;

std::vector<HWND> Children(HWND window) {
  std::vector<HWND> children;
  EnumChildWindows(
      window,
      [](HWND child, LPARAM list) -> BOOL {
        reinterpret_cast<std::vector<HWND>*>(list)->push_back(child);
        return TRUE;
      },
      reinterpret_cast<LPARAM>(&children));
  return children;
}

std::vector<std::wstring> Texts(HWND window) {
  std::vector<std::wstring> texts;
  for (const HWND child : Children(window)) texts.push_back(WindowText(child));
  return texts;
}

bool Has(const std::vector<std::wstring>& texts, const std::wstring& text) {
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

TEST(InformationView, TellsNamePathTypeSizeAndDates) {
  const TempDirectory folder;
  ViewHost host(600, 400);
  const std::wstring path = folder.AddFile(L"cube \u00E9.3ds", std::string(2048, '\0'));
  const HANDLE file = CreateFileW(path.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  const SYSTEMTIME local = {2021, 3, 0, 4, 5, 6, 7, 0};
  SYSTEMTIME universal = {};
  FILETIME time = {};
  TzSpecificLocalTimeToSystemTime(nullptr, &local, &universal);
  SystemTimeToFileTime(&universal, &time);
  ASSERT_TRUE(SetFileTime(file, nullptr, nullptr, &time));
  CloseHandle(file);
  ASSERT_NE(host.Open(path), nullptr);
  const auto texts = Texts(host.view()->window());
  EXPECT_TRUE(Has(texts, L"cube \u00E9.3ds"));
  EXPECT_TRUE(Has(texts, path));
  EXPECT_TRUE(Has(texts, L"3D scene"));
  EXPECT_TRUE(Has(texts, L"2.00 KB (2,048 bytes)"));
  EXPECT_TRUE(Has(texts, L"4 March 2021, 05:06"));
}

TEST(InformationView, HasTextsThatCanBeSelectedAndCopiedButNotChanged) {
  const TempDirectory folder;
  ViewHost host(600, 400);
  const std::wstring path = folder.AddFile(L"a.3ds", std::string("\0", 1));
  ASSERT_NE(host.Open(path), nullptr);
  bool found = false;
  for (const HWND child : Children(host.view()->window())) {
    EXPECT_NE(GetWindowLongW(child, GWL_STYLE) & ES_READONLY, 0);
    if (WindowText(child) != path) continue;
    found = true;
    SendMessageW(child, EM_SETSEL, 0, -1);
    SendMessageW(child, WM_COPY, 0, 0);
    EXPECT_EQ(ClipboardText(), path);
  }
  EXPECT_TRUE(found);
}

TEST(InformationView, SaysWhyAPictureIsNotShown) {
  const TempDirectory folder;
  ViewHost host;
  host.Open(folder.AddFile(L"zero.png", ""));
  EXPECT_EQ(WindowText(host.view()->window()), L"The file is empty, so there is no picture to show.");
  host.Open(folder.AddFile(L"cut.png", SmallPng().substr(0, 45)));
  EXPECT_EQ(WindowText(host.view()->window()), L"The picture is damaged and can't be shown.");
  host.Open(folder.AddFile(L"cube.3ds", std::string("\0", 1)));
  EXPECT_EQ(WindowText(host.view()->window()), L"");
}

TEST(InformationView, BreaksALongPathIntoLinesInsideTheWindow) {
  const TempDirectory folder;
  ViewHost host(420, 500);
  const std::wstring path = folder.AddFile(std::wstring(150, L'n') + L".3ds", std::string("\0", 1));
  ASSERT_NE(host.Open(path), nullptr);
  for (const HWND child : Children(host.view()->window())) {
    RECT place = {};
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, host.window(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_LE(place.right, 420);
    EXPECT_LE(place.bottom, 500);
    if (WindowText(child) != path) continue;
    EXPECT_GT(SendMessageW(child, EM_GETLINECOUNT, 0, 0), 1);
  }
}

TEST(InformationView, ScrollsInALowWindow) {
  const TempDirectory folder;
  ViewHost host(400, 120);
  ASSERT_NE(host.Open(folder.AddFile(L"a.3ds", std::string("\0", 1))), nullptr);
  const HWND window = host.view()->window();
  EXPECT_NE(GetWindowLongW(window, GWL_STYLE) & WS_VSCROLL, 0);
  RECT before = {};
  RECT after = {};
  const HWND child = Children(window).front();
  GetWindowRect(child, &before);
  SendMessageW(window, WM_VSCROLL, SB_LINEDOWN, 0);
  GetWindowRect(child, &after);
  EXPECT_LT(after.top, before.top);
  SetWindowPos(window, nullptr, 0, 0, 400, 600, SWP_NOZORDER | SWP_NOMOVE);
  EXPECT_EQ(GetWindowLongW(window, GWL_STYLE) & WS_VSCROLL, 0);
}

}  // namespace
}  // namespace document_tests
