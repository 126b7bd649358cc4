// The committed bitmaps and icons, used as the programs use them.
#include <windows.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

namespace {

constexpr COLORREF kToolbarMask = RGB(251, 195, 0);
constexpr COLORREF kLightGrey = RGB(192, 192, 192);
constexpr COLORREF kGround = RGB(240, 240, 240);
constexpr int kRoomForALabel = 5;  // the picture under a toolbar's label stays empty

using Pixels = std::vector<COLORREF>;

std::string Source(const char* name) {
  return std::string(SOURCE_DIR) + "/" + name;
}

// An image list that is filled from a strip, as the toolbars fill theirs.
class Strip {
 public:
  Strip(const char* file, int width, int height, COLORREF mask) : width_(width), height_(height) {
    InitCommonControls();
    const auto bitmap = static_cast<HBITMAP>(
        LoadImageA(nullptr, Source(file).c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION));
    GetObjectA(bitmap, sizeof(info_), &info_);
    list_ = ImageList_Create(width, height, ILC_COLOR24 | ILC_MASK, 6, 4);
    if (bitmap) ImageList_AddMasked(list_, bitmap, mask);
    DeleteObject(bitmap);
  }
  ~Strip() { ImageList_Destroy(list_); }
  Strip(const Strip&) = delete;
  Strip& operator=(const Strip&) = delete;

  const BITMAP& info() const { return info_; }
  int count() const { return ImageList_GetImageCount(list_); }

  // The picture as it shows on the ground.
  Pixels Draw(int index) const {
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, width_, height_);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    const HBRUSH brush = CreateSolidBrush(kGround);
    const RECT all = {0, 0, width_, height_};
    FillRect(memory, &all, brush);
    DeleteObject(brush);
    ImageList_Draw(list_, index, memory, 0, 0, ILD_TRANSPARENT);
    Pixels pixels;
    for (int y = 0; y < height_; ++y) {
      for (int x = 0; x < width_; ++x) pixels.push_back(GetPixel(memory, x, y));
    }
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return pixels;
  }

 private:
  int width_, height_;
  BITMAP info_ = {};
  HIMAGELIST list_;
};

TEST(Bitmaps, TheToolbarStripHasThirtyEightPictures) {
  const Strip strip("src/res/ToolbarBitmaps1.bmp", 16, 15, kToolbarMask);
  EXPECT_EQ(strip.count(), 38);
  EXPECT_EQ(strip.info().bmHeight, 15);
  EXPECT_EQ(strip.info().bmBitsPixel, 24);
}

TEST(Bitmaps, EveryToolbarPictureDiffersFromEveryOther) {
  const Strip strip("src/res/ToolbarBitmaps1.bmp", 16, 15, kToolbarMask);
  std::set<Pixels> seen;
  for (int i = 0; i < strip.count(); ++i) EXPECT_TRUE(seen.insert(strip.Draw(i)).second) << i;
}

TEST(Bitmaps, NothingOfTheMaskColorShows) {
  for (const char* file : {"src/res/ToolbarBitmaps1.bmp", "src/res/ToolbarFavs.bmp"}) {
    const Strip strip(file, 16, 15, kToolbarMask);
    ASSERT_GT(strip.count(), 0);
    for (int i = 0; i < strip.count(); ++i) {
      const Pixels pixels = strip.Draw(i);
      EXPECT_EQ(std::count(pixels.begin(), pixels.end(), kToolbarMask), 0) << file << " " << i;
      const auto ground = std::count(pixels.begin(), pixels.end(), kGround);
      EXPECT_EQ(ground == 240, strip.count() == 38 && i == kRoomForALabel)
          << file << " " << i << " shows something";
      EXPECT_GT(ground, 0) << file << " " << i << " has a background that is left free";
    }
  }
}

TEST(Bitmaps, TheFavoritesStripHasAFolderAndAReference) {
  const Strip strip("src/res/ToolbarFavs.bmp", 16, 15, kToolbarMask);
  EXPECT_EQ(strip.count(), 2);
  EXPECT_EQ(strip.info().bmHeight, 15);
  EXPECT_NE(strip.Draw(0), strip.Draw(1));
}

TEST(Bitmaps, ThePagePicturesStandOnLightGrey) {
  for (const char* file : {"src/res/FolderBitmap.bmp", "src/res/PanelBitmap.bmp"}) {
    const Strip strip(file, 16, 16, kLightGrey);
    EXPECT_EQ(strip.count(), 1) << file;
    EXPECT_EQ(strip.info().bmHeight, 16) << file;
    const Pixels pixels = strip.Draw(0);
    EXPECT_EQ(std::count(pixels.begin(), pixels.end(), kLightGrey), 0) << file;
    EXPECT_LT(std::count(pixels.begin(), pixels.end(), kGround), 150) << file;
  }
}

TEST(Icons, HaveEverySize) {
  for (const char* file : {"src/res/explorer.ico", "workbench/app/res/workbench.ico"}) {
    for (const int size : {16, 20, 24, 32, 48, 256}) {
      const auto icon = static_cast<HICON>(
          LoadImageA(nullptr, Source(file).c_str(), IMAGE_ICON, size, size, LR_LOADFROMFILE));
      ASSERT_NE(icon, nullptr) << file << " " << size;
      ICONINFO info = {};
      ASSERT_TRUE(GetIconInfo(icon, &info));
      BITMAP bitmap = {};
      GetObjectA(info.hbmColor, sizeof(bitmap), &bitmap);
      EXPECT_EQ(bitmap.bmWidth, size) << file;
      DeleteObject(info.hbmColor);
      DeleteObject(info.hbmMask);
      DestroyIcon(icon);
    }
  }
}

}  // namespace
