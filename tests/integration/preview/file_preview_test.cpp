// Previews of real files through the system's decoders and the renderer.
#include "src/preview/file_preview.h"

#include <gtest/gtest.h>
#include <objbase.h>
#include <wincodec.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/integration/preview/picture_files.h"
#include "tests/support/import_hook.h"
#include "tests/support/temp_directory.h"
#include "tests/unit/preview/model_files.h"

namespace file_explorer::preview {
namespace {

constexpr int kSize = 64;
constexpr std::uint32_t kRed = 0xFFE02010;
constexpr std::uint32_t kBlue = 0xFF1020E0;

class FilePreview : public testing::Test {
 protected:
  FilePreview() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~FilePreview() override { CoUninitialize(); }

  std::optional<Picture> Make(const std::wstring& name, const std::string& content,
                              const PreviewLimits& limits = PatientLimits()) {
    const std::wstring path = folder_.AddFile(name, content);
    auto made = MakePreview(path.c_str(), nullptr, kSize, limits);
    if (!made) return std::nullopt;
    EXPECT_FALSE(made->isFromShell);
    EXPECT_EQ(made->picture.width, kSize);
    EXPECT_EQ(made->picture.height, kSize);
    EXPECT_TRUE(DeleteFileW(path.c_str()));  // nobody holds it
    return made->picture;
  }

  test_support::TempDirectory folder_;
};

void ExpectColor(const Picture& picture, int x, int y, std::uint32_t color, int tolerance = 3) {
  for (const int shift : {0, 8, 16, 24}) {
    EXPECT_NEAR(static_cast<int>((picture.At(x, y) >> shift) & 0xFF),
                static_cast<int>((color >> shift) & 0xFF), tolerance)
        << x << "," << y << " bits " << shift;
  }
}

std::uint32_t LeftRed(int x, int width) {
  return x < width / 2 ? kRed : kBlue;
}

// 200 by 100 pixels, so 64 by 32 in the middle of the square.
void ExpectLeftRedRightBlue(const std::optional<Picture>& picture, int tolerance = 3) {
  ASSERT_TRUE(picture);
  ExpectColor(*picture, 5, 32, kRed, tolerance);
  ExpectColor(*picture, 58, 32, kBlue, tolerance);
  EXPECT_EQ(picture->At(32, 14), 0U);
  EXPECT_EQ(picture->At(32, 50), 0U);
  ExpectColor(*picture, 5, 17, kRed, tolerance);
  ExpectColor(*picture, 5, 46, kRed, tolerance);
}

std::string EncodeHalves(const GUID& container, const GUID& format) {
  return picture_files::Encode(container, format, 200, 100, [](int x, int) { return LeftRed(x, 200); });
}

TEST_F(FilePreview, PicturesOfEachKindAreScaledIntoTheMiddle) {
  ExpectLeftRedRightBlue(Make(L"a.png", EncodeHalves(GUID_ContainerFormatPng, GUID_WICPixelFormat24bppBGR)));
  ExpectLeftRedRightBlue(Make(L"a.tif", EncodeHalves(GUID_ContainerFormatTiff, GUID_WICPixelFormat24bppBGR)));
  ExpectLeftRedRightBlue(Make(L"a.JPG", EncodeHalves(GUID_ContainerFormatJpeg, GUID_WICPixelFormat24bppBGR)),
                         12);
  ExpectLeftRedRightBlue(
      Make(L"a.bmp", picture_files::Bitmap(200, 100, [](int x, int) { return LeftRed(x, 200); })));
}

TEST_F(FilePreview, PaletteAndDeepPicturesAreShown) {
  ExpectLeftRedRightBlue(Make(L"palette.bmp", picture_files::PaletteBitmap(200, 100, kRed, kBlue)));
  const auto deep = Make(L"deep.tif", picture_files::DeepTiff(80, 80, 0xE0E0, 0x2020, 0x1010));
  ASSERT_TRUE(deep);
  ExpectColor(*deep, 32, 32, kRed);
}

TEST_F(FilePreview, TransparencyIsKept) {
  const auto picture =
      Make(L"a.png", picture_files::Encode(GUID_ContainerFormatPng, GUID_WICPixelFormat32bppBGRA, 128, 128,
                                           [](int x, int) { return x < 64 ? 0x80FF0000u : 0x00FFFFFFu; }));
  ASSERT_TRUE(picture);
  ExpectColor(*picture, 10, 32, 0x80800000);
  EXPECT_EQ(picture->At(50, 32), 0U);
}

TEST_F(FilePreview, SmallPicturesKeepTheirSize) {
  const auto picture = Make(L"a.bmp", picture_files::Bitmap(10, 6, [](int, int) { return kRed; }));
  ASSERT_TRUE(picture);
  int covered = 0;
  for (const std::uint32_t pixel : picture->pixels) covered += pixel >> 24 == 255 ? 1 : 0;
  EXPECT_EQ(covered, 60);
  ExpectColor(*picture, 32, 32, kRed);
}

TEST_F(FilePreview, ASinglePixelIsShown) {
  const auto picture = Make(L"a.bmp", picture_files::Bitmap(1, 1, [](int, int) { return kBlue; }));
  ASSERT_TRUE(picture);
}

TEST_F(FilePreview, PhotographsStandUpright) {
  const std::string jpeg =
      picture_files::WithOrientation(EncodeHalves(GUID_ContainerFormatJpeg, GUID_WICPixelFormat24bppBGR), 6);
  const auto picture = Make(L"a.jpg", jpeg);
  ASSERT_TRUE(picture);
  ExpectColor(*picture, 32, 5, kRed, 12);
  ExpectColor(*picture, 32, 58, kBlue, 12);
  EXPECT_EQ(picture->At(5, 32), 0U);
}

TEST_F(FilePreview, ModelsOfEachKindAreDrawn) {
  const model_files::Model cube = model_files::Cube();
  const std::pair<const wchar_t*, std::string> files[] = {
      {L"a.obj", model_files::Obj(cube)},
      {L"text.stl", model_files::TextStl(cube)},
      {L"binary.STL", model_files::BinaryStl(cube)},
      {L"text.ply", model_files::TextPly(cube)},
      {L"little.ply", model_files::BinaryPly(cube, false)},
      {L"big.ply", model_files::BinaryPly(cube, true)},
      {L"a.3ds", model_files::ThreeDs(cube)},
      {L"\u7acb\u65b9.obj", model_files::Obj(cube)}};
  for (const auto& [name, content] : files) {
    const auto picture = Make(name, content);
    ASSERT_TRUE(picture) << std::string(name, name + std::wcslen(name));
    EXPECT_EQ(picture->At(32, 32) >> 24, 255U);
    EXPECT_EQ(picture->At(0, 0), 0U);
  }
}

TEST_F(FilePreview, DamagedFilesHaveNone) {
  const std::string noise = [] {
    std::string text;
    for (std::uint32_t i = 0, state = 1; i < 5000; ++i) {
      state = state * 1664525 + 1013904223;
      text += static_cast<char>(state >> 24);
    }
    return text;
  }();
  for (const wchar_t* const name : {L"a.png", L"a.jpg", L"a.gif", L"a.bmp", L"a.tif", L"a.ico", L"a.tga",
                                    L"a.obj", L"a.stl", L"a.ply", L"a.3ds"}) {
    EXPECT_FALSE(Make(name, noise)) << std::string(name, name + 5);
    EXPECT_FALSE(Make(name, "x")) << std::string(name, name + 5);
    EXPECT_FALSE(Make(name, "")) << std::string(name, name + 5);
  }
  // Right at its start, noise behind it.
  EXPECT_FALSE(Make(
      L"b.png", EncodeHalves(GUID_ContainerFormatPng, GUID_WICPixelFormat24bppBGR).substr(0, 40) + noise));
  EXPECT_FALSE(Make(L"b.stl", model_files::BinaryStl(model_files::Cube()).substr(0, 300)));
}

TEST_F(FilePreview, FilesOfOtherKindsAreNotOpened) {
  EXPECT_FALSE(Make(L"a.txt", model_files::Obj(model_files::Cube())));
  EXPECT_FALSE(Make(L"obj", model_files::Obj(model_files::Cube())));
}

TEST_F(FilePreview, FoldersDevicesAndMissingFilesHaveNone) {
  const PreviewLimits limits = PatientLimits();
  EXPECT_FALSE(MakePreview(folder_.AddFolder(L"folder.obj").c_str(), nullptr, kSize, limits));
  EXPECT_FALSE(MakePreview(folder_.Join(std::wstring_view(L"missing.obj")).c_str(), nullptr, kSize, limits));
  EXPECT_FALSE(MakePreview(L"\\\\.\\COM1.obj", nullptr, kSize, limits));
  EXPECT_FALSE(MakePreview(folder_.Join(std::wstring_view(L"NUL.obj")).c_str(), nullptr, kSize, limits));
  EXPECT_FALSE(MakePreview(L"", nullptr, kSize, limits));
  EXPECT_FALSE(MakePreview(static_cast<const wchar_t*>(nullptr), nullptr, kSize, limits));
  EXPECT_FALSE(MakePreview(static_cast<const char*>(nullptr), nullptr, kSize, limits));
}

TEST_F(FilePreview, FilesOfOtherMachinesAreLeftAloneUnlessTheyAreWanted) {
  EXPECT_FALSE(MakePreview(L"\\\\machine-that-is-not-there\\share\\a.obj", nullptr, kSize, PreviewLimits()));
}

DWORD attributes = 0;            // that every file has
std::vector<std::wstring> touched;  // files that were opened, and items that an extractor was looked for

BOOL WINAPI GiveAttributes(const wchar_t*, GET_FILEEX_INFO_LEVELS, void* result) {
  auto& facts = *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(result);
  facts = {};
  facts.dwFileAttributes = attributes;
  facts.nFileSizeLow = 1000;
  return TRUE;
}
HANDLE WINAPI RecordOpening(const wchar_t* path, DWORD, DWORD, SECURITY_ATTRIBUTES*, DWORD, DWORD, HANDLE) {
  touched.emplace_back(path);
  return INVALID_HANDLE_VALUE;
}
HRESULT WINAPI RecordItem(LPCITEMIDLIST, REFIID, void**, LPCITEMIDLIST*) {
  touched.emplace_back(L"item");
  return E_FAIL;
}

// Opening such a file fetches it from a tape or a cloud, for minutes, and perhaps for money.
TEST_F(FilePreview, AFileThatWouldHaveToBeFetchedIsOpenedByNobody) {
  const HMODULE self = GetModuleHandleW(nullptr);
  const test_support::ImportHook look(self, "GetFileAttributesExW", &GiveAttributes);
  const test_support::ImportHook open(self, "CreateFileW", &RecordOpening);
  const test_support::ImportHook bind(self, "SHBindToParent", &RecordItem);
  ASSERT_TRUE(look.installed() && open.installed() && bind.installed());
  const ITEMIDLIST item = {};
  constexpr DWORD kRecallOnOpen = 0x00040000;
  constexpr DWORD kRecallOnDataAccess = 0x00400000;
  for (const DWORD away : {DWORD{FILE_ATTRIBUTE_OFFLINE}, kRecallOnOpen, kRecallOnDataAccess}) {
    attributes = FILE_ATTRIBUTE_ARCHIVE | away;
    touched.clear();
    EXPECT_FALSE(MakePreview(L"C:\\a.obj", &item, kSize, PatientLimits()));
    EXPECT_TRUE(touched.empty()) << std::hex << away;
  }
  attributes = FILE_ATTRIBUTE_ARCHIVE;
  PreviewLimits limits = PatientLimits();
  limits.fileBytes = 999;
  EXPECT_FALSE(MakePreview(L"C:\\a.obj", &item, kSize, limits));
  EXPECT_FALSE(MakePreview(L"\\\\machine\\share\\a.obj", &item, kSize, PreviewLimits()));
  EXPECT_FALSE(MakePreview(static_cast<const wchar_t*>(nullptr), &item, kSize, PatientLimits()));
  EXPECT_TRUE(touched.empty()) << "too large, far away, unknown";
  limits.fileBytes = 1000;
  EXPECT_FALSE(MakePreview(L"C:\\a.obj", &item, kSize, limits));
  EXPECT_EQ(touched, (std::vector<std::wstring>{L"item", L"C:\\a.obj"})) << "the extractor first, then the file";
}

TEST_F(FilePreview, LimitsHold) {
  PreviewLimits limits = PatientLimits();
  limits.fileBytes = 100;
  EXPECT_FALSE(Make(L"a.obj", model_files::Obj(model_files::Cube()), limits));
  limits = PatientLimits();
  limits.picturePixels = 19999;
  EXPECT_FALSE(Make(L"a.bmp", picture_files::Bitmap(200, 100, [](int, int) { return kRed; }), limits));
  limits = PatientLimits();
  limits.mesh.triangles = 11;
  EXPECT_FALSE(Make(L"b.obj", model_files::Obj(model_files::Cube()), limits));
}

TEST_F(FilePreview, TheTimeOfAFileIsLimited) {
  PreviewLimits limits;
  limits.time = std::chrono::milliseconds(30);
  const std::string content =
      model_files::Obj(model_files::Sphere(400, 800));  // much more than fits in that time
  EXPECT_FALSE(Make(L"a.obj", content, limits));
  EXPECT_TRUE(Make(L"b.obj", model_files::Obj(model_files::Cube()), limits)) << "a small one fits";
}

TEST_F(FilePreview, APreviewThatNobodyWantsAnyMoreIsNotMade) {
  const std::atomic<bool> cancelled = true;
  PreviewLimits limits = PatientLimits();
  limits.cancelled = &cancelled;
  EXPECT_FALSE(Make(L"a.obj", model_files::Obj(model_files::Sphere(60, 60)), limits));
}

TEST_F(FilePreview, AHeaderOfBillionsOfPixelsReservesNothing) {
  std::string png = EncodeHalves(GUID_ContainerFormatPng, GUID_WICPixelFormat24bppBGR);
  png.replace(16, 8, "\x7F\xFF\xFF\xFF\x7F\xFF\xFF\xFF");
  EXPECT_FALSE(Make(L"a.png", png));
}

TEST_F(FilePreview, AFileThatSomebodyWritesIsReadAndOneThatSomebodyKeepsForHimselfHasNone) {
  const std::wstring path = folder_.AddFile(L"a.obj", model_files::Obj(model_files::Cube()));
  HANDLE held = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(MakePreview(path.c_str(), nullptr, kSize, PatientLimits()));
  CloseHandle(held);
  held = CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  EXPECT_FALSE(MakePreview(path.c_str(), nullptr, kSize, PatientLimits()));
  CloseHandle(held);
}

TEST_F(FilePreview, APathOfTheCodePageIsFound) {
  folder_.AddFile(L"a.obj", model_files::Obj(model_files::Cube()));
  const std::string path = folder_.Join(std::string_view("a.obj"));
  EXPECT_TRUE(MakePreview(path.c_str(), nullptr, kSize, PreviewLimits()));
}

TEST_F(FilePreview, SizesOutsideTheRangeAreRefused) {
  const std::wstring path = folder_.AddFile(L"a.obj", model_files::Obj(model_files::Cube()));
  for (const int size : {-1, 0, 15, 513, 1 << 30}) {
    EXPECT_FALSE(MakePreview(path.c_str(), nullptr, size, PatientLimits())) << size;
  }
  EXPECT_TRUE(MakePreview(path.c_str(), nullptr, 16, PatientLimits()));
  EXPECT_TRUE(MakePreview(path.c_str(), nullptr, 256, PatientLimits()));
}

}  // namespace
}  // namespace file_explorer::preview
