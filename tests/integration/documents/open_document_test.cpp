// Which view a file gets, whatever is in it and whatever it is called.
#include <gtest/gtest.h>

#include "tests/integration/documents/view_host.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"
#include "workbench/app/documents/document_view.h"
#include "workbench/app/documents/text_view.h"

namespace document_tests {
namespace {

using test_support::TempDirectory;

struct KindCase {
  const wchar_t* name;
  std::string content;
  const wchar_t* kind;
  const wchar_t* summary;
};

TEST(OpenDocument, ChoosesTheViewByContentAndName) {
  using namespace std::string_literals;
  const KindCase cases[] = {
      {L"red.bmp", BitmapFile(30, 20, RGB(255, 0, 0)), L"picture", L"30 x 20 pixels, 24 bits"},
      {L"picture without extension", BitmapFile(3, 2, RGB(255, 0, 0)), L"picture", L"3 x 2 pixels, 24 bits"},
      {L"small.png", SmallPng(), L"picture", L"2 x 2 pixels, 32 bits"},
      {L"wrong name.txt", SmallPng(), L"picture", L"2 x 2 pixels, 32 bits"},
      {L"cube.obj", "v 0 0 0\nv 1 0 0\n", L"text", L"3 lines, ASCII"},
      {L"one.txt", "only one line", L"text", L"1 line, ASCII"},
      {L"empty.txt", "", L"text", L"1 line, ASCII"},
      {L"utf8.md", "gr\xC3\xBC\xC3\x9F dich\n", L"text", L"2 lines, UTF-8"},
      {L"utf16.txt", "\xFF\xFEh\0i\0"s, L"text", L"1 line, UTF-16"},
      {L"BMP is how this text begins", "BMP is a format of pictures\n", L"text", L"2 lines, ASCII"},
      {L"cube.3ds", "MM\0\0\x01\x02"s, L"information", L"3D scene, 6 bytes"},
      {L"empty.xyz", "", L"information", L"XYZ file, 0 bytes"},
      {L"zero.png", "", L"information", L"PNG picture, 0 bytes"},
      {L"cut.png", SmallPng().substr(0, 45), L"information", L"PNG picture, 45 bytes"},
      {L"text.png", "this is no picture", L"information", L"PNG picture, 18 bytes"},
  };
  const TempDirectory folder;
  ViewHost host;
  for (const KindCase& file : cases) {
    std::wstring error;
    const std::wstring path = folder.AddFile(file.name, file.content);
    const workbench::DocumentView* view = host.Open(path, &error);
    ASSERT_NE(view, nullptr) << std::string(file.name, file.name + lstrlenW(file.name));
    EXPECT_EQ(view->kind(), file.kind) << std::string(file.name, file.name + lstrlenW(file.name));
    EXPECT_EQ(view->summary(), file.summary);
    EXPECT_EQ(view->title(), file.name);
    EXPECT_EQ(view->path(), path);
    EXPECT_EQ(error, L"");
    EXPECT_EQ(GetParent(view->window()), host.window());
  }
}

TEST(OpenDocument, CreatesTheWindowHidden) {
  const TempDirectory folder;
  ViewHost host;
  for (const wchar_t* name : {L"a.txt", L"a.bin"}) {
    const auto view =
        workbench::OpenDocumentView(host.window(), folder.AddFile(name, std::string("\1\0x", 3)), nullptr);
    ASSERT_NE(view, nullptr);
    EXPECT_FALSE(IsWindowVisible(view->window()));
  }
}

TEST(OpenDocument, OpensNamesOutsideTheCodePage) {
  const TempDirectory folder;
  ViewHost host;
  for (const wchar_t* name :
       {L"sc\u00E8ne \u30E2\u30C7\u30EB.obj", L"\U0001F600.png", L"\u0416\u0436.blend"}) {
    const workbench::DocumentView* view = host.Open(folder.AddFile(name, SmallPng()));
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->kind(), L"picture");
    EXPECT_EQ(view->title(), name);
  }
}

TEST(OpenDocument, OpensPathsOfOver260Characters) {
  const TempDirectory folder;
  std::wstring name;
  for (int i = 0; i < 6; ++i) name += std::wstring(60, L'a' + static_cast<wchar_t>(i)) + L"\\";
  const std::wstring path = folder.AddFile(name + L"deep.png", SmallPng());
  ASSERT_GT(path.size(), 260u);
  ViewHost host;
  const workbench::DocumentView* view = host.Open(path);
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view->kind(), L"picture");
  EXPECT_EQ(view->title(), L"deep.png");
}

TEST(OpenDocument, OpensNamesThatThePlainFormOfAPathWouldChange) {
  const TempDirectory folder;
  ViewHost host;
  for (const wchar_t* name : {L"trailing dot.", L"aux.txt", L"blank "}) {
    std::wstring error;
    const workbench::DocumentView* view = host.Open(folder.AddFile(name, "text\n"), &error);
    ASSERT_NE(view, nullptr) << std::string(error.begin(), error.end());
    EXPECT_EQ(view->kind(), L"text");
    EXPECT_EQ(view->title(), name);
  }
}

TEST(OpenDocument, OpensFoldersAndDrives) {
  const TempDirectory folder;
  ViewHost host;
  const workbench::DocumentView* view = host.Open(folder.AddFolder(L"sub"));
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view->kind(), L"information");
  EXPECT_EQ(view->title(), L"sub");
  EXPECT_EQ(view->summary(), L"Folder");
  ASSERT_NE(host.Open(folder.AddFolder(L"sub") + L"\\"), nullptr);
  EXPECT_EQ(host.view()->title(), L"sub");
  ASSERT_NE(host.Open(L"c:\\"), nullptr);
  EXPECT_EQ(host.view()->title(), L"c:\\");
}

TEST(OpenDocument, SaysWhyAPathCanNotBeRead) {
  const TempDirectory folder;
  ViewHost host;
  for (const std::wstring& path :
       {folder.Join(L"missing.txt"), folder.Join(L"no\\such\\folder.txt"), std::wstring(),
        std::wstring(L"q:\\nothing.txt"), std::wstring(L"bad|name?*")}) {
    std::wstring error;
    EXPECT_EQ(workbench::OpenDocumentView(host.window(), path, &error), nullptr);
    EXPECT_NE(error.find(L"can't be opened"), std::wstring::npos);
    EXPECT_NE(error.find(path), std::wstring::npos);
    EXPECT_EQ(error.find(L'\n'), std::wstring::npos);
    EXPECT_EQ(workbench::OpenDocumentView(host.window(), path, nullptr), nullptr);
  }
}

TEST(OpenDocument, SaysThatAnotherProgramHoldsTheFile) {
  const TempDirectory folder;
  ViewHost host;
  const std::wstring path = folder.AddFile(L"held.txt", "x");
  const HANDLE held =
      CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  std::wstring error;
  EXPECT_EQ(workbench::OpenDocumentView(host.window(), path, &error), nullptr);
  EXPECT_NE(error, L"");
  CloseHandle(held);
  EXPECT_NE(workbench::OpenDocumentView(host.window(), path, &error), nullptr);
}

TEST(OpenDocument, LeavesTheFileFreeForOtherPrograms) {
  const TempDirectory folder;
  ViewHost host;
  for (const wchar_t* name : {L"a.txt", L"a.png", L"a.3ds"}) {
    const std::wstring path = folder.AddFile(name, SmallPng());
    ASSERT_NE(host.Open(path), nullptr);
    EXPECT_TRUE(DeleteFileW(path.c_str())) << GetLastError();
  }
}

TEST(OpenDocument, RefusesAHugePictureWithAClearNote) {
  const TempDirectory folder;
  ViewHost host;
  std::string png = SmallPng();
  png.replace(16, 8, std::string("\0\0\xEA\x60\0\0\xEA\x60", 8));  // 60,000 x 60,000, says the header
  const std::pair<std::wstring, std::wstring> cases[] = {
      {folder.AddFile(L"huge.bmp", BitmapFile(30000, 30000, 0, false) + std::string(4096, 'x')),
       L"30,000 x 30,000"},
      {folder.AddFile(L"huge.png", png), L"60,000 x 60,000"},
  };
  for (const auto& [path, size] : cases) {
    const workbench::DocumentView* view = host.Open(path);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->kind(), L"information");
    const std::wstring note = WindowText(view->window());
    EXPECT_NE(note.find(size), std::wstring::npos) << std::string(note.begin(), note.end());
    EXPECT_NE(note.find(L"64 million"), std::wstring::npos);
  }
}

TEST(OpenDocument, OutlivesTheDestructionOfItsWindow) {
  const TempDirectory folder;
  ViewHost host;
  for (const wchar_t* name : {L"a.txt", L"a.png", L"a.3ds"}) {
    ViewHost other;
    const workbench::DocumentView* view = other.Open(folder.AddFile(name, SmallPng()));
    ASSERT_NE(view, nullptr);
    other.DestroyHostWindow();
    EXPECT_EQ(view->window(), nullptr);
    EXPECT_EQ(view->title(), name);
    other.CloseView();
  }
}

TEST(OpenDocument, TakesItsWindowWithIt) {
  const TempDirectory folder;
  ViewHost host;
  for (const wchar_t* name : {L"a.txt", L"a.png", L"a.3ds"}) {
    const HWND window = host.Open(folder.AddFile(name, SmallPng()))->window();
    EXPECT_TRUE(IsWindow(window));
    host.CloseView();
    EXPECT_FALSE(IsWindow(window));
  }
}

TEST(WelcomeView, ShowsWhileNothingIsOpen) {
  ViewHost host;
  host.Show(workbench::CreateWelcomeView(host.window()));
  EXPECT_EQ(host.view()->kind(), L"welcome");
  EXPECT_EQ(host.view()->path(), L"");
  EXPECT_TRUE(IsWindowVisible(host.view()->window()));
  EXPECT_EQ(host.PixelAt(1, 1), GetSysColor(COLOR_WINDOW));
  int dark = 0;
  for (int y = 0; y < 300; y += 3) {
    for (int x = 0; x < 400; x += 3) dark += host.PixelAt(x, y) != GetSysColor(COLOR_WINDOW);
  }
  EXPECT_GT(dark, 100) << "there is something to read";
}

}  // namespace
}  // namespace document_tests
