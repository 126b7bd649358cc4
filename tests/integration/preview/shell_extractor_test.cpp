// Pictures by the shell's extractor, with an extractor of the test's own: not every shell has one.
#include "src/preview/shell_extractor.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace file_explorer::preview {
namespace {

using testing::ElementsAre;

// Gives a bitmap of one colour. Lives on the stack, so that its references are not counted.
class OneColour final : public IExtractImage {
 public:
  OneColour(int width, int height) : width_(width), height_(height) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void** object) override {
    *object = nullptr;
    return E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE GetLocation(LPWSTR, DWORD, DWORD*, const SIZE* size, DWORD depth,
                                        DWORD* flags) override {
    calls.push_back("location for " + std::to_string(size->cx) + " by " + std::to_string(size->cy) + ", " +
                    std::to_string(depth) + " bits, flags " + std::to_string(*flags));
    return location;
  }
  HRESULT STDMETHODCALLTYPE Extract(HBITMAP* result) override {
    calls.push_back("extract");
    if (crashes) RaiseException(EXCEPTION_ACCESS_VIOLATION, 0, 0, nullptr);
    if (FAILED(extraction)) return extraction;
    const std::vector<std::uint32_t> pixels(static_cast<std::size_t>(width_ * height_), 0x00C80A14);
    *result = bitmap = CreateBitmap(width_, height_, 1, 32, pixels.data());
    return S_OK;
  }

  HRESULT location = S_OK;
  HRESULT extraction = S_OK;
  bool crashes = false;
  std::vector<std::string> calls;
  HBITMAP bitmap = nullptr;

 private:
  int width_;
  int height_;
};

TEST(ShellExtractor, IsAskedForItsLocationFirstAndGivesAnOpaquePicture) {
  OneColour extractor(64, 48);
  const std::optional<Picture> picture = ExtractPicture(extractor, 64);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width, 64);
  EXPECT_EQ(picture->height, 48);
  EXPECT_EQ(picture->At(0, 0), 0xFFC80A14);
  EXPECT_EQ(picture->At(63, 47), 0xFFC80A14);
  EXPECT_THAT(
      extractor.calls,
      ElementsAre("location for 64 by 64, 24 bits, flags " + std::to_string(IEIFLAG_ASPECT | IEIFLAG_OFFLINE), "extract"));
  EXPECT_EQ(GetObjectType(extractor.bitmap), 0u);  // released
}

TEST(ShellExtractor, ALargerPictureIsCutToTheSize) {
  OneColour extractor(100, 80);
  const std::optional<Picture> picture = ExtractPicture(extractor, 64);
  ASSERT_TRUE(picture);
  EXPECT_EQ(picture->width, 64);
  EXPECT_EQ(picture->height, 64);
}

TEST(ShellExtractor, FailuresGiveNone) {
  OneColour nowhere(64, 64);
  nowhere.location = E_FAIL;
  EXPECT_FALSE(ExtractPicture(nowhere, 64));
  EXPECT_EQ(nowhere.calls.size(), 1u);
  OneColour broken(64, 64);
  broken.extraction = E_FAIL;
  EXPECT_FALSE(ExtractPicture(broken, 64));
}

TEST(ShellExtractor, OneThatCrashesTakesNobodyWithIt) {
  OneColour damaged(64, 64);
  damaged.crashes = true;
  EXPECT_FALSE(ExtractPicture(damaged, 64));
  EXPECT_EQ(damaged.calls.size(), 2u);
}

TEST(ShellExtractor, AnItemThatIsNoneHasNone) {
  const ITEMIDLIST desktop = {};
  EXPECT_FALSE(ExtractShellPicture(&desktop, 64));
}

}  // namespace
}  // namespace file_explorer::preview
